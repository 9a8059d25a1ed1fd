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
    {197, F, nullptr, "&Open\tCtrl+O", "Ctrl+O", B},
    {198, F, nullptr, "&Add\tCtrl+A", "Ctrl+A", B},
    {271, F, nullptr, "&Save\tCtrl+S", "Ctrl+S", B},
    {200, F, nullptr, "AutoCAD DXB+DXF", nullptr, S | N},
    {206, F, nullptr, "&Print", nullptr, S},
    {176, F, nullptr, "Pa&ge Setup", nullptr, 0},
    {199, F, nullptr, "&User name", nullptr, S | B},
    {125, F, nullptr, "E&xit \t Alt-X", "Alt+X", S | B},

    {187, E, nullptr, "Undo\tCtrl+Z", "Ctrl+Z|Alt+Backspace", B | D},
    {188, E, nullptr, "Cut\tShift+Del", nullptr, S | N | D},
    {190, E, nullptr, "Paste\tShift+Ins", nullptr, N | D},
    {192, E, nullptr, "Copy as Text\tCtrl+C", nullptr, N | D},
    {193, E, nullptr, "Windows Metafile\tCtrl+Ins", nullptr, N | D},
    {194, E, nullptr, "Bitmap", nullptr, N | D},
    {234, E, nullptr, "&DeSelect\tD", "D", S | B | IN},
    {236, E, nullptr, "&ReSelect\tR", "R", B | OUT},
    {233, E, nullptr, "Delete data points in\tDel", "Del", IN},
    {191, E, nullptr, "Clear Screen\t ", nullptr, S | B},

    {231, V, nullptr, "Zoom &Window\t", nullptr, IN},
    {230, V, nullptr, "Zoom &In\tNum +", "Num++", 0},
    {232, V, nullptr, "Zoom &Out\tNum -", "Num+-", 0},
    {220, V, nullptr, "Zoom &Extents\tCtrl+\\", "Ctrl+\\", 0},
    {242, V, nullptr, "Zoom &Previous\tBack Space", "Backspace", 0},
    {237, V, nullptr, "Pan Left\tArrow Left", "Left", S},
    {238, V, nullptr, "Pan Right\tArrow Right", "Right", 0},
    {239, V, nullptr, "Pan Up\tArrow Up", "Up", 0},
    {240, V, nullptr, "Pan Down\tArrow Down", "Down", 0},

    {29, M, nullptr, "V(I)\tF2", "F2", B},
    {213, M, nullptr, "I&c(H)\tF3", "F3", 0},
    {185, M, nullptr, "I&m(H)\tF4", "F4", 0},
    {186, M, nullptr, "I-V &families\tF5", "F5", 0},
    {151, M, nullptr, "Ic(H) with &Reset\tF6", nullptr, D},
    {152, M, nullptr, "Ic(T) \tF7", "F7", 0},
    {153, M, nullptr, "&V(T) && R(T)\tF8", "F8", 0},
    {154, M, nullptr, "V(I_wfm)\tF9", "F9", 0},
    {261, M, nullptr, "V(time)\tF11", "F11", 0},
    {279, M, nullptr, "V_dc(I_ac)\tF12", "F12", 0},
    {209, M, nullptr, "&Calibration", nullptr, S},
    {208, M, nullptr, "Self Calibration", nullptr, N},
    {210, M, "Test", "1", nullptr, N},
    {211, M, "Test", "2", nullptr, N},
    {212, M, "Test", "3", nullptr, N},
    {214, M, "Test", "4", nullptr, N},

    {100, A, nullptr, "&Filter", nullptr, 0},
    {101, A, nullptr, "&Smooth", nullptr, 0},
    {184, A, nullptr, "Skip Extra Points", nullptr, 0},
    {253, A, nullptr, "Simple dy/dx (x)", nullptr, S | B | OUT},
    {254, A, nullptr, "Simple dy/dx (y)", nullptr, B | OUT},
    {255, A, nullptr, "Integrate", nullptr, B | OUT},
    {145, A, nullptr, "Multi-point dY/dX (X)", nullptr, OUT},
    {183, A, nullptr, "Multi-point dY/dX (Y)", nullptr, OUT},
    {216, A, nullptr, "S&hift", nullptr, S},
    {217, A, nullptr, "S&cale", nullptr, 0},
    {248, A, nullptr, "&Abs", nullptr, 0},
    {250, A, nullptr, "Self-field", nullptr, 0},
    {158, A, nullptr, "&y as new x", nullptr, OUT},
    {204, A, nullptr, "(Y-Ymin) / Ymin", nullptr, OUT},
    {205, A, nullptr, "(Y-Ymin) / Ymax", nullptr, OUT},
    {275, A, nullptr, "&Regularize", nullptr, S},
    {280, A, nullptr, "FF&T", nullptr, 0},
    {281, A, nullptr, "Log_10", nullptr, 0},
    {110, A, nullptr, "Ic, Rn, Ie, Vc table", nullptr, S},
    {273, A, nullptr, "Histogram of &Ic", nullptr, 0},
    {256, A, nullptr, "Histogram of &Rn", nullptr, OUT},
    {274, A, nullptr, "Histogram of Ie&x", nullptr, 0},
    {277, A, nullptr, "Ic &histogram", nullptr, 0},
    {120, A, nullptr, "Si&gma Ic", nullptr, 0},
    {257, A, nullptr, "S&tatistics", nullptr, 0},
    {144, A, nullptr, "X <--> Y", nullptr, S | B | OUT},
    {156, A, nullptr, "First pt <--> Last pt", nullptr, B | OUT},

    {1000, O, WF, "&0", nullptr, 0},
    {1001, O, WF, "&1", nullptr, 0},
    {1002, O, WF, "&2", nullptr, 0},
    {1003, O, WF, "&3", nullptr, 0},
    {1004, O, WF, "&4", nullptr, 0},
    {1005, O, WF, "&5", nullptr, 0},
    {1006, O, WF, "&6", nullptr, 0},
    {1007, O, WF, "&7", nullptr, 0},
    {1008, O, WF, "&8", nullptr, 0},
    {1009, O, WF, "&9", nullptr, 0},
    {1010, O, WF, "1&0", nullptr, 0},
    {1011, O, WF, "1&1", nullptr, 0},
    {1012, O, WF, "1&2", nullptr, 0},
    {1013, O, WF, "1&3", nullptr, 0},
    {1014, O, WF, "1&4", nullptr, 0},
    {1015, O, WF, "1&5", nullptr, 0},
    {132, O, nullptr, "&Cursors\tCtrl+R", "Ctrl+R", S | T},
    {134, O, nullptr, "&Temperature\tCtrl+T", "Ctrl+T|Ctrl+Shift+T", B | T},
    {135, O, nullptr, "&Picture Info\tCtrl+P", "Ctrl+P|Ctrl+Shift+P", T},
    {180, O, nullptr, "Derivative Window dY/dX (X)", nullptr, T},
    {181, O, nullptr, "Derivative Window dY/dX (Y)", nullptr, T},
    {159, O, nullptr, "Curve &Management\tCtrl+M", "Ctrl+M", S | B},

    {139, P, nullptr, "Math", nullptr, 0},
    {146, P, nullptr, "&Averaging", nullptr, B},
    {172, P, nullptr, "Dela&y", nullptr, B},
    {265, P, nullptr, "Auto &Zero", nullptr, B},
    {142, P, nullptr, "&Data Saving && Loading", nullptr, B},
    {260, P, nullptr, "&Printing", nullptr, 0},
    {147, P, nullptr, "Virtual &Voltages\tCtrl+V", "Ctrl+V", S | B},
    {148, P, nullptr, "Virtual &Currents\tCtrl+I", "Ctrl+I", B},
    {264, P, nullptr, "General", nullptr, S | B},
    {268, P, nullptr, "V(I)", nullptr, B},
    {149, P, nullptr, "&Ic(H)", nullptr, 0},
    {269, P, nullptr, "Imax(H)", nullptr, N | D},
    {270, P, nullptr, "I-V Family", nullptr, 0},
    {267, P, nullptr, "Ic(T)", nullptr, 0},
    {219, P, nullptr, "V(T) && R(T)", nullptr, 0},
    {169, P, nullptr, "&V(I_wfm)", nullptr, 0},
    {262, P, nullptr, "V(time)", nullptr, 0},
    {278, P, nullptr, "V_dc(I_ac)", nullptr, 0},
    {215, P, nullptr, "Voltage Calibration", nullptr, 0},
    {166, P, nullptr, "Thermometer &Setup", nullptr, S | B},
    {263, P, nullptr, "Show &Calibration Curve", nullptr, B},
    {276, P, nullptr, "&Generator", nullptr, 0},
    {282, P, nullptr, "Trigger", nullptr, B},
    {171, P, nullptr, "A&xes", nullptr, S | B},
    {218, P, nullptr, "Load Window Position", nullptr, S | B},
    {140, P, nullptr, "Save Window Position", nullptr, B},
    {201, P, nullptr, "&Load Options", nullptr, S | B},
    {202, P, nullptr, "&Save Options..", nullptr, B},
    {203, P, nullptr, "Save Options As..", nullptr, B},

    {195, X, nullptr, "Content\tF1", "F1", B},
    {196, X, nullptr, "Search\tCtrl+F1", "Ctrl+F1", B},
    {130, X, nullptr, "Test", nullptr, S | N},
    {272, X, nullptr, "Crash (for experimental purposes only!)", nullptr, N},
    {2, X, nullptr, "&About", nullptr, S | B},

    {222, C, nullptr, "&Properties", nullptr, H | B},
    {229, C, nullptr, "&Style", nullptr, H | B},
    {221, C, nullptr, "&Delete", nullptr, H | B},
    {244, C, nullptr, "S&hift", nullptr, H},
    {245, C, nullptr, "S&cale", nullptr, H},
    {247, C, nullptr, "&Abs", nullptr, H},
    {246, C, nullptr, "&y axis as new x", nullptr, H},
    {252, C, nullptr, "Self &Field", nullptr, H},
    {259, C, nullptr, "Split curve at this point", nullptr, H},
    {227, C, nullptr, "Make &1st", nullptr, H | N},
    {228, C, nullptr, "Make &last", nullptr, H | N},
    {137, C, nullptr, "", "Ctrl+D", H | N},
    {266, C, nullptr, "", nullptr, H | B}, // files named on the command line
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
    if (number == 187) return fUndoEnabled != 0;
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
