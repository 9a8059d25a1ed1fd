// V(I): the primary current is swept and every signal voltage read at each value.
#pragma once
#include "measure/ivc_options.h"

int MeasureIVC(void* dlg);
float IVC_GetParamValue(void* dlg, int current, unsigned point);
// Level 1, delay, level 2, delay on the first trigger current; -1 when there is none.
int TriggerPulse();
// The x units of the present kind of x axis.
const char* IVC_xUnits();
