// The simulated rack for the panel tests: stepped clock, fixed seed, the sample wired as the
// shipped settings wire it (sweep1 bias monitored, sweep2 coil, signals J1, J2, array).
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
// and extraIni in dir's simdaq.ini, the cards detected. The table index of the card behind a
// simulated terminal, or -1.
void LoadSimRack(const TempDir& dir, const std::string& extraIni = "");
int SimDacIndex(const SimPort& port);
int SimAdcIndex(const SimPort& port);
