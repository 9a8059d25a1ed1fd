// CommandDispatch: one case per command of the table that is built. Commands reach the window
// only through MainWindow() and the user only through the host, so all of them run headless.
#include "curve/undo.h"
#include "files/data_file.h"
#include "files/data_file_options.h"
#include "settings/profile.h"
#include "ui/settings_registry.h"
#include "instrument/autozero.h"
#include "instrument/averaging.h"
#include "instrument/thermometer.h"
#include "ui/thermometer_window.h"
#include "measure/ivc_options.h"
#include "measure/measure_options.h"
#include "platform/host.h"
#include "support/bounded_text.h"
#include "support/cmdline.h"
#include "support/message_box.h"
#include "support/program_folder.h"
#include "ui/axes_dialog.h"
#include "ui/command_table.h"
#include "ui/main_state.h"
#include "ui/main_window_calls.h"
#include "measure/ic_options.h"
#include "ui/math_command.h"
#include "ui/measure_command.h"
#include "ui/print_page.h"
#include "settings/setup_table.h"

#include <utility>

// The open filter keeps its last entry without a separator, as the program always had it.
const char kOpenDataFilter[] = "ASCII data files (*.dat)|*.dat|AutoCAD's DXB files "
                               "(*.dxb)|*.dxb|All files (*.*)*.*";
const char kSaveDataFilter[] = "ASCII data file (*.dat)|*.dat|All files (*.*)|*.*";
const char kOptionsFilter[] = "Vantrel configuration  (*.ini)|*.ini";

