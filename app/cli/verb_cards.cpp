// vantrel-cli cards: the hardware report of DetectCards over the chosen driver.
#include "cli_verbs.h"
#include "instrument/daq/daq_driver.h"
#include "instrument/daq_cards.h"
#include "support/cmdline.h"

#include <climits>
#include <cstdio>
#include <string>
#include <unistd.h>

namespace {

// nidaq.ini and SCXI.ini live beside the executable, not in the working folder.
std::string ProgramFolder() {
    char path[PATH_MAX];
    ssize_t n = readlink("/proc/self/exe", path, sizeof path - 1);
    if (n <= 0) return ".";
    std::string exe(path, static_cast<size_t>(n));
    size_t slash = exe.rfind('/');
    return slash == std::string::npos ? "." : exe.substr(0, slash);
}

} // namespace

// -simdaq:PATH is left in the parsed command line for the sim driver.
int RunCardsVerb(int, char**) {
    char driver[64];
    SwitchString("daq:", "sim", driver, sizeof driver);
    if (!SelectDaqDriver(driver)) {
        std::fprintf(stderr, "vantrel-cli: no driver '%s' (drivers: %s)\n", driver,
                     DaqDriverNames());
        return 3;
    }
    return PrintCardsReport(ProgramFolder().c_str(), "vantrel-cli", stdout, stderr);
}
