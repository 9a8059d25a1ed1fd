#include "sim_rack.h"

#include "instrument/autozero.h"
#include "instrument/averaging.h"
#include "instrument/daq_cards.h"
#include "instrument/virtual_channels.h"
#include "ui/settings_registry.h"

#include <gtest/gtest.h>

#include <cstring>
#include <tuple>

// Loading repairs each record with the validators: what the file names of the rack stays, the
// rest is repaired, each repair with its bit in the validator's mask.
TEST(ChannelSettings, RecordsAreRepairedOnLoad) {
    SimRack rack;
    std::string ini = rack.Dir().File("vtl.ini");
    WriteWholeFile(ini,
                   "[Virtual Currents]\n"
                   "VirtCurr[000].kind=2\nVirtCurr[000].comment=bias\nVirtCurr[000].ADCGain=3.3\n"
                   "VirtCurr[001].kind=40\nVirtCurr[001].DACSlot=1\nVirtCurr[001].DACChan=5\n"
                   "VirtCurr[001].R=1E4\nVirtCurr[001].ADCGain=2\n"
                   "[Virtual Voltages]\n"
                   "VirtVolt[127].kind=3\nVirtVolt[127].ADCChan=15\n"
                   "VirtVolt[127].extGain=100\nVirtVolt[127].NoAutoZero=1\n");
    LoadVirtualChannels(ini.c_str());
    const CurrentChannel &c = CurrentChannels[0], &c1 = CurrentChannels[1];
    const VoltageChannel& v = VoltageChannels[127];
    EXPECT_EQ(std::tuple(CURRENT_SWEEP1_PLUS, std::string("bias"), AdcCards[0].gains[0]),
              std::tuple(c.kind, std::string(c.comment), c.ADCGain));
    // Card 1 is the 8-output card: channel 5 is there.
    EXPECT_EQ(std::tuple(0, 1, 5, 1e4f, 2.0f),
              std::tuple(c1.kind, c1.DACSlot, c1.DACChan, c1.R, c1.ADCGain));
    EXPECT_EQ(0, CurrentChannels[2].DACChan); // never saved: DACChan -1 ends on channel 0
    EXPECT_EQ(std::tuple(VOLTAGE_TSENSOR, 15, 100.0f, 1),
              std::tuple(v.kind, v.ADCChan, v.extGain, v.NoAutoZero));
    CurrentChannel bad;
    bad.kind = -1, bad.DACSlot = 2, bad.DACChan = 9, bad.ADCSlot = 16, bad.ADCChan = 16;
    bad.extGain = 0, bad.R = 0;
    const unsigned mask = ValidateCurrentChannel(bad);
    EXPECT_EQ(std::tuple(mask, ValidateCurrentChannel(bad)),
              std::tuple(1u | 2u | 4u | 16u | 32u | 256u | 512u, 0u));
    VoltageChannel badV;
    badV.kind = 9, badV.ADCSlot = 3, badV.ADCChan = 77, badV.extGain = 0;
    EXPECT_EQ(1u | 16u | 32u | 256u, ValidateVoltageChannel(badV));
}

// The keys of the shipped wiring come back through the settings verb (tests/files); here what
// that file doesn't hold: zero shifts, never saved, and the averaging and AutoZero options.
TEST(ChannelSettings, AllSettingsRoundTripThroughTheLists) {
    SimRack rack(true);
    VoltageChannels[SimRack::kJ1].zeroShift = {1.0, 5};
    GetVoltageAveragingTimes = 9, TurboAveraging = 1, AutoZeroExtraAveraging = 4;
    std::string ini = rack.Dir().File("saved.ini");
    SaveAllSettings(ini.c_str());
    LoadSimRack(rack.Dir()); // every global back at its default, the cards detected again
    LoadAllSettings(ini.c_str());
    EXPECT_EQ(std::tuple(CurrentChannels[0].kind, VoltageChannels[0].extGain,
                         VoltageChannels[0].zeroShift.bits),
              std::tuple(CURRENT_SWEEP1_PLUS, 1000.0f, 0));
    // Loading the averaging options resizes the array.
    EXPECT_EQ(std::tuple(9u, 9u, 1, 4u), std::tuple(GetVoltageAveragingTimes, AveragingArraySize(),
                                                    TurboAveraging, AutoZeroExtraAveraging));
}

// The shipped wiring reads the simulated sample as it is: the bias through its monitor, J1.
TEST(ChannelSettings, ShippedWiringReadsTheSample) {
    SimRack rack;
    LoadVirtualChannels(SourcePath("data/vtl.ini").c_str());
    InitDacState();
    SetCurrent(32768 + 16384, 0);
    EXPECT_NEAR(5.0 / SimDaqConfig().biasResistor, GetCurrent(0), 5e-6);
    SetCurrent(32768 + 5000, 0);          // 153 uA
    EXPECT_GT(GetVoltage(0).volts, 1e-4); // J1 above its critical current
}
