// The measurements that exist, one constant record each; the dialog and vantrel-cli find them
// by title.
#include "curve/undo.h"
#include "measure/ic_options.h"
#include "measure/ivc_options.h"
#include "measure/measure_ich.h"
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
void IcH_Options(void*, void* dlg) {
    IcH_OptionsDialog(dlg);
}

} // namespace

const MeasureParams gMeasureParams[] = {
    {.threadFunction = MeasureIVC,
     .title = "IVC",
     .primary = &IVC_Range,
     .optionsHandler = IVC_Options,
     .xAxisHandler = IVC_xAxis,
     .layout = LayoutSingleSweepWithXAxis,
     .xUnits = IVC_xUnits,
     .yUnits = "V"},
    {.threadFunction = MeasureIcH,
     .title = "Ic(H)",
     .primary = &Field_Range,
     .optionsHandler = IcH_Options,
     .layout = LayoutSingleSweepWithXAxis,
     .xUnits = IcX_xUnits,
     .yUnits = "A"},
    {.threadFunction = MeasureImH,
     .title = "Im(H)",
     .primary = &Field_Range,
     .optionsHandler = IcH_Options,
     .layout = LayoutSingleSweepWithXAxis,
     .xUnits = IcX_xUnits,
     .yUnits = "A"},
    {.threadFunction = MeasureKep, .title = "Kep", .primary = &Field_Range, .layout = LayoutPlain},
    {.title = nullptr},
};

char gMeasureComment[512] = "";

void SetMeasuredFamilyTexts(const char* title, const char* xUnits, const char* yUnits,
                            std::uint32_t elapsedMs) {
    gCurves.timeSpent = static_cast<float>(elapsedMs / 1000.0);
    gCurves.date = static_cast<std::int32_t>(std::time(nullptr));
    gCurves.SetHeader(title, xUnits, yUnits, gUserName);
    // The comment is set with the other texts, so that no comment of an earlier family (a file
    // that was open, say) stays on a new measurement.
    gCurves.SetComment(gMeasureComment);
}
