// The run of one measurement: the record that describes it, the start and stop protocol
// between the dialog and the measurement thread, and the pieces every thread function shares.
#pragma once
#include "measure/sweep_range.h"

#include <atomic>
#include <cstdint>

enum MeasureLayout {
    LayoutSingleSweepWithXAxis,
    LayoutTwoSweeps,
    LayoutPointsOnly,
    LayoutPlain,
};

struct MeasureParams {
    // Runs in the measurement thread; 1 when the family changed, 0 when nothing was measured.
    int (*threadFunction)(void* dlg);
    unsigned reserved;
    const char* title;
    SweepRange* primary;
    SweepRange* secondary;
    // Button handlers (instance, dialog); null disables the button.
    void (*optionsHandler)(void* instance, void* dlg);
    void (*xAxisHandler)(void* instance, void* dlg);
    void (*yAxisHandler)(void* instance, void* dlg);
    MeasureLayout layout;
    // The units of the family, for a journal recovered after the program was killed.
    const char* (*xUnits)() = nullptr;
    const char* yUnits = nullptr;
};

// The measurements that exist, ended by a record with a null title.
extern const MeasureParams gMeasureParams[];
const MeasureParams* FindMeasureParams(const char* title);

// Set by Stop, polled by the thread once per point.
extern std::atomic<int> fAbortRequested;

// "&Do It": SaveUndo, paint the undo family, start the thread. False when the run did not
// start (SaveUndo declined or the thread could not be made); the dialog has then been ended
// with 0.
bool StartMeasurement(void* dlg, const MeasureParams& params);
// What follows SaveUndo in StartMeasurement, for a dialog that has taken the undo copy itself
// (and repeated AutoZero after it): paint the undo family, start the thread.
bool StartMeasurementThread(void* dlg, const MeasureParams& params);
// True from StartMeasurement until the thread function has returned.
bool IsMeasurementRunning();
// Waits for the measurement thread to finish and returns the thread function's result.
int WaitMeasurementEnd();
// Start and wait: what a modal run looks like without a window.
int RunMeasurement(void* dlg, const MeasureParams& params);

// Empties the family when n < 5, else cuts every curve to n points.
void TruncateOrClear(std::uint32_t n);
// Names one curve per signal voltage after its voltage.
void NameCurvesAfterVoltages();
void PlayMeasureSound(const char* name);

void ShowSweep1Point(void* dlg, std::uint32_t n, std::uint32_t total, int current);
void ShowSweep2Point(void* dlg, std::uint32_t n, std::uint32_t total, int current);
void ShowProgress(void* dlg, std::uint32_t elapsedMs, std::uint32_t done, std::uint32_t total);
void RefreshVoltageReadings(void* dlg);
void ShowVoltageValue(void* dlg, int voltage, double volts, unsigned bits, const char* units);
// The progress text, for tests and the dialog: "%.1f %% (Estimated: ...)".
void FormatProgress(char* out, unsigned size, std::uint32_t elapsedMs, std::uint32_t done,
                    std::uint32_t total, int* percent);

// The comment every measurement gives its family, edited in the Data File Options (key
// "MeasurementComment" of section "DataFile"). Written by the interface thread only.
extern char gMeasureComment[512];
// The family texts and times of the common epilogue: duration, time stamp, title, units,
// user name and gMeasureComment.
void SetMeasuredFamilyTexts(const char* title, const char* xUnits, const char* yUnits,
                            std::uint32_t elapsedMs);
