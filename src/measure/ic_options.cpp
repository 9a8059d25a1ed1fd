#include "measure/ic_options.h"

#include "platform/host.h"
#include "settings/option_rows.h"
#include "settings/setup_table.h"

#include <cfloat>
#include <climits>
#include <cstring>

float IcH_Criterion;
std::uint32_t IcH_ForwardStep, IcH_BackwardStep, IcH_ZeroStep, IcH_ResetStabStep;
std::uint32_t IcH_NumberOfTimes, IcX_AccelCount;
std::int32_t IcH_UsePrediction, IcX_ResetToGetIc, IcH_UseAbsV, IcH_CompensateSeriesR;
float IcH_SeriesR, IcH_StepVoltage, IcH_ResetVoltage;
std::int32_t IcH_Anyway;
std::uint32_t IcX_DelayDuringReset, IcX_DelayAfterReset;
std::int32_t IcX_ResetField, IcX_ShowPhaseMessage, IcX_CreateLogFile;
std::uint32_t IcX_MeasurementsPerOneFieldValue;
std::int32_t IcH_Trigger, IcH_AutoZeroSweep1forEachH, IcH_xAxis_WhatKindOfParam;
float IcH_xAxis_Factor, IcH_xAxis_From, IcH_xAxis_Step;
char IcH_xAxis_Sweep2_Units[32], IcH_xAxis_Auto_Units[32];
IcScanStatistics gIcStatistics;

