#include "ui/command_ids.h"
#include "files/data_file.h"
#include "files/run_journal_recover.h"
#include "measure/run_journal.h"
#include "platform/host.h"
#include "support/message_box.h"
#include "ui/measure_command.h"
#include "ui/startup.h"

#include "ui/settings_registry.h"
#include "instrument/daq_cards.h"
#include "instrument/virtual_channels.h"
#include "support/bounded_text.h"
#include "support/cmdline.h"
#include "support/program_folder.h"
#include "support/user_folders.h"
#include "ui/command_table.h"
#include "ui/main_state.h"

#include <cstdio>

bool SelectDriverFromCommandLine() {
    char name[64];
    SwitchString("daq:", "sim", name, sizeof name);
    if (SelectDaqDriver(name)) return true;
    std::fprintf(stderr, "vantrel: no driver '%s' (drivers: %s)\n", name, DaqDriverNames());
    return false;
}

int StartupCreate(void* window) {
    SwitchString("u:", "anonymous", gUserName, sizeof gUserName);
    int cards = DetectCards(gHardwareReport, sizeof gHardwareReport, SettingsDirectory());
    if (cards != 0) {
        ShowCardsStartupFailure(window, cards, gProgramName, gHardwareReport);
        return cards == 1 ? STARTUP_NO_DAC : STARTUP_NO_ADC;
    }
    InitDacState();
    char ini[sizeof gIniFileName];
    BoundedCopy(ini, SettingsDirectory(), sizeof ini);
    BoundedAppend(ini, "vtl.ini", sizeof ini);
    SwitchString("i:", ini, gIniFileName, sizeof gIniFileName);
    LoadAllSettings(gIniFileName);
    LoadWindowPosition(window, gIniFileName);
    return STARTUP_RUNNING;
}

namespace {

// Journals of runs that never ended (the program was killed): offered as data pairs.
void OfferJournalRecovery(void* window) {
    PrepareRunJournal();
    for (const std::string& journal : LeftJournals(gJournalFolder)) {
        char text[4400];
        std::snprintf(text, sizeof text,
                      "A measurement did not end (the program was stopped during the run).\n"
                      "Its points are kept in\n%s\n\nMake a data pair of them and open it?",
                      journal.c_str());
        if (MessageBoxBeep(window, text, gProgramName, MB_YESNO | MB_ICONQUESTION) != IDYES)
            continue;
        std::string pair, report;
        if (RecoverJournal(journal.c_str(), pair, report) == DATA_PAIR_DONE)
            OpenDataFile(window, pair.c_str(), 0);
        Host().SetStatusText(0, report.c_str());
    }
}

} // namespace

void StartupFinish(void* window, void (*post)(void* window, int command)) {
    OfferJournalRecovery(window);
    SetSelectionState(0);
    gViewScale.scaleAuto = 1;
    int command = PositionalCount() > 1 ? IDM_OPEN_COMMAND_LINE_FILES : IDM_ABOUT;
    if (post)
        post(window, command);
    else
        CommandDispatch(window, command);
}
