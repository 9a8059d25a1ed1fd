// vantrel-cli cards: the hardware report of DetectCards over the chosen driver.
#include "cli_startup.h"
#include "cli_verbs.h"

#include <cstdio>

int RunCardsVerb(int, char**) {
    if (int status = CliStartInstrument(false)) return status;
    std::fputs(CliHardwareReport(), stdout);
    return 0;
}
