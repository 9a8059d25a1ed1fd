#include "ui/self_field_command.h"

#include "analysis/self_field.h"
#include "curve/undo.h"
#include "platform/host.h"
#include "settings/setup_table.h"
#include "support/c_locale.h"
#include "support/message_box.h"

#include <cfloat>
#include <string>
#include <vector>

namespace {

// Shown in the dialogs and never saved.
float gCurrent = 1, gField = 0, gCoefficient = 0;
std::int32_t gUseCoefficient = 0;
float gTwo[3] = {0, 0, 0}; // k, current shift, field shift
bool gTwoAvailable = false;

enum : int {
    ID_MODE = 101,
    ID_MODE_TWO,
    ID_MODE_MANUAL,
    ID_CURRENT = 110,
    ID_FIELD,
    ID_USE,
    ID_COEFFICIENT,
    ID_K,
    ID_CURRENT_SHIFT,
    ID_FIELD_SHIFT,
    ID_CALC,
};

// A current of 0 gives no coefficient: the dialog stays with the focus on it.
bool CurrentOk(SetupDialog* dialog, float& current) {
    if (!ReadFloatField(dialog, ID_CURRENT, -FLT_MAX, FLT_MAX, &current)) return false;
    if (current != 0) return true;
    dialog->ops->Beep(dialog->context);
    dialog->ops->FocusAndSelectAll(dialog->context, ID_CURRENT);
    return false;
}

int Callback(SetupDialog* dialog, int id, void*, int) {
    if (id == 0) {
        dialog->ops->Enable(dialog->context, ID_MODE_TWO, gTwoAvailable);
        return 0;
    }
    float current = 0, field = 0;
    if (id == ID_CALC) {
        if (CurrentOk(dialog, current) &&
            ReadFloatField(dialog, ID_FIELD, -FLT_MAX, FLT_MAX, &field)) {
            char text[64];
            SnprintfC(text, sizeof text, "%G", static_cast<double>(field / current));
            dialog->ops->SetText(dialog->context, ID_COEFFICIENT, text);
        }
        return 1;
    }
    const bool manual = dialog->ops->Exists(dialog->context, ID_MODE_MANUAL)
                            ? dialog->ops->GetCheck(dialog->context, ID_MODE_MANUAL) == 1
                            : true;
    if (id == SETUP_ID_OK && manual && !dialog->ops->GetCheck(dialog->context, ID_USE))
        return CurrentOk(dialog, current) ? 0 : 1;
    return 0;
}

SetupRow gAllRows[] = {
    SetupRadioRow(ID_MODE, &gSelfFieldMode, "Math", nullptr),
    SetupFloatRow(ID_CURRENT, &gCurrent, "Math", nullptr, -FLT_MAX, FLT_MAX),
    SetupFloatRow(ID_FIELD, &gField, "Math", nullptr, -FLT_MAX, FLT_MAX),
    SetupCheckRow(ID_USE, &gUseCoefficient, "Math", nullptr),
    SetupFloatRow(ID_COEFFICIENT, &gCoefficient, "Math", nullptr, -FLT_MAX, FLT_MAX),
    SetupFloatRow(ID_K, &gTwo[0], "Math", nullptr, -FLT_MAX, FLT_MAX),
    SetupFloatRow(ID_CURRENT_SHIFT, &gTwo[1], "Math", nullptr, -FLT_MAX, FLT_MAX),
    SetupFloatRow(ID_FIELD_SHIFT, &gTwo[2], "Math", nullptr, -FLT_MAX, FLT_MAX),
};
const SetupText kAllTexts[] = {
    {ID_MODE, SETUP_TEXT_LABEL,
     "Mode|auto process each curve |auto process two curves|a manual setting for all curves"},
    {ID_CURRENT, SETUP_TEXT_LABEL, "current:"},
    {ID_FIELD, SETUP_TEXT_LABEL, "field:"},
    {ID_USE, SETUP_TEXT_LABEL, "use SF coeff. :"},
    {ID_COEFFICIENT, SETUP_TEXT_LABEL, "coefficient:"},
    {ID_K, SETUP_TEXT_LABEL, "two curves: coefficient"},
    {ID_CURRENT_SHIFT, SETUP_TEXT_LABEL, "two curves: current shift"},
    {ID_FIELD_SHIFT, SETUP_TEXT_LABEL, "two curves: field shift"},
    {ID_CALC, SETUP_TEXT_BUTTON, "Calc"},
};
SetupTable gAll = {.rowCount = CountOf(gAllRows),
                   .rows = gAllRows,
                   .callback = Callback,
                   .textCount = CountOf(kAllTexts),
                   .texts = kAllTexts};

SetupRow gOneRows[] = {gAllRows[1], gAllRows[2], gAllRows[3], gAllRows[4]};
const SetupText kOneTexts[] = {{ID_CURRENT, SETUP_TEXT_LABEL, "current:"},
                               {ID_FIELD, SETUP_TEXT_LABEL, "field:"},
                               {ID_USE, SETUP_TEXT_LABEL, "use coefficient:"},
                               {ID_COEFFICIENT, SETUP_TEXT_LABEL, "coefficient:"},
                               {ID_CALC, SETUP_TEXT_BUTTON, "Calc"}};
SetupTable gOne = {.rowCount = CountOf(gOneRows),
                   .rows = gOneRows,
                   .callback = Callback,
                   .textCount = CountOf(kOneTexts),
                   .texts = kOneTexts};

std::vector<std::uint32_t> Marked() {
    std::vector<std::uint32_t> marked;
    for (std::uint32_t c = 0; c < gCurves.count; ++c)
        if (gCurves.GetCurve(c).IsMarked()) marked.push_back(c);
    return marked;
}

double ManualCoefficient() {
    return gUseCoefficient ? gCoefficient : static_cast<double>(gField) / gCurrent;
}

bool OneCurve(std::uint32_t c) {
    float peak, field;
    FindCurrentPeak(gCurves.GetCurve(c), peak, field);
    gCurrent = peak;
    gField = field;
    gCoefficient = static_cast<float>(gSelfFieldCoefficient);
    if (!Host().RunSetupDialog(&gOne, "Remove self field in 1 curve") || !SaveUndo()) return false;
    const double k = ManualCoefficient();
    gSelfFieldCoefficient = k;
    RemoveSelfField(gCurves.GetCurve(c), k);
    return true;
}

bool SeveralCurves(const std::vector<std::uint32_t>& marked) {
    float peaks[2] = {0, 0}, fields[2] = {0, 0};
    int kinds[2] = {1, 1};
    gTwoAvailable = marked.size() == 2;
    for (size_t i = 0; gTwoAvailable && i < 2; ++i)
        kinds[i] = FindCurrentPeak(gCurves.GetCurve(marked[i]), peaks[i], fields[i]);
    // Ic(H) and -Ic(H): both of one sign, opposite to each other (a zero counts as either).
    gTwoAvailable = gTwoAvailable && kinds[0] == 0 && kinds[1] == 0 && peaks[0] * peaks[1] <= 0;
    TwoCurveSelfField two;
    if (gTwoAvailable) {
        two = TwoCurveParameters(peaks[0], fields[0], peaks[1], fields[1]);
        gTwo[0] = static_cast<float>(two.k);
        gTwo[1] = static_cast<float>(two.currentShift);
        gTwo[2] = static_cast<float>(two.fieldShift);
    } else if (gSelfFieldMode == 1) {
        gSelfFieldMode = 0;
    }
    gCoefficient = static_cast<float>(gSelfFieldCoefficient);
    if (!Host().RunSetupDialog(&gAll, "Remove self field in all curves") || !SaveUndo())
        return false;
    if (gSelfFieldMode == 1 && !gTwoAvailable) gSelfFieldMode = 2;
    if (gSelfFieldMode == 0) {
        std::string skipped;
        for (std::uint32_t c : marked) {
            float peak, field;
            if (FindCurrentPeak(gCurves.GetCurve(c), peak, field) != 0 || peak == 0) {
                char item[16];
                SnprintfC(item, sizeof item, ", %u", c);
                if (skipped.size() + std::string(item).size() < 300) skipped += item;
                continue;
            }
            gSelfFieldCoefficient = field / peak;
            RemoveSelfField(gCurves.GetCurve(c), gSelfFieldCoefficient);
        }
        if (!skipped.empty()) {
            skipped[0] = ' ';
            MessageBoxBeep(nullptr,
                           ("The following curves were not processed:\n" + skipped).c_str(),
                           "Warning", MB_OK | MB_ICONEXCLAMATION);
        }
    } else if (gSelfFieldMode == 1) {
        two.k = gTwo[0];
        two.currentShift = gTwo[1];
        two.fieldShift = gTwo[2];
        for (std::uint32_t c : marked)
            ApplyTwoCurve(gCurves.GetCurve(c), two);
        gSelfFieldCoefficient = two.k;
    } else {
        const double k = ManualCoefficient();
        if (!gUseCoefficient) gSelfFieldCoefficient = k;
        for (std::uint32_t c : marked)
            RemoveSelfField(gCurves.GetCurve(c), k);
    }
    return true;
}

} // namespace

int SelfFieldCommand(void*) {
    const std::vector<std::uint32_t> marked = Marked();
    if (marked.empty()) return 0;
    return (marked.size() == 1 ? OneCurve(marked[0]) : SeveralCurves(marked)) ? 1 : 0;
}
