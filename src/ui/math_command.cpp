#include "ui/math_command.h"

#include "analysis/curve_operations.h"
#include "analysis/math_options.h"
#include "analysis/multi_point_derivative.h"
#include "curve/undo.h"
#include "platform/host.h"
#include "settings/setup_table.h"
#include "support/c_locale.h"
#include "support/message_box.h"
#include "ui/command_ids.h"
#include "ui/main_state.h"
#include "ui/main_window_calls.h"
#include "ui/self_field_command.h"

#include <cfloat>

namespace {

// Shift, scale and abs keep their values while the program runs; they are never saved.
float gShift[2] = {0, 0};
float gScale[4] = {1, 1, 1, 1}; // x multiply, x divide, y multiply, y divide
std::int32_t gAbs[2] = {0, 0};

enum : int { ID_A = 101, ID_B, ID_C, ID_D };

SetupRow gShiftRows[] = {SetupFloatRow(ID_A, &gShift[0], "Math", nullptr, -1e20f, 1e20f),
                         SetupFloatRow(ID_B, &gShift[1], "Math", nullptr, -1e20f, 1e20f)};
const SetupText kShiftTexts[] = {{ID_A, SETUP_TEXT_LABEL, "x = x +"},
                                 {ID_B, SETUP_TEXT_LABEL, "y = y +"}};
SetupTable gShiftTable = {.rowCount = 2, .rows = gShiftRows, .textCount = 2, .texts = kShiftTexts};

SetupRow gScaleRows[] = {SetupFloatRow(ID_A, &gScale[0], "Math", nullptr, -1e20f, 1e20f),
                         SetupFloatRow(ID_B, &gScale[1], "Math", nullptr, 1e-20f, 1e20f),
                         SetupFloatRow(ID_C, &gScale[2], "Math", nullptr, -1e20f, 1e20f),
                         SetupFloatRow(ID_D, &gScale[3], "Math", nullptr, 1e-20f, 1e20f)};
const SetupText kScaleTexts[] = {{ID_A, SETUP_TEXT_LABEL, "x: multiply by"},
                                 {ID_B, SETUP_TEXT_LABEL, "x: divide by"},
                                 {ID_C, SETUP_TEXT_LABEL, "y: multiply by"},
                                 {ID_D, SETUP_TEXT_LABEL, "y: divide by"}};
SetupTable gScaleTable = {.rowCount = 4, .rows = gScaleRows, .textCount = 4, .texts = kScaleTexts};

SetupRow gAbsRows[] = {SetupCheckRow(ID_A, &gAbs[0], "Math", nullptr),
                       SetupCheckRow(ID_B, &gAbs[1], "Math", nullptr)};
const SetupText kAbsTexts[] = {{ID_A, SETUP_TEXT_LABEL, " x = |x|"},
                               {ID_B, SETUP_TEXT_LABEL, " y = |y|"}};
SetupTable gAbsTable = {.rowCount = 2, .rows = gAbsRows, .textCount = 2, .texts = kAbsTexts};

void Changed(void* window) {
    RefreshAll(window);
    fDataSaved = 0;
}

void ForEachMarked(void (*work)(Curve& curve)) {
    for (std::uint32_t c = 0; c < gCurves.count; ++c)
        if (gCurves.GetCurve(c).IsMarked()) work(gCurves.GetCurve(c));
}

void SkipCurve(Curve& curve) {
    const long before = SkipExtraPoints(curve, SEP_CriticalAngle);
    const long after = curve.count;
    char text[128];
    SnprintfC(text, sizeof text, "Before: %ld , After: %ld , %ld%% skiped", before, after,
              after ? (before - after) * 100 / after : 0);
    MessageBoxBeep(nullptr, text, "Skip Results", MB_OK | MB_ICONINFORMATION);
}

} // namespace

int MathCommand(void* window, int command) {
    switch (command) {
    case IDM_FILTER:
    case IDM_SMOOTH:
    case IDM_SKIP_POINTS:
    case IDM_SHIFT:
    case IDM_SCALE:
    case IDM_ABS:
    case IDM_Y_AS_NEW_X:
    case IDM_SELF_FIELD:
        break;
    case IDM_NORMALIZE_YMIN:
    case IDM_NORMALIZE_YMAX:
        // These two do not look at the selection.
        SaveUndo();
        if (!(command == IDM_NORMALIZE_YMIN ? RelativeToMin(gCurves) : RelativeToMax(gCurves))) {
            RestoreUndo();
            return 1;
        }
        gViewScale.scaleAuto = 1;
        Changed(window);
        return 1;
    case IDM_OPT_MATH:
        MathSetupDialog(window);
        return 1;
    case IDM_MULTI_DYDX_X:
    case IDM_MULTI_DYDX_Y: {
        if (!SaveUndo()) return 1;
        Host().WaitCursor(1);
        CurveFamily derived;
        MultiPointDerivative(gCurves, command == IDM_MULTI_DYDX_Y, derived);
        gCurves.Reset();
        gCurves = derived;
        Host().WaitCursor(0);
        Changed(window);
        return 1;
    }
    default:
        return 0;
    }
    if (gSelectionState == 2) {
        MessageBoxBeep(window, "This function is not implemented yet\nto work inside a selection.",
                       "Math & Selection", MB_OK | MB_ICONSTOP);
        return 1;
    }
    gCurves.MarkAll();
    switch (command) {
    case IDM_FILTER:
        if (!FilterDialog(window) || !SaveUndo()) return 1;
        for (std::uint32_t c = 0; c < gCurves.count; ++c)
            FilterSpikes(gCurves.GetCurve(c), FilterParameter);
        break;
    case IDM_SMOOTH:
        if (!SmoothDialog(window) || !SaveUndo()) return 1;
        Host().WaitCursor(1);
        for (std::uint32_t c = 0; c < gCurves.count; ++c)
            SmoothCurve(gCurves.GetCurve(c), SmoothParameter);
        Host().WaitCursor(0);
        break;
    case IDM_SKIP_POINTS:
        if (!SkipPointsDialog(window) || !SaveUndo()) return 1;
        ForEachMarked(SkipCurve);
        break;
    case IDM_SHIFT:
        if (!Host().RunSetupDialog(&gShiftTable, "Shift") || !SaveUndo()) return 1;
        ForEachMarked([](Curve& c) { ShiftCurve(c, gShift[0], gShift[1]); });
        break;
    case IDM_SCALE:
        if (!Host().RunSetupDialog(&gScaleTable, "Scale") || !SaveUndo()) return 1;
        ForEachMarked([](Curve& c) { ScaleCurve(c, gScale[0], gScale[1], gScale[2], gScale[3]); });
        break;
    case IDM_ABS:
        if (!Host().RunSetupDialog(&gAbsTable, "Abs")) return 1;
        if (!gAbs[0] && !gAbs[1]) return 1; // nothing to do, nothing changed
        if (!SaveUndo()) return 1;
        ForEachMarked([](Curve& c) { AbsCurve(c, gAbs[0], gAbs[1]); });
        break;
    case IDM_SELF_FIELD:
        if (!SelfFieldCommand(window)) return 1;
        break;
    case IDM_Y_AS_NEW_X: {
        if (const char* refusal = YAsNewXRefusal(gCurves)) {
            MessageBoxBeep(window, refusal, "Error", MB_OK | MB_ICONSTOP);
            return 1;
        }
        const int source = MainWindow().ChooseCurve(window, 0);
        if (source < 0 || !SaveUndo()) return 1;
        YAsNewX(gCurves, static_cast<std::uint32_t>(source));
        break;
    }
    }
    Changed(window);
    return 1;
}
