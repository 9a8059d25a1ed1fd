// Options of V(I) (section "Measurements") and of the trigger (section "Trigger"), which IVC,
// IVF, Ic(H) and Im(H) share.
#pragma once
#include "settings/option_rows.h"
#include "settings/setup_table.h"

#include <cstdint>

extern int32_t IVC_Trigger;
extern int32_t IVC_xAxis_WhatKindOfParam; // 0: measured sweep1; 1: increased automatically
extern float IVC_xAxis_Factor;
extern char IVC_xAxis_Units[32];
extern float IVC_xAxis_From;
extern float IVC_xAxis_Step;
extern char IVC_xAxis_Auto_Units[32];

extern float TriggerLevel1;
extern float TriggerLevel2;
extern uint32_t TriggerDelay;

enum : int {
    IDC_IVC_TRIGGER = 1200,
    IDC_IVC_XAXIS_SWEEP1 = 1210,
    IDC_IVC_XAXIS_AUTO,
    IDC_IVC_XAXIS_FACTOR,
    IDC_IVC_XAXIS_UNITS,
    IDC_IVC_XAXIS_FROM,
    IDC_IVC_XAXIS_STEP,
    IDC_IVC_XAXIS_AUTO_UNITS,
    IDC_TRIGGER_LEVEL1 = 1220,
    IDC_TRIGGER_LEVEL2,
    IDC_TRIGGER_DELAY,
};

extern SetupTable gIVCSetupTable;
extern SetupTable gIVCxAxisSetupTable;
extern SetupTable gTriggerSetupTable;

// The trigger group of the settings lists; it carries the IVC options with it, so that the
// options of the first measurement come back at start like every other group.
int Trigger_LoadOptions(const char* fileName);
int Trigger_SaveOptions(const char* fileName);

int IVC_OptionsDialog(void* parent);
int IVC_xAxisDialog(void* parent);
int Trigger_OptionsDialog(void* parent);
void IVC_WriteRows(OptionRows& out);
void Trigger_WriteRows(OptionRows& out);
