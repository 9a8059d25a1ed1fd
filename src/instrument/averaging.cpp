#include "instrument/averaging.h"

#include "instrument/delays.h"
#include "instrument/timing.h"
#include "platform/host.h"
#include "support/debug_check.h"
#include "support/message_box.h"

#include <new>

u32 GetCurrentAveragingTimes = 1;
u32 GetCurrentAveragingStart = 0;
u32 GetVoltageAveragingTimes = 1;
u32 GetVoltageAveragingStart = 0;
i32 TurboAveraging = 0;
f32 TA_SampleRate = 1000.0f;
i32 TA_IStatus = TA_NORMAL_AVERAGING;
i32 TA_VStatus = TA_NORMAL_AVERAGING;

namespace {

// Enough for the default counts, so that reads work before the options are loaded.
constexpr u32 kInlineSamples = 16;
u16 gInlineSamples[kInlineSamples];
u32 gArraySize = kInlineSamples;

// Counts beyond the array would write past it; the array is re-sized whenever the counts can
// change, so this only guards against a count set without that.
u32 Usable(u32 n) {
    VASSERT(n <= gArraySize);
    if (n > gArraySize) n = gArraySize;
    return n ? n : 1;
}

u32 TrimmedStart(u32 n, u32 start) {
    VASSERT(2 * start < n);
    return 2 * start < n ? start : (n - 1) / 2;
}

} // namespace

u16* AveragingArray = gInlineSamples;

u32 AveragingArraySize() {
    return gArraySize;
}

bool ResizeAveragingArray() {
    if (AveragingArray != gInlineSamples) delete[] AveragingArray;
    AveragingArray = gInlineSamples;
    gArraySize = kInlineSamples;
    u32 n = GetCurrentAveragingTimes > GetVoltageAveragingTimes ? GetCurrentAveragingTimes
                                                                : GetVoltageAveragingTimes;
    u16* block = new (std::nothrow) u16[n ? n : 1];
    if (!block) {
        MessageBoxBeep(nullptr, "Insufisient memory for AveragingArray", "Averaging",
                       MB_OK | MB_ICONSTOP);
        GetCurrentAveragingTimes = GetVoltageAveragingTimes = 1;
        GetCurrentAveragingStart = GetVoltageAveragingStart = 0;
        return false;
    }
    AveragingArray = block;
    gArraySize = n ? n : 1;
    return true;
}

u32 SortAndTrimSum(u16* a, u32 n, u32 start) {
    if (start) {
        // Selection of the lowest remaining entry: n is small and the sort needs no memory.
        for (u32 i = 0; i + 1 < n; ++i) {
            u32 lowest = i;
            for (u32 j = i + 1; j < n; ++j)
                if (a[j] < a[lowest]) lowest = j;
            u16 t = a[i];
            a[i] = a[lowest];
            a[lowest] = t;
        }
    }
    u32 sum = 0;
    for (u32 i = start; i < n - start; ++i)
        sum += a[i];
    return sum;
}

VoltageReading GetVoltageRaw(int voltage) {
    VASSERT(voltage >= 0 && voltage < kVoltageChannelCount);
    const VoltageChannel& v = VoltageChannels[voltage];
    const u32 n = Usable(GetVoltageAveragingTimes);
    const u32 s = TrimmedStart(n, GetVoltageAveragingStart);
    TA_VStatus = TA_NORMAL_AVERAGING;
    if (DelayBeforeVoltage) {
        // The first conversion switches the multiplexer; the wait lets the input settle.
        ReadAdcBits(v.ADCSlot, v.ADCChan, v.ADCGain);
        Delay(DelayBeforeVoltage);
    }
    if (TurboAveraging && n > 3) {
        TA_VStatus = TurboBlock(v.ADCSlot, v.ADCChan, v.ADCGain, n, false);
    }
    if (TA_VStatus < 0)
        for (u32 i = 0; i < n; ++i)
            AveragingArray[i] = ReadAdcBits(v.ADCSlot, v.ADCChan, v.ADCGain);
    const u32 count = n - 2 * s;
    const u32 sum = SortAndTrimSum(AveragingArray, n, s);
    VoltageReading r;
    r.volts = VoltsFromBits(static_cast<f32>(static_cast<f64>(sum) / count), voltage);
    r.bits = static_cast<i32>(sum / count);
    if (v.kind == VOLTAGE_NEGATIVE) {
        const AdcCard& adc = AdcCards[v.ADCSlot];
        r.volts = -r.volts;
        r.bits = i32(adc.MaxReading) + i32(adc.MinReading) - r.bits;
    }
    return r;
}

f64 GetCurrentRaw(int current) {
    if (current < 0 || current >= kCurrentChannelCount || !IsCurrentConnected(current)) {
        Host().Beep(BEEP_SIMPLE);
        return 0.0;
    }
    const CurrentChannel& c = CurrentChannels[current];
    if (!IsCurrentMonitored(current)) {
        TA_IStatus = TA_NOT_MONITORED;
        return AmpsFromBits(static_cast<f32>(DacState[current]), current);
    }
    const u32 n = Usable(GetCurrentAveragingTimes);
    const u32 s = TrimmedStart(n, GetCurrentAveragingStart);
    if (DelayBeforeVoltage) {
        ReadMonitorBits(c.ADCSlot, c.ADCChan, c.ADCGain);
        Delay(DelayBeforeVoltage);
    }
    TA_IStatus = TA_NORMAL_AVERAGING;
    if (TurboAveraging && n > 3) TA_IStatus = TurboBlock(c.ADCSlot, c.ADCChan, c.ADCGain, n, true);
    if (TA_IStatus < 0)
        for (u32 i = 0; i < n; ++i)
            AveragingArray[i] = ReadMonitorBits(c.ADCSlot, c.ADCChan, c.ADCGain);
    const u32 count = n - 2 * s;
    const u32 sum = SortAndTrimSum(AveragingArray, n, s);
    return AmpsFromBits(static_cast<f32>(static_cast<f64>(sum) / count), current);
}
