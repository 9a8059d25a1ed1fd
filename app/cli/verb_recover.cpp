// vantrel-cli recover: every journal that a killed run left in the automatic data folder becomes
// a data pair there, without asking.
#include "cli_startup.h"
#include "cli_verbs.h"
#include "files/data_file.h"
#include "files/run_journal_recover.h"
#include "measure/run_journal.h"
#include "ui/measure_command.h"

#include <cstdio>
#include <string>

int RunRecoverVerb(int, char**) {
    if (int status = CliStartInstrument(true)) return status;
    PrepareRunJournal();
    const std::vector<std::string> journals = LeftJournals(gJournalFolder);
    if (journals.empty()) {
        std::printf("no journal to recover in %s\n", gJournalFolder);
        return 0;
    }
    int status = 0;
    for (const std::string& journal : journals) {
        std::string pair, report;
        const int written = RecoverJournal(journal.c_str(), pair, report);
        std::printf("%s\n", report.c_str());
        if (written == DATA_PAIR_DONE) {
            std::printf("data: %s\n", pair.c_str());
        } else if (written != -1) {
            std::fprintf(stderr, "vantrel-cli: can not write %s\n", pair.c_str());
            status = 1;
        }
    }
    return status;
}
