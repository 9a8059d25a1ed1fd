#include "ui/settings_registry.h"
#include "common/test_support.h"
#include "platform/headless_host.h"
#include "support/debug_check.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <atomic>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <mutex>
#include <iterator>
#include <sys/stat.h>
#include <csignal>
#include <sys/wait.h>
#include <unistd.h>

namespace {

std::mutex gCaptureLock;
int gCaptureDepth = 0;
std::vector<std::string> gCaptured;

void TestAssertHandler(const char* expression, const char* file, unsigned line) {
    std::unique_lock<std::mutex> hold(gCaptureLock);
    if (gCaptureDepth > 0) return gCaptured.push_back(expression);
    hold.unlock();
    ADD_FAILURE_AT(file, static_cast<int>(line)) << "check failed: " << expression;
}

} // namespace

AssertCapture::AssertCapture() {
    std::lock_guard<std::mutex> hold(gCaptureLock);
    if (gCaptureDepth++ == 0) gCaptured.clear();
}

AssertCapture::~AssertCapture() {
    std::lock_guard<std::mutex> hold(gCaptureLock);
    --gCaptureDepth;
}

std::vector<std::string> AssertCapture::Messages() const {
    std::lock_guard<std::mutex> hold(gCaptureLock);
    return gCaptured;
}

ProcessResult RunCli(const std::vector<std::string>& args, const std::string& dir, int signal,
                     const std::string& waitFor) {
    TempDir scratch;
    std::string outPath = scratch.File("out"), errPath = scratch.File("err");
    pid_t pid = fork();
    if (pid == 0) {
        if (!dir.empty() && chdir(dir.c_str()) != 0) _exit(126);
        if (!std::freopen("/dev/null", "r", stdin) || !std::freopen(outPath.c_str(), "w", stdout) ||
            !std::freopen(errPath.c_str(), "w", stderr))
            _exit(126);
        std::vector<char*> argv{const_cast<char*>(VANTREL_CLI_PATH)};
        for (const auto& a : args)
            argv.push_back(const_cast<char*>(a.c_str()));
        argv.push_back(nullptr);
        execv(argv[0], argv.data());
        _exit(127);
    }
    int status = 0;
    bool reaped = false;
    for (int waited = 0; signal && !reaped && waited < 60000; waited += 20) {
        if (ReadWholeFile(outPath).find(waitFor) != std::string::npos) {
            kill(pid, signal);
            break;
        }
        reaped = waitpid(pid, &status, WNOHANG) == pid;
        usleep(20000);
    }
    if (!reaped) waitpid(pid, &status, 0);
    return {WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status),
            ReadWholeFile(outPath), ReadWholeFile(errPath)};
}

TempDir::TempDir() {
    static std::atomic<int> serial{0};
    path_ = std::string(VANTREL_BINARY_DIR) + "/test-tmp/t" + std::to_string(getpid()) + "_" +
            std::to_string(serial++);
    std::filesystem::remove_all(path_);
    std::filesystem::create_directories(path_);
}

TempDir::~TempDir() {
    std::error_code ec;
    std::filesystem::remove_all(path_, ec);
}

std::string ReadWholeFile(const std::string& path) {
    std::ifstream in(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
}

void WriteWholeFile(const std::string& path, const std::string& text) {
    std::ofstream(path, std::ios::binary | std::ios::trunc) << text;
}

std::string UnwritableFolder(const TempDir& dir) {
    if (geteuid() == 0) return WriteWholeFile(dir.File("plain"), ""), dir.File("plain/sub");
    std::filesystem::create_directory(dir.File("locked"));
    chmod(dir.File("locked").c_str(), 0555);
    return dir.File("locked");
}

// Every test starts on the headless host with a clean record and checks that fail the test.
class HeadlessEnvironment : public ::testing::EmptyTestEventListener {
    void OnTestStart(const ::testing::TestInfo&) override {
        SetHost(nullptr);
        HeadlessReset();
        SetAssertHandler(TestAssertHandler);
    }
};

int main(int argc, char** argv) {
    // Widget tests run without a display unless one is asked for.
    setenv("QT_QPA_PLATFORM", "offscreen", 0);
    ::testing::InitGoogleMock(&argc, argv);
    InstallSettingsGroups();
    ::testing::UnitTest::GetInstance()->listeners().Append(new HeadlessEnvironment);
    return RUN_ALL_TESTS();
}
