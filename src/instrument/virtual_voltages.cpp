#include "instrument/virtual_channels.h"

#include "instrument/averaging.h"
#include "support/debug_check.h"

#include <cmath>

VoltageChannel VoltageChannels[kVoltageChannelCount];

const char* const gVoltageKindNames[kVoltageKindCount] = {"Not Connected", "Positive", "Negative",
                                                          "T-sensor"};

f32 VoltsFromBits(f32 bits, int voltage) {
    VASSERT(voltage >= 0 && voltage < kVoltageChannelCount);
    const VoltageChannel& v = VoltageChannels[voltage];
    const AdcCard& adc = AdcCards[v.ADCSlot];
    f32 vmin = static_cast<f32>(adc.MinVoltage), vmax = static_cast<f32>(adc.MaxVoltage);
    f32 rmin = adc.MinReading, rmax = adc.MaxReading;
    f32 g = adc.logGains ? std::pow(10.0f, v.ADCGain / 20.0f) : v.ADCGain;
    return ((rmax - bits) * vmin + (bits - rmin) * vmax) / ((rmax - rmin) * v.extGain * g);
}

VoltageReading GetVoltage(int voltage) {
    VoltageReading r = GetVoltageRaw(voltage);
    const VoltageReading& shift = VoltageChannels[voltage].zeroShift;
    r.volts -= shift.volts;
    r.bits -= shift.bits;
    return r;
}

f64 GetCurrent(int current) {
    f64 amps = GetCurrentRaw(current);
    if (current >= 0 && current < kCurrentChannelCount) amps -= CurrentChannels[current].zeroShift;
    return amps;
}

bool IsVoltageConnected(int i) {
    return VoltageChannels[i].kind != VOLTAGE_NOT_CONNECTED;
}
bool IsSignalVoltage(int i) {
    i16 k = VoltageChannels[i].kind;
    return k == VOLTAGE_POSITIVE || k == VOLTAGE_NEGATIVE;
}
bool IsTSensorVoltage(int i) {
    return VoltageChannels[i].kind == VOLTAGE_TSENSOR;
}

namespace {
int FirstVoltage(bool (*test)(int)) {
    for (int i = 0; i < kVoltageChannelCount; ++i)
        if (test(i)) return i;
    return -1;
}
int ListVoltages(bool (*test)(int), int* list) {
    int n = 0;
    for (int i = 0; i < kVoltageChannelCount; ++i)
        if (test(i)) {
            if (list) list[n] = i;
            ++n;
        }
    return n;
}
} // namespace

int FirstSignalVoltage() {
    return FirstVoltage(IsSignalVoltage);
}
int FirstConnectedVoltage() {
    return FirstVoltage(IsVoltageConnected);
}
int FirstTSensorVoltage() {
    return FirstVoltage(IsTSensorVoltage);
}
int ListConnectedVoltages(int* list) {
    return ListVoltages(IsVoltageConnected, list);
}
int ListSignalVoltages(int* list) {
    return ListVoltages(IsSignalVoltage, list);
}
int CountConnectedVoltages() {
    return ListVoltages(IsVoltageConnected, nullptr);
}
