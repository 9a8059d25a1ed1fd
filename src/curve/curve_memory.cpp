#include "curve/curve_memory.h"

int gCurveAllocationBudget = -1;
