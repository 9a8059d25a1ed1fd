#include "support/user_folders.h"

#include "support/program_folder.h"

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <dirent.h>
#include <mutex>
#include <sys/stat.h>
#include <unistd.h>

namespace {

std::mutex gMutex;
bool gFound = false;
bool gUserFolders = false;
std::string gSettings;

bool IsFolder(const std::string& path) {
    struct stat s;
    return stat(path.c_str(), &s) == 0 && S_ISDIR(s.st_mode);
}

bool IsFile(const std::string& path) {
    struct stat s;
    return stat(path.c_str(), &s) == 0 && S_ISREG(s.st_mode);
}

// mkdir -p; true when the folder is there afterwards.
bool MakeFolders(const std::string& path) {
    if (path.empty() || IsFolder(path)) return true;
    const size_t slash = path.find_last_of('/', path.size() - 2);
    if (slash != std::string::npos && slash > 0 && !MakeFolders(path.substr(0, slash)))
        return false;
    return mkdir(path.c_str(), 0755) == 0 || errno == EEXIST;
}

// $name, or the home folder + fallback.
std::string XdgFolder(const char* name, const char* fallback) {
    const char* value = std::getenv(name);
    if (value && value[0] == '/') return value;
    const char* home = std::getenv("HOME");
    return std::string(home && *home ? home : "/tmp") + fallback;
}

bool CopyFile(const std::string& from, const std::string& to) {
    std::FILE* in = std::fopen(from.c_str(), "rb");
    if (!in) return false;
    std::FILE* out = std::fopen(to.c_str(), "wb");
    bool ok = out != nullptr;
    char buffer[8192];
    for (size_t n; ok && (n = std::fread(buffer, 1, sizeof buffer, in)) > 0;)
        ok = std::fwrite(buffer, 1, n, out) == n;
    std::fclose(in);
    if (out && std::fclose(out) != 0) ok = false;
    return ok;
}

// The shipped defaults into the settings folder, leaving every file that is already there.
void PlaceDefaults(const std::string& from, const std::string& to) {
    DIR* dir = opendir(from.c_str());
    if (!dir) return;
    while (dirent* e = readdir(dir)) {
        const std::string name = e->d_name;
        if (name[0] == '.' || !IsFile(from + name) || IsFile(to + name)) continue;
        if (!CopyFile(from + name, to + name))
            std::fprintf(stderr, "vantrel: can not copy %s to %s\n", (from + name).c_str(),
                         to.c_str());
    }
    closedir(dir);
}

void Find() {
    if (gFound) return;
    gFound = true;
    const std::string program = ProgramDirectory();
    const bool installed = IsFile(program + "../share/vantrel/vtl.ini");
    gUserFolders = installed || access(program.c_str(), W_OK) != 0;
    if (!gUserFolders) {
        gSettings = program;
        return;
    }
    gSettings = XdgFolder("XDG_CONFIG_HOME", "/.config") + "/vantrel/";
    if (!MakeFolders(gSettings)) {
        std::fprintf(stderr, "vantrel: can not make %s\n", gSettings.c_str());
        return;
    }
    PlaceDefaults(ShippedDefaultsDirectory(), gSettings);
}

} // namespace

bool UsesUserFolders() {
    std::lock_guard<std::mutex> lock(gMutex);
    Find();
    return gUserFolders;
}

const char* SettingsDirectory() {
    std::lock_guard<std::mutex> lock(gMutex);
    Find();
    return gSettings.c_str();
}

std::string UserDataFolder() {
    if (!UsesUserFolders()) return std::string();
    return XdgFolder("XDG_DATA_HOME", "/.local/share") + "/vantrel/data";
}

std::string ShippedDefaultsDirectory() {
    const std::string program = ProgramDirectory();
    const std::string share = program + "../share/vantrel/";
    return IsFolder(share) ? share : program;
}

void ResetUserFolders() {
    std::lock_guard<std::mutex> lock(gMutex);
    gFound = false;
}
