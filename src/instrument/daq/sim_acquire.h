// Timed acquisitions of the simulated cards.
#pragma once
#include "instrument/daq/daq_driver.h"

i16 SimDAQ_Op(i16 slot, i16 channel, i16 gainCode, i16* buffer, u32 count, f64 rate);
i16 SimSCAN_Op(i16 slot, i16 channelCount, const i16* channels, const i16* gainCodes, i16* buffer,
               u32 count, f64 sampleRate, f64 scanRate);
i16 SimTimeout_Config(i16 slot, i32 ticks);
