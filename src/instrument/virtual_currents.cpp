#include "instrument/virtual_channels.h"

#include "instrument/delays.h"
#include "support/debug_check.h"

#include <cmath>

using i64 = std::int64_t;

CurrentChannel CurrentChannels[kCurrentChannelCount];
u32 DacState[kCurrentChannelCount];

const char* const gCurrentKindNames[kCurrentKindCount] = {
    "Disconnected", "Constant",    "+Sweep 1",    "-Sweep 1",    "+Sweep 2",    "-Sweep 2",
    "Trigger",      "WaveForm 0",  "WaveForm 1",  "WaveForm 2",  "WaveForm 3",  "WaveForm 4",
    "WaveForm 5",   "WaveForm 6",  "WaveForm 7",  "WaveForm 8",  "WaveForm 9",  "WaveForm 10",
    "WaveForm 11",  "WaveForm 12", "WaveForm 13", "WaveForm 14", "WaveForm 15",
};

namespace {

const DacCard& DacOf(int current) {
    return DacCards[CurrentChannels[current].DACSlot];
}

// 0 for a current outside both sweeps.
int SweepOf(i16 kind) {
    if (kind == CURRENT_SWEEP1_PLUS || kind == CURRENT_SWEEP1_MINUS) return 1;
    if (kind == CURRENT_SWEEP2_PLUS || kind == CURRENT_SWEEP2_MINUS) return 2;
    return 0;
}

u32 ClampToDac(const DacCard& dac, i64 bits) {
    if (bits < dac.MinReading) return dac.MinReading;
    if (bits > dac.MaxReading) return dac.MaxReading;
    return static_cast<u32>(bits);
}

// Mirror within the DAC; kept inside the card's range even for bits beyond it.
u32 MirrorWithin(const DacCard& dac, u32 bits) {
    return ClampToDac(dac, i64(dac.MaxReading) - i64(bits) + i64(dac.MinReading));
}

// How many common-scale steps make one card bit: 16 on a 12-bit card, 1 on a 16-bit one.
u32 ScaleFactor(int current) {
    if (current < 0) return 1;
    const DacCard& dac = DacOf(current);
    u32 range = u32(dac.MaxReading) - dac.MinReading + 1;
    return range ? 65536u / range : 1;
}

} // namespace

void InitDacState() {
    for (int i = 0; i < kCurrentChannelCount; ++i)
        DacState[i] = DacOf(i).ZeroReading;
}

u32 MirrorCurrentBits(int current, u32 bits) {
    if (current < 0) return bits;
    VASSERT(current < kCurrentChannelCount);
    if (current >= kCurrentChannelCount) return bits;
    i16 kind = CurrentChannels[current].kind;
    if (kind == CURRENT_SWEEP1_MINUS || kind == CURRENT_SWEEP2_MINUS)
        return MirrorWithin(DacOf(current), bits);
    return bits;
}

u32 ScaleToCardBits(int current, u32 value) {
    return value / ScaleFactor(current);
}
u32 ScaleFromCardBits(int current, u32 bits) {
    return bits * ScaleFactor(current);
}

u32 SliderPositionFromBits(int current, u32 bits, u32 positions) {
    const DacCard& dac = DacOf(current);
    u32 perPosition = positions ? (u32(dac.MaxReading) - dac.MinReading + 1) / positions : 0;
    return perPosition ? bits / perPosition : 0;
}

u32 BitsFromSliderPosition(int current, u32 position, u32 positions) {
    const DacCard& dac = DacOf(current);
    u32 perPosition = positions ? (u32(dac.MaxReading) - dac.MinReading + 1) / positions : 0;
    return perPosition * position;
}

bool StepCurrent(u32 target, u32 step, int current) {
    VASSERT(current >= 0 && current < kCurrentChannelCount);
    u32& state = DacState[current];
    u32 distance = state > target ? state - target : target - state;
    u32 change = distance < step ? distance : step;
    state = state > target ? state - change : state + change;
    const CurrentChannel& c = CurrentChannels[current];
    WriteDacBits(c.DACSlot, c.DACChan, static_cast<u16>(state));
    return state != target;
}

