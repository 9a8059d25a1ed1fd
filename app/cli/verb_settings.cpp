// vantrel-cli settings: loads every settings group from one file and writes them all to
// another, or prints them. Shows what a settings file really holds after the program read it.
#include "ui/settings_registry.h"
#include "support/bounded_text.h"
#include "support/cmdline.h"

#include <cstdio>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <unistd.h>

namespace {

std::string ProgramFolder() {
    std::error_code error;
    std::filesystem::path exe = std::filesystem::read_symlink("/proc/self/exe", error);
    return error ? std::string(".") : exe.parent_path().string();
}

} // namespace

int RunSettingsVerb(int argc, char** argv) {
    ParseArgv(argc, argv);
    char input[4096];
    char output[4096];
    std::string fallback = ProgramFolder() + "/vtl.ini";
    SwitchString("i:", fallback.c_str(), input, sizeof input);
    SwitchString("o:", "", output, sizeof output);
    BoundedCopy(gIniFileName, input);
    LoadAllSettings(input);

    if (output[0]) {
        SaveAllSettings(output);
        if (!std::filesystem::exists(output)) {
            std::fprintf(stderr, "vantrel-cli: can not write %s\n", output);
            return 1;
        }
        return 0;
    }
    // With no -o: the settings go through a scratch file, so that what is printed is exactly
    // what a save would write.
    std::string scratch =
        (std::filesystem::temp_directory_path() / "vantrel-settings-XXXXXX").string();
    int fd = mkstemp(scratch.data());
    if (fd < 0) {
        std::fprintf(stderr, "vantrel-cli: can not make a scratch file\n");
        return 1;
    }
    close(fd);
    std::filesystem::remove(scratch);
    SaveAllSettings(scratch.c_str());
    std::ifstream in(scratch, std::ios::binary);
    std::ostringstream text;
    text << in.rdbuf();
    std::filesystem::remove(scratch);
    std::fwrite(text.str().data(), 1, text.str().size(), stdout);
    return 0;
}
