#include "instrument/delays.h"

uint32_t SystemDecayTime = 0;
uint32_t DelayAfterSweep2 = 0;
uint32_t DelayBeforeVoltage = 0;
uint32_t MaxDACStep = 256;
uint32_t PrimitiveGeneratorStep = 256;
