#include "sim_rack.h"

#include "instrument/autozero.h"
#include "instrument/averaging.h"
#include "instrument/daq_cards.h"
#include "instrument/virtual_channels.h"
#include "platform/headless_host.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstring>

namespace {

const int kSignals[] = {kSigJ1, kSigJ2, kSigArray};

// One bit of voltage k, and the noise of a mean of 64 samples, both at the sample.
double Bit(int k) {
    return VoltsFromBits(1.0f, k) - VoltsFromBits(0.0f, k);
}
double Sigma(int k) {
    return SimDaqConfig().noiseSigma / SimDaqConfig().inputs[kSignals[k]].gain / 8;
}

} // namespace

TEST(AutoZero, ZeroCurrentReadsOffsetsWithoutAndZeroWith) {
    SimRack rack(true);
    GetVoltageAveragingTimes = 64;
    ResizeAveragingArray();
    for (int k = 0; k < 3; ++k) {
        // Amplifier offset at the card and thermo-EMF at the sample, both brought to the sample.
        const SimInputConfig& in = SimDaqConfig().inputs[kSignals[k]];
        const double offset = in.offset / in.gain + in.thermoEmf;
        EXPECT_GT(std::fabs(offset), 10 * Sigma(k) + Bit(k)) << k;
        EXPECT_NEAR(offset, GetVoltage(k).volts, 3 * Sigma(k) + Bit(k)) << k;
    }
    SetCurrent(40000, SimRack::kBias);
    EXPECT_EQ(1, DoAutoZero(1));
    EXPECT_EQ(40000u, DacState[SimRack::kBias]); // the currents come back
    SetCurrent(32768, SimRack::kBias);
    for (int k = 0; k < 3; ++k)
        EXPECT_NEAR(0.0, GetVoltage(k).volts, 3 * Sigma(k) + Bit(k)) << k;
    const VoltageReading& shift = VoltageChannels[SimRack::kJ2].zeroShift;
    EXPECT_LT(shift.bits, 0); // J2's offset is negative: a wrapped unsigned difference
    EXPECT_NEAR(shift.volts, Bit(SimRack::kJ2) * shift.bits, 2 * Bit(SimRack::kJ2));
    EXPECT_EQ(0, DoAutoZero(0)); // off clears the shifts
    EXPECT_EQ(0, VoltageChannels[SimRack::kJ1].zeroShift.bits);
}

TEST(AutoZero, WarningRetriesAndAbortClears) {
    SimRack rack(true);
    ShowAutoZeroWarning = 1;
    VoltageChannels[5].kind = VOLTAGE_POSITIVE;
    VoltageChannels[5].NoAutoZero = 1;
    VoltageChannels[5].zeroShift = {0.5, 7}; // excluded, yet cleared by Abort
    HeadlessScriptAnswer(IDRETRY);
    HeadlessScriptAnswer(IDABORT);
    EXPECT_EQ(0, DoAutoZero(1));
    auto boxes = HeadlessBoxes();
    ASSERT_EQ(2u, boxes.size());
    EXPECT_EQ("Automatically Find Zero of Voltages", boxes[0].caption);
    EXPECT_EQ(MB_ABORTRETRYIGNORE | MB_ICONQUESTION | MB_DEFBUTTON3, boxes[0].flags);
    EXPECT_EQ(0u, boxes[0].text.find("All currents have been set to zero\nand all voltages have "
                                     "been measured.\n\n1. If there are some currents"));
    EXPECT_NE(std::string::npos, boxes[0].text.find("accept currently \ndetermined zero voltage "
                                                    "values.\n"));
    for (int v = 0; v < kVoltageChannelCount; ++v)
        EXPECT_EQ(0.0, VoltageChannels[v].zeroShift.volts);

    HeadlessReset(); // no answer queued: Ignore is the default and keeps the result
    EXPECT_EQ(1, DoAutoZero(1));
    EXPECT_NE(0, VoltageChannels[SimRack::kJ1].zeroShift.bits);
    EXPECT_EQ(0, VoltageChannels[5].zeroShift.bits);
}

