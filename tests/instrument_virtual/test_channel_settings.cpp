#include "sim_rack.h"

#include "ui/settings_registry.h"
#include "instrument/autozero.h"
#include "instrument/averaging.h"
#include "instrument/daq_cards.h"
#include "instrument/virtual_channels.h"

#include <gtest/gtest.h>

#include <cstring>

TEST(ChannelSettings, MissingCardsAndChannelsAreRepairedOnLoad) {
    SimRack rack;
    std::string ini = rack.Dir().File("vtl.ini");
    WriteWholeFile(ini, "[Virtual Currents]\n"
                        "VirtCurr[000].kind=2\nVirtCurr[000].comment=bias\n"
                        "VirtCurr[000].DACSlot=7\nVirtCurr[000].DACChan=99\n"
                        "VirtCurr[000].ADCSlot=9\nVirtCurr[000].ADCChan=200\n"
                        "VirtCurr[000].ADCGain=3.3\nVirtCurr[000].extGain=0\nVirtCurr[000].R=0\n"
                        "VirtCurr[001].kind=40\nVirtCurr[001].DACSlot=1\nVirtCurr[001].DACChan=5\n"
                        "VirtCurr[001].R=1E4\nVirtCurr[001].ADCGain=2\n"
                        "[Virtual Voltages]\n"
                        "VirtVolt[000].kind=9\nVirtVolt[000].ADCSlot=3\nVirtVolt[000].ADCChan=77\n"
                        "VirtVolt[000].ADCGain=7\nVirtVolt[000].extGain=0\n"
                        "VirtVolt[127].kind=3\nVirtVolt[127].ADCChan=15\n"
                        "VirtVolt[127].extGain=100\nVirtVolt[127].NoAutoZero=1\n");
    LoadVirtualChannels(ini.c_str());
    const CurrentChannel& c = CurrentChannels[0];
    EXPECT_EQ(CURRENT_SWEEP1_PLUS, c.kind);
    EXPECT_STREQ("bias", c.comment);
    EXPECT_EQ(0, c.DACSlot);
    EXPECT_EQ(0, c.DACChan);
    EXPECT_EQ(0, c.ADCSlot);
    EXPECT_EQ(0, c.ADCChan);
    EXPECT_EQ(AdcCards[0].gains[0], c.ADCGain);
    EXPECT_EQ(1.0f, c.extGain);
    EXPECT_EQ(1.0f, c.R);
    const CurrentChannel& c1 = CurrentChannels[1];
    EXPECT_EQ(0, c1.kind);
    EXPECT_EQ(1, c1.DACSlot); // the 8-output card is there
    EXPECT_EQ(5, c1.DACChan);
    EXPECT_EQ(1e4f, c1.R);
    EXPECT_EQ(2.0f, c1.ADCGain);
    // A record never saved: DACChan -1 ends on channel 0.
    EXPECT_EQ(0, CurrentChannels[2].DACChan);
    const VoltageChannel& v = VoltageChannels[0];
    EXPECT_EQ(0, v.kind);
    EXPECT_EQ(0, v.ADCSlot);
    EXPECT_EQ(0, v.ADCChan);
    EXPECT_EQ(1.0f, v.extGain);
    EXPECT_EQ(VOLTAGE_TSENSOR, VoltageChannels[127].kind);
    EXPECT_EQ(15, VoltageChannels[127].ADCChan);
    EXPECT_EQ(1, VoltageChannels[127].NoAutoZero);
}

TEST(ChannelSettings, ValidatorMasks) {
    SimRack rack;
    CurrentChannel c;
    c.kind = -1;
    c.DACSlot = 2;
    c.DACChan = 9;
    c.ADCSlot = 16;
    c.ADCChan = 16;
    c.extGain = 0;
    c.R = 0;
    EXPECT_EQ(1u | 2u | 4u | 16u | 32u | 256u | 512u, ValidateCurrentChannel(c));
    EXPECT_EQ(0u, ValidateCurrentChannel(c));
    VoltageChannel v;
    v.kind = 4;
    v.ADCChan = 255;
    v.ADCGain = 0.25f; // repaired without a mask bit
    EXPECT_EQ(1u | 32u, ValidateVoltageChannel(v));
    EXPECT_EQ(AdcCards[0].gains[0], v.ADCGain);
}

