// What the commands ask of the main window itself: repaint, title, closing, and the dialogs
// that belong to the window. The Qt window installs its table; without one the headless table
// only counts, so commands run in tests without a window.
#pragma once

struct MainWindowCalls {
    // Repaints the plot at once and sends the tool-window update message to the tool windows.
    void (*Refresh)(void* window);
    void (*SetTitle)(void* window, const char* title);
    // Ends the window and with it the program's message loop.
    void (*Destroy)(void* window);
    void (*About)(void* window);
    // The Choose Curve dialog on gCurves, opening on curve initial (-1 for none): the chosen
    // index, or -1.
    int (*ChooseCurve)(void* window, int initial);
    // The Curve Style dialog on slot (reduced modulo 14); 1 on OK.
    int (*CurveStyle)(void* window, int slot);
    // Menu items take their enabled and checked states from the command table again.
    void (*UpdateMenus)(void* window);
    // The modeless tool window of a command: open it in a layout, or ask it to close (it
    // removes its check mark itself as it closes).
    void (*OpenToolWindow)(void* window, int command, int layout);
    void (*CloseToolWindow)(void* window, int command);
    // Whether Shift was down with the input that gave the command: it picks another layout.
    int (*ShiftDown)(void* window);
};

const MainWindowCalls& MainWindow();
// Null puts back the headless table.
void SetMainWindowCalls(const MainWindowCalls* calls);

// What the headless table saw since the last reset.
struct HeadlessWindowRecord {
    int refreshes = 0;
    int destroyed = 0;
    int abouts = 0;
    int chooseCurve = 0;
    int curveStyle = 0;
    int lastStyleSlot = -1;
    int toolOpens = 0;
    int toolCloses = 0;
    int lastToolCommand = 0;
    int lastToolLayout = 0;
    int shiftDown = 0; // what ShiftDown answers
};
HeadlessWindowRecord& HeadlessWindow();

// Repaints and tells the tool windows; commands call it after any change to the data.
void RefreshAll(void* window);
