#include "sim_rack.h"

#include "instrument/daq_cards.h"
#include "instrument/delays.h"
#include "instrument/virtual_channels.h"

#include <gtest/gtest.h>

namespace {

// Three members of sweep1 on outputs 2 to 4 of the 12-bit card, "+", "-", "+", and a constant
// current on output 6; the writes recorded from here on. Returns the card's index.
int WireSweepGroup() {
    const int dac = SimDacIndex(SimDaqConfig().heater);
    const i16 kinds[] = {CURRENT_SWEEP1_PLUS, CURRENT_SWEEP1_MINUS, CURRENT_SWEEP1_PLUS};
    for (int i = 0; i < 4; ++i) {
        CurrentChannel& c = CurrentChannels[i < 3 ? i : 5];
        c.kind = i < 3 ? kinds[i] : CURRENT_CONSTANT;
        c.DACSlot = static_cast<u16>(dac);
        c.DACChan = static_cast<u16>(i < 3 ? 2 + i : 6);
    }
    InitDacState();
    InstallRecordingDriver();
    return dac;
}

} // namespace

TEST(VirtualCurrents, SweepGroupRampsInLockstepAndMirrors) {
    SimRack rack;
    const int dac = WireSweepGroup();
    ASSERT_EQ(4095, DacCards[dac].MaxReading);
    MaxDACStep = 500;
    // Asked of the "-" member: it ends at v mirrored, the "+" members at v.
    SetCurrent(3000, 1);
    EXPECT_EQ((std::vector<u32>{3000, 4095 - 3000, 3000}),
              std::vector<u32>(DacState, DacState + 3));
    EXPECT_EQ(DacCards[dac].ZeroReading, DacState[5]); // a Constant current stays
    // From 2048 to 3000 and to 1095: 952 bits at 500 a step is two passes. Every pass writes
    // each member once, in index order, the pair mirror images of each other.
    const auto& w = RecordedWrites();
    ASSERT_EQ(6u, w.size());
    for (size_t k = 0; k < w.size(); ++k)
        EXPECT_EQ(int(2 + k % 3), w[k].channel);
    for (size_t k = 0; k < w.size(); k += 3) {
        EXPECT_NEAR(4095, (w[k].reading + 2048) + (w[k + 1].reading + 2048), 1);
        EXPECT_EQ(w[k].reading, w[k + 2].reading);
    }
}

TEST(VirtualCurrents, RepeatedValueWritesOncePerMemberAndClamps) {
    SimRack rack;
    WireSweepGroup();
    SetCurrentAbs(DacState[0], 0);
    EXPECT_EQ(3u, RecordedWrites().size());
    RecordedWrites().clear();
    MaxDACStep = 100000; // larger than the range: one write per member
    SetCurrentAbs(70000, 0);
    EXPECT_EQ(3u, RecordedWrites().size());
    EXPECT_EQ(4095u, DacState[0]);
    EXPECT_EQ(0u, DacState[1]);
}

TEST(VirtualCurrents, ConstantCurrentMovesAloneInSteps) {
    SimRack rack;
    WireSweepGroup();
    SetCurrent(2048 + 1000, 5);
    EXPECT_EQ(3048u, DacState[5]);
    EXPECT_EQ(4u, RecordedWrites().size()); // 256, 512, 768, 1000
    for (const DacWrite& w : RecordedWrites())
        EXPECT_EQ(6, w.channel);
    EXPECT_FALSE(StepCurrent(3048, 10, 5));
    EXPECT_TRUE(StepCurrent(3100, 10, 5));
    EXPECT_EQ(3058u, DacState[5]);
}

TEST(VirtualCurrents, PrimitiveGeneratorShakesSweep1WithoutRamp) {
    SimRack rack;
    WireSweepGroup();
    PrimitiveGeneratorStep = 1024;
    SetCurrentAbs(1024, 0); // position 16384 on the common scale
    RecordedWrites().clear();
    RunPrimitiveGenerator(16384, 16384 + 4 * 1024, 1);
    // Up 16384, 17408, 18432 (stops below high - step), then down from 19456 to 17408.
    const auto& w = RecordedWrites();
    ASSERT_EQ(5u * 3, w.size());
    EXPECT_EQ(1024 - 2048, w[0].reading);
    EXPECT_EQ(4095 - 1024 - 2048, w[1].reading);
    EXPECT_EQ(1216 - 2048, w[9].reading);
    EXPECT_EQ(1152u, DacState[0]);
    EXPECT_EQ(4095u - 1152u, DacState[1]);
}

