#include "sim_rig.h"

#include <gtest/gtest.h>

#include <cmath>
#include <vector>

namespace {

constexpr double kLsb = 20.0 / 65536;

std::vector<double> Record(int count, double rate, int channel = 5) {
    std::vector<i16> buffer(static_cast<size_t>(count));
    EXPECT_EQ(gSimDaqDriver.DAQ_Op(1, static_cast<i16>(channel), 1, buffer.data(),
                                   static_cast<u32>(count), rate),
              0);
    std::vector<double> v;
    for (i16 r : buffer)
        v.push_back(r * kLsb);
    return v;
}

double Amplitude(const std::vector<double>& v, double rate, double hz) {
    double re = 0, im = 0;
    for (size_t k = 0; k < v.size(); ++k) {
        re += v[k] * std::cos(2 * M_PI * hz * k / rate);
        im += v[k] * std::sin(2 * M_PI * hz * k / rate);
    }
    return 2 * std::hypot(re, im) / static_cast<double>(v.size());
}

} // namespace

TEST(SimAcquire, NoiseIsGaussianWithTheSeededSigma) {
    TempDir dir;
    LoadSim(dir, "[Noise]\nSigma=0.01\nSeed=42\n");
    std::vector<double> a = Record(4000, 1000);
    double mean = 0, var = 0;
    for (double x : a)
        mean += x / a.size();
    for (double x : a)
        var += (x - mean) * (x - mean) / (a.size() - 1);
    EXPECT_NEAR(mean, 0, 0.001);
    EXPECT_NEAR(std::sqrt(var), 0.01, 0.0005);
    LoadSim(dir, "[Noise]\nSigma=0.01\nSeed=42\n");
    EXPECT_EQ(Record(4000, 1000), a);
    LoadSim(dir, "[Noise]\nSigma=0.01\nSeed=43\n");
    EXPECT_NE(Record(4000, 1000), a);
}

TEST(SimAcquire, RecordShowsTheHumAndTakesItsTime) {
    TempDir dir;
    LoadSim(dir, "[Hum]\nFrequency=50\nAmplitude=0.05\n");
    double t0 = SimDaqTime();
    std::vector<double> v = Record(1000, 1000);
    EXPECT_NEAR(SimDaqTime() - t0, 1.0, 1e-9);
    EXPECT_NEAR(Amplitude(v, 1000, 50), 0.05, 0.001);
    EXPECT_LT(Amplitude(v, 1000, 60), 0.001);
    EXPECT_LT(Amplitude(v, 1000, 100), 0.001);
}

TEST(SimAcquire, ScanTakesChannelsOneSampleIntervalApart) {
    TempDir dir;
    LoadSim(dir, "[Hum]\nFrequency=50\nAmplitude=1\n");
    i16 channels[2] = {5, 6}, gains[2] = {1, 1};
    std::vector<i16> buffer(200);
    double t0 = SimDaqTime();
    ASSERT_EQ(gSimDaqDriver.SCAN_Op(1, 2, channels, gains, buffer.data(), 200, 1000, 100), 0);
    for (int k = 0; k < 100; ++k)
        for (int c = 0; c < 2; ++c) {
            double t = t0 + k / 100.0 + c / 1000.0;
            EXPECT_NEAR(buffer[2 * k + c] * kLsb, std::sin(2 * M_PI * 50 * t), kLsb) << k;
        }
    EXPECT_EQ(gSimDaqDriver.SCAN_Op(1, 2, channels, gains, buffer.data(), 200, 150, 100),
              kSimErrBadInterval);
    EXPECT_LT(gSimDaqDriver.SCAN_Op(1, 2, channels, gains, buffer.data(), 199, 1000, 100), 0);
}

TEST(SimAcquire, TimeoutEndsATooLongRecord) {
    TempDir dir;
    LoadSim(dir, "");
    std::vector<i16> buffer(1000);
    ASSERT_EQ(gSimDaqDriver.Timeout_Config(1, 2), 0);
    EXPECT_EQ(gSimDaqDriver.DAQ_Op(1, 0, 1, buffer.data(), 1000, 1000), kSimErrTimeout);
    ASSERT_EQ(gSimDaqDriver.Timeout_Config(1, -1), 0);
    EXPECT_EQ(gSimDaqDriver.DAQ_Op(1, 0, 1, buffer.data(), 1000, 1000), 0);
}

// A decibel card takes 32-bit samples: the reading in the upper word of each.
TEST(SimAcquire, TwoWordSamplesOfADecibelCard) {
    TempDir dir;
    LoadSim(dir, "[Card1]\nGains=-20,0,20\nLogGains=1\n[Outputs]\nCoil=none\nTrigger=1,1\n");
    WriteVolts(1, 1, 0.25);
    std::vector<i16> buffer(8);
    ASSERT_EQ(gSimDaqDriver.DAQ_Op(1, 7, 20, buffer.data(), 4, 1000), 0);
    i16 single = 0;
    gSimDaqDriver.AI_Read(1, 7, 20, &single);
    double volts[4];
    ASSERT_EQ(gSimDaqDriver.DAQ_VScale(1, 7, 20, 1.0, 0.0, 4, buffer.data(), volts), 0);
    for (int k = 0; k < 4; ++k) {
        EXPECT_EQ(buffer[2 * k + 1], single);
        EXPECT_NEAR(volts[k], 0.25, 1e-3);
    }
}

TEST(SimAcquire, RealClockFollowsTheWall) {
    TempDir dir;
    WriteWholeFile(dir.File("simdaq.ini"), "[Clock]\nMode=real\n");
    SimDaqLoad(dir.File("simdaq.ini").c_str());
    double t0 = SimDaqTime();
    std::vector<i16> buffer(50);
    EXPECT_EQ(gSimDaqDriver.DAQ_Op(1, 0, 1, buffer.data(), 50, 1000), 0);
    EXPECT_GE(SimDaqTime() - t0, 0.05);
}
