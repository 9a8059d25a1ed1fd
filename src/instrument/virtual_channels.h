// Virtual currents and voltages: what a measurement drives and reads, mapped onto card channels.
// A current or a voltage is known everywhere by its index in its table. This is the only place
// that turns card bits into volts and amperes; there is no way from amperes to bits, so sweeps
// run in bits on the common scale 0..65535 and the amperes are read back.
#pragma once
#include "instrument/daq_cards.h"

#include <cstddef>
#include <cstdint>

constexpr int kCurrentChannelCount = 32;
constexpr int kVoltageChannelCount = 128;
constexpr size_t kChannelCommentSize = 128;

// Copied by value; bits is a signed 32-bit value so that a zero shift may be negative.
struct VoltageReading {
    f64 volts = 0.0;
    i32 bits = 0;
};

enum : i16 {
    CURRENT_DISCONNECTED = 0,
    CURRENT_CONSTANT = 1,
    CURRENT_SWEEP1_PLUS = 2,
    CURRENT_SWEEP1_MINUS = 3,
    CURRENT_SWEEP2_PLUS = 4,
    CURRENT_SWEEP2_MINUS = 5,
    CURRENT_TRIGGER = 6,
    CURRENT_WAVEFORM0 = 7, // kinds 7..22 play waveform program kind - 7
    CURRENT_WAVEFORM15 = 22,
};
constexpr int kCurrentKindCount = 23;

enum : i16 {
    VOLTAGE_NOT_CONNECTED = 0,
    VOLTAGE_POSITIVE = 1,
    VOLTAGE_NEGATIVE = 2,
    VOLTAGE_TSENSOR = 3,
};
constexpr int kVoltageKindCount = 4;

// The kind texts, also the entries of the setup panels' lists.
extern const char* const gCurrentKindNames[kCurrentKindCount];
extern const char* const gVoltageKindNames[kVoltageKindCount];

constexpr u16 CURRENT_FLAG_MONITORED = 1;

struct CurrentChannel {
    i16 kind = CURRENT_DISCONNECTED;
    u16 DACSlot = 0; // index into DacCards
    u16 DACChan = 0;
    char comment[kChannelCommentSize] = {};
    u16 ADCSlot = 0; // index into AdcCards of the monitor input
    u16 ADCChan = 0; // physical channel of the monitor input
    f32 ADCGain = 1.0f;
    f32 extGain = 1.0f;
    f32 R = 1.0f;         // volts at the card per ampere
    f32 zeroShift = 0.0f; // amperes, from AutoZero; never saved
    u16 flag = 0;
};

struct VoltageChannel {
    i16 kind = VOLTAGE_NOT_CONNECTED;
    char comment[kChannelCommentSize] = {};
    u16 ADCSlot = 0;
    u16 ADCChan = 0;
    f32 ADCGain = 1.0f;
    f32 extGain = 1.0f;
    VoltageReading zeroShift; // from AutoZero; never saved
    u16 NoAutoZero = 0;
};

extern CurrentChannel CurrentChannels[kCurrentChannelCount];
extern VoltageChannel VoltageChannels[kVoltageChannelCount];
// The bits last written to each current's DAC.
extern u32 DacState[kCurrentChannelCount];

// At start-up, before the settings: every entry takes the ZeroReading of its current's DAC.
void InitDacState();

// --- Moving currents -----------------------------------------------------------------------

// Applies MirrorCurrentBits and moves the current and its sweep group.
void SetCurrent(u32 bits, int current);
// Ramps in steps of at most MaxDACStep; the members of a sweep group move in lockstep.
void SetCurrentAbs(u32 bits, int current);
// value in -1..1 across the DAC's range; no mirroring.
void SetCurrentNormalized(f64 value, int current);
// One step of at most step towards target, always written; true while the target isn't reached.
bool StepCurrent(u32 target, u32 step, int current);
// Mirrored bits within the DAC for kinds 3 and 5; unchanged for other kinds and a negative index.
u32 MirrorCurrentBits(int current, u32 bits);

