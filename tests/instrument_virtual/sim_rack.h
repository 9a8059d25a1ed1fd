// The simulated rack as the tests of the virtual channels use it: a stepped clock and a fixed
// seed, cards detected, every instrument global at its default.
#pragma once
#include "common/panel_rack.h"
#include "instrument/daq/sim_driver.h"

#include <vector>

class SimRack {
  public:
    // Wires the shipped sample when asked: sweep1 bias (monitored), sweep2 coil, signals J1, J2,
    // array on voltages 0 to 2.
    explicit SimRack(bool wire = false);
    ~SimRack() { ResetInstrumentDefaults(); }
    const TempDir& Dir() const { return dir_; }
    enum { kBias = 0, kCoil = 1, kJ1 = 0, kJ2 = 1, kArray = 2 };

  private:
    TempDir dir_;
};

// A driver that forwards to the simulated one and records the writes; AI_Read can be scripted.
struct DacWrite {
    int slot, channel, reading;
};
void InstallRecordingDriver();
std::vector<DacWrite>& RecordedWrites();
// Readings that AI_Read returns in turn instead of converting, while any are left.
std::vector<int>& ScriptedReadings();
// Status that DAQ_Op returns instead of acquiring; 0 lets it acquire.
void FailDaqOp(int status);