TEST(AutoZero, MonitorsOnlyWhenAskedAndDisconnectedStayAtZero) {
    SimRack rack(true);
    CurrentChannels[SimRack::kBias].zeroShift = 1e-3f;
    const int output = SimDacIndex(SimDaqConfig().heater);
    CurrentChannels[9].DACSlot = static_cast<u16>(output); // disconnected, away from zero
    DacState[9] = 100;
    DoAutoZero(1);
    EXPECT_EQ(1e-3f, CurrentChannels[SimRack::kBias].zeroShift);
    EXPECT_EQ(DacCards[output].ZeroReading, DacState[9]);
    AutoZero_Do4CurrentMon = 1;
    GetCurrentAveragingTimes = 64;
    ResizeAveragingArray();
    DoAutoZero(1);
    // The monitor's own offset, in amperes through the shunt.
    const SimConfig& sim = SimDaqConfig();
    const double expected =
        sim.inputs[kSigMonitor].offset / sim.inputs[kSigMonitor].gain / sim.monitorShunt;
    EXPECT_NEAR(expected, CurrentChannels[SimRack::kBias].zeroShift, 0.5 * std::fabs(expected));
}

TEST(AutoZero, RedoAndSweepZeroRuns) {
    SimRack rack(true);
    VoltageChannels[3].kind = VOLTAGE_TSENSOR;
    VoltageChannels[SimRack::kJ2].NoAutoZero = 1;
    ShowAutoZeroWarning = 1;
    RedoAutoZero();
    EXPECT_EQ(0, VoltageChannels[SimRack::kJ1].zeroShift.bits); // off: nothing happens
    AutoZero_RedoOnDoIt = 1;
    RedoAutoZero();
    EXPECT_TRUE(HeadlessBoxes().empty());
    EXPECT_EQ(1, ShowAutoZeroWarning);
    EXPECT_EQ(0, AutoZero_IgnoreTSensor);
    EXPECT_NE(0, VoltageChannels[SimRack::kJ1].zeroShift.bits);
    EXPECT_EQ(0, VoltageChannels[3].zeroShift.bits); // T-sensor left out
    EXPECT_EQ(0, VoltageChannels[SimRack::kJ2].zeroShift.bits);

    SetCurrent(45000, SimRack::kBias);
    SetCurrent(30000, SimRack::kCoil);
    AutoZeroAtSweepZero();
    EXPECT_NE(0, VoltageChannels[SimRack::kJ2].zeroShift.bits); // NoAutoZero isn't consulted
    EXPECT_NE(0, VoltageChannels[3].zeroShift.bits);
    EXPECT_EQ(45000u, DacState[SimRack::kBias]);
    EXPECT_EQ(30000u, DacState[SimRack::kCoil]);
}

TEST(AutoZero, ShowTexts) {
    SimRack rack;
    char text[1024];
    AutoZeroVoltageShiftsText(text, sizeof text);
    EXPECT_STREQ("All voltages are disconnected", text);
    AutoZeroMonitorShiftsText(text, sizeof text);
    EXPECT_STREQ("No currents are monitored.", text);
    SimRack wired(true);
    for (int v = 3; v < 12; ++v)
        VoltageChannels[v].kind = VOLTAGE_POSITIVE;
    VoltageChannels[1].zeroShift = {-0.00123, -4};
    AutoZeroVoltageShiftsText(text, sizeof text);
    EXPECT_NE(nullptr, std::strstr(text, "Shift of V[ 1]\t=\t-1.230 mV (-4 bits)\n"));
    EXPECT_EQ(8, std::count(text, text + std::strlen(text), '\n'));
    ShowAutoZeroMonitorShifts(nullptr);
    ASSERT_EQ(1u, HeadlessBoxes().size());
    EXPECT_EQ("AutoZero Shifts of Current Monitors", HeadlessBoxes()[0].caption);
    EXPECT_EQ(0u, HeadlessBoxes()[0].text.find("Shift of I-Mon[ 0]\t=\t"));
}
