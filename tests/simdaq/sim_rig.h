// Helpers of the simulated-instrument tests: a rack loaded from a test's own simdaq.ini with
// the step clock, single-point writes and reads through the driver table, and the bias of J1.
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

inline void WriteVolts(i16 slot, i16 channel, double volts) {
    i16 r = 0;
    gSimDaqDriver.AO_VScale(slot, channel, volts, &r);
    gSimDaqDriver.AO_Write(slot, channel, r);
}

// Volts at the card input, the card's gain taken out.
inline double ReadVolts(i16 slot, i16 channel, i16 gainCode = 1) {
    i16 r = 0;
    double v = 0;
    gSimDaqDriver.AI_Read(slot, channel, gainCode, &r);
    gSimDaqDriver.AI_VScale(slot, channel, gainCode, 1.0, 0.0, r, &v);
    return v;
}

// The bias line of the default wiring: card 1 output 0 through 10 kOhm; J1 on input 0, gain
// 1000. One 16-bit step is 20 V / 65536 / 10 kOhm.
constexpr double kBiasResistor = 1e4;
constexpr double kDacStep = 20.0 / 65536 / kBiasResistor;

inline void SetBias(int reading) {
    gSimDaqDriver.AO_Write(1, 0, static_cast<i16>(reading));
}
inline double J1Volts() {
    return ReadVolts(1, 0, 10) / 1000;
}

// Up from a zero bias in steps: the first reading at which J1 shows 2 uV.
inline int SwitchReading(int step) {
    SetBias(0);
    const double zero = J1Volts();
    int r = 0;
    while (r < 32767 && J1Volts() - zero < 2e-6)
        SetBias(r += step);
    return r;
}
