#include "ui/measure_command.h"

#include "files/data_file.h"
#include "files/data_file_auto.h"
#include "measure/run_journal.h"
#include "settings/profile.h"
#include "ui/settings_registry.h"
#include "measure/measure_options.h"
#include "ui/command_table.h"
#include "ui/main_state.h"
#include "ui/main_window_calls.h"

#include <utility>

namespace {

int RunWithoutWindow(void* window, const MeasureParams& params) {
    return RunMeasurement(window, params);
}

MeasureDialogOpener gMeasureOpener = RunWithoutWindow;
ChannelPanelOpener gChannelOpener = nullptr;

} // namespace

void SetMeasureDialogOpener(MeasureDialogOpener opener) {
    gMeasureOpener = opener ? opener : RunWithoutWindow;
}

void SetChannelPanelOpener(ChannelPanelOpener opener) {
    gChannelOpener = opener;
}

int MeasureCommand(void* window, const char* title, bool swapRule) {
    const MeasureParams* params = FindMeasureParams(title);
    if (!params) return 0;
    PrepareRunJournal();
    int result = gMeasureOpener(window, *params);
    if (!result) {
        JournalDiscard();
        return 0;
    }
    if (RescalePlotAfterMeasurement) gViewScale.scaleAuto = 1;
    if (swapRule && SwapXY_Axes) {
        // A curve shown the other way round stays that way after each run.
        if (!gViewScale.scaleAuto) {
            std::swap(gViewScale.xMin, gViewScale.yMin);
            std::swap(gViewScale.xMax, gViewScale.yMax);
        }
        CommandDispatch(window, IDM_SWAP_XY);
    } else {
        RefreshAll(window);
    }
    fDataSaved = 0;
    char path[4096];
    if (WriteAutomaticDataPair(title, gIniFileName, path, sizeof path) == DATA_PAIR_DONE)
        JournalDiscard();
    return result;
}

void PrepareRunJournal() {
    fRunJournal =
        static_cast<std::int32_t>(ReadProfileLong("Measure", "RunJournal", 1, gIniFileName));
    AutoDataFolder(gIniFileName, gJournalFolder, sizeof gJournalFolder);
}

void ChannelPanelCommand(void* window, int voltages) {
    if (gChannelOpener) gChannelOpener(window, voltages, 0);
}
