// The resistively and capacitively shunted junction: the time-averaged voltage of its running
// branch and its retrapping current, tabulated once per Stewart-McCumber parameter.
#pragma once
#include <vector>

struct RcsjBranch {
    double betaC = 0;
    double iRetrap = 1; // Ir / Ic; 1 when the junction has no hysteresis
    // Ascending normalised bias and the square of the normalised average voltage there.
    std::vector<double> bias;
    std::vector<double> voltage2;
};

// The branch for betaC, computed on first use and kept for the life of the program.
const RcsjBranch& RcsjBranchFor(double betaC);
// V / (Ic Rn) on the running branch at bias i = I / Ic (i below the retrapping point is read
// as the retrapping point).
double RcsjVoltage(const RcsjBranch& branch, double i);

// A junction's voltage with its present Ic, Rn and excess current Ie, on the running branch.
// Tends to Rn (|I| - Ie) at high bias; signed like the current.
double JunctionRunningVoltage(const RcsjBranch& branch, double ic, double rn, double ie,
                              double current);
// The new state after the bias changed: switches above Ic, retraps below Ir.
bool JunctionRunningAfter(bool fRunning, double ic, double ir, double current);
