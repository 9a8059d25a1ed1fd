#include "sim_rack.h"

#include "instrument/averaging.h"
#include "instrument/daq_cards.h"
#include "instrument/virtual_channels.h"
#include "platform/headless_host.h"

#include <gtest/gtest.h>

#include <cmath>
#include <tuple>

TEST(Averaging, TheDialogChecksTheCounts) {
    int bad = -1;
    EXPECT_TRUE(CheckAveragingCounts(5, 2, 1, 0, &bad));
    EXPECT_FALSE(CheckAveragingCounts(4, 2, 1, 0, &bad));
    EXPECT_EQ(bad, 1);
    EXPECT_FALSE(CheckAveragingCounts(4, 1, 0, 0, &bad));
    EXPECT_EQ(bad, 2);
}

TEST(Averaging, TrimmedReadIgnoresOutliersAndNegativeMirrors) {
    SimRack rack(true);
    InstallRecordingDriver();
    GetVoltageAveragingTimes = 5;
    GetVoltageAveragingStart = 2;
    ResizeAveragingArray();
    // Readings are bits - 32768 on this card; the median of the five wins.
    gScriptedReadings = {-32768, 1000, 32767, 10, 20};
    VoltageReading r = GetVoltageRaw(SimRack::kJ1);
    EXPECT_EQ(std::tuple(r.bits, TA_VStatus), std::tuple(32768 + 20, TA_NORMAL_AVERAGING));
    EXPECT_FLOAT_EQ(VoltsFromBits(32788.0f, SimRack::kJ1), static_cast<float>(r.volts));
    // A negative voltage mirrors both the bits and the sign.
    VoltageChannels[SimRack::kJ1].kind = VOLTAGE_NEGATIVE;
    gScriptedReadings = std::vector<int>(5, -32768);
    r = GetVoltageRaw(SimRack::kJ1);
    EXPECT_EQ(r.bits, 65535);
    EXPECT_FLOAT_EQ(-VoltsFromBits(0.0f, SimRack::kJ1), static_cast<float>(r.volts));
}

// Turbo reads a block in one acquisition; below four samples, or when the block fails, it
// reads single points.
TEST(Averaging, TurboAgreesWithNormalAndFallsBack) {
    SimRack rack(true);
    SetCurrent(32768 + 5000, SimRack::kBias); // J1 on its resistive branch
    GetVoltageAveragingTimes = 256;
    ResizeAveragingArray();
    VoltageReading normal = GetVoltageRaw(SimRack::kJ1);
    EXPECT_EQ(TA_VStatus, TA_NORMAL_AVERAGING);
    TurboAveraging = 1;
    TA_SampleRate = 100000.0f;
    VoltageReading turbo = GetVoltageRaw(SimRack::kJ1);
    EXPECT_GE(TA_VStatus, 0);
    // Noise of one sample in volts at the sample.
    const double sigma = SimDaqConfig().noiseSigma / SimDaqConfig().inputs[kSigJ1].gain;
    EXPECT_GT(std::fabs(normal.volts), 10 * sigma);
    const double bit = VoltsFromBits(1.0f, SimRack::kJ1) - VoltsFromBits(0.0f, SimRack::kJ1);
    EXPECT_NEAR(normal.volts, turbo.volts, 5 * sigma / 16 * std::sqrt(2.0) + bit);
    // Currents: a monitored one in turbo, an unmonitored one not at all.
    GetCurrentAveragingTimes = 16;
    ResizeAveragingArray();
    GetCurrentRaw(SimRack::kBias);
    EXPECT_GE(TA_IStatus, 0);
    GetCurrentRaw(SimRack::kCoil);
    EXPECT_EQ(TA_IStatus, TA_NOT_MONITORED);
    EXPECT_EQ(GetCurrentRaw(7), 0.0); // disconnected: a beep and nothing else
    EXPECT_EQ(HeadlessBeeps().size(), 1u);
    InstallRecordingDriver();
    GetVoltageAveragingTimes = 3;
    ResizeAveragingArray();
    GetVoltageRaw(SimRack::kJ2);
    EXPECT_EQ(TA_VStatus, TA_NORMAL_AVERAGING);
    GetVoltageAveragingTimes = 8;
    ResizeAveragingArray();
    gDaqOpStatus = -10800;
    gScriptedReadings = std::vector<int>(8, 100);
    // The status stays, the value comes from single reads.
    EXPECT_EQ(GetVoltageRaw(SimRack::kJ2).bits, 32768 + 100);
    EXPECT_EQ(TA_VStatus, -10800);
}
