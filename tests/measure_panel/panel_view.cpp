#include "panel_view.h"

#include "measure/sweep_range.h"

#include <gtest/gtest.h>

const MeasureParams kTwoSweepParams = {nullptr, 0,       "IVF",   &IVC_Range,     &IVF_Range,
                                       nullptr, nullptr, nullptr, LayoutTwoSweeps};
const MeasureParams kCountParams = {nullptr, 0,       "Ic(T)", &CountRangeA,    nullptr,
                                    nullptr, nullptr, nullptr, LayoutPointsOnly};

namespace {

RecordedPanel* R(void* v) {
    return static_cast<RecordedPanel*>(v);
}

const MeasurePanelView kView = {
    [](void* v, int id, const char* t) { R(v)->text[id] = t; },
    [](void* v, int id, int on) { R(v)->check[id] = on; },
    [](void* v, int id, int on) { R(v)->enabled[id] = on; },
    [](void*, int, int) {},
    [](void* v, int row, const CurrentRowView& d) { R(v)->currentRows[row] = d; },
    [](void* v, int row, const VoltageRowView& d) { R(v)->voltageRows[row] = d; },
    [](void* v, int percent, const char* t) {
        R(v)->progress = percent;
        R(v)->progressText = t;
    },
    [](void* v, int) { return bool(R(v)->timerOn = 1); },
    [](void* v) { R(v)->timerOn = 0; },
    [](void*, int, int) {},
    [](void* v, int result) { R(v)->ended = result; },
};

} // namespace

const MeasurePanelView& RecordingView() {
    return kView;
}

void OpenRecorded(MeasurePanel& panel, RecordedPanel& view, const char* title, int currentRows,
                  int voltageRows) {
    const MeasureParams* params = FindMeasureParams(title);
    ASSERT_NE(params, nullptr) << title;
    MeasurePanelOpen(panel, *params, &kView, &view, &panel, currentRows, voltageRows);
}

void OpenRecorded(MeasurePanel& panel, RecordedPanel& view, const MeasureParams& params,
                  int currentRows, int voltageRows) {
    MeasurePanelOpen(panel, params, &kView, &view, &panel, currentRows, voltageRows);
}
