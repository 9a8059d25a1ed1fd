// vantrel-cli measure TITLE: one measurement over the headless host, as the dialog would run
// it, with its data pair written at the end.
#include "cli_startup.h"
#include "cli_verbs.h"
#include "files/run_journal_recover.h"
#include "instrument/autozero.h"
#include "measure/run_journal.h"
#include "ui/measure_command.h"
#include "curve/undo.h"
#include "files/data_file.h"
#include "files/data_file_auto.h"
#include "ui/settings_registry.h"
#include "measure/measure_run.h"
#include "support/cmdline.h"

#include <csignal>
#include <cstdio>
#include <cstring>

namespace {

// Ctrl-C asks for a stop as the Stop button does: the run ends cleanly and keeps its data.
void OnInterrupt(int) {
    fAbortRequested = 1;
}

void ListTitles() {
    std::fprintf(stderr, "measurements:");
    for (const MeasureParams* p = gMeasureParams; p->title; ++p)
        std::fprintf(stderr, " \"%s\"", p->title);
    std::fprintf(stderr, "\n");
}

// -from: -to: -step: -both: set the primary range on the common scale 0..65535.
void ApplyRangeSwitches(SweepRange& range) {
    range.from = static_cast<std::uint32_t>(SwitchInt("from:", static_cast<int>(range.from)));
    range.to = static_cast<std::uint32_t>(SwitchInt("to:", static_cast<int>(range.to)));
    range.step = static_cast<std::uint32_t>(SwitchInt("step:", static_cast<int>(range.step)));
    range.bothDirections =
        static_cast<std::uint32_t>(SwitchBool("both:", static_cast<int>(range.bothDirections)));
}

} // namespace

int RunMeasureVerb(int, char**) {
    const char* title = Positional(2);
    if (!title) {
        std::fprintf(stderr, "vantrel-cli: measure needs a title\n");
        ListTitles();
        return 2;
    }
    const MeasureParams* params = FindMeasureParams(title);
    if (!params) {
        std::fprintf(stderr, "vantrel-cli: no measurement \"%s\"\n", title);
        ListTitles();
        return 2;
    }
    if (int status = CliStartInstrument(true)) return status;

    if (params->primary) {
        MeasureWorkingRange1 = *params->primary;
        ApplyRangeSwitches(MeasureWorkingRange1);
        if (MeasureWorkingRange1.step == 0 || MeasureWorkingRange1.from > 65535 ||
            MeasureWorkingRange1.to > 65535) {
            std::fprintf(stderr, "vantrel-cli: the range runs from 0 to 65535 with a step > 0\n");
            return 2;
        }
        MeasurePointsN1 = SweepPointCount(MeasureWorkingRange1);
    }
    if (params->secondary) {
        MeasureWorkingRange2 = *params->secondary;
        MeasurePointsN2 = SweepPointCount(MeasureWorkingRange2);
    }

    // The dialog's AutoZero box: the offsets of every voltage and current at zero bias are
    // taken off all readings of the run.
    if (SwitchBool("autozero:", 0)) DoAutoZero(1, nullptr);

    PrepareRunJournal();
    for (const std::string& left : LeftJournals(gJournalFolder))
        std::fprintf(stderr,
                     "vantrel-cli: %s holds the points of a run that did not end; "
                     "'vantrel-cli recover' makes a data pair of them\n",
                     left.c_str());
    std::signal(SIGINT, OnInterrupt);
    int result = RunMeasurement(nullptr, *params);
    std::signal(SIGINT, SIG_DFL);
    if (result == 0) {
        JournalDiscard();
        std::fprintf(stderr, "vantrel-cli: %s measured nothing\n", title);
        return 1;
    }
    std::printf("%s: %u curve(s)%s\n", title, gCurves.count, fAbortRequested ? " (stopped)" : "");
    for (unsigned c = 0; c < gCurves.count; ++c)
        std::printf("  %-32s %u points\n", gCurves.GetCurve(c).GetName(),
                    gCurves.GetCurve(c).count);
    if (gCurves.count == 0) {
        JournalDiscard();
        return 0;
    }

    // A pair that failed has shown its box; the name goes to standard error and the exit
    // status tells the script.
    int status = 0;
    char path[4096];
    if (WriteAutomaticDataPair(title, gIniFileName, path, sizeof path) == DATA_PAIR_DONE) {
        JournalDiscard();
        std::printf("data: %s\n", path);
    } else {
        std::fprintf(stderr, "vantrel-cli: can not write %s\n", path);
        status = 1;
    }
    char out[4096];
    SwitchString("o:", "", out, sizeof out);
    if (out[0]) {
        if (WriteDataPairQuiet(out) != DATA_PAIR_DONE) {
            std::fprintf(stderr, "vantrel-cli: can not write %s\n", out);
            return 1;
        }
        std::printf("data: %s\n", out);
    }
    return status;
}
