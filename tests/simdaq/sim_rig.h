// Helpers of the simulated-instrument tests: a rack loaded from a test's own simdaq.ini with
// the step clock, and single-point writes and reads through the driver table.
#pragma once
#include "common/test_support.h"
#include "instrument/daq/sim_config.h"
#include "instrument/daq/sim_driver.h"

#include <string>

// Loads text as simdaq.ini, with the step clock and, unless text says otherwise, no noise.
inline void LoadSim(const TempDir& dir, const std::string& text) {
    std::string all = text + "\n[Clock]\nMode=step\nStepSeconds=0.001\n";
    if (text.find("[Noise]") == std::string::npos) all += "[Noise]\nSigma=0\n";
    WriteWholeFile(dir.File("simdaq.ini"), all);
    SimDaqLoad(dir.File("simdaq.ini").c_str());
}

inline void WriteVolts(int slot, int channel, double volts) {
    i16 r = 0;
    gSimDaqDriver.AO_VScale(static_cast<i16>(slot), static_cast<i16>(channel), volts, &r);
    gSimDaqDriver.AO_Write(static_cast<i16>(slot), static_cast<i16>(channel), r);
}

// Volts at the card input, the card's gain taken out.
inline double ReadVolts(int slot, int channel, int gainCode = 1) {
    i16 r = 0;
    double v = 0;
    gSimDaqDriver.AI_Read(static_cast<i16>(slot), static_cast<i16>(channel),
                          static_cast<i16>(gainCode), &r);
    gSimDaqDriver.AI_VScale(static_cast<i16>(slot), static_cast<i16>(channel),
                            static_cast<i16>(gainCode), 1.0, 0.0, r, &v);
    return v;
}