namespace {

const char kMath[] = "Math";

// Controls of the "Ic(H) and Im(H) Options" layout.
enum : int {
    ID_CRITERION = 101,
    ID_FORWARD,
    ID_BACKWARD,
    ID_ZERO_STEP,
    ID_STAB_STEP,
    ID_TIMES,
    ID_ACCEL,
    ID_PREDICTION,
    ID_RESET_TO_GET_IC,
    ID_ABS_V,
    ID_COMPENSATE,
    ID_SERIES_R,
    ID_STEP_VOLTAGE,
    ID_RESET_VOLTAGE,
    ID_ANYWAY,
    ID_DELAY_DURING,
    ID_DELAY_AFTER,
    ID_RESET_FIELD,
    ID_PHASE,
    ID_LOG,
    ID_PER_FIELD,
    ID_TRIGGER,
    ID_AUTOZERO,
    ID_XAXIS,
    ID_XAXIS_AUTO,
    ID_FACTOR,
    ID_SWEEP2_UNITS,
    ID_FROM,
    ID_STEP,
    ID_AUTO_UNITS,
    ID_PROBE_TIME,
    ID_RESET_TIME,
    ID_PROBES,
    ID_RESETS,
    ID_DELTA_AVERAGE,
    ID_DELTA_STDDEV,
    ID_DELTA_SPREAD,
    ID_MISS_AVERAGE,
    ID_MISS_STDDEV,
    ID_MISS_SPREAD,
    ID_DAC_TIP,
};

SetupRow gRows[] = {
    SetupFloatRow(ID_CRITERION, &IcH_Criterion, kMath, "Ic(H)Criterion", 0.0f, 1e10f),
    SetupUIntRow(ID_FORWARD, &IcH_ForwardStep, kMath, "Ic(H)ForwardStep", 1, 2048),
    SetupUIntRow(ID_BACKWARD, &IcH_BackwardStep, kMath, "Ic(H)BackwardStep", 1, 2048),
    SetupUIntRow(ID_ZERO_STEP, &IcH_ZeroStep, kMath, "Ic(H)ZeroStep", 1, 2048),
    SetupUIntRow(ID_STAB_STEP, &IcH_ResetStabStep, kMath, "Ic(H)ResetStabStep", 0, 1024),
    SetupUIntRow(ID_TIMES, &IcH_NumberOfTimes, kMath, "Ic(H)NumberOfTimes", 1, 128),
    SetupUIntRow(ID_ACCEL, &IcX_AccelCount, kMath, "Ic(X)AccelCount", 1, UINT_MAX),
    SetupCheckRow(ID_PREDICTION, &IcH_UsePrediction, kMath, "Ic(H)UsePrediction"),
    SetupCheckRow(ID_RESET_TO_GET_IC, &IcX_ResetToGetIc, kMath, "Ic(X)ResetToGetIc"),
    SetupCheckRow(ID_ABS_V, &IcH_UseAbsV, kMath, "Ic(H)UseAbsV"),
    SetupCheckRow(ID_COMPENSATE, &IcH_CompensateSeriesR, kMath, "Ic(H)CompensateSeriesR"),
    SetupFloatRow(ID_SERIES_R, &IcH_SeriesR, kMath, "Ic(H)SeriesR", -FLT_MAX, FLT_MAX),
    SetupFloatRow(ID_STEP_VOLTAGE, &IcH_StepVoltage, kMath, "Ic(H)StepVoltage", -1e10f, 1e10f),
    SetupFloatRow(ID_RESET_VOLTAGE, &IcH_ResetVoltage, kMath, "Ic(H)ResetVoltage", -1e10f, 1e10f),
    SetupCheckRow(ID_ANYWAY, &IcH_Anyway, kMath, "Ic(H)Anyway"),
    SetupUIntRow(ID_DELAY_DURING, &IcX_DelayDuringReset, kMath, "Ic(X)DelayDuringReset", 0, 60000),
    SetupUIntRow(ID_DELAY_AFTER, &IcX_DelayAfterReset, kMath, "Ic(X)DelayAfterReset", 0, 60000),
    SetupCheckRow(ID_RESET_FIELD, &IcX_ResetField, kMath, "Ic(X)ResetField"),
    SetupCheckRow(ID_PHASE, &IcX_ShowPhaseMessage, kMath, "Ic(X)ShowPhaseMessage"),
    SetupCheckRow(ID_LOG, &IcX_CreateLogFile, kMath, "Ic(X)CreateLogFile"),
    SetupUIntRow(ID_PER_FIELD, &IcX_MeasurementsPerOneFieldValue, kMath,
                 "Ic(X)MeasurementsPerOneFieldValue", 1, 1000),
    SetupCheckRow(ID_TRIGGER, &IcH_Trigger, kMath, "Ic(H)Trigger"),
    SetupCheckRow(ID_AUTOZERO, &IcH_AutoZeroSweep1forEachH, kMath, "Ic(H)AutoZeroSweep1forEachH"),
    SetupRadioRow(ID_XAXIS, &IcH_xAxis_WhatKindOfParam, kMath, "Ic(H)_xAxis_WhatKindOfParam"),
    SetupFloatRow(ID_FACTOR, &IcH_xAxis_Factor, kMath, "Ic(H)_xAxis_Factor", -FLT_MAX, FLT_MAX),
    SetupTextRow(ID_SWEEP2_UNITS, IcH_xAxis_Sweep2_Units, sizeof IcH_xAxis_Sweep2_Units, kMath,
                 "Ic(H)_xAxis_Sweep2_Units"),
    SetupFloatRow(ID_FROM, &IcH_xAxis_From, kMath, "Ic(H)_xAxis_From", -FLT_MAX, FLT_MAX),
    SetupFloatRow(ID_STEP, &IcH_xAxis_Step, kMath, "Ic(H)_xAxis_Step", -FLT_MAX, FLT_MAX),
    SetupTextRow(ID_AUTO_UNITS, IcH_xAxis_Auto_Units, sizeof IcH_xAxis_Auto_Units, kMath,
                 "Ic(H)_xAxis_Auto_Units"),
    // The statistics of the last scan: shown, never stored.
    SetupIntRow(ID_PROBE_TIME, &gIcStatistics.probeTimeUs, kMath, nullptr, INT_MIN, INT_MAX),
    SetupIntRow(ID_RESET_TIME, &gIcStatistics.resetTimeUs, kMath, nullptr, INT_MIN, INT_MAX),
    SetupIntRow(ID_PROBES, &gIcStatistics.probes, kMath, nullptr, INT_MIN, INT_MAX),
    SetupIntRow(ID_RESETS, &gIcStatistics.resets, kMath, nullptr, INT_MIN, INT_MAX),
    SetupIntRow(ID_DELTA_AVERAGE, &gIcStatistics.deltaAverage, kMath, nullptr, INT_MIN, INT_MAX),
    SetupIntRow(ID_DELTA_STDDEV, &gIcStatistics.deltaStdDev, kMath, nullptr, INT_MIN, INT_MAX),
    SetupIntRow(ID_DELTA_SPREAD, &gIcStatistics.deltaSpread, kMath, nullptr, INT_MIN, INT_MAX),
    SetupIntRow(ID_MISS_AVERAGE, &gIcStatistics.missAverage, kMath, nullptr, INT_MIN, INT_MAX),
    SetupIntRow(ID_MISS_STDDEV, &gIcStatistics.missStdDev, kMath, nullptr, INT_MIN, INT_MAX),
    SetupIntRow(ID_MISS_SPREAD, &gIcStatistics.missSpread, kMath, nullptr, INT_MIN, INT_MAX),
};

const int kSweep2Fields[] = {ID_XAXIS, ID_FACTOR, ID_SWEEP2_UNITS};
const int kAutoFields[] = {ID_XAXIS_AUTO, ID_FROM, ID_STEP, ID_AUTO_UNITS};
const int kSeriesFields[] = {ID_COMPENSATE, ID_SERIES_R};
const Dependency kDependencies[] = {
    {0, 2, kSweep2Fields}, {0, 3, kAutoFields}, {0, 1, kSeriesFields}};

const SetupText kTexts[] = {
    {ID_CRITERION, SETUP_TEXT_LABEL, "&Ic(H) criterion (volts):"},
    {ID_FORWARD, SETUP_TEXT_LABEL, "&Forward step (bits):"},
    {ID_BACKWARD, SETUP_TEXT_LABEL, "&Backward step (bits):"},
    {ID_ZERO_STEP, SETUP_TEXT_LABEL, "Reset searching step (bits):"},
    {ID_STAB_STEP, SETUP_TEXT_LABEL, "Reset s&tabilization step (bits):"},
    {ID_TIMES, SETUP_TEXT_LABEL, "&Number Of Efforts"},
    {ID_ACCEL, SETUP_TEXT_LABEL, "Going up, accelerate after (steps):"},
    {ID_PREDICTION, SETUP_TEXT_LABEL, "Use Ic prediction logic [ for not noisy Ic(H)]"},
    {ID_RESET_TO_GET_IC, SETUP_TEXT_LABEL,
     "Reset bias before measuring Ic (slower)\n(extra reset/pt)"},
    {ID_ABS_V, SETUP_TEXT_LABEL, "Use |V| instead of V (for IV in 2 && 4 quadrants)"},
    {ID_COMPENSATE, SETUP_TEXT_LABEL, "Compensate for series resistance (slower)"},
    {ID_SERIES_R, SETUP_TEXT_LABEL, "Series resistance (Ohm):"},
    {ID_STEP_VOLTAGE, SETUP_TEXT_LABEL, "&Voltage of the Step (V)"},
    {ID_RESET_VOLTAGE, SETUP_TEXT_LABEL, "&Reset Voltage (V)"},
    {ID_ANYWAY, SETUP_TEXT_LABEL, "Jump V_step-->V<V_step is ok too"},
    {ID_DELAY_DURING, SETUP_TEXT_LABEL, "&Delay searching reset (ms):"},
    {ID_DELAY_AFTER, SETUP_TEXT_LABEL, "&Delay after each reset (ms):"},
    {ID_RESET_FIELD, SETUP_TEXT_LABEL,
     "Reset H to init. value during reset (slower)\n(two SetField+DelayAfterSweep2/pt)"},
    {ID_PHASE, SETUP_TEXT_LABEL, "Show Ic(X) progress messages (slower)"},
    {ID_LOG, SETUP_TEXT_LABEL, "Create a Ic(H).log file for debugging (slower)"},
    {ID_PER_FIELD, SETUP_TEXT_LABEL, "measurements for each field value"},
    {ID_TRIGGER, SETUP_TEXT_LABEL, "&Trigger after setting each H"},
    {ID_AUTOZERO, SETUP_TEXT_LABEL, "Autozero sweep1 current(s) for each H"},
    {ID_XAXIS, SETUP_TEXT_LABEL, "x axis values|Sweep&2|The value is increased &automatically"},
    {ID_FACTOR, SETUP_TEXT_LABEL, "x axis factor (e.g. to get Oe from mA)"},
    {ID_SWEEP2_UNITS, SETUP_TEXT_LABEL, "x axis units (e.g. A)"},
    {ID_FROM, SETUP_TEXT_LABEL, "&from"},
    {ID_STEP, SETUP_TEXT_LABEL, "with step"},
    {ID_AUTO_UNITS, SETUP_TEXT_LABEL, "x axis units (e.g. dBm):"},
    {ID_PROBE_TIME, SETUP_TEXT_LABEL, "Avg. time to set I && check V:"},
    {ID_RESET_TIME, SETUP_TEXT_LABEL, "Avg. time spent for reset"},
    {ID_PROBES, SETUP_TEXT_LABEL, "Set I && Check V cycles:"},
    {ID_RESETS, SETUP_TEXT_LABEL, "Number of resets:"},
    {ID_DELTA_AVERAGE, SETUP_TEXT_LABEL, "Delta between neighboring Ic: Average (bits):"},
    {ID_DELTA_STDDEV, SETUP_TEXT_LABEL, "Standard Deviation (bits):"},
    {ID_DELTA_SPREAD, SETUP_TEXT_LABEL, "Delta (bits):"},
    {ID_MISS_AVERAGE, SETUP_TEXT_LABEL, "Real vs. Predicted: Average miss by (bits):"},
    {ID_MISS_STDDEV, SETUP_TEXT_LABEL, "Standard Deviation (bits):"},
    {ID_MISS_SPREAD, SETUP_TEXT_LABEL, "Delta (bits):"},
    {ID_DAC_TIP, SETUP_TEXT_STATIC,
     "Setting Large \"Maximum DAC step\" in Options | Delays may accelerate reset during Ic(H) "
     "measurements."},
};

SetupTable gTable = {
    .rowCount = CountOf(gRows),
    .rows = gRows,
    .dependencyCount = sizeof kDependencies / sizeof kDependencies[0],
    .dependencies = kDependencies,
    .textCount = CountOf(kTexts),
    .texts = kTexts,
};

const bool kReset = (IcH_ResetOptions(), true);

const char* YesNo(std::int32_t flag) {
    return flag ? "Yes" : "No";
}

} // namespace

