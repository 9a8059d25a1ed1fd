// The calls a measurement thread makes on its dialog. The Qt interface queues them to the
// interface thread; the headless table prints progress (when echo is on) and records the end.
#pragma once

struct MeasureDialogCalls {
    // "%u/%u" into the points field of the first or second sweep (which = 1 or 2).
    void (*ShowPoints)(void* dlg, int which, const char* text);
    // The progress line and its bar (percent truncated).
    void (*ShowProgress)(void* dlg, int percent, const char* text);
    // Asks the panel to read and show its current rows or its voltage rows.
    void (*RefreshCurrents)(void* dlg);
    void (*RefreshVoltages)(void* dlg);
    // One voltage row: the formatted value and the raw bits for its indicator bar.
    void (*ShowVoltage)(void* dlg, int voltage, const char* text, unsigned bits);
    // A line telling the phase of a run ("Waiting", "Reset", ...).
    void (*ShowPhase)(void* dlg, const char* text);
    // Ends the dialog with the thread function's result; called from the measurement thread.
    void (*EndDialog)(void* dlg, int result);
};

const MeasureDialogCalls& MeasureDialog();
// Installs a table; null restores the headless one.
void SetMeasureDialog(const MeasureDialogCalls* calls);
const MeasureDialogCalls& HeadlessMeasureDialog();