TEST(ChannelSettings, AllSettingsRoundTripThroughTheLists) {
    SimRack rack;
    SimRack::WireSample();
    std::strcpy(VoltageChannels[SimRack::kJ1].comment, "J1 voltage");
    VoltageChannels[SimRack::kJ1].zeroShift = {1.0, 5}; // shifts are never saved
    GetVoltageAveragingTimes = 9;
    AutoZeroExtraAveraging = 4;
    std::string ini = rack.Dir().File("saved.ini");
    SaveAllSettings(ini.c_str());
    std::string text = ReadWholeFile(ini);
    EXPECT_NE(std::string::npos, text.find("VirtCurr[000].R=10000\r\n"));
    EXPECT_NE(std::string::npos, text.find("VirtCurr[001].DACChan=1\r\n"));
    EXPECT_NE(std::string::npos, text.find("GetVoltageAveragingTimes=9"));
    EXPECT_NE(std::string::npos, text.find("AutoZeroExtraAveraging=4"));
    for (auto& c : CurrentChannels)
        c = CurrentChannel();
    for (auto& v : VoltageChannels)
        v = VoltageChannel();
    GetVoltageAveragingTimes = 1;
    AutoZeroExtraAveraging = 10;
    LoadAllSettings(ini.c_str());
    EXPECT_EQ(CURRENT_SWEEP1_PLUS, CurrentChannels[0].kind);
    EXPECT_EQ(1e4f, CurrentChannels[0].R);
    EXPECT_EQ(CURRENT_FLAG_MONITORED, CurrentChannels[0].flag);
    EXPECT_STREQ("J1 voltage", VoltageChannels[0].comment);
    EXPECT_EQ(1000.0f, VoltageChannels[0].extGain);
    EXPECT_EQ(0, VoltageChannels[0].zeroShift.bits);
    EXPECT_EQ(9u, GetVoltageAveragingTimes);
    EXPECT_EQ(9u, AveragingArraySize());
    EXPECT_EQ(4u, AutoZeroExtraAveraging);
}

TEST(ChannelSettings, ShippedWiringMeasuresTheSampleAsItIs) {
    SimRack rack;
    const std::string ini = SourcePath("data/vtl.ini");
    LoadVirtualChannels(ini.c_str());
    EXPECT_EQ(0, FirstSweep1Current());
    EXPECT_TRUE(IsCurrentMonitored(0));
    EXPECT_EQ(1, FirstSweep2Current());
    EXPECT_EQ(2, FirstTriggerCurrent());
    EXPECT_EQ(CURRENT_CONSTANT, CurrentChannels[3].kind);
    EXPECT_EQ(3, ListSignalVoltages());
    EXPECT_EQ(3, FirstTSensorVoltage());
    // What the file says is what the rack has: nothing needed repair.
    for (auto& c : CurrentChannels)
        EXPECT_EQ(0u, ValidateCurrentChannel(c) & ~4u);
    for (auto& v : VoltageChannels)
        EXPECT_EQ(0u, ValidateVoltageChannel(v));
    InitDacState();
    SetCurrent(32768 + 16384, 0);
    EXPECT_NEAR(5.0 / SimDaqConfig().biasResistor, GetCurrent(0), 5e-6);
    SetCurrent(32768 + 5000, 0);          // 153 uA
    EXPECT_GT(GetVoltage(0).volts, 1e-4); // J1 above its critical current
}

TEST(ChannelSettings, CommandLineReadPrintsEveryConnectedChannel) {
    ProcessResult r = RunCli(
        {"read", "-i:" + SourcePath("data/vtl.ini"), "-simdaq:" + SourcePath("data/simdaq.ini")});
    ASSERT_EQ(0, r.exitCode) << r.err;
    EXPECT_NE(std::string::npos, r.out.find("V[  0] Positive      J1"));
    EXPECT_NE(std::string::npos, r.out.find("V[  3] T-sensor      Thermometer"));
    EXPECT_NE(std::string::npos, r.out.find("I[  3] Constant      Heater current"));
    EXPECT_NE(std::string::npos, r.out.find(" nA\n")); // the bias monitor's offset
    ProcessResult bad = RunCli({"read", "-daq:nope"});
    EXPECT_EQ(2, bad.exitCode);
}