void IcH_ResetOptions() {
    IcH_Criterion = 5e-6f;
    IcH_ForwardStep = 1;
    IcH_BackwardStep = 32;
    IcH_ZeroStep = 8;
    IcH_ResetStabStep = 8;
    IcH_NumberOfTimes = 1;
    IcX_AccelCount = 4;
    IcH_UsePrediction = 1;
    IcX_ResetToGetIc = 1;
    IcH_UseAbsV = 0;
    IcH_CompensateSeriesR = 0;
    IcH_SeriesR = 0.0f;
    IcH_StepVoltage = 0.0f;
    IcH_ResetVoltage = 0.0f;
    IcH_Anyway = 0;
    IcX_DelayDuringReset = 0;
    IcX_DelayAfterReset = 0;
    IcX_ResetField = 0;
    IcX_ShowPhaseMessage = 1;
    IcX_CreateLogFile = 0;
    IcX_MeasurementsPerOneFieldValue = 1;
    IcH_Trigger = 0;
    IcH_AutoZeroSweep1forEachH = 0;
    IcH_xAxis_WhatKindOfParam = 0;
    IcH_xAxis_Factor = 1.0f;
    std::strcpy(IcH_xAxis_Sweep2_Units, "A");
    IcH_xAxis_From = -30.0f;
    IcH_xAxis_Step = 1.0f;
    std::strcpy(IcH_xAxis_Auto_Units, "dBm");
}

