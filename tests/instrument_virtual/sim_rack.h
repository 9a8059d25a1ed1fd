// The simulated rack as the tests of the virtual channels use it: a stepped clock and a fixed
// seed, cards detected, every instrument global at its default.
#pragma once
#include "common/panel_rack.h"
#include "instrument/daq/sim_driver.h"

#include <vector>

class SimRack {
  public:
    // Wires the shipped sample when asked (WireSimSample), with the gain of the bias monitor
    // and the resistor of the coil, so that both read in amperes.
    explicit SimRack(bool wire = false);
    ~SimRack() { ResetInstrumentDefaults(); }
    const TempDir& Dir() const { return dir_; }
    enum { kBias = 0, kCoil = 1, kJ1 = 0, kJ2 = 1, kArray = 2 };

  private:
    TempDir dir_;
};

// A driver that forwards to the simulated one and records the writes; AI_Read returns the
// scripted readings in turn, while any are left, instead of converting; DAQ_Op returns
// gDaqOpStatus instead of acquiring unless it is 0.
struct DacWrite {
    int slot, channel, reading;
};
void InstallRecordingDriver();
extern std::vector<DacWrite> gRecordedWrites;
extern std::vector<int> gScriptedReadings;
extern int gDaqOpStatus;
