// The simulated rack for the panel tests: stepped clock, fixed seed, the sample wired as the
// shipped settings wire it (sweep1 bias monitored, sweep2 coil, signals J1, J2, array).
#pragma once
#include "common/test_support.h"

class PanelRack {
  public:
    PanelRack();
    ~PanelRack();
    const TempDir& Dir() const { return dir_; }

  private:
    TempDir dir_;
};
