// The simulated sample and its acquisition: temperature, the thermometer, the array, noise, hum
// and timed records.
#include "sim_rig.h"

#include "instrument/thermometer.h"

#include <gtest/gtest.h>

#include <algorithm>
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

TEST(SimSample, IcFollowsAmbegaokarBaratoff) {
    TempDir dir;
    LoadSim(dir, "[Field]\nOffset=0\n[Temperature]\nTc=9.2\nT0=4.6\nTimeConstant=1\n");
    double ic0 = 1e-4;
    // Delta(T)/Delta(0) = tanh(1.74) at T/Tc = 0.5, times tanh(1.764 * 0.9405 / 1).
    EXPECT_NEAR(SwitchReading(4) * kDacStep / ic0, 0.8748, 0.02);
    // The heater warms the stage past Tc.
    WriteVolts(2, 0, std::sqrt((9.4 - 4.6) / 100 * 1000));
    SimDaqAdvance(20);
    EXPECT_DOUBLE_EQ(SimDaqSampleState().j1.ic, 0);
    EXPECT_LE(SwitchReading(4), 8);
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
    for (auto [kelvin, ohm] :
         {std::pair(1.8, 979.825), {4.2, 574.0}, {77.35, 101.0}, {300.0, 41.4}}) {
        TempDir dir;
        LoadSim(dir, "[Temperature]\nT0=" + std::to_string(kelvin) + "\n");
        f64 read = -2;
        InterpolateTemperature(static_cast<f32>((ReadVolts(1, 3, 10) - 0.0005) / 100 / 1e-5),
                               &read);
        EXPECT_NEAR(read, kelvin, 0.01 * kelvin) << kelvin;
        EXPECT_NEAR(SimDaqSensorResistance(kelvin), ohm, 0.01) << kelvin;
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

TEST(SimAcquire, NoiseIsGaussianWithTheSeededSigma) {
    TempDir dir;
    LoadSim(dir, "[Noise]\nSigma=0.01\nSeed=42\n");
    std::vector<double> a = Record(4000, 1000);
    double mean = 0, square = 0;
    for (double x : a)
        mean += x / a.size(), square += x * x / a.size();
    EXPECT_NEAR(mean, 0, 0.001);
    EXPECT_NEAR(std::sqrt(square - mean * mean), 0.01, 0.0005);
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
