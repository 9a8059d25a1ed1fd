#include "ui/command_table.h"

#include "curve/undo.h"
#include "ui/main_state.h"

#include <map>

namespace {

constexpr unsigned B = CMD_BUILT;
constexpr unsigned N = CMD_NOT_HANDLED;
constexpr unsigned D = CMD_DISABLED;
constexpr unsigned S = CMD_SEPARATOR;
constexpr unsigned T = CMD_CHECKABLE;
constexpr unsigned IN = CMD_IN_SELECTION;
constexpr unsigned OUT = CMD_OUT_SELECTION;
constexpr unsigned H = CMD_HIDDEN;

constexpr const char* F = "&File";
constexpr const char* E = "&Edit";
constexpr const char* V = "&View";
constexpr const char* M = "&Measurements";
constexpr const char* A = "&Math";
constexpr const char* O = "T&ools";
constexpr const char* P = "&Options";
constexpr const char* X = "&Help";
constexpr const char* C = "Context"; // the right-button menu of the plot
constexpr const char* WF = "Program WaveForm";

// Rows without CMD_BUILT belong to parts of the program that are not here yet: they stand in
// the menu, disabled, and CommandDispatch passes over them.
const CommandRow kRows[] = {
    {IDM_OPEN, F, nullptr, "&Open\tCtrl+O", "Ctrl+O", B},
    {IDM_ADD, F, nullptr, "&Add\tCtrl+A", "Ctrl+A", B},
    {IDM_SAVE, F, nullptr, "&Save\tCtrl+S", "Ctrl+S", B},
    {IDM_DXB_DXF, F, nullptr, "AutoCAD DXB+DXF", nullptr, S | N},
    {IDM_PRINT, F, nullptr, "&Print", nullptr, S | B},
    {IDM_PAGE_SETUP, F, nullptr, "Pa&ge Setup", nullptr, B},
    {IDM_USER_NAME, F, nullptr, "&User name", nullptr, S | B},
    {IDM_EXIT, F, nullptr, "E&xit \t Alt-X", "Alt+X", S | B},

    {IDM_UNDO, E, nullptr, "Undo\tCtrl+Z", "Ctrl+Z|Alt+Backspace", B | D},
    {IDM_CUT, E, nullptr, "Cut\tShift+Del", nullptr, S | N | D},
    {IDM_PASTE, E, nullptr, "Paste\tShift+Ins", nullptr, N | D},
    {IDM_COPY_TEXT, E, nullptr, "Copy as Text\tCtrl+C", nullptr, N | D},
    {IDM_COPY_METAFILE, E, nullptr, "Windows Metafile\tCtrl+Ins", nullptr, N | D},
    {IDM_COPY_BITMAP, E, nullptr, "Bitmap", nullptr, N | D},
    {IDM_DESELECT, E, nullptr, "&DeSelect\tD", "D", S | B | IN},
    {IDM_RESELECT, E, nullptr, "&ReSelect\tR", "R", B | OUT},
    {IDM_DELETE_POINTS_IN, E, nullptr, "Delete data points in\tDel", "Del", IN},
    {IDM_CLEAR_SCREEN, E, nullptr, "Clear Screen\t ", nullptr, S | B},

    {IDM_ZOOM_WINDOW, V, nullptr, "Zoom &Window\t", nullptr, IN},
    {IDM_ZOOM_IN, V, nullptr, "Zoom &In\tNum +", "Num++", 0},
    {IDM_ZOOM_OUT, V, nullptr, "Zoom &Out\tNum -", "Num+-", 0},
    {IDM_ZOOM_EXTENTS, V, nullptr, "Zoom &Extents\tCtrl+\\", "Ctrl+\\", 0},
    {IDM_ZOOM_PREVIOUS, V, nullptr, "Zoom &Previous\tBack Space", "Backspace", 0},
    {IDM_PAN_LEFT, V, nullptr, "Pan Left\tArrow Left", "Left", S},
    {IDM_PAN_RIGHT, V, nullptr, "Pan Right\tArrow Right", "Right", 0},
    {IDM_PAN_UP, V, nullptr, "Pan Up\tArrow Up", "Up", 0},
    {IDM_PAN_DOWN, V, nullptr, "Pan Down\tArrow Down", "Down", 0},

    {IDM_MEASURE_IVC, M, nullptr, "V(I)\tF2", "F2", B},
    {IDM_MEASURE_ICH, M, nullptr, "I&c(H)\tF3", "F3", B},
    {IDM_MEASURE_IMH, M, nullptr, "I&m(H)\tF4", "F4", B},
    {IDM_MEASURE_IVF, M, nullptr, "I-V &families\tF5", "F5", 0},
    {IDM_MEASURE_KEP, M, nullptr, "Ic(H) with &Reset\tF6", nullptr, D},
    {IDM_MEASURE_ICT, M, nullptr, "Ic(T) \tF7", "F7", 0},
    {IDM_MEASURE_VT, M, nullptr, "&V(T) && R(T)\tF8", "F8", 0},
    {IDM_MEASURE_WFM, M, nullptr, "V(I_wfm)\tF9", "F9", 0},
    {IDM_MEASURE_VTIME, M, nullptr, "V(time)\tF11", "F11", 0},
    {IDM_MEASURE_VDC_IAC, M, nullptr, "V_dc(I_ac)\tF12", "F12", 0},
    {IDM_MEASURE_CALIBRATION, M, nullptr, "&Calibration", nullptr, S},
    {IDM_SELF_CALIBRATION, M, nullptr, "Self Calibration", nullptr, N},
    {IDM_TEST1, M, "Test", "1", nullptr, N},
    {IDM_TEST2, M, "Test", "2", nullptr, N},
    {IDM_TEST3, M, "Test", "3", nullptr, N},
    {IDM_TEST4, M, "Test", "4", nullptr, N},

    {IDM_FILTER, A, nullptr, "&Filter", nullptr, B | OUT},
    {IDM_SMOOTH, A, nullptr, "&Smooth", nullptr, B | OUT},
    {IDM_SKIP_POINTS, A, nullptr, "Skip Extra Points", nullptr, B | OUT},
    {IDM_DYDX_X, A, nullptr, "Simple dy/dx (x)", nullptr, S | B | OUT},
    {IDM_DYDX_Y, A, nullptr, "Simple dy/dx (y)", nullptr, B | OUT},
    {IDM_INTEGRATE, A, nullptr, "Integrate", nullptr, B | OUT},
    {IDM_MULTI_DYDX_X, A, nullptr, "Multi-point dY/dX (X)", nullptr, B | OUT},
    {IDM_MULTI_DYDX_Y, A, nullptr, "Multi-point dY/dX (Y)", nullptr, B | OUT},
    {IDM_SHIFT, A, nullptr, "S&hift", nullptr, S | B},
    {IDM_SCALE, A, nullptr, "S&cale", nullptr, B},
    {IDM_ABS, A, nullptr, "&Abs", nullptr, B},
    {IDM_SELF_FIELD, A, nullptr, "Self-field", nullptr, B},
    {IDM_Y_AS_NEW_X, A, nullptr, "&y as new x", nullptr, B | OUT},
    {IDM_NORMALIZE_YMIN, A, nullptr, "(Y-Ymin) / Ymin", nullptr, B | OUT},
    {IDM_NORMALIZE_YMAX, A, nullptr, "(Y-Ymin) / Ymax", nullptr, B | OUT},
    {IDM_REGULARIZE, A, nullptr, "&Regularize", nullptr, S},
    {IDM_FFT, A, nullptr, "FF&T", nullptr, 0},
    {IDM_LOG10, A, nullptr, "Log_10", nullptr, 0},
    {IDM_PARAMS_TABLE, A, nullptr, "Ic, Rn, Ie, Vc table", nullptr, S},
    {IDM_HISTOGRAM_IC, A, nullptr, "Histogram of &Ic", nullptr, 0},
    {IDM_HISTOGRAM_RN, A, nullptr, "Histogram of &Rn", nullptr, OUT},
    {IDM_HISTOGRAM_IEX, A, nullptr, "Histogram of Ie&x", nullptr, 0},
    {IDM_IC_HISTOGRAM, A, nullptr, "Ic &histogram", nullptr, 0},
    {IDM_SIGMA_IC, A, nullptr, "Si&gma Ic", nullptr, 0},
    {IDM_STATISTICS, A, nullptr, "S&tatistics", nullptr, 0},
    {IDM_SWAP_XY, A, nullptr, "X <--> Y", nullptr, S | B | OUT},
    {IDM_REVERSE_POINTS, A, nullptr, "First pt <--> Last pt", nullptr, B | OUT},

    {IDM_WAVEFORM_0, O, WF, "&0", nullptr, 0},
    {IDM_WAVEFORM_0 + 1, O, WF, "&1", nullptr, 0},
    {IDM_WAVEFORM_0 + 2, O, WF, "&2", nullptr, 0},
    {IDM_WAVEFORM_0 + 3, O, WF, "&3", nullptr, 0},
    {IDM_WAVEFORM_0 + 4, O, WF, "&4", nullptr, 0},
    {IDM_WAVEFORM_0 + 5, O, WF, "&5", nullptr, 0},
    {IDM_WAVEFORM_0 + 6, O, WF, "&6", nullptr, 0},
    {IDM_WAVEFORM_0 + 7, O, WF, "&7", nullptr, 0},
    {IDM_WAVEFORM_0 + 8, O, WF, "&8", nullptr, 0},
    {IDM_WAVEFORM_0 + 9, O, WF, "&9", nullptr, 0},
    {IDM_WAVEFORM_0 + 10, O, WF, "1&0", nullptr, 0},
    {IDM_WAVEFORM_0 + 11, O, WF, "1&1", nullptr, 0},
    {IDM_WAVEFORM_0 + 12, O, WF, "1&2", nullptr, 0},
    {IDM_WAVEFORM_0 + 13, O, WF, "1&3", nullptr, 0},
    {IDM_WAVEFORM_0 + 14, O, WF, "1&4", nullptr, 0},
    {IDM_WAVEFORM_0 + 15, O, WF, "1&5", nullptr, 0},
    {IDM_CURSORS, O, nullptr, "&Cursors\tCtrl+R", "Ctrl+R", S | T},
    {IDM_TEMPERATURE, O, nullptr, "&Temperature\tCtrl+T", "Ctrl+T|Ctrl+Shift+T", B | T},
    {IDM_PICTURE_INFO, O, nullptr, "&Picture Info\tCtrl+P", "Ctrl+P|Ctrl+Shift+P", T},
    {IDM_DERIVATIVE_X, O, nullptr, "Derivative Window dY/dX (X)", nullptr, T},
    {IDM_DERIVATIVE_Y, O, nullptr, "Derivative Window dY/dX (Y)", nullptr, T},
    {IDM_CURVE_MANAGEMENT, O, nullptr, "Curve &Management\tCtrl+M", "Ctrl+M", S | B},

    {IDM_OPT_MATH, P, nullptr, "Math", nullptr, B},
    {IDM_OPT_AVERAGING, P, nullptr, "&Averaging", nullptr, B},
    {IDM_OPT_DELAY, P, nullptr, "Dela&y", nullptr, B},
    {IDM_OPT_AUTOZERO, P, nullptr, "Auto &Zero", nullptr, B},
    {IDM_OPT_DATA_FILE, P, nullptr, "&Data Saving && Loading", nullptr, B},
    {IDM_OPT_PRINTING, P, nullptr, "&Printing", nullptr, B},
    {IDM_OPT_VOLTAGES, P, nullptr, "Virtual &Voltages\tCtrl+V", "Ctrl+V", S | B},
    {IDM_OPT_CURRENTS, P, nullptr, "Virtual &Currents\tCtrl+I", "Ctrl+I", B},
    {IDM_OPT_GENERAL, P, nullptr, "General", nullptr, S | B},
    {IDM_OPT_IVC, P, nullptr, "V(I)", nullptr, B},
    {IDM_OPT_ICH, P, nullptr, "&Ic(H)", nullptr, B},
    {IDM_OPT_IMAXH, P, nullptr, "Imax(H)", nullptr, N | D},
    {IDM_OPT_IVF, P, nullptr, "I-V Family", nullptr, 0},
    {IDM_OPT_ICT, P, nullptr, "Ic(T)", nullptr, 0},
    {IDM_OPT_VT, P, nullptr, "V(T) && R(T)", nullptr, 0},
    {IDM_OPT_WFM, P, nullptr, "&V(I_wfm)", nullptr, 0},
    {IDM_OPT_VTIME, P, nullptr, "V(time)", nullptr, 0},
    {IDM_OPT_VDC_IAC, P, nullptr, "V_dc(I_ac)", nullptr, 0},
    {IDM_OPT_CALIBRATOR, P, nullptr, "Voltage Calibration", nullptr, 0},
    {IDM_OPT_THERMOMETER, P, nullptr, "Thermometer &Setup", nullptr, S | B},
    {IDM_SHOW_CALIBRATION_CURVE, P, nullptr, "Show &Calibration Curve", nullptr, B},
    {IDM_OPT_GENERATOR, P, nullptr, "&Generator", nullptr, 0},
    {IDM_OPT_TRIGGER, P, nullptr, "Trigger", nullptr, B},
    {IDM_OPT_AXES, P, nullptr, "A&xes", nullptr, S | B},
    {IDM_LOAD_WINDOW_POSITION, P, nullptr, "Load Window Position", nullptr, S | B},
    {IDM_SAVE_WINDOW_POSITION, P, nullptr, "Save Window Position", nullptr, B},
    {IDM_LOAD_OPTIONS, P, nullptr, "&Load Options", nullptr, S | B},
    {IDM_SAVE_OPTIONS, P, nullptr, "&Save Options..", nullptr, B},
    {IDM_SAVE_OPTIONS_AS, P, nullptr, "Save Options As..", nullptr, B},

    {IDM_HELP_CONTENT, X, nullptr, "Content\tF1", "F1", B},
    {IDM_HELP_SEARCH, X, nullptr, "Search\tCtrl+F1", "Ctrl+F1", B},
    {IDM_TEST, X, nullptr, "Test", nullptr, S | N},
    {IDM_CRASH, X, nullptr, "Crash (for experimental purposes only!)", nullptr, N},
    {IDM_ABOUT, X, nullptr, "&About", nullptr, S | B},

    {IDM_CTX_PROPERTIES, C, nullptr, "&Properties", nullptr, H | B},
    {IDM_CTX_STYLE, C, nullptr, "&Style", nullptr, H | B},
    {IDM_CTX_DELETE, C, nullptr, "&Delete", nullptr, H | B},
    {IDM_CTX_SHIFT, C, nullptr, "S&hift", nullptr, H},
    {IDM_CTX_SCALE, C, nullptr, "S&cale", nullptr, H},
    {IDM_CTX_ABS, C, nullptr, "&Abs", nullptr, H},
    {IDM_CTX_Y_AS_NEW_X, C, nullptr, "&y axis as new x", nullptr, H},
    {IDM_CTX_SELF_FIELD, C, nullptr, "Self &Field", nullptr, H},
    {IDM_CTX_SPLIT, C, nullptr, "Split curve at this point", nullptr, H},
    {IDM_CTX_MAKE_FIRST, C, nullptr, "Make &1st", nullptr, H | N},
    {IDM_CTX_MAKE_LAST, C, nullptr, "Make &last", nullptr, H | N},
    {IDM_CTRL_D, C, nullptr, "", "Ctrl+D", H | N},
    {IDM_OPEN_COMMAND_LINE_FILES, C, nullptr, "", nullptr,
     H | B}, // files named on the command line
};

std::map<int, int>& CheckMarks() {
    static std::map<int, int> marks;
    return marks;
}

} // namespace

const CommandRow* const gCommandTable = kRows;
const unsigned gCommandCount = sizeof kRows / sizeof kRows[0];
const char* const gMenuTitles[] = {F, E, V, M, A, O, P, X};
const unsigned gMenuCount = sizeof gMenuTitles / sizeof gMenuTitles[0];

const CommandRow* FindCommand(int number) {
    for (const CommandRow& row : kRows)
        if (row.number == number) return &row;
    return nullptr;
}

bool IsCommandEnabled(int number) {
    const CommandRow* row = FindCommand(number);
    if (!row || !(row->flags & CMD_BUILT)) return false;
    if (number == IDM_UNDO) return fUndoEnabled != 0;
    if (row->flags & CMD_DISABLED) return false;
    if ((row->flags & CMD_IN_SELECTION) && gSelectionMenu != 2) return false;
    if ((row->flags & CMD_OUT_SELECTION) && gSelectionMenu == 2) return false;
    return true;
}

int IsCommandChecked(int number) {
    auto it = CheckMarks().find(number);
    return it == CheckMarks().end() ? 0 : it->second;
}

void SetCommandChecked(int number, int checked) {
    CheckMarks()[number] = checked ? 1 : 0;
}
