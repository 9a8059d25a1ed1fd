#include "sim_rack.h"

#include "instrument/daq_cards.h"
#include "instrument/virtual_channels.h"
#include "measure/measure_options.h"

#include <gtest/gtest.h>

namespace {

// Three members of sweep1 on the three outputs of the 12-bit card: two "+" and one "-".
void WireSweepGroup(int dac) {
    const i16 kinds[] = {CURRENT_SWEEP1_PLUS, CURRENT_SWEEP1_MINUS, CURRENT_SWEEP1_PLUS};
    for (int i = 0; i < 3; ++i) {
        CurrentChannels[i].kind = kinds[i];
        CurrentChannels[i].DACSlot = static_cast<u16>(dac);
        CurrentChannels[i].DACChan = static_cast<u16>(2 + i);
    }
    CurrentChannels[5].kind = CURRENT_CONSTANT;
    CurrentChannels[5].DACSlot = static_cast<u16>(dac);
    CurrentChannels[5].DACChan = 6;
    InitDacState();
}

int OutputCard() {
    return SimRack::DacOf(SimDaqConfig().heater);
}

} // namespace

TEST(VirtualCurrents, SweepGroupRampsInLockstepAndMirrors) {
    SimRack rack;
    const int dac = OutputCard();
    ASSERT_GE(dac, 0);
    ASSERT_EQ(4095, DacCards[dac].MaxReading);
    WireSweepGroup(dac);
    InstallRecordingDriver();
    MaxDACStep = 500;
    // Asked of the "-" member: it ends at v mirrored, the "+" members at v.
    const u32 v = 3000;
    SetCurrent(v, 1);
    EXPECT_EQ(v, DacState[0]);
    EXPECT_EQ(4095 - v, DacState[1]);
    EXPECT_EQ(v, DacState[2]);
    EXPECT_EQ(DacCards[dac].ZeroReading, DacState[5]); // a Constant current stays

    // Every pass writes each member once, in index order: no member moves twice in a pass.
    const auto& w = RecordedWrites();
    ASSERT_EQ(0u, w.size() % 3);
    for (size_t k = 0; k < w.size(); ++k)
        EXPECT_EQ(int(2 + k % 3), w[k].channel);
    // From 2048 to 3000 and to 1095: 952 bits at 500 a step is two passes.
    EXPECT_EQ(6u, w.size());
    for (size_t k = 0; k < w.size(); k += 3) {
        // Mirror images at every pass, so the pair never drifts apart.
        EXPECT_NEAR(4095, (w[k].reading + 2048) + (w[k + 1].reading + 2048), 1);
        EXPECT_EQ(w[k].reading, w[k + 2].reading);
    }
}

TEST(VirtualCurrents, RepeatedValueWritesOncePerMemberAndClamps) {
    SimRack rack;
    WireSweepGroup(OutputCard());
    InstallRecordingDriver();
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
    WireSweepGroup(OutputCard());
    InstallRecordingDriver();
    MaxDACStep = 256;
    SetCurrent(2048 + 1000, 5);
    EXPECT_EQ(3048u, DacState[5]);
    EXPECT_EQ(4u, RecordedWrites().size()); // 256, 512, 768, 1000
    for (const DacWrite& w : RecordedWrites())
        EXPECT_EQ(6, w.channel);
    EXPECT_FALSE(StepCurrent(3048, 10, 5));
    EXPECT_TRUE(StepCurrent(3100, 10, 5));
    EXPECT_EQ(3058u, DacState[5]);
}

TEST(VirtualCurrents, ScalesBetweenCommonScaleAndCards) {
    SimRack rack;
    SimRack::WireSample();
    CurrentChannels[2].kind = CURRENT_CONSTANT;
    CurrentChannels[2].DACSlot = static_cast<u16>(OutputCard());
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
}

