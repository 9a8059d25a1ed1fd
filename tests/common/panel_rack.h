// The simulated rack for the panel tests: stepped clock, fixed seed, the sample wired as the
// shipped settings wire it.
#pragma once
#include "common/test_support.h"
#include "instrument/daq/sim_config.h"

class PanelRack {
  public:
    PanelRack();
    ~PanelRack();
    const TempDir& Dir() const { return dir_; }

  private:
    TempDir dir_;
};

// The simulated rack alone: every instrument global at its default, the step clock, seed 12345
// and extraIni in dir's simdaq.ini, the cards detected.
void LoadSimRack(const TempDir& dir, const std::string& extraIni = "");
// The wiring of the shipped settings: current 0 the sweep1 bias, monitored, current 1 the
// sweep2 coil, voltages 0 to 2 the signals J1, J2 and the array.
void WireSimSample();
// The table index of the output card behind a simulated terminal, or -1.
int SimDacIndex(const SimPort& port);
