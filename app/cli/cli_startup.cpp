#include "cli_startup.h"
#include "settings/profile.h"
#include "ui/settings_registry.h"
#include "instrument/daq/daq_driver.h"
#include "instrument/daq/sim_driver.h"
#include "instrument/daq_cards.h"
#include "instrument/virtual_channels.h"
#include "support/cmdline.h"
#include "support/program_folder.h"
#include "support/user_folders.h"

#include <cstdio>
#include <cstring>
#include <fstream>
#include <string>
#include <unistd.h>

namespace {

char gReport[kCardsReportSize];

// -set:Section/Key=value switches go into a private copy of the settings file, which is then
// loaded, so the user's file is never changed by a run.
int LoadSettingsWithOverrides() {
    char text[1024];
    std::string copy;
    for (int at = FindSwitchAfter(0, "set:", text, sizeof text); at;
         at = FindSwitchAfter(at, "set:", text, sizeof text)) {
        char* slash = std::strchr(text, '/');
        char* equals = slash ? std::strchr(slash, '=') : nullptr;
        if (!slash || !equals) {
            std::fprintf(stderr, "vantrel-cli: -set:%s is not Section/Key=value\n", text);
            return 2;
        }
        *slash = '\0';
        *equals = '\0';
        if (copy.empty()) {
            copy = std::string(gIniFileName) + ".run" + std::to_string(getpid());
            std::ifstream in(gIniFileName, std::ios::binary);
            std::ofstream out(copy, std::ios::binary | std::ios::trunc);
            out << in.rdbuf();
        }
        // Without its copy the run would go on with the built-in defaults.
        if (!WritePrivateProfileString(text, slash + 1, equals + 1, copy.c_str())) {
            std::fprintf(stderr, "vantrel-cli: can not write %s\n", copy.c_str());
            std::remove(copy.c_str());
            return 1;
        }
    }
    LoadAllSettings(copy.empty() ? gIniFileName : copy.c_str());
    if (!copy.empty()) std::remove(copy.c_str());
    return 0;
}

} // namespace

const char* CliHardwareReport() {
    return gReport;
}

int CliStartInstrument(bool loadSettings) {
    char driver[64];
    SwitchString("daq:", "sim", driver, sizeof driver);
    if (!SelectDaqDriver(driver)) {
        std::fprintf(stderr, "vantrel-cli: no driver '%s' (drivers: %s)\n", driver,
                     DaqDriverNames());
        return 2;
    }
    char simPath[4096];
    std::snprintf(simPath, sizeof simPath, "%ssimdaq.ini", SettingsDirectory());
    SwitchString("simdaq:", simPath, simPath, sizeof simPath);
    SimDaqSetPath(simPath);

    int result = DetectCards(gReport, sizeof gReport, SettingsDirectory());
    if (result != 0) {
        char message[512];
        CardsStartupMessage(result, "vantrel-cli", message, sizeof message);
        std::fprintf(stderr, "%s:\n%s\n\n%s:\n%s", kCardsStartupCaption, message,
                     kCardsReportCaption, gReport);
        return result;
    }
    InitDacState();
    if (!loadSettings) return 0;

    char ini[4096];
    std::snprintf(ini, sizeof ini, "%svtl.ini", SettingsDirectory());
    SwitchString("i:", ini, gIniFileName, sizeof gIniFileName);
    int status = LoadSettingsWithOverrides();
    // The zeros set before the settings were those of whatever DAC each record named then.
    InitDacState();
    return status;
}