TEST(VirtualCurrents, AmpsOfUnmonitoredCurrentIgnoreGains) {
    SimRack rack;
    SimRack::WireSample();
    CurrentChannel& coil = CurrentChannels[SimRack::kCoil];
    const DacCard& dac = DacCards[coil.DACSlot];
    f32 atMax = AmpsFromBits(dac.MaxReading, SimRack::kCoil);
    EXPECT_NEAR(dac.MaxVoltage / coil.R, atMax, 1e-6);
    coil.extGain = 7.0f;
    coil.ADCGain = 5.0f;
    EXPECT_EQ(atMax, AmpsFromBits(dac.MaxReading, SimRack::kCoil));
    EXPECT_NEAR(0.0, AmpsFromBits(dac.ZeroReading, SimRack::kCoil), 1e-6);
}

TEST(VirtualCurrents, LogGainCardDividesByTenAtTwentyDecibels) {
    SimRack rack;
    SimRack::WireSample();
    f32 linear = VoltsFromBits(65000.0f, SimRack::kJ1);
    AdcCards[VoltageChannels[SimRack::kJ1].ADCSlot].logGains = 1;
    VoltageChannels[SimRack::kJ1].ADCGain = 20.0f;
    EXPECT_FLOAT_EQ(linear / 10.0f, VoltsFromBits(65000.0f, SimRack::kJ1));
}

TEST(VirtualCurrents, BiasCurrentReadsBackThroughMonitor) {
    SimRack rack;
    SimRack::WireSample();
    SetCurrent(32768 + 16384, SimRack::kBias); // half of the positive span: 5 V over R
    const f64 expected = 5.0 / SimDaqConfig().biasResistor;
    EXPECT_NEAR(expected, GetCurrent(SimRack::kBias), expected * 0.02);
}

TEST(VirtualCurrents, QuestionsFirstAndListForms) {
    SimRack rack;
    SimRack::WireSample();
    CurrentChannels[4].kind = CURRENT_TRIGGER;
    CurrentChannels[6].kind = CURRENT_WAVEFORM0 + 3;
    CurrentChannels[9].kind = CURRENT_WAVEFORM0 + 1;
    VoltageChannels[5].kind = VOLTAGE_TSENSOR;
    VoltageChannels[7].kind = VOLTAGE_NEGATIVE;
    EXPECT_EQ(0, FirstSweep1Current());
    EXPECT_EQ(1, FirstSweep2Current());
    EXPECT_EQ(4, FirstTriggerCurrent());
    EXPECT_EQ(6, FirstWaveCurrent());
    EXPECT_EQ(5, FirstTSensorVoltage());
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

TEST(VirtualCurrents, PrimitiveGeneratorShakesSweep1WithoutRamp) {
    SimRack rack;
    WireSweepGroup(OutputCard());
    InstallRecordingDriver();
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

TEST(VirtualCurrents, InfoTablesListConnectedRecords) {
    SimRack rack;
    SimRack::WireSample();
    static char cells[kCurrentChannelCount][kInfoMaxColumns][kInfoCellSize];
    InfoTable t = VirtualCurrentsInfo(cells, kCurrentChannelCount);
    ASSERT_EQ(2, t.rowCount);
    EXPECT_STREQ("Monitoring Currents", t.groupHeads[1]);
    EXPECT_STREQ("+Sweep 1", cells[0][2]);
    EXPECT_STREQ("  4", cells[0][7]);
    EXPECT_STREQ("", cells[1][7]); // the coil isn't monitored
    EXPECT_STREQ("    10000", cells[0][5]);
    EXPECT_EQ(0xDDDDDDu & 0xFFFFFF, InfoRowColor(1));
    EXPECT_EQ(0xEEEEEEu, InfoRowColor(2));
    t = VirtualVoltagesInfo(cells, kCurrentChannelCount);
    EXPECT_EQ(3, t.rowCount);
    EXPECT_STREQ("ext", t.columnHeads[6]);
}
