#include "instrument/thermometer.h"

#include "curve/curve_family.h"
#include "support/bounded_text.h"
#include "support/message_box.h"

bool ShowTemperatureCurve(void* window, CurveFamily& family) {
    if (gTermoCount <= 0) {
        MessageBoxBeep(window,
                       "Can not show Temperature calibration curve\nsince it contains no points "
                       "or the file was\nnot found.",
                       "Error", MB_OK | MB_ICONERROR);
        return false;
    }
    if (family.SetCurveCount(1) != 1) return false;
    Curve& curve = family.GetCurve(0);
    curve.Clear();
    if (curve.Resize(static_cast<std::uint32_t>(gTermoCount)) != gTermoCount) return false;
    for (int i = 0; i < gTermoCount; ++i) {
        curve.points[i].x = gTermoTemperature[i];
        curve.points[i].y = gTermoValue[i];
    }
    curve.SetName("T calibration curve");
    family.SetPlotName("T calibration curve");
    family.SetUnits("K", TermoIsTofR ? "Ohm" : "V");
    char description[512] = "File:\r\n";
    BoundedAppend(description, TermoFileName);
    family.SetComment(description);
    family.saved = 0;
    return true;
}
