// The instrument globals of the tests: back at the values the program starts with, or on the
// simulated rack.
#include "common/panel_rack.h"

#include "instrument/autozero.h"
#include "instrument/averaging.h"
#include "instrument/daq/sim_driver.h"
#include "instrument/daq_cards.h"
#include "instrument/delays.h"
#include "instrument/thermometer.h"
#include "instrument/virtual_channels.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdio>
#include <string>
#include <tuple>

namespace {

auto Options() {
    return std::tie(GetCurrentAveragingTimes, GetCurrentAveragingStart, GetVoltageAveragingTimes,
                    GetVoltageAveragingStart, TurboAveraging, TA_SampleRate, TA_IStatus, TA_VStatus,
                    AutoZeroExtraAveraging, ShowAutoZeroWarning, AutoZero_IgnoreTSensor,
                    AutoZero_Do4CurrentMon, AutoZero_RedoOnDoIt, SystemDecayTime, DelayAfterSweep2,
                    DelayBeforeVoltage, MaxDACStep, PrimitiveGeneratorStep, TermoIsTofR,
                    SensorCurrent, UseAbsV);
}

// Taken before main, while every global still holds its initialiser.
const auto kDefaults = std::apply([](auto&... g) { return std::tuple(g...); }, Options());
const std::string kTermoFileName = TermoFileName;

template <class Card> int CardIndex(const Card* cards, int count, const SimPort& port) {
    for (int k = 0; k < count; ++k)
        if (cards[k].chassis == port.chassis && cards[k].slot == port.slot) return k;
    return -1;
}

} // namespace

void ResetInstrumentDefaults() {
    SetDaqDriver(nullptr);
    ResetCards();
    std::fill(std::begin(CurrentChannels), std::end(CurrentChannels), CurrentChannel());
    std::fill(std::begin(VoltageChannels), std::end(VoltageChannels), VoltageChannel());
    InitDacState();
    Options() = kDefaults;
    ResizeAveragingArray();
    std::snprintf(TermoFileName, sizeof TermoFileName, "%s", kTermoFileName.c_str());
    ResetTemperatureTable();
}

void LoadSimRack(const TempDir& dir, const std::string& extraIni) {
    ResetInstrumentDefaults();
    WriteWholeFile(dir.File("simdaq.ini"), "[Clock]\nMode=step\n[Noise]\nSeed=12345\n" + extraIni);
    EXPECT_TRUE(SimDaqLoad(dir.File("simdaq.ini").c_str()));
    SetDaqDriver(&gSimDaqDriver);
    char report[kCardsReportSize];
    EXPECT_EQ(0, DetectCards(report, sizeof report, dir.Path().c_str())) << report;
    InitDacState();
}

int SimDacIndex(const SimPort& port) {
    return CardIndex(DacCards, DacCardsCount, port);
}

void WireSimSample() {
    const SimConfig& sim = SimDaqConfig();
    const SimPort& monitor = sim.inputs[kSigMonitor].port;
    CurrentChannel &bias = CurrentChannels[0], &coil = CurrentChannels[1];
    bias.kind = CURRENT_SWEEP1_PLUS, coil.kind = CURRENT_SWEEP2_PLUS;
    bias.flag = CURRENT_FLAG_MONITORED;
    bias.R = static_cast<f32>(sim.biasResistor);
    bias.DACSlot = static_cast<u16>(SimDacIndex(sim.bias));
    bias.DACChan = static_cast<u16>(sim.bias.channel);
    bias.ADCSlot = static_cast<u16>(CardIndex(AdcCards, AdcCardsCount, monitor));
    bias.ADCChan = static_cast<u16>(monitor.channel);
    coil.DACSlot = static_cast<u16>(SimDacIndex(sim.coil));
    coil.DACChan = static_cast<u16>(sim.coil.channel);
    const int signals[] = {kSigJ1, kSigJ2, kSigArray};
    for (int k = 0; k < 3; ++k) {
        const SimInputConfig& in = sim.inputs[signals[k]];
        VoltageChannels[k].kind = VOLTAGE_POSITIVE;
        VoltageChannels[k].ADCSlot = static_cast<u16>(CardIndex(AdcCards, AdcCardsCount, in.port));
        VoltageChannels[k].ADCChan = static_cast<u16>(in.port.channel);
        VoltageChannels[k].extGain = static_cast<f32>(in.gain);
    }
    InitDacState();
}

PanelRack::PanelRack() {
    LoadSimRack(dir_);
    MaxDACStep = 4096;
    WireSimSample();
}

PanelRack::~PanelRack() {
    ResetInstrumentDefaults();
}
