// The delays and steps that the cards and the virtual currents obey while they set a current
// or read a voltage. They are options of the "Measure" section (the Delays dialog loads and
// saves them); the interface thread writes them, never during a measurement.
#pragma once
#include <cstdint>

extern uint32_t SystemDecayTime;        // ms after Sweep1 is set
extern uint32_t DelayAfterSweep2;       // ms after Sweep2 is set
extern uint32_t DelayBeforeVoltage;     // ms after multiplexing, before a voltage is read
extern uint32_t MaxDACStep;             // DAC bits of the largest single step of a current
extern uint32_t PrimitiveGeneratorStep; // bits of the common scale, 1 to 1024