// Between the common scale and the current's DAC; a negative index leaves the value alone.
u32 ScaleToCardBits(int current, u32 value);
u32 ScaleFromCardBits(int current, u32 bits);
// Scroll bar positions of the measurement dialog: positions steps over the DAC's range.
u32 SliderPositionFromBits(int current, u32 bits, u32 positions);
u32 BitsFromSliderPosition(int current, u32 position, u32 positions);

// --- Physical values -----------------------------------------------------------------------

// Volts at the sample, before the sign of a "Negative" voltage.
f32 VoltsFromBits(f32 bits, int voltage);
// Through the monitor input when monitored, else what the DAC should be delivering.
f32 AmpsFromBits(f32 bits, int current);
// The averaged reads less the AutoZero shifts.
f64 GetCurrent(int current);
VoltageReading GetVoltage(int voltage);

// --- Questions -----------------------------------------------------------------------------

bool IsCurrentConnected(int current);
bool IsCurrentMonitored(int current);
bool IsSweep1Current(int current);
bool IsSweep2Current(int current);
bool IsWaveCurrent(int current);
bool IsVoltageConnected(int voltage);
bool IsSignalVoltage(int voltage);
bool IsTSensorVoltage(int voltage);

// The lowest index, or -1.
int FirstSweep1Current();
int FirstSweep2Current();
int FirstWaveCurrent();
int FirstTriggerCurrent();
int FirstSignalVoltage();
int FirstConnectedVoltage();
int FirstTSensorVoltage();

// Fill list (when given) in ascending order and return the count.
int ListWaveCurrents(int* list = nullptr);
int ListConnectedVoltages(int* list = nullptr);
int ListSignalVoltages(int* list = nullptr);

int CountConnectedCurrents();
int CountConnectedVoltages();
int CountSweep1Currents();

// --- Settings ------------------------------------------------------------------------------

// Repair a record in place so that it names only detected cards, channels and gains; the
// result is a mask of what was repaired.
unsigned ValidateCurrentChannel(CurrentChannel& channel);
unsigned ValidateVoltageChannel(VoltageChannel& channel);

// The group of the settings lists: all 32 currents, then all 128 voltages, each validated at once.
// One record from or to the sections "Virtual Currents" and "Virtual Voltages"; a loaded record
// is validated at once.
void LoadCurrentRecord(CurrentChannel& record, int index, const char* fileName);
void LoadVoltageRecord(VoltageChannel& record, int index, const char* fileName);
void SaveCurrentRecord(const CurrentChannel& record, int index, const char* fileName);
void SaveVoltageRecord(const VoltageChannel& record, int index, const char* fileName);
int LoadVirtualChannels(const char* fileName);
int SaveVirtualChannels(const char* fileName);

// --- Information text ----------------------------------------------------------------------

// A printable table of the connected records, rows alternately grey 238 and 221.
constexpr int kInfoMaxColumns = 10;
constexpr size_t kInfoCellSize = 140;
struct InfoTable {
    const char* groupHeads[2]; // "Virtual Current" and "Monitoring Currents", or one head
    int groupSpans[2];         // columns under each group head
    int columnCount;
    const char* const* columnHeads;
    int rowCount;
    char (*cells)[kInfoMaxColumns][kInfoCellSize]; // rowCount rows, owned by the caller
};
// RGB of row i: grey 238 on even rows, 221 on odd ones.
u32 InfoRowColor(int row);
// Fill cells (capacity rows) and return the table; rowCount is the connected records listed.
InfoTable VirtualCurrentsInfo(char (*cells)[kInfoMaxColumns][kInfoCellSize], int capacity);
InfoTable VirtualVoltagesInfo(char (*cells)[kInfoMaxColumns][kInfoCellSize], int capacity);
