#include "instrument/autozero.h"

#include "instrument/averaging.h"
#include "instrument/delays.h"
#include "instrument/timing.h"
#include "instrument/virtual_channels.h"
#include "platform/host.h"
#include "support/message_box.h"

const char kAutoZeroWarningCaption[] = "Automatically Find Zero of Voltages";
const char kAutoZeroWarningText[] =
    "All currents have been set to zero\nand all voltages have been measured.\n\n1. If there "
    "are some currents which can not be\nset to zero by software, please set such "
    "currents\nto zero by hand and press RETRY.\n\n2. If some voltages are not supposed to be "
    "zero even when\nall currents are zero, please short such voltages\nand press "
    "RETRY.\n\nPress ABORT to cancel AutoZero\nPress RETRY to re-read zero voltage "
    "values.\nPress IGNORE to ignore this warning and accept currently \ndetermined zero "
    "voltage values.\n";

namespace {

bool TakesPart(int v, bool consultNoAutoZero) {
    if (!IsVoltageConnected(v)) return false;
    if (consultNoAutoZero && VoltageChannels[v].NoAutoZero) return false;
    return !(AutoZero_IgnoreTSensor && IsTSensorVoltage(v));
}

u32 SettleTime() {
    return SystemDecayTime > DelayAfterSweep2 ? SystemDecayTime : DelayAfterSweep2;
}

u32 ExtraReads() {
    return AutoZeroExtraAveraging ? AutoZeroExtraAveraging : 1;
}

// The bits of a shift are relative to the card's zero; a shift below it wraps in unsigned
// arithmetic and reads back as a negative 32-bit value.
void MeasureVoltageShifts(bool consultNoAutoZero) {
    const u32 reads = ExtraReads();
    for (int v = 0; v < kVoltageChannelCount; ++v) {
        VoltageReading& shift = VoltageChannels[v].zeroShift;
        shift = VoltageReading();
        if (!TakesPart(v, consultNoAutoZero)) continue;
        f64 volts = 0.0;
        u32 bits = 0;
        for (u32 k = 0; k < reads; ++k) {
            VoltageReading r = GetVoltageRaw(v);
            volts += r.volts;
            bits += static_cast<u32>(r.bits);
        }
        shift.volts = volts / reads;
        shift.bits =
            static_cast<i32>(bits / reads - AdcCards[VoltageChannels[v].ADCSlot].ZeroReading);
    }
}

void MeasureMonitorShifts() {
    const u32 reads = ExtraReads();
    for (int i = 0; i < kCurrentChannelCount; ++i) {
        CurrentChannels[i].zeroShift = 0.0f;
        if (!IsCurrentConnected(i)) continue;
        f64 sum = 0.0;
        for (u32 k = 0; k < reads; ++k)
            sum += GetCurrentRaw(i);
        CurrentChannels[i].zeroShift = static_cast<f32>(sum / reads);
    }
}

void ClearShifts() {
    for (int v = 0; v < kVoltageChannelCount; ++v)
        if (TakesPart(v, true)) VoltageChannels[v].zeroShift = VoltageReading();
    for (int i = 0; i < kCurrentChannelCount; ++i)
        CurrentChannels[i].zeroShift = 0.0f;
}

} // namespace

int DoAutoZero(int boxOn, void* window) {
    if (!boxOn) {
        ClearShifts();
        return 0;
    }
    u32 saved[kCurrentChannelCount];
    for (int i = 0; i < kCurrentChannelCount; ++i)
        saved[i] = DacState[i];
    int answer;
    do {
        Host().WaitCursor(1);
        for (int i = 0; i < kCurrentChannelCount; ++i)
            SetCurrentAbs(DacCards[CurrentChannels[i].DACSlot].ZeroReading, i);
        Delay(SettleTime());
        MeasureVoltageShifts(true);
        if (AutoZero_Do4CurrentMon) MeasureMonitorShifts();
        Host().WaitCursor(0);
        answer = ShowAutoZeroWarning
                     ? MessageBoxBeep(window, kAutoZeroWarningText, kAutoZeroWarningCaption,
                                      MB_ABORTRETRYIGNORE | MB_ICONQUESTION | MB_DEFBUTTON3)
                     : IDIGNORE;
    } while (answer == IDRETRY);
    if (answer == IDABORT) {
        boxOn = 0;
        for (int v = 0; v < kVoltageChannelCount; ++v)
            if (IsVoltageConnected(v)) VoltageChannels[v].zeroShift = VoltageReading();
        for (int i = 0; i < kCurrentChannelCount; ++i)
            if (IsCurrentConnected(i)) CurrentChannels[i].zeroShift = 0.0f;
    }
    // Disconnected currents stay at their zero.
    for (int i = 0; i < kCurrentChannelCount; ++i)
        if (IsCurrentConnected(i)) SetCurrentAbs(saved[i], i);
    return boxOn;
}

void RedoAutoZero(void* window) {
    if (!AutoZero_RedoOnDoIt) return;
    const i32 ignoreTSensor = AutoZero_IgnoreTSensor, showWarning = ShowAutoZeroWarning;
    AutoZero_IgnoreTSensor = 1;
    ShowAutoZeroWarning = 0;
    DoAutoZero(1, window);
    AutoZero_IgnoreTSensor = ignoreTSensor;
    ShowAutoZeroWarning = showWarning;
}

void AutoZeroAtSweepZero() {
    const int sweep1 = FirstSweep1Current();
    if (sweep1 < 0) return;
    const u32 saved = DacState[sweep1];
    SetCurrent(DacCards[CurrentChannels[sweep1].DACSlot].ZeroReading, sweep1);
    Delay(SettleTime());
    MeasureVoltageShifts(false);
    SetCurrent(saved, sweep1);
}
