// Ic(H) and Im(H): the sweep2 current (the field coil) is swept, and at each value the critical
// current (or the top of a step) of every signal voltage is searched with the sweep1 current.
// One curve a voltage, each with its own search state.
#pragma once

int MeasureIcH(void* dlg);
int MeasureImH(void* dlg);
// The x of point n: the measured sweep2 times the factor, or from + n step.
float IcX_GetParamValue(void* dlg, int sweep2, unsigned n);
// The x units of the present kind of x axis.
const char* IcX_xUnits();