TEST(VirtualCurrents, ScalesAmpsAndVolts) {
    SimRack rack(true);
    CurrentChannels[2].kind = CURRENT_CONSTANT;
    CurrentChannels[2].DACSlot = static_cast<u16>(SimDacIndex(SimDaqConfig().heater));
    EXPECT_EQ(1000u, ScaleToCardBits(2, 16000)); // 12-bit card: 16 per bit
    EXPECT_EQ(16000u, ScaleFromCardBits(2, 1000));
    EXPECT_EQ(16000u, ScaleToCardBits(SimRack::kBias, 16000));
    EXPECT_EQ(12345u, ScaleToCardBits(-1, 12345));
    EXPECT_EQ(77u, MirrorCurrentBits(-1, 77));
    EXPECT_EQ(15u, SliderPositionFromBits(2, 1000, 64));
    EXPECT_EQ(640u, BitsFromSliderPosition(2, 10, 64));
    SetCurrentNormalized(1.0, 2);
    EXPECT_EQ(4095u, DacState[2]);
    SetCurrentNormalized(-5.0, 2);
    EXPECT_EQ(0u, DacState[2]);

    // The amperes of an unmonitored current ignore the gains.
    CurrentChannel& coil = CurrentChannels[SimRack::kCoil];
    const DacCard& dac = DacCards[coil.DACSlot];
    f32 atMax = AmpsFromBits(dac.MaxReading, SimRack::kCoil);
    EXPECT_NEAR(dac.MaxVoltage / coil.R, atMax, 1e-6);
    coil.extGain = 7.0f;
    coil.ADCGain = 5.0f;
    EXPECT_EQ(atMax, AmpsFromBits(dac.MaxReading, SimRack::kCoil));
    EXPECT_NEAR(0.0, AmpsFromBits(dac.ZeroReading, SimRack::kCoil), 1e-6);

    // A decibel card divides by ten at 20 dB.
    f32 linear = VoltsFromBits(65000.0f, SimRack::kJ1);
    AdcCards[VoltageChannels[SimRack::kJ1].ADCSlot].logGains = 1;
    VoltageChannels[SimRack::kJ1].ADCGain = 20.0f;
    EXPECT_FLOAT_EQ(linear / 10.0f, VoltsFromBits(65000.0f, SimRack::kJ1));
}

TEST(VirtualCurrents, QuestionsFirstAndListForms) {
    SimRack rack(true);
    CurrentChannels[4].kind = CURRENT_TRIGGER;
    CurrentChannels[6].kind = CURRENT_WAVEFORM0 + 3;
    CurrentChannels[9].kind = CURRENT_WAVEFORM0 + 1;
    VoltageChannels[5].kind = VOLTAGE_TSENSOR;
    VoltageChannels[7].kind = VOLTAGE_NEGATIVE;
    EXPECT_EQ((std::vector<int>{0, 1, 4, 6, 5}),
              (std::vector<int>{FirstSweep1Current(), FirstSweep2Current(), FirstTriggerCurrent(),
                                FirstWaveCurrent(), FirstTSensorVoltage()}));
    int list[kVoltageChannelCount];
    ASSERT_EQ(2, ListWaveCurrents(list));
    EXPECT_EQ(9, list[1]);
    ASSERT_EQ(4, ListSignalVoltages(list));
    EXPECT_EQ(7, list[3]);
    EXPECT_EQ(5, ListConnectedVoltages());
    EXPECT_EQ(5, CountConnectedCurrents());
    EXPECT_EQ(1, CountSweep1Currents());
    EXPECT_EQ(9, LongestWaveCurrentLength([](int program) { return program * 3; }));
    for (auto& v : VoltageChannels)
        v.kind = 0;
    EXPECT_EQ(-1, FirstConnectedVoltage());
}

TEST(VirtualCurrents, InfoTablesListConnectedRecords) {
    SimRack rack(true);
    static char cells[kCurrentChannelCount][kInfoMaxColumns][kInfoCellSize];
    ASSERT_EQ(2, VirtualCurrentsInfo(cells, kCurrentChannelCount).rowCount);
    EXPECT_STREQ("+Sweep 1", cells[0][2]);
    EXPECT_STREQ("    10000", cells[0][5]);
    EXPECT_STREQ("  4", cells[0][7]);
    EXPECT_STREQ("", cells[1][7]); // the coil isn't monitored
    EXPECT_EQ(0xDDDDDDu, InfoRowColor(1));
    EXPECT_EQ(0xEEEEEEu, InfoRowColor(2));
    EXPECT_EQ(3, VirtualVoltagesInfo(cells, kCurrentChannelCount).rowCount);
}
