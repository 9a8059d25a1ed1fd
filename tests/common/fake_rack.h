// A rack of cards described in a few fields, served through a DaqDriver of plain functions:
// NI-DAQ version 0612, an SCXI chassis at address 5 with 4 slots when scxiChassis is set.
#pragma once
#include "instrument/daq/daq_driver.h"

#include <vector>

struct FakeCard {
    i16 chassis = 0;
    i16 slot = 1;
    u32 id = 0;
    // Analog inputs: resolution 0 (none), 12 or 16; signed readings or offset binary.
    int adcBits = 0;
    bool adcSigned = true;
    std::vector<std::pair<int, int>> adcChannels; // inclusive runs
    std::vector<float> gains = {1.0f};            // as the card's own gain list
    bool aiVScaleMissing = false;                 // answers -10403, DAQ_VScale works
    // Analog outputs over +-10 V.
    int dacChannels = 0;
    int dacBits = 12;
    bool dacSigned = true;
};

struct FakeRack {
    std::vector<FakeCard> cards;
    i16 scxiChassis = 0; // 1 to 3, or 0 for none
    // Single-point behaviour.
    i16 aiReadStatus = 0;
    i16 daqOpStatus = 0;
    i16 nextReading = 0;
    i16 writeStatus = 0;
    // What reached the driver.
    struct Write {
        i16 chassis, slot, channel, opCode, rangeCode, reading;
    };
    std::vector<Write> writes;
};

extern FakeRack gRack;
extern const DaqDriver kFakeDriver;
