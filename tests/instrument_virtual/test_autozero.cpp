#include "sim_rack.h"

#include "instrument/autozero.h"
#include "instrument/averaging.h"
#include "instrument/daq_cards.h"
#include "instrument/virtual_channels.h"
#include "platform/headless_host.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <tuple>

TEST(AutoZero, ZeroCurrentReadsOffsetsWithoutAndZeroWith) {
    SimRack rack(true);
    const int kSignals[] = {kSigJ1, kSigJ2, kSigArray};
    // One bit of voltage k, and the noise of a mean of 64 samples, both at the sample.
    auto Bit = [](int k) { return VoltsFromBits(1.0f, k) - VoltsFromBits(0.0f, k); };
    auto Sigma = [&](int k) {
        return SimDaqConfig().noiseSigma / SimDaqConfig().inputs[kSignals[k]].gain / 8;
    };
    GetVoltageAveragingTimes = 64;
    ResizeAveragingArray();
    for (int k = 0; k < 3; ++k) {
        // Amplifier offset at the card and thermo-EMF at the sample, both brought to the sample.
        const SimInputConfig& in = SimDaqConfig().inputs[kSignals[k]];
        const double offset = in.offset / in.gain + in.thermoEmf;
        EXPECT_GT(std::fabs(offset), 10 * Sigma(k) + Bit(k)) << k;
        EXPECT_NEAR(offset, GetVoltage(k).volts, 3 * Sigma(k) + Bit(k)) << k;
    }
    // Monitors keep their shifts unless asked; a disconnected current goes to zero too.
    CurrentChannels[SimRack::kBias].zeroShift = 1e-3f;
    const int output = SimDacIndex(SimDaqConfig().heater);
    CurrentChannels[9].DACSlot = static_cast<u16>(output);
    DacState[9] = 100;
    SetCurrent(40000, SimRack::kBias);
    EXPECT_EQ(1, DoAutoZero(1));
    EXPECT_EQ(std::tuple(40000u, 1e-3f), // the currents come back
              std::tuple(DacState[SimRack::kBias], CurrentChannels[SimRack::kBias].zeroShift));
    EXPECT_EQ(DacCards[output].ZeroReading, DacState[9]);
    SetCurrent(32768, SimRack::kBias);
    for (int k = 0; k < 3; ++k)
        EXPECT_NEAR(0.0, GetVoltage(k).volts, 3 * Sigma(k) + Bit(k)) << k;
    const VoltageReading& shift = VoltageChannels[SimRack::kJ2].zeroShift;
    EXPECT_LT(shift.bits, 0); // J2's offset is negative: a wrapped unsigned difference
    EXPECT_NEAR(shift.volts, Bit(SimRack::kJ2) * shift.bits, 2 * Bit(SimRack::kJ2));
    EXPECT_EQ(0, DoAutoZero(0)); // off clears the shifts
    EXPECT_EQ(0, VoltageChannels[SimRack::kJ1].zeroShift.bits);
    // The monitor's own offset, in amperes through the shunt.
    AutoZero_Do4CurrentMon = 1;
    GetCurrentAveragingTimes = 64;
    ResizeAveragingArray();
    DoAutoZero(1);
    const SimInputConfig& monitor = SimDaqConfig().inputs[kSigMonitor];
    const double expected = monitor.offset / monitor.gain / SimDaqConfig().monitorShunt;
    EXPECT_NEAR(expected, CurrentChannels[SimRack::kBias].zeroShift, 0.5 * std::fabs(expected));
}

TEST(AutoZero, OptionsSteerTheRunsAndTheWarningRetriesOrAborts) {
    SimRack rack(true);
    VoltageChannel &j1 = VoltageChannels[SimRack::kJ1], &j2 = VoltageChannels[SimRack::kJ2],
                   &sensor = VoltageChannels[3];
    sensor.kind = VOLTAGE_TSENSOR;
    j2.NoAutoZero = 1;
    ShowAutoZeroWarning = 1;
    RedoAutoZero();
    EXPECT_EQ(0, j1.zeroShift.bits); // off: nothing happens
    AutoZero_RedoOnDoIt = 1;
    RedoAutoZero(); // no warning, the T-sensor and NoAutoZero left out, the options kept
    EXPECT_TRUE(HeadlessBoxes().empty());
    EXPECT_EQ(std::tuple(ShowAutoZeroWarning, AutoZero_IgnoreTSensor), std::tuple(1, 0));
    EXPECT_TRUE(j1.zeroShift.bits != 0 && j2.zeroShift.bits == 0 && sensor.zeroShift.bits == 0);
    SetCurrent(45000, SimRack::kBias);
    SetCurrent(30000, SimRack::kCoil);
    AutoZeroAtSweepZero(); // NoAutoZero isn't consulted; the currents come back
    EXPECT_TRUE(j2.zeroShift.bits != 0 && sensor.zeroShift.bits != 0);
    EXPECT_EQ(std::tuple(DacState[SimRack::kBias], DacState[SimRack::kCoil]),
              std::tuple(45000u, 30000u));
    // The warning: Retry measures again, Abort clears every shift, the excluded ones too.
    HeadlessScriptAnswer(IDRETRY);
    HeadlessScriptAnswer(IDABORT);
    EXPECT_EQ(0, DoAutoZero(1));
    auto boxes = HeadlessBoxes();
    ASSERT_EQ(2u, boxes.size());
    EXPECT_EQ(std::tuple(boxes[0].caption, boxes[0].flags),
              std::tuple("Automatically Find Zero of Voltages",
                         MB_ABORTRETRYIGNORE | MB_ICONQUESTION | MB_DEFBUTTON3));
    EXPECT_EQ(0u, boxes[0].text.find("All currents have been set to zero\nand all voltages have "
                                     "been measured.\n\n1. If there are some currents"));
    EXPECT_NE(std::string::npos, boxes[0].text.find("accept currently \ndetermined zero voltage "
                                                    "values.\n"));
    for (const VoltageChannel& v : VoltageChannels)
        EXPECT_EQ(0.0, v.zeroShift.volts);
    HeadlessReset(); // no answer queued: Ignore is the default and keeps the result
    EXPECT_EQ(1, DoAutoZero(1));
    EXPECT_TRUE(j1.zeroShift.bits != 0 && j2.zeroShift.bits == 0);
}

TEST(AutoZero, ShowTexts) {
    SimRack rack;
    char text[1024];
    AutoZeroVoltageShiftsText(text, sizeof text);
    EXPECT_STREQ("All voltages are disconnected", text);
    AutoZeroMonitorShiftsText(text, sizeof text);
    EXPECT_STREQ("No currents are monitored.", text);
    WireSimSample();
    for (int v = 3; v < 12; ++v)
        VoltageChannels[v].kind = VOLTAGE_POSITIVE;
    VoltageChannels[1].zeroShift = {-0.00123, -4};
    AutoZeroVoltageShiftsText(text, sizeof text);
    std::string shown = text; // eight lines at most
    EXPECT_NE(shown.find("Shift of V[ 1]\t=\t-1.230 mV (-4 bits)\n"), std::string::npos);
    EXPECT_EQ(std::count(shown.begin(), shown.end(), '\n'), 8);
    ShowAutoZeroMonitorShifts(nullptr);
    ASSERT_EQ(1u, HeadlessBoxes().size());
    EXPECT_EQ("AutoZero Shifts of Current Monitors", HeadlessBoxes()[0].caption);
    EXPECT_EQ(0u, HeadlessBoxes()[0].text.find("Shift of I-Mon[ 0]\t=\t"));
}