namespace {

SetupRow gUserRows[] = {SetupTextRow(101, gUserName, sizeof gUserName, "Setup", nullptr)};
const SetupText kUserTexts[] = {{101, SETUP_TEXT_LABEL, "&User name"}};
SetupTable gUserTable = {
    .rowCount = CountOf(gUserRows),
    .rows = gUserRows,
    .textCount = CountOf(kUserTexts),
    .texts = kUserTexts,
};

// The dialog starts in the last data folder.
bool AskDataPath(int save, const char* title, const char* filter, char* path, size_t size) {
    BoundedCopy(path, gLastDataFolder, size);
    if (path[0]) BoundedAppend(path, "/", size);
    return Host().FileDialog(save, title, filter, path, size) == 1;
}

int SaveAs(void* window) {
    char path[260];
    if (!AskDataPath(1, "Save As", kSaveDataFilter, path, sizeof path)) return 0;
    if (SaveDataFile(window, path) < 0) return 0;
    fDataSaved = 1;
    return 1;
}

int OpenCommand(void* window, int addMode) {
    if (!addMode && !AskSaveIfNeeded(window)) return 0;
    char path[260];
    if (!AskDataPath(0, addMode ? "Add" : "", kOpenDataFilter, path, sizeof path)) return 0;
    if (!SaveUndo()) return 0;
    if (OpenDataFile(window, path, addMode) < 0) return 0;
    fDataSaved = addMode ? 0 : 1;
    RefreshAll(window);
    return 1;
}

void Changed(void* window) {
    RefreshAll(window);
    fDataSaved = 0;
}

void SwapViewRanges() {
    if (gViewScale.scaleAuto) return;
    std::swap(gViewScale.xMin, gViewScale.yMin);
    std::swap(gViewScale.xMax, gViewScale.yMax);
}

void ReversePoints() {
    for (uint32_t c = 0; c < gCurves.count; ++c) {
        Curve& curve = gCurves.GetCurve(c);
        for (uint32_t i = 0, j = curve.count; i + 1 < j; ++i, --j)
            std::swap(curve.GetPoint(i), curve.GetPoint(j - 1));
    }
}

int FirstMarked() {
    return gCurves.CountMarked() ? gCurves.GetMarkedCurveIndex(0) : -1;
}

void LoadOptionsFrom(void* window, const char* path) {
    BoundedCopy(gIniFileName, path);
    LoadAllSettings(gIniFileName);
    LoadWindowPosition(window, gIniFileName);
    RefreshAll(window);
}

void SaveOptionsTo(void* window) {
    // One write of the file for both, so that a file that can't be written is told once.
    ProfileBatch batch(gIniFileName);
    SaveAllSettings(gIniFileName);
    SaveWindowPosition(window, gIniFileName);
    // The batch has told the failure; the time of the walk must not stand as if it saved.
    if (!batch.End()) Host().SetStatusText(0, "");
}

void HelpOutOfDate(void* window) {
    MessageBoxBeep(window,
                   "The help file is out-of-date. The latest information\nis available on the "
                   "web. See Help | about for the current\naddress of the web site.",
                   "Warning", MB_OK | MB_ICONWARNING);
}

// The check mark is the window's state. The window removes the check itself when it closes,
// whoever closes it.
void ToggleToolWindow(void* window, int command, int layout) {
    if (IsCommandChecked(command)) {
        MainWindow().CloseToolWindow(window, command);
        return;
    }
    MainWindow().OpenToolWindow(window, command, layout);
    SetCommandChecked(command, 1);
}

void OpenCommandLineFiles(void* window) {
    for (int n = 1; n < PositionalCount(); ++n)
        OpenDataFile(window, Positional(n), n > 1);
    fDataSaved = 1;
    RefreshAll(window);
}

int Run(void* window, int command) {
    if (MathCommand(window, command)) return 1; // the Math menu's curve operations
    switch (command) {
    case IDM_OPEN:
        return OpenCommand(window, 0);
    case IDM_ADD:
        return OpenCommand(window, 1);
    case IDM_SAVE:
        return SaveAs(window);
    case IDM_USER_NAME:
        Host().RunSetupDialog(&gUserTable, "User name");
        return 1;
    case IDM_EXIT:
        if (AskSaveIfNeeded(window)) MainWindow().Destroy(window);
        return 1;

    case IDM_UNDO:
        RestoreUndo();
        RefreshAll(window);
        return 1;
    case IDM_DESELECT:
        if (gSelectionState != 2) return 1;
        SetSelectionState(0);
        gCurves.UnmarkAll();
        RefreshAll(window);
        return 1;
    case IDM_RESELECT:
        if (gSelectionState == 0) SetSelectionState(2);
        RefreshAll(window);
        return 1;
    case IDM_CLEAR_SCREEN:
        SaveUndo();
        gCurves.Reset();
        gViewScale.scaleAuto = 1;
        RefreshAll(window);
        return 1;

    case IDM_DYDX_X:
    case IDM_DYDX_Y:
        SaveUndo();
        if (command == IDM_DYDX_X ? gCurves.DifferentiateX() : gCurves.DifferentiateY())
            ReportDiscardedCurves();
        Changed(window);
        return 1;
    case IDM_INTEGRATE:
        SaveUndo();
        gCurves.Integrate();
        Changed(window);
        return 1;
    case IDM_SWAP_XY:
        SwapViewRanges();
        gCurves.SwapAxes();
        RefreshAll(window);
        return 1;
    case IDM_REVERSE_POINTS:
        ReversePoints();
        RefreshAll(window);
        return 1;

    case IDM_TEMPERATURE:
        ToggleToolWindow(window, IDM_TEMPERATURE,
                         MainWindow().ShiftDown(window) ? kTermoLayoutWide : kTermoLayoutNarrow);
        return 1;
    case IDM_CURVE_MANAGEMENT:
        if (!SaveUndo()) return 1;
        MainWindow().ChooseCurve(window, -1);
        Changed(window);
        return 1;
    case IDM_CTX_PROPERTIES:
        if (!SaveUndo()) return 1;
        MainWindow().ChooseCurve(window, FirstMarked());
        Changed(window);
        return 1;
    case IDM_CTX_STYLE:
        if (FirstMarked() >= 0 && MainWindow().CurveStyle(window, FirstMarked()))
            RefreshAll(window);
        return 1;
    case IDM_CTX_DELETE:
        if (!SaveUndo()) return 1;
        gCurves.DeleteMarked();
        Changed(window);
        return 1;

    case IDM_MEASURE_IVC:
        MeasureCommand(window, "IVC", true);
        return 1;
    case IDM_MEASURE_ICH:
        MeasureCommand(window, "Ic(H)", true);
        return 1;
    case IDM_MEASURE_IMH:
        MeasureCommand(window, "Im(H)", true);
        return 1;
    case IDM_OPT_ICH:
        IcH_OptionsDialog(window);
        return 1;
    case IDM_OPT_VOLTAGES:
        ChannelPanelCommand(window, 1);
        return 1;
    case IDM_OPT_CURRENTS:
        ChannelPanelCommand(window, 0);
        return 1;

    case IDM_OPT_AVERAGING:
        AveragingSetupDialog();
        return 1;
    case IDM_OPT_DATA_FILE:
        ShowDataFileOptions();
        return 1;
    case IDM_OPT_THERMOMETER:
        TermometerSetupDialog(window);
        return 1;
    case IDM_SHOW_CALIBRATION_CURVE:
        SaveUndo();
        if (!ShowTemperatureCurve(window, gCurves)) RestoreUndo();
        Changed(window);
        return 1;
    case IDM_PRINT:
        PrintPlot(window);
        return 1;
    case IDM_PAGE_SETUP:
        PageSetupDialog(window);
        return 1;
    case IDM_OPT_PRINTING:
        PrintingOptionsDialog(window);
        return 1;
    case IDM_OPT_DELAY:
        Delays_OptionsDialog(window);
        return 1;
    case IDM_OPT_IVC:
        IVC_OptionsDialog(window);
        return 1;
    case IDM_OPT_TRIGGER:
        Trigger_OptionsDialog(window);
        return 1;
    case IDM_OPT_AXES:
        AxesOptionsDialog(window);
        RefreshAll(window);
        return 1;
    case IDM_OPT_AUTOZERO:
        AutoZeroOptionsDialog();
        return 1;
    case IDM_OPT_GENERAL:
        GeneralMeasure_OptionsDialog(window);
        RefreshAll(window);
        return 1;

    case IDM_LOAD_WINDOW_POSITION:
        LoadWindowPosition(window, gIniFileName);
        return 1;
    case IDM_SAVE_WINDOW_POSITION:
        SaveWindowPosition(window, gIniFileName);
        return 1;
    case IDM_LOAD_OPTIONS: {
        // Linux paths keep their "/": the dialog starts from the settings file as it is.
        char path[sizeof gIniFileName];
        BoundedCopy(path, gIniFileName);
        if (Host().FileDialog(0, "", kOptionsFilter, path, sizeof path) == 1)
            LoadOptionsFrom(window, path);
        return 1;
    }
    case IDM_SAVE_OPTIONS:
        SaveOptionsTo(window);
        return 1;
    case IDM_SAVE_OPTIONS_AS: {
        char path[sizeof gIniFileName];
        BoundedCopy(path, gIniFileName);
        if (Host().FileDialog(1, "", kOptionsFilter, path, sizeof path) == 1) {
            BoundedCopy(gIniFileName, path);
            SaveOptionsTo(window);
        }
        return 1;
    }

    case IDM_HELP_CONTENT:
    case IDM_HELP_SEARCH:
        HelpOutOfDate(window);
        return 1;
    case IDM_ABOUT:
        MainWindow().About(window);
        return 1;
    case IDM_OPEN_COMMAND_LINE_FILES:
        OpenCommandLineFiles(window);
        return 1;
    }
    return 0;
}

} // namespace

int CommandDispatch(void* window, int command) {
    const CommandRow* row = FindCommand(command);
    if (!row || !(row->flags & CMD_BUILT)) return 0;
    int result = Run(window, command);
    MainWindow().UpdateMenus(window);
    return result;
}

bool AskSaveIfNeeded(void* window) {
    if (fDataSaved) return true;
    int answer = MessageBoxBeep(window, "You have unsaved data!\nWould you like to save them now?",
                                gProgramName, MB_YESNOCANCEL | MB_ICONQUESTION);
    if (answer == IDCANCEL) return false;
    if (answer == IDYES) return SaveAs(window) != 0;
    return true;
}

bool RefuseInSelection(void* window) {
    if (gSelectionState != 0) {
        MessageBoxBeep(window, "This function is not implemented yet\nto work inside a selection.",
                       "Math & Selection", MB_OK | MB_ICONINFORMATION);
        return true;
    }
    gCurves.MarkAll();
    return false;
}

bool DropFiles(void* window, const char* const* paths, int count) {
    if (!AskSaveIfNeeded(window)) return false;
    for (int i = 0; i < count; ++i)
        OpenDataFile(window, paths[i], i > 0);
    RefreshAll(window);
    return true;
}
