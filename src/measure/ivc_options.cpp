#include "measure/ivc_options.h"
#include "platform/host.h"

#include <cfloat>
#include <climits>

int32_t IVC_Trigger = 0;
int32_t IVC_xAxis_WhatKindOfParam = 0;
float IVC_xAxis_Factor = 1.0f;
char IVC_xAxis_Units[32] = "A";
float IVC_xAxis_From = -30.0f;
float IVC_xAxis_Step = 1.0f;
char IVC_xAxis_Auto_Units[32] = "dBm";

float TriggerLevel1 = 0.0f;
float TriggerLevel2 = 1.0f;
uint32_t TriggerDelay = 0;

namespace {

SetupRow gIVCRows[] = {
    SetupCheckRow(IDC_IVC_TRIGGER, &IVC_Trigger, "Measurements", "IVC_Trigger"),
};

SetupRow gIVCxAxisRows[] = {
    SetupRadioRow(IDC_IVC_XAXIS_SWEEP1, &IVC_xAxis_WhatKindOfParam, "Measurements",
                  "IVC_xAxis_WhatKindOfParam"),
    SetupFloatRow(IDC_IVC_XAXIS_FACTOR, &IVC_xAxis_Factor, "Measurements", "IVC_xAxis_Factor",
                  -FLT_MAX, FLT_MAX),
    SetupTextRow(IDC_IVC_XAXIS_UNITS, IVC_xAxis_Units, sizeof IVC_xAxis_Units, "Measurements",
                 "IVC_xAxis_Units"),
    SetupFloatRow(IDC_IVC_XAXIS_FROM, &IVC_xAxis_From, "Measurements", "IVC_xAxis_From", -FLT_MAX,
                  FLT_MAX),
    SetupFloatRow(IDC_IVC_XAXIS_STEP, &IVC_xAxis_Step, "Measurements", "IVC_xAxis_Step", -FLT_MAX,
                  FLT_MAX),
    SetupTextRow(IDC_IVC_XAXIS_AUTO_UNITS, IVC_xAxis_Auto_Units, sizeof IVC_xAxis_Auto_Units,
                 "Measurements", "IVC_xAxis_Auto_Units"),
};

SetupRow gTriggerRows[] = {
    SetupFloatRow(IDC_TRIGGER_LEVEL1, &TriggerLevel1, "Trigger", "Level1", -1.0f, 1.0f),
    SetupFloatRow(IDC_TRIGGER_LEVEL2, &TriggerLevel2, "Trigger", "Level2", -1.0f, 1.0f),
    SetupUIntRow(IDC_TRIGGER_DELAY, &TriggerDelay, "Trigger", "Delay", 0, UINT_MAX),
};

// The kind of x axis enables the fields that belong to it.
const int gSweep1Fields[] = {IDC_IVC_XAXIS_SWEEP1, IDC_IVC_XAXIS_FACTOR, IDC_IVC_XAXIS_UNITS};
const int gAutoFields[] = {IDC_IVC_XAXIS_AUTO, IDC_IVC_XAXIS_FROM, IDC_IVC_XAXIS_STEP,
                           IDC_IVC_XAXIS_AUTO_UNITS};
const Dependency gIVCxAxisDependencies[] = {{0, 2, gSweep1Fields}, {0, 3, gAutoFields}};

const SetupText kIVCTexts[] = {
    {IDC_IVC_TRIGGER, SETUP_TEXT_LABEL, "&Trigger after setting each value of sweep1"},
};
const SetupText kIVCxAxisTexts[] = {
    {IDC_IVC_XAXIS_SWEEP1, SETUP_TEXT_LABEL,
     "x axis values|Sweep&1|The value is increased &automatically"},
    {IDC_IVC_XAXIS_FACTOR, SETUP_TEXT_LABEL, "x axis factor (e.g. to get Oe from mA)"},
    {IDC_IVC_XAXIS_UNITS, SETUP_TEXT_LABEL, "x axis units (e.g. A)"},
    {IDC_IVC_XAXIS_FROM, SETUP_TEXT_LABEL, "&from"},
    {IDC_IVC_XAXIS_STEP, SETUP_TEXT_LABEL, "with step"},
    {IDC_IVC_XAXIS_AUTO_UNITS, SETUP_TEXT_LABEL, "x axis units (e.g. dBm):"},
};
const SetupText kTriggerTexts[] = {
    {IDC_TRIGGER_LEVEL1, SETUP_TEXT_LABEL, "Level 1 [-1..+1] . . . . . . . . . . . . "},
    {IDC_TRIGGER_LEVEL2, SETUP_TEXT_LABEL, "Level 2 [-1..+1] . . . . . . . . . . . . "},
    {IDC_TRIGGER_DELAY, SETUP_TEXT_LABEL, "Delay (ms) . . . . . . . . . . . . "},
};

} // namespace

SetupTable gIVCSetupTable = {
    .rowCount = CountOf(gIVCRows),
    .rows = gIVCRows,
    .textCount = CountOf(kIVCTexts),
    .texts = kIVCTexts,
};
SetupTable gIVCxAxisSetupTable = {
    .rowCount = CountOf(gIVCxAxisRows),
    .rows = gIVCxAxisRows,
    .dependencyCount = 2,
    .dependencies = gIVCxAxisDependencies,
    .textCount = CountOf(kIVCxAxisTexts),
    .texts = kIVCxAxisTexts,
};
SetupTable gTriggerSetupTable = {
    .rowCount = CountOf(gTriggerRows),
    .rows = gTriggerRows,
    .textCount = CountOf(kTriggerTexts),
    .texts = kTriggerTexts,
};

int Trigger_LoadOptions(const char* fileName) {
    LoadOptionTable(&gTriggerSetupTable, fileName);
    LoadOptionTable(&gIVCSetupTable, fileName);
    return LoadOptionTable(&gIVCxAxisSetupTable, fileName);
}

int Trigger_SaveOptions(const char* fileName) {
    SaveOptionTable(&gTriggerSetupTable, fileName);
    SaveOptionTable(&gIVCSetupTable, fileName);
    return SaveOptionTable(&gIVCxAxisSetupTable, fileName);
}

int IVC_OptionsDialog(void*) {
    return Host().RunSetupDialog(&gIVCSetupTable, "IVC Options");
}

int IVC_xAxisDialog(void*) {
    return Host().RunSetupDialog(&gIVCxAxisSetupTable, "IVC x axis");
}

int Trigger_OptionsDialog(void*) {
    return Host().RunSetupDialog(&gTriggerSetupTable, "Trigger Options");
}

void IVC_WriteRows(OptionRows& out) {
    out.title = "IVC Options";
    out.rows.clear();
    AddOptionRow(out, "Trigger", "%s", IVC_Trigger ? "Yes" : "No");
}

void Trigger_WriteRows(OptionRows& out) {
    out.title = "Trigger Options";
    out.rows.clear();
    AddOptionRow(out, "Level 1", "%G", TriggerLevel1);
    AddOptionRow(out, "Level 2", "%G", TriggerLevel2);
    AddOptionRow(out, "Delay (ms)", "%u", TriggerDelay);
}
