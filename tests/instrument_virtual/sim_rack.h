// The simulated rack as the tests of the virtual channels use it: a stepped clock and a fixed
// seed, cards detected, every channel record back at its defaults, averaging 1.
#pragma once
#include "common/test_support.h"
#include "instrument/daq/sim_config.h"
#include "instrument/daq/sim_driver.h"

#include <string>
#include <vector>

class SimRack {
  public:
    explicit SimRack(const std::string& extraIni = "");
    ~SimRack();
    SimRack(const SimRack&) = delete;
    SimRack& operator=(const SimRack&) = delete;

    const TempDir& Dir() const { return dir_; }
    // Table indices of the card behind a simulated terminal.
    static int DacOf(const SimPort& port);
    static int AdcOf(const SimPort& port);

    // Wires the shipped sample: sweep1 bias (monitored), sweep2 coil, signals J1, J2, array.
    static void WireSample();
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
