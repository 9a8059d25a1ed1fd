// V(I): the primary current is swept and every signal voltage read at each value.
#pragma once

// Options of section "Measurements".
extern int IVC_Trigger;
extern int IVC_xAxis_WhatKindOfParam; // 0: measured sweep1; 1: increased automatically
extern float IVC_xAxis_Factor;
extern char IVC_xAxis_Units[32];
extern float IVC_xAxis_From;
extern float IVC_xAxis_Step;
extern char IVC_xAxis_Auto_Units[32];

// Options of section "Trigger", shared by the swept measurements.
extern float TriggerLevel1;
extern float TriggerLevel2;
extern unsigned TriggerDelay;

int MeasureIVC(void* dlg);
float IVC_GetParamValue(void* dlg, int current, unsigned point);
// Level 1, delay, level 2, delay on the first trigger current; -1 when there is none.
int TriggerPulse();
// The x units of the present kind of x axis.
const char* IVC_xUnits();
