#include "ui/main_state.h"

#include "files/data_file.h"
#include "measure/measure_options.h"
#include "support/bounded_text.h"
#include "ui/dxb_read.h"
#include "ui/main_window_calls.h"

#include <cstdio>

const char gProgramName[] = "Vantrel";
char gWindowTitle[360] = "Vantrel";
int fDataSaved = 0;
ViewScale gViewScale;
char gHardwareReport[1024] = "";
int gSelectionState = 0;
int gSelectionMenu = 0;

void SetSelectionState(int state) {
    gSelectionState = state;
    if (state != 1) gSelectionMenu = state;
}

void SetTitleFromPath(const char* path) {
    std::snprintf(gWindowTitle, sizeof gWindowTitle, "%s -- %s", gProgramName, path);
}

namespace {

// The data files read and write the view and the window's flags, and tell the window after a
// file was opened or saved.
void FileShown(void* window, const char* title) {
    if (title) MainWindow().SetTitle(window, title);
    RefreshAll(window);
}

bool LinkDataFiles() {
    gDataFileLink.scaleAuto = &gViewScale.scaleAuto;
    gDataFileLink.xMin = &gViewScale.xMin;
    gDataFileLink.xMax = &gViewScale.xMax;
    gDataFileLink.yMin = &gViewScale.yMin;
    gDataFileLink.yMax = &gViewScale.yMax;
    gDataFileLink.fSwapXY_Axes = &SwapXY_Axes;
    gDataFileLink.fRescalePlotAfterMeasurement = &RescalePlotAfterMeasurement;
    gDataFileLink.Shown = FileShown;
    gDataFileLink.ReadDxb = ReadDxbFile;
    return true;
}

// gDataFileLink is constant-initialised, so it is there before this runs.
const bool kDataFilesLinked = LinkDataFiles();

} // namespace
