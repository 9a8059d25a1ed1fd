#include "sim_rack.h"

#include "instrument/daq_cards.h"
#include "instrument/delays.h"
#include "instrument/virtual_channels.h"

#include <gtest/gtest.h>

#include <string>
#include <tuple>
#include <vector>

namespace {

// The writes recorded since the last call, as "channel:reading" in order.
std::string Writes() {
    std::string s;
    for (const DacWrite& w : gRecordedWrites)
        s += std::to_string(w.channel) + ":" + std::to_string(w.reading) + " ";
    gRecordedWrites.clear();
    return s;
}

} // namespace

// Readings on the 12-bit card are bits - 2048; a "-" member writes 4095 - bits.
TEST(VirtualCurrents, SweepGroupAndConstantCurrent) {
    SimRack rack;
    // Three members of sweep1 on outputs 2 to 4 of the 12-bit card, "+", "-", "+", and a
    // constant current on output 6; the writes recorded from here on.
    const int dac = SimDacIndex(SimDaqConfig().heater);
    const i16 kinds[] = {CURRENT_SWEEP1_PLUS, CURRENT_SWEEP1_MINUS, CURRENT_SWEEP1_PLUS,
                         CURRENT_CONSTANT};
    for (int i = 0; i < 4; ++i) {
        CurrentChannel& c = CurrentChannels[i < 3 ? i : 5];
        c.kind = kinds[i];
        c.DACSlot = static_cast<u16>(dac);
        c.DACChan = static_cast<u16>(i < 3 ? 2 + i : 6);
    }
    InitDacState();
    InstallRecordingDriver();
    MaxDACStep = 500;
    // Asked of the "-" member, from 2048 to 3000 mirrored: 952 bits at 500 a step is two passes,
    // each writing every member once in index order, each member stepping from its own start;
    // the Constant current stays.
    SetCurrent(3000, 1);
    EXPECT_EQ(Writes(), "2:500 3:-500 4:500 2:952 3:-953 4:952 ");
    EXPECT_EQ(DacCards[dac].ZeroReading, DacState[5]);
    // The same value again still writes once per member; a step larger than the range makes one
    // pass, clamped at the card's ends.
    SetCurrentAbs(DacState[0], 0);
    EXPECT_EQ(Writes(), "2:952 3:-953 4:952 ");
    MaxDACStep = 100000;
    SetCurrentAbs(70000, 0);
    EXPECT_EQ(Writes(), "2:2047 3:-2048 4:2047 ");
    // The constant current moves alone, in steps of MaxDACStep.
    MaxDACStep = 256;
    SetCurrent(2048 + 1000, 5);
    EXPECT_EQ(Writes(), "6:256 6:512 6:768 6:1000 ");
    EXPECT_EQ(3048u, DacState[5]);
}

TEST(VirtualCurrents, ScalesAndQuestionsOnTheWiredSample) {
    SimRack rack(true);
    CurrentChannels[2].kind = CURRENT_CONSTANT;
    CurrentChannels[2].DACSlot = static_cast<u16>(SimDacIndex(SimDaqConfig().heater));
    // The 12-bit card is 16 to a bit of the common scale, the 16-bit one 1; no current: as is.
    EXPECT_EQ((std::vector<u32>{ScaleToCardBits(2, 16000), ScaleFromCardBits(2, 1000),
                                ScaleToCardBits(SimRack::kBias, 16000), ScaleToCardBits(-1, 12345),
                                MirrorCurrentBits(-1, 77), SliderPositionFromBits(2, 1000, 64),
                                BitsFromSliderPosition(2, 10, 64)}),
              (std::vector<u32>{1000, 16000, 16000, 12345, 77, 15, 640}));
    SetCurrentNormalized(1.0, 2);
    const u32 top = DacState[2];
    SetCurrentNormalized(-5.0, 2);
    EXPECT_EQ(std::tuple(top, DacState[2]), std::tuple(4095u, 0u));
    // The amperes of an unmonitored current ignore the gains.
    CurrentChannel& coil = CurrentChannels[SimRack::kCoil];
    const DacCard& dac = DacCards[coil.DACSlot];
    coil.extGain = 7.0f, coil.ADCGain = 5.0f;
    EXPECT_NEAR(dac.MaxVoltage / coil.R, AmpsFromBits(dac.MaxReading, SimRack::kCoil), 1e-6);
    EXPECT_NEAR(0.0, AmpsFromBits(dac.ZeroReading, SimRack::kCoil), 1e-6);
    // A decibel card divides by ten at 20 dB.
    f32 linear = VoltsFromBits(65000.0f, SimRack::kJ1);
    AdcCards[VoltageChannels[SimRack::kJ1].ADCSlot].logGains = 1;
    VoltageChannels[SimRack::kJ1].ADCGain = 20.0f;
    EXPECT_FLOAT_EQ(linear / 10.0f, VoltsFromBits(65000.0f, SimRack::kJ1));

    CurrentChannels[4].kind = CURRENT_TRIGGER;
    CurrentChannels[6].kind = CURRENT_WAVEFORM0 + 3;
    CurrentChannels[9].kind = CURRENT_WAVEFORM0 + 1;
    VoltageChannels[5].kind = VOLTAGE_TSENSOR;
    VoltageChannels[7].kind = VOLTAGE_NEGATIVE;
    EXPECT_EQ((std::vector<int>{0, 1, 4, 6, 5}),
              (std::vector<int>{FirstSweep1Current(), FirstSweep2Current(), FirstTriggerCurrent(),
                                FirstWaveCurrent(), FirstTSensorVoltage()}));
    // Counts, and the last entry of each list.
    int waves[kCurrentChannelCount] = {}, signals[kVoltageChannelCount] = {};
    EXPECT_EQ((std::vector<int>{2, 9, 4, 7, 5, 6, 1}),
              (std::vector<int>{ListWaveCurrents(waves), waves[1], ListSignalVoltages(signals),
                                signals[3], ListConnectedVoltages(), CountConnectedCurrents(),
                                CountSweep1Currents()}));
    for (auto& v : VoltageChannels)
        v.kind = 0;
    EXPECT_EQ(-1, FirstConnectedVoltage());
}
