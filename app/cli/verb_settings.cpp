// vantrel-cli settings: loads every settings group from one file and writes them all to
// another, or prints them. Shows what a settings file really holds after the program read it.
// The cards are detected first, as the program does before it reads its settings, so that the
// channel validators check the wiring against real cards rather than reset it.
#include "cli_startup.h"
#include "cli_verbs.h"
#include "support/cmdline.h"
#include "ui/settings_registry.h"

#include <cstdio>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <unistd.h>

int RunSettingsVerb(int, char**) {
    if (int status = CliStartInstrument(true)) return status;
    char output[4096];
    SwitchString("o:", "", output, sizeof output);
    if (output[0]) {
        if (!SaveAllSettings(output)) {
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
    if (!SaveAllSettings(scratch.c_str())) {
        std::fprintf(stderr, "vantrel-cli: can not write %s\n", scratch.c_str());
        return 1;
    }
    std::ifstream in(scratch, std::ios::binary);
    std::ostringstream text;
    text << in.rdbuf();
    std::filesystem::remove(scratch);
    std::fwrite(text.str().data(), 1, text.str().size(), stdout);
    return 0;
}
