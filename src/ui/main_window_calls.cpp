#include "ui/main_window_calls.h"

#include "support/bounded_text.h"
#include "ui/command_table.h"
#include "ui/main_state.h"

namespace {

void HeadlessRefresh(void*) {
    ++HeadlessWindow().refreshes;
}
void HeadlessSetTitle(void*, const char* title) {
    BoundedCopy(gWindowTitle, title);
}
void HeadlessDestroy(void*) {
    ++HeadlessWindow().destroyed;
}
void HeadlessAbout(void*) {
    ++HeadlessWindow().abouts;
}
int HeadlessChooseCurve(void*, int) {
    ++HeadlessWindow().chooseCurve;
    return -1;
}
int HeadlessCurveStyle(void*, int slot) {
    ++HeadlessWindow().curveStyle;
    HeadlessWindow().lastStyleSlot = slot;
    return 1;
}
void HeadlessUpdateMenus(void*) {}
void HeadlessOpenToolWindow(void*, int command, int layout) {
    ++HeadlessWindow().toolOpens;
    HeadlessWindow().lastToolCommand = command;
    HeadlessWindow().lastToolLayout = layout;
}
// With no window to wait for, the close is at once and does what the closing window does.
void HeadlessCloseToolWindow(void*, int command) {
    ++HeadlessWindow().toolCloses;
    HeadlessWindow().lastToolCommand = command;
    SetCommandChecked(command, 0);
}
int HeadlessShiftDown(void*) {
    return HeadlessWindow().shiftDown;
}

const MainWindowCalls kHeadless = {
    .Refresh = HeadlessRefresh,
    .SetTitle = HeadlessSetTitle,
    .Destroy = HeadlessDestroy,
    .About = HeadlessAbout,
    .ChooseCurve = HeadlessChooseCurve,
    .CurveStyle = HeadlessCurveStyle,
    .UpdateMenus = HeadlessUpdateMenus,
    .OpenToolWindow = HeadlessOpenToolWindow,
    .CloseToolWindow = HeadlessCloseToolWindow,
    .ShiftDown = HeadlessShiftDown,
};
const MainWindowCalls* gCalls = &kHeadless;

} // namespace

const MainWindowCalls& MainWindow() {
    return *gCalls;
}

void SetMainWindowCalls(const MainWindowCalls* calls) {
    gCalls = calls ? calls : &kHeadless;
}

HeadlessWindowRecord& HeadlessWindow() {
    static HeadlessWindowRecord record;
    return record;
}

void RefreshAll(void* window) {
    MainWindow().Refresh(window);
}
