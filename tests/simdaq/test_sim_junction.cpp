#include "sim_rig.h"

#include <gtest/gtest.h>

#include <cmath>
#include <vector>

// Overdamped, the running branch is sqrt(i^2 - 1); the retrapping ratio follows RCSJ. Up at Ic
// whatever beta_c; down at the retrapping current, not before.
TEST(SimJunction, SwitchesAtIcAndRetrapsAtTheRcsjCurrent) {
    for (auto [beta, ratio, tolerance] :
         {std::tuple(0.0, 1.0, 0.0), {0.5, 1.0, 0.0}, {1.0, 0.964, 0.01}, {100.0, 0.127, 0.005}})
        EXPECT_NEAR(SimDaqRetrapRatio(beta), ratio, tolerance) << beta;
    for (double i : {1.05, 3.0, 40.0})
        EXPECT_NEAR(SimDaqRunningVoltage(0, i), std::sqrt(i * i - 1), 1e-3 * i) << i;
    for (auto [beta, ratio] : {std::pair(0.0, 1.0), {2.0, 0.790}, {10.0, 0.393}}) {
        SCOPED_TRACE(beta);
        TempDir dir;
        LoadSim(dir, "[Field]\nOffset=0\n[J1]\nBetaC=" + std::to_string(beta) + "\nIe=0\n");
        SimSampleState st = SimDaqSampleState();
        ASSERT_GT(st.j1.ic, 5e-5);
        // Up in single DAC steps until J1 switches, on to 1.2 times that, then down while J1
        // keeps its voltage.
        const double zero = J1Volts();
        int up = SwitchReading(1), r = up;
        while (r < 1.2 * up)
            SetBias(++r);
        while (r > 0 && (SetBias(r - 1), J1Volts() - zero >= 2e-6))
            --r;
        EXPECT_NEAR(up * kDacStep, st.j1.ic, 0.01 * st.j1.ic + kDacStep);
        EXPECT_NEAR(r * kDacStep / st.j1.ic, ratio, 0.02);
        EXPECT_NEAR(r * kDacStep, st.j1.ir, kDacStep * 1.5);
        EXPECT_FALSE(SimDaqSampleState().j1.fRunning);
    }
}

TEST(SimJunction, HighBiasGivesRnAndExcessCurrent) {
    TempDir dir;
    LoadSim(dir, "[J1]\nIc=2e-5\nRn=10\nIe=5e-6\n[Inputs]\nJ1Gain=500\n");
    SimSampleState st = SimDaqSampleState();
    // The line through V at 25 and at 50 Ic.
    const int reading[2] = {16384, 32767};
    double v[2];
    for (int k = 0; k < 2; ++k) {
        SetBias(reading[k]);
        v[k] = ReadVolts(1, 0) / 500;
    }
    double slope = (v[1] - v[0]) / ((reading[1] - reading[0]) * kDacStep);
    double intercept = v[0] - slope * reading[0] * kDacStep;
    double offset = 0.0021 / 500 + 3e-6;
    EXPECT_NEAR(slope, 10.0, 0.1);
    EXPECT_NEAR(-(intercept - offset) / slope, st.j1.ie, 0.05 * st.j1.ic);
    EXPECT_GT(st.j1.ie, 4e-6);
}

TEST(SimJunction, ThermoEmfDoesNotReverseWithTheCurrent) {
    TempDir dir;
    LoadSim(dir, "");
    double ic = SimDaqSampleState().j1.ic;
    double plus[2], minus[2];
    for (int k = 0; k < 2; ++k) {
        double bias = (k == 0 ? 0.5 : 3.0) * ic * kBiasResistor;
        WriteVolts(1, 0, bias);
        plus[k] = ReadVolts(1, 0);
        WriteVolts(1, 0, -bias);
        minus[k] = ReadVolts(1, 0);
    }
    double zeroLevel = 1000 * 3e-6 + 0.0021;
    EXPECT_NEAR(plus[0], zeroLevel, 1e-3);
    EXPECT_NEAR(minus[0], zeroLevel, 1e-3);
    EXPECT_NEAR((plus[1] + minus[1]) / 2, zeroLevel, 1e-3);
    EXPECT_GT(plus[1] - minus[1], 2 * 1000 * ic * 10 * 2);
}

// Ic against coil current: largest at the field offset, zero at offset + n H0.
TEST(SimJunction, FraunhoferPatternOfTheCoil) {
    TempDir dir;
    LoadSim(dir, "[Field]\nOffset=0.0003\n[J1]\nH0=0.002\nIe=0\n");
    std::vector<double> ic;
    for (int k = -45; k <= 45; ++k) { // coil current k * 0.1 mA
        WriteVolts(1, 1, k * 0.1);
        ic.push_back(SwitchReading(8) * kDacStep);
    }
    size_t best = 0;
    for (size_t k = 0; k < ic.size(); ++k)
        if (ic[k] > ic[best]) best = k;
    EXPECT_EQ(best, 45u + 3);
    for (size_t node : {45 - 37, 45 - 17, 45 + 23}) { // -3.7, -1.7 and 2.3 mA
        EXPECT_LT(ic[node], 0.03 * ic[best]) << node;
        EXPECT_LT(ic[node], std::min(ic[node - 1], ic[node + 1])) << node;
    }
}