void SetCurrentAbs(u32 bits, int current) {
    if (current < 0 || current >= kCurrentChannelCount) return;
    const u32 target = ClampToDac(DacOf(current), bits);
    const i16 kind = CurrentChannels[current].kind;
    const int sweep = SweepOf(kind);
    const u32 step = MaxDACStep ? MaxDACStep : 1;
    if (!sweep) {
        while (StepCurrent(target, step, current)) {
        }
        return;
    }
    // One step per member and pass, so that no member of the group runs ahead of the others
    // and the sample never sees one current jump while its partner stays.
    bool more;
    do {
        more = false;
        for (int i = 0; i < kCurrentChannelCount; ++i) {
            const i16 k = CurrentChannels[i].kind;
            if (SweepOf(k) != sweep) continue;
            const DacCard& dac = DacOf(i);
            u32 memberTarget = k == kind ? ClampToDac(dac, target) : MirrorWithin(dac, target);
            if (StepCurrent(memberTarget, step, i)) more = true;
        }
    } while (more);
}

void SetCurrent(u32 bits, int current) {
    SetCurrentAbs(MirrorCurrentBits(current, bits), current);
}

void SetCurrentNormalized(f64 value, int current) {
    if (current < 0 || current >= kCurrentChannelCount) return;
    if (value < -1.0) value = -1.0;
    if (value > 1.0) value = 1.0;
    const DacCard& dac = DacOf(current);
    u32 span = u32(dac.MaxReading) - dac.MinReading;
    SetCurrentAbs(dac.MinReading + static_cast<u32>((value + 1.0) * span / 2.0), current);
}

f32 AmpsFromBits(f32 bits, int current) {
    VASSERT(current >= 0 && current < kCurrentChannelCount);
    const CurrentChannel& c = CurrentChannels[current];
    if (IsCurrentMonitored(current)) {
        const AdcCard& adc = AdcCards[c.ADCSlot];
        f32 vmin = static_cast<f32>(adc.MinVoltage), vmax = static_cast<f32>(adc.MaxVoltage);
        f32 rmin = adc.MinReading, rmax = adc.MaxReading;
        f32 g = adc.logGains ? std::pow(10.0f, c.ADCGain / 20.0f) : c.ADCGain;
        return ((rmax - bits) * vmin + (bits - rmin) * vmax) /
               ((rmax - rmin) * c.R * c.extGain * g);
    }
    const DacCard& dac = DacOf(current);
    f32 vmin = static_cast<f32>(dac.MinVoltage), vmax = static_cast<f32>(dac.MaxVoltage);
    f32 rmin = dac.MinReading, rmax = dac.MaxReading;
    return ((rmax - bits) * vmin + (bits - rmin) * vmax) / ((rmax - rmin) * c.R);
}

bool IsCurrentConnected(int i) {
    return CurrentChannels[i].kind != CURRENT_DISCONNECTED;
}
bool IsCurrentMonitored(int i) {
    return CurrentChannels[i].flag & CURRENT_FLAG_MONITORED;
}
bool IsSweep1Current(int i) {
    return SweepOf(CurrentChannels[i].kind) == 1;
}
bool IsSweep2Current(int i) {
    return SweepOf(CurrentChannels[i].kind) == 2;
}
bool IsWaveCurrent(int i) {
    i16 k = CurrentChannels[i].kind;
    return k >= CURRENT_WAVEFORM0 && k <= CURRENT_WAVEFORM15;
}

namespace {
int FirstCurrent(bool (*test)(int)) {
    for (int i = 0; i < kCurrentChannelCount; ++i)
        if (test(i)) return i;
    return -1;
}
int CountCurrents(bool (*test)(int)) {
    int n = 0;
    for (int i = 0; i < kCurrentChannelCount; ++i)
        n += test(i);
    return n;
}
bool IsTriggerCurrent(int i) {
    return CurrentChannels[i].kind == CURRENT_TRIGGER;
}
} // namespace

int FirstSweep1Current() {
    return FirstCurrent(IsSweep1Current);
}
int FirstSweep2Current() {
    return FirstCurrent(IsSweep2Current);
}
int FirstWaveCurrent() {
    return FirstCurrent(IsWaveCurrent);
}
int FirstTriggerCurrent() {
    return FirstCurrent(IsTriggerCurrent);
}

int ListWaveCurrents(int* list) {
    int n = 0;
    for (int i = 0; i < kCurrentChannelCount; ++i)
        if (IsWaveCurrent(i)) {
            if (list) list[n] = i;
            ++n;
        }
    return n;
}

int CountConnectedCurrents() {
    return CountCurrents(IsCurrentConnected);
}
int CountSweep1Currents() {
    return CountCurrents(IsSweep1Current);
}
