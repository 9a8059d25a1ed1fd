// Averaged reads: every value a measurement takes from a voltage or a current monitor passes
// through GetVoltageRaw or GetCurrentRaw. Several samples are taken, sorted and trimmed when a
// start is set, and averaged. Turbo averaging takes them as one hardware-timed block and falls
// back to single conversions when the driver refuses.
#pragma once
#include "instrument/virtual_channels.h"

#include <cstdint>

struct SetupTable;

// Section "Math".
extern u32 GetCurrentAveragingTimes; // 1..65535
extern u32 GetCurrentAveragingStart; // 0..32767: samples dropped at each end after sorting
extern u32 GetVoltageAveragingTimes;
extern u32 GetVoltageAveragingStart;
extern i32 TurboAveraging; // check box
extern f32 TA_SampleRate;  // samples per second of a Turbo block

// What the last read of each kind did; never saved.
enum : i32 {
    TA_NORMAL_AVERAGING = -13, // single conversions
    TA_NOT_MONITORED = -12,    // TA_IStatus: nothing was read
};
extern i32 TA_IStatus;
extern i32 TA_VStatus;

// Shared by both reads, sized for the larger of the two sample counts.
extern u16* AveragingArray;
// Capacity of AveragingArray in samples.
u32 AveragingArraySize();
// Re-sizes AveragingArray for the present counts. Without memory it falls back to the inline
// buffer, says so, and sets both counts to 1 and both starts to 0; false then.
bool ResizeAveragingArray();

VoltageReading GetVoltageRaw(int voltage);
f64 GetCurrentRaw(int current);

// Sorts samples ascending when start isn't 0, then sums entries start .. n - start - 1.
u32 SortAndTrimSum(u16* samples, u32 n, u32 start);

// Fills the first n entries of AveragingArray with one hardware-timed block from the card of
// adc; returns the driver's status (negative: the array is untouched). monitor tells a current
// monitor's read from a voltage's.
i32 TurboBlock(int adc, u16 channel, f32 gain, u32 n, bool monitor);

// The option group of the settings lists; the load re-sizes AveragingArray.
int LoadAveragingOptions(const char* fileName);
int SaveAveragingOptions(const char* fileName);
// The table behind the "Averaging Setup" dialog and the group.
SetupTable* AveragingSetupTable();
// Runs the dialog; the array is re-sized afterwards. 1 for OK.
int AveragingSetupDialog();
// The checks of OK and Save; 0 with the number of the bad field in badField.
int CheckAveragingCounts(u32 currentTimes, u32 currentStart, u32 voltageTimes, u32 voltageStart,
                         int* badField);
