#include "measure/measure_options.h"

#include "platform/host.h"

#include <climits>

uint32_t DelayAfterJumpToStart = 0;
uint32_t InteractionTime = 500;
int32_t StopAfterEachCurve = 0;

int32_t CurrentMesureMethod = 0;
int32_t SwapXY_Axes = 0;
int32_t RescalePlotAfterMeasurement = 1;

namespace {

SetupRow gDelaysRows[] = {
    SetupUIntRow(IDC_DELAY_AFTER_JUMP, &DelayAfterJumpToStart, "Measure", "DelayAfterJumpToStart",
                 0, UINT_MAX),
    SetupUIntRow(IDC_SYSTEM_DECAY_TIME, &SystemDecayTime, "Measure", "SystemDecayTime", 0,
                 UINT_MAX),
    SetupUIntRow(IDC_DELAY_AFTER_SWEEP2, &DelayAfterSweep2, "Measure", "DelayAfterSweep2", 0,
                 UINT_MAX),
    SetupUIntRow(IDC_DELAY_BEFORE_VOLTAGE, &DelayBeforeVoltage, "Measure", "DelayBeforeVoltage", 0,
                 UINT_MAX),
    SetupUIntRow(IDC_MAX_DAC_STEP, &MaxDACStep, "Measure", "MaxDACStep", 1, UINT_MAX),
    SetupUIntRow(IDC_PRIMITIVE_GENERATOR_STEP, &PrimitiveGeneratorStep, "Measure",
                 "PrimitiveGeneratorStep", 1, 1024),
    SetupUIntRow(IDC_INTERACTION_TIME, &InteractionTime, "Measure", "InteractionTime", 0, UINT_MAX),
    SetupCheckRow(IDC_STOP_AFTER_EACH_CURVE, &StopAfterEachCurve, "Measure", "StopAfterEachCurve"),
};

SetupRow gGeneralMeasureRows[] = {
    SetupRadioRow(IDC_MEASURE_IN_EACH_POINT, &CurrentMesureMethod, "Measure",
                  "CurrentMesureMethod"),
    SetupCheckRow(IDC_SWAP_XY_AXES, &SwapXY_Axes, "Setup", "SwapXY_Axes"),
    SetupCheckRow(IDC_RESCALE_AFTER_MEASUREMENT, &RescalePlotAfterMeasurement, "Setup",
                  "RescalePlotAfterMeasurement"),
};

const SetupText kDelaysTexts[] = {
    {IDC_DELAY_AFTER_JUMP, SETUP_TEXT_LABEL,
     "After the current jumps at the 1st point: (ms). . . . . . . . ."},
    {IDC_SYSTEM_DECAY_TIME, SETUP_TEXT_LABEL,
     "After Sweep1 is set (ms). . . . . . . . . . . . . . . . . . . . . . . . . "},
    {IDC_DELAY_AFTER_SWEEP2, SETUP_TEXT_LABEL,
     "After Sweep2 is set (ms). . . . . . . . . . . . . . . . . . . . . "},
    {IDC_DELAY_BEFORE_VOLTAGE, SETUP_TEXT_LABEL,
     "After MUXing (ms). . . . . . . . . . . . . . . . . . . . . . . . . . . . . . . "},
    {IDC_MAX_DAC_STEP, SETUP_TEXT_LABEL,
     "Maximum DAC step (DAC units). . . . . . . . . . . . . . . ."},
    {IDC_PRIMITIVE_GENERATOR_STEP, SETUP_TEXT_LABEL,
     "Primitive Generator step (DAC units). . . . . . . . . . . "},
    {IDC_INTERACTION_TIME, SETUP_TEXT_LABEL, "Interactivity (ms). . . . . . . . . . . "},
    {IDC_STOP_AFTER_EACH_CURVE, SETUP_TEXT_LABEL,
     "Stop after each curve/point in IVF, Ic(H), Im(H)"},
};
const SetupText kGeneralTexts[] = {
    {IDC_MEASURE_IN_EACH_POINT, SETUP_TEXT_LABEL,
     "How the sweep current is measured|In each point|Only on the edges and assume it's linear"},
    {IDC_SWAP_XY_AXES, SETUP_TEXT_LABEL, "Swap X-Y Axes after IVC && IVF"},
    {IDC_RESCALE_AFTER_MEASUREMENT, SETUP_TEXT_LABEL, "Rescale plot after measurement"},
};

const char* YesNo(int32_t flag) {
    return flag ? "Yes" : "No";
}

} // namespace

SetupTable gDelaysSetupTable = {
    .rowCount = CountOf(gDelaysRows),
    .rows = gDelaysRows,
    .textCount = CountOf(kDelaysTexts),
    .texts = kDelaysTexts,
};
SetupTable gGeneralMeasureSetupTable = {
    .rowCount = CountOf(gGeneralMeasureRows),
    .rows = gGeneralMeasureRows,
    .textCount = CountOf(kGeneralTexts),
    .texts = kGeneralTexts,
};

int Delays_LoadOptions(const char* fileName) {
    return LoadOptionTable(&gDelaysSetupTable, fileName);
}

int Delays_SaveOptions(const char* fileName) {
    return SaveOptionTable(&gDelaysSetupTable, fileName);
}

int Delays_OptionsDialog(void*) {
    return Host().RunSetupDialog(&gDelaysSetupTable, "Delays Options");
}

void Delays_WriteRows(OptionRows& out) {
    out.title = "Delays";
    out.rows.clear();
    AddOptionRow(out, "Delay after current jumps to the first point (ms)", "%u",
                 DelayAfterJumpToStart);
    AddOptionRow(out, "Delay after Sweep1 is set (ms)", "%u", SystemDecayTime);
    AddOptionRow(out, "Delay after Sweep2 is set (ms)", "%u", DelayAfterSweep2);
    AddOptionRow(out, "Delay after multiplexing  (ms)", "%u", DelayBeforeVoltage);
    AddOptionRow(out, "Interactivity time (ms)", "%u", InteractionTime);
    AddOptionRow(out, "Stop After Each Curve?", "%s", YesNo(StopAfterEachCurve));
}

int GeneralMeasure_LoadOptions(const char* fileName) {
    return LoadOptionTable(&gGeneralMeasureSetupTable, fileName);
}

int GeneralMeasure_SaveOptions(const char* fileName) {
    return SaveOptionTable(&gGeneralMeasureSetupTable, fileName);
}

int GeneralMeasure_OptionsDialog(void*) {
    return Host().RunSetupDialog(&gGeneralMeasureSetupTable, "General Measurement Options");
}

void GeneralMeasure_WriteRows(OptionRows& out) {
    out.title = "General Measurement Options";
    out.rows.clear();
    AddOptionRow(out, "How the sweep current is measured", "%s",
                 CurrentMesureMethod ? "only on the edges" : "in each point");
}
