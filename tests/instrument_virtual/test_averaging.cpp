#include "sim_rack.h"

#include "instrument/averaging.h"
#include "instrument/daq_cards.h"
#include "instrument/virtual_channels.h"
#include "platform/headless_host.h"

#include <gtest/gtest.h>

#include <cmath>

TEST(Averaging, SortAndTrimDropsTheExtremes) {
    u16 samples[] = {500, 7, 100, 65535, 101, 102, 0};
    // Sorted: 0 7 100 101 102 500 65535; start 2 keeps 100 101 102.
    EXPECT_EQ(303u, SortAndTrimSum(samples, 7, 2));
    EXPECT_EQ(0, samples[0]);
    EXPECT_EQ(65535, samples[6]);
    u16 unsorted[] = {9, 1, 5};
    EXPECT_EQ(15u, SortAndTrimSum(unsorted, 3, 0));
    EXPECT_EQ(9, unsorted[0]); // no sort without a start
}

TEST(Averaging, TrimmedReadIgnoresOutliersAndNegativeMirrors) {
    SimRack rack(true);
    InstallRecordingDriver();
    GetVoltageAveragingTimes = 5;
    GetVoltageAveragingStart = 2;
    ResizeAveragingArray();
    // Readings are bits - 32768 on this card; the median of the five wins.
    ScriptedReadings() = {-32768, 1000, 32767, 10, 20};
    VoltageReading r = GetVoltageRaw(SimRack::kJ1);
    EXPECT_EQ(32768 + 20, r.bits);
    EXPECT_FLOAT_EQ(VoltsFromBits(32788.0f, SimRack::kJ1), static_cast<float>(r.volts));
    EXPECT_EQ(TA_NORMAL_AVERAGING, TA_VStatus);
    // A negative voltage mirrors both the bits and the sign.
    VoltageChannels[SimRack::kJ1].kind = VOLTAGE_NEGATIVE;
    ScriptedReadings().resize(10, -32768);
    r = GetVoltageRaw(SimRack::kJ1);
    EXPECT_EQ(65535, r.bits);
    EXPECT_FLOAT_EQ(-VoltsFromBits(0.0f, SimRack::kJ1), static_cast<float>(r.volts));
}

TEST(Averaging, TurboAndNormalAgreeWithinTheNoise) {
    SimRack rack(true);
    SetCurrent(32768 + 5000, SimRack::kBias); // J1 on its resistive branch
    GetVoltageAveragingTimes = 256;
    ResizeAveragingArray();
    VoltageReading normal = GetVoltageRaw(SimRack::kJ1);
    EXPECT_EQ(TA_NORMAL_AVERAGING, TA_VStatus);
    TurboAveraging = 1;
    TA_SampleRate = 100000.0f;
    VoltageReading turbo = GetVoltageRaw(SimRack::kJ1);
    EXPECT_GE(TA_VStatus, 0);
    // Noise of one sample in volts at the sample.
    const double sigma = SimDaqConfig().noiseSigma / SimDaqConfig().inputs[kSigJ1].gain;
    EXPECT_GT(std::fabs(normal.volts), 10 * sigma);
    const double bit = VoltsFromBits(1.0f, SimRack::kJ1) - VoltsFromBits(0.0f, SimRack::kJ1);
    EXPECT_NEAR(normal.volts, turbo.volts, 5 * sigma / 16 * std::sqrt(2.0) + bit);
}

TEST(Averaging, TurboNeedsMoreThanThreeSamplesAndFallsBack) {
    SimRack rack(true);
    InstallRecordingDriver();
    TurboAveraging = 1;
    GetVoltageAveragingTimes = 3;
    ResizeAveragingArray();
    GetVoltageRaw(SimRack::kJ2);
    EXPECT_EQ(TA_NORMAL_AVERAGING, TA_VStatus);
    GetVoltageAveragingTimes = 8;
    ResizeAveragingArray();
    FailDaqOp(-10800);
    ScriptedReadings() = {100, 100, 100, 100, 100, 100, 100, 100};
    VoltageReading r = GetVoltageRaw(SimRack::kJ2);
    EXPECT_EQ(-10800, TA_VStatus); // the status stays, the value comes from single reads
    EXPECT_EQ(32768 + 100, r.bits);
}

TEST(Averaging, CurrentReadStatus) {
    SimRack rack(true);
    GetCurrentRaw(SimRack::kCoil);
    EXPECT_EQ(TA_NOT_MONITORED, TA_IStatus);
    GetCurrentAveragingTimes = 16;
    TurboAveraging = 1;
    ResizeAveragingArray();
    GetCurrentRaw(SimRack::kBias);
    EXPECT_GE(TA_IStatus, 0);
    EXPECT_EQ(0.0, GetCurrentRaw(7)); // disconnected: a beep and nothing else
    EXPECT_EQ(1u, HeadlessBeeps().size());
}

TEST(Averaging, CountChecksOfTheDialog) {
    int bad = -1;
    EXPECT_TRUE(CheckAveragingCounts(5, 2, 1, 0, &bad));
    EXPECT_FALSE(CheckAveragingCounts(4, 2, 1, 0, &bad));
    EXPECT_EQ(1, bad);
    EXPECT_FALSE(CheckAveragingCounts(4, 1, 0, 0, &bad));
    EXPECT_EQ(2, bad);
}
