#include "platform/measure_dialog.h"
#include "platform/host.h"

#include <atomic>

namespace {

void NoPoints(void*, int, const char*) {}
void HeadlessShowProgress(void*, int percent, const char* text) {
    Host().Progress(percent, text);
}
void NoRefresh(void*) {}
void NoVoltage(void*, int, const char*, unsigned) {}
void HeadlessShowPhase(void*, const char* text) {
    Host().Progress(-1, text);
}
void NoEnd(void*, int) {}

const MeasureDialogCalls gHeadlessCalls = {
    .ShowPoints = NoPoints,
    .ShowProgress = HeadlessShowProgress,
    .RefreshCurrents = NoRefresh,
    .RefreshVoltages = NoRefresh,
    .ShowVoltage = NoVoltage,
    .ShowPhase = HeadlessShowPhase,
    .EndDialog = NoEnd,
};

std::atomic<const MeasureDialogCalls*> gCalls{nullptr};

} // namespace

const MeasureDialogCalls& HeadlessMeasureDialog() {
    return gHeadlessCalls;
}

const MeasureDialogCalls& MeasureDialog() {
    const MeasureDialogCalls* calls = gCalls.load(std::memory_order_acquire);
    return calls ? *calls : gHeadlessCalls;
}

void SetMeasureDialog(const MeasureDialogCalls* calls) {
    gCalls.store(calls, std::memory_order_release);
}
