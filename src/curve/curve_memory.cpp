#include "curve/curve_memory.h"

unsigned gRefusedCurveAllocations = 0;
