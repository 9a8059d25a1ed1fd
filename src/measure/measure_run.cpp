#include "measure/measure_run.h"
#include "curve/undo.h"
#include "instrument/virtual_channels.h"
#include "measure/run_journal.h"
#include "platform/host.h"
#include "platform/measure_dialog.h"
#include "support/debug_check.h"
#include "support/message_box.h"
#include "support/physical_units.h"
#include "support/program_folder.h"

#include <cstdio>
#include <cstring>
#include <ctime>
#include <mutex>
#include <thread>

std::atomic<int> fAbortRequested{0};

namespace {

struct MeasureThreadStart {
    int (*threadFunction)(void* dlg);
    void* dlg;
    const char* title;
    const char* xUnits;
    const char* yUnits;
};

std::mutex gThreadLock;
std::thread gThread;
std::atomic<bool> gRunning{false};
std::atomic<int> gLastResult{0};

void MeasureThreadProc(MeasureThreadStart start) {
    JournalBegin(start.title, start.xUnits, start.yUnits);
    int result = start.threadFunction(start.dlg);
    std::uint32_t longest = 0;
    for (std::uint32_t c = 0; c < gCurves.count; ++c)
        if (gCurves.GetCurve(c).count > longest) longest = gCurves.GetCurve(c).count;
    JournalPoints(longest, true);
    JournalEnd();
    gPaintedCurves = &gCurves;
    gLastResult = result;
    gRunning = false;
    MeasureDialog().EndDialog(start.dlg, result);
}

} // namespace

const MeasureParams* FindMeasureParams(const char* title) {
    for (const MeasureParams* p = gMeasureParams; p->title; ++p)
        if (std::strcmp(p->title, title) == 0) return p;
    return nullptr;
}

bool StartMeasurement(void* dlg, const MeasureParams& params) {
    fAbortRequested = 0;
    if (!SaveUndo()) {
        MeasureDialog().EndDialog(dlg, 0);
        return false;
    }
    return StartMeasurementThread(dlg, params);
}

bool StartMeasurementThread(void* dlg, const MeasureParams& params) {
    gPaintedCurves = &gUndoCurves;
    std::lock_guard<std::mutex> hold(gThreadLock);
    if (gThread.joinable()) gThread.join(); // the previous run has ended its dialog already
    gRunning = true;
    try {
        gThread = std::thread(MeasureThreadProc,
                              MeasureThreadStart{params.threadFunction, dlg, params.title,
                                                 params.xUnits ? params.xUnits() : "",
                                                 params.yUnits ? params.yUnits : ""});
    } catch (...) {
        gRunning = false;
        gPaintedCurves = &gCurves;
        MessageBoxBeep(nullptr, "Can not create a measurement thread", "Starting measurement..",
                       MB_OK | MB_ICONERROR);
        MeasureDialog().EndDialog(dlg, 0);
        return false;
    }
    return true;
}

bool IsMeasurementRunning() {
    return gRunning;
}

int WaitMeasurementEnd() {
    std::lock_guard<std::mutex> hold(gThreadLock);
    if (gThread.joinable()) gThread.join();
    return gLastResult;
}

int RunMeasurement(void* dlg, const MeasureParams& params) {
    if (!StartMeasurement(dlg, params)) return 0;
    return WaitMeasurementEnd();
}

void TruncateOrClear(std::uint32_t n) {
    if (n < 5)
        gCurves.Clear();
    else
        gCurves.ResizeCurves(n);
}

void NameCurvesAfterVoltages() {
    unsigned c = 0;
    for (int v = 0; v < kVoltageChannelCount; ++v) {
        if (!IsSignalVoltage(v)) continue;
        if (c < gCurves.count) gCurves.GetCurve(c).SetName(VoltageChannels[v].comment);
        ++c;
    }
    VASSERT(c == gCurves.count);
}

void PlayMeasureSound(const char* name) {
    char path[261];
    ProgramFilePath(name, path, sizeof path);
    Host().PlaySound(path);
}

static void ShowPoint(void* dlg, int which, std::uint32_t n, std::uint32_t total) {
    char text[32];
    std::snprintf(text, sizeof text, "%u/%u", n, total);
    MeasureDialog().ShowPoints(dlg, which, text);
    MeasureDialog().RefreshCurrents(dlg);
}

void ShowSweep1Point(void* dlg, std::uint32_t n, std::uint32_t total, int) {
    ShowPoint(dlg, 1, n, total);
}

void ShowSweep2Point(void* dlg, std::uint32_t n, std::uint32_t total, int) {
    ShowPoint(dlg, 2, n, total);
}

void FormatProgress(char* out, unsigned size, std::uint32_t elapsedMs, std::uint32_t done,
                    std::uint32_t total, int* percent) {
    double p = done * 100.0 / total;
    double left = elapsedMs * (static_cast<double>(total) / done - 1.0) / 1000.0;
    double whole = elapsedMs / 1000.0 + left;
    std::snprintf(out, size, "%.1f %% (Estimated: %.1lf sec left, %.1lf sec total)", p, left,
                  whole);
    if (percent) *percent = static_cast<int>(p);
}

void ShowProgress(void* dlg, std::uint32_t elapsedMs, std::uint32_t done, std::uint32_t total) {
    if (done == 0 || total == 0) return;
    char text[128];
    int percent = 0;
    FormatProgress(text, sizeof text, elapsedMs, done, total, &percent);
    MeasureDialog().ShowProgress(dlg, percent, text);
}

void RefreshVoltageReadings(void* dlg) {
    MeasureDialog().RefreshVoltages(dlg);
}

void ShowVoltageValue(void* dlg, int voltage, double volts, unsigned bits, const char* units) {
    char text[64];
    FormatPhysicalDigits(text, sizeof text, static_cast<float>(volts), 4, units);
    MeasureDialog().ShowVoltage(dlg, voltage, text, bits);
}