int IcH_LoadOptions(const char* fileName) {
    return LoadOptionTable(&gTable, fileName);
}

int IcH_SaveOptions(const char* fileName) {
    return SaveOptionTable(&gTable, fileName);
}

int IcH_OptionsDialog(void*) {
    return Host().RunSetupDialog(&gTable, "Ic(H) and Im(H) Options");
}

void IcH_WriteRows(OptionRows& out) {
    out.title = "Ic(H) Options";
    out.rows.clear();
    AddOptionRow(out, "Criterion (volts)", "%G", static_cast<double>(IcH_Criterion));
    if (IcH_CompensateSeriesR)
        AddOptionRow(out, "Compensate for series resistance (Ohm)", "%G",
                     static_cast<double>(IcH_SeriesR));
    else
        AddOptionRow(out, "Compensate for series resistance (Ohm)", "%s", "Off");
    AddOptionRow(out, "Use |V| instead of V", "%s", YesNo(IcH_UseAbsV));
    AddOptionRow(out, "Step Voltage (volts)", "%G", static_cast<double>(IcH_StepVoltage));
    AddOptionRow(out, "Reset Voltage (volts)", "%G", static_cast<double>(IcH_ResetVoltage));
    AddOptionRow(out, "Reset H to H_init during reset of I", "%s", YesNo(IcX_ResetField));
    AddOptionRow(out, "Reset I to get Ic", "%s", YesNo(IcX_ResetToGetIc));
    AddOptionRow(out, "Make AutoZero (resetting sweep1) for each value of H?", "%s",
                 YesNo(IcH_AutoZeroSweep1forEachH));
    AddOptionRow(out, "Delay (to cool down) during reset (ms)", "%u", IcX_DelayDuringReset);
    AddOptionRow(out, "Delay (to cool down) after reset (ms)", "%u", IcX_DelayAfterReset);
    AddOptionRow(out, "Measurements per each field value", "%u", IcX_MeasurementsPerOneFieldValue);
    AddOptionRow(out, "Use trigger for each value of H?", "%s", YesNo(IcH_Trigger));
    AddOptionRow(out, "x axis values", "%s", IcH_xAxis_WhatKindOfParam ? "AutoInc" : "sweep2");
    AddOptionRow(out, "Step while searching I_c (bits)", "%u", IcH_ForwardStep);
    AddOptionRow(out, "Step while searching V=0 (bits)", "%u", IcH_ZeroStep);
    AddOptionRow(out, "Step backward when Ic gets lower (bits)", "%u", IcH_BackwardStep);
    AddOptionRow(out, "Reset stabilization step (bits)", "%u", IcH_ResetStabStep);
    AddOptionRow(out, "Number of efforts", "%u", IcH_NumberOfTimes);
    AddOptionRow(out, "Accelerate after how many steps up?", "%u", IcX_AccelCount);
}
