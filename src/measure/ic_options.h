// The options of the critical current search and of the Ic(H) and Im(H) scans, all in section
// "Math", and the statistics the last scan leaves for the options dialog. Written by the
// interface thread (dialog, settings) except the statistics, which the measurement thread
// writes at the end of a scan.
#pragma once
#include <cstdint>

struct OptionRows;

extern float IcH_Criterion;             // volts: the zero-voltage state lies below
extern std::uint32_t IcH_ForwardStep;   // bits going up
extern std::uint32_t IcH_BackwardStep;  // bits back when the start was above Ic
extern std::uint32_t IcH_ZeroStep;      // bits down during a reset
extern std::uint32_t IcH_ResetStabStep; // a reset starts this much above I_reset
extern std::uint32_t IcH_NumberOfTimes; // approaches to the jump; the highest wins
extern std::uint32_t IcX_AccelCount;    // steps before the step doubles
extern std::int32_t IcH_UsePrediction;
extern std::int32_t IcX_ResetToGetIc;
extern std::int32_t IcH_UseAbsV;
extern std::int32_t IcH_CompensateSeriesR;
extern float IcH_SeriesR;     // ohm
extern float IcH_StepVoltage; // volts, Im only
extern float IcH_ResetVoltage;
extern std::int32_t IcH_Anyway;            // stored; no search reads it
extern std::uint32_t IcX_DelayDuringReset; // ms
extern std::uint32_t IcX_DelayAfterReset;
extern std::int32_t IcX_ResetField;
extern std::int32_t IcX_ShowPhaseMessage;
extern std::int32_t IcX_CreateLogFile;

extern std::uint32_t IcX_MeasurementsPerOneFieldValue;
extern std::int32_t IcH_Trigger;
extern std::int32_t IcH_AutoZeroSweep1forEachH;
extern std::int32_t IcH_xAxis_WhatKindOfParam; // 0 sweep2, 1 increased automatically
extern float IcH_xAxis_Factor;
extern char IcH_xAxis_Sweep2_Units[32];
extern float IcH_xAxis_From;
extern float IcH_xAxis_Step;
extern char IcH_xAxis_Auto_Units[32];

// Left by the last scan: average times in microseconds, counts, and the two statistics of the
// search in bits (average, standard deviation, max - min), as truncated integers.
struct IcScanStatistics {
    std::int32_t probeTimeUs, resetTimeUs, probes, resets;
    std::int32_t deltaAverage, deltaStdDev, deltaSpread;
    std::int32_t missAverage, missStdDev, missSpread;
};
extern IcScanStatistics gIcStatistics;

int IcH_LoadOptions(const char* fileName);
int IcH_SaveOptions(const char* fileName);
int IcH_OptionsDialog(void* window);
void IcH_WriteRows(OptionRows& out);
// The built-in values, for tests and a fresh start.
void IcH_ResetOptions();
