#include "sim_rig.h"

#include "instrument/thermometer.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <vector>

namespace {

constexpr double kDacStep = 20.0 / 65536 / 1e4;

// The bias at which J1 first shows a voltage, ramping from zero.
double MeasureIc() {
    gSimDaqDriver.AO_Write(1, 0, 0);
    double zero = ReadVolts(1, 0, 10);
    int r = 0;
    while (r < 32767 && ReadVolts(1, 0, 10) - zero < 2e-3)
        gSimDaqDriver.AO_Write(1, 0, static_cast<i16>(r += 4));
    gSimDaqDriver.AO_Write(1, 0, 0);
    return r * kDacStep;
}

} // namespace

TEST(SimSample, IcFollowsAmbegaokarBaratoff) {
    TempDir dir;
    LoadSim(dir, "[Field]\nOffset=0\n[Temperature]\nTc=9.2\nT0=4.6\nTimeConstant=1\n");
    double ic0 = 1e-4;
    // Delta(T)/Delta(0) = tanh(1.74) at T/Tc = 0.5, times tanh(1.764 * 0.9405 / 1).
    EXPECT_NEAR(MeasureIc() / ic0, 0.8748, 0.02);
    // The heater warms the stage to 0.95 Tc and then past Tc.
    WriteVolts(2, 0, std::sqrt((0.95 * 9.2 - 4.6) / 100 * 1000));
    SimDaqAdvance(20);
    EXPECT_NEAR(SimDaqSampleState().temperature, 0.95 * 9.2, 0.01);
    double near = MeasureIc();
    EXPECT_GT(near, 0);
    EXPECT_LT(near, 0.2 * ic0);
    WriteVolts(2, 0, std::sqrt((9.4 - 4.6) / 100 * 1000));
    SimDaqAdvance(20);
    EXPECT_DOUBLE_EQ(SimDaqSampleState().j1.ic, 0);
    EXPECT_LE(MeasureIc(), 8 * kDacStep);
    WriteVolts(1, 0, 0.5); // 50 uA through an ohmic J1
    EXPECT_NEAR((ReadVolts(1, 0) - 0.0021) / 1000 - 3e-6, 10 * 5e-5, 1e-6);
}

TEST(SimSample, HeaterWarmsWithItsTimeConstantAndDriftAdds) {
    TempDir dir;
    LoadSim(dir, "[Temperature]\nT0=4.2\nTimeConstant=5\nHeaterKPerW=100\nDriftRate=0.01\n");
    WriteVolts(2, 0, 5.0); // 25 mW through 1 kOhm: 2.5 K above the drifting base
    double t0 = SimDaqTime();
    SimDaqAdvance(5);
    double dt = SimDaqTime() - t0;
    double base = 4.2 + 0.01 * SimDaqTime();
    double expected = base + 2.5 * (1 - std::exp(-dt / 5)) - 0.05 * (1 - std::exp(-dt / 5));
    EXPECT_NEAR(SimDaqSampleState().temperature, expected, 0.01);
}

// The sensor's R(T) is the shipped calibration table: T read back through it as the
// thermometer reads it.
TEST(SimSample, ThermometerMatchesTheShippedTable) {
    ASSERT_GT(LoadTemperatureCurve(SourcePath("data/thinfilm.R(T)").c_str()), 0);
    for (auto [kelvin, ohm] : {std::pair(1.8, 0.0),
                               {4.2, 574.0},
                               {10.0, 332.0},
                               {42.0, 0.0},
                               {77.35, 101.0},
                               {300.0, 41.4}}) {
        TempDir dir;
        LoadSim(dir, "[Temperature]\nT0=" + std::to_string(kelvin) + "\n");
        f64 read = -2;
        InterpolateTemperature(static_cast<f32>((ReadVolts(1, 3, 10) - 0.0005) / 100 / 1e-5),
                               &read);
        EXPECT_NEAR(read, kelvin, 0.01 * kelvin) << kelvin;
        if (ohm) EXPECT_NEAR(SimDaqSensorResistance(kelvin), ohm, 0.01) << kelvin;
    }
    ResetTemperatureTable();
}

// Each switched junction of the array adds one gap voltage, at its own critical current.
TEST(SimSample, ArrayVoltageIsAStaircase) {
    TempDir dir;
    LoadSim(dir,
            "[Field]\nOffset=0\n[Array]\nN=8\nIc=5e-5\nSpread=0.15\nRn=40\nGapVoltage=0.0027\n");
    SimSampleState st = SimDaqSampleState();
    ASSERT_EQ(st.arrayCount, 8);
    std::vector<double> ics;
    double ab = st.j1.ic / 1e-4; // J1 at zero field scales as the array does
    for (int k = 0; k < 8; ++k)
        ics.push_back(SimDaqArrayJunctionIc0(k) * ab);
    std::sort(ics.begin(), ics.end());
    double gap = 0.0027 * std::tanh(1.74 * std::sqrt(9.2 / 4.2 - 1));
    double zero = ReadVolts(1, 2);
    int switched = 0;
    for (int r = 0; r < 2600 && switched < 8; ++r) {
        gSimDaqDriver.AO_Write(1, 0, static_cast<i16>(r));
        int now = SimDaqSampleState().arraySwitched;
        if (now > switched) {
            EXPECT_EQ(now, switched + 1);
            EXPECT_NEAR(r * kDacStep, ics[static_cast<size_t>(switched)], kDacStep);
            switched = now;
            EXPECT_NEAR((ReadVolts(1, 2) - zero) / 10, switched * gap, 2e-5);
        }
    }
    EXPECT_EQ(switched, 8);
}
