#include "sim_rack.h"

#include "instrument/autozero.h"
#include "instrument/averaging.h"
#include "instrument/daq_cards.h"
#include "instrument/virtual_channels.h"
#include "ui/settings_registry.h"

#include <gtest/gtest.h>

#include <cstring>
#include <tuple>

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
    EXPECT_STREQ("bias", c.comment);
    EXPECT_EQ(std::tuple(CURRENT_SWEEP1_PLUS, 0, 0, 0, 0), // kind, DAC and ADC slot and channel
              std::tuple(c.kind, c.DACSlot, c.DACChan, c.ADCSlot, c.ADCChan));
    EXPECT_EQ(std::tuple(AdcCards[0].gains[0], 1.0f, 1.0f), std::tuple(c.ADCGain, c.extGain, c.R));
    // Card 1 is the 8-output card: channel 5 is there.
    const CurrentChannel& c1 = CurrentChannels[1];
    EXPECT_EQ(std::tuple(0, 1, 5, 1e4f, 2.0f),
              std::tuple(c1.kind, c1.DACSlot, c1.DACChan, c1.R, c1.ADCGain));
    EXPECT_EQ(0, CurrentChannels[2].DACChan); // never saved: DACChan -1 ends on channel 0
    const VoltageChannel& v = VoltageChannels[0];
    EXPECT_EQ(std::tuple(0, 0, 0, 1.0f), std::tuple(v.kind, v.ADCSlot, v.ADCChan, v.extGain));
    const VoltageChannel& v127 = VoltageChannels[127];
    EXPECT_EQ(std::tuple(VOLTAGE_TSENSOR, 15, 1),
              std::tuple(v127.kind, v127.ADCChan, v127.NoAutoZero));
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

// The keys of the shipped wiring come back through the settings verb (tests/files); here what
// that file doesn't hold: zero shifts, never saved, and the averaging and AutoZero options.
TEST(ChannelSettings, AllSettingsRoundTripThroughTheLists) {
    SimRack rack(true);
    VoltageChannels[SimRack::kJ1].zeroShift = {1.0, 5};
    GetVoltageAveragingTimes = 9;
    TurboAveraging = 1;
    AutoZeroExtraAveraging = 4;
    std::string ini = rack.Dir().File("saved.ini");
    SaveAllSettings(ini.c_str());
    LoadSimRack(rack.Dir()); // every global back at its default, the cards detected again
    LoadAllSettings(ini.c_str());
    EXPECT_EQ(std::tuple(CurrentChannels[0].kind, VoltageChannels[0].extGain),
              std::tuple(CURRENT_SWEEP1_PLUS, 1000.0f));
    EXPECT_EQ(VoltageChannels[0].zeroShift.bits, 0);
    // Loading the averaging options resizes the array.
    EXPECT_EQ(std::tuple(9u, 9u, 1, 4u), std::tuple(GetVoltageAveragingTimes, AveragingArraySize(),
                                                    TurboAveraging, AutoZeroExtraAveraging));
}

TEST(ChannelSettings, ShippedWiringMeasuresTheSampleAsItIs) {
    SimRack rack;
    LoadVirtualChannels(SourcePath("data/vtl.ini").c_str());
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
