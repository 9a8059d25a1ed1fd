// The measurements that exist, one constant record each; the dialog and vantrel-cli find them
// by title.
#include "curve/undo.h"
#include "measure/ivc_options.h"
#include "measure/measure_ivc.h"
#include "measure/measure_run.h"
#include "support/program_folder.h"

#include <ctime>

namespace {

// Kept as a menu entry that opens the dialog and ends at once after "&Do It".
int MeasureKep(void*) {
    return 1;
}

void IVC_Options(void*, void* dlg) {
    IVC_OptionsDialog(dlg);
}
void IVC_xAxis(void*, void* dlg) {
    IVC_xAxisDialog(dlg);
}

} // namespace

const MeasureParams gMeasureParams[] = {
    {MeasureIVC, 0, "IVC", &IVC_Range, nullptr, IVC_Options, IVC_xAxis, nullptr,
     LayoutSingleSweepWithXAxis},
    {MeasureKep, 0, "Kep", &Field_Range, nullptr, nullptr, nullptr, nullptr, LayoutPlain},
    {nullptr, 0, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, LayoutPlain},
};

void SetMeasuredFamilyTexts(const char* title, const char* xUnits, const char* yUnits,
                            std::uint32_t elapsedMs) {
    gCurves.timeSpent = static_cast<float>(elapsedMs / 1000.0);
    gCurves.date = static_cast<std::int32_t>(std::time(nullptr));
    gCurves.SetHeader(title, xUnits, yUnits, gUserName);
}
