#include "common/panel_rack.h"

#include "instrument/daq/sim_driver.h"
#include "instrument/daq_cards.h"
#include "instrument/delays.h"
#include "instrument/virtual_channels.h"

#include <gtest/gtest.h>

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
    for (int k = 0; k < DacCardsCount; ++k)
        if (DacCards[k].chassis == port.chassis && DacCards[k].slot == port.slot) return k;
    return -1;
}

int SimAdcIndex(const SimPort& port) {
    for (int k = 0; k < AdcCardsCount; ++k)
        if (AdcCards[k].chassis == port.chassis && AdcCards[k].slot == port.slot) return k;
    return -1;
}

PanelRack::PanelRack() {
    LoadSimRack(dir_);
    MaxDACStep = 4096;
    const SimConfig& sim = SimDaqConfig();
    CurrentChannel& bias = CurrentChannels[0];
    bias.kind = CURRENT_SWEEP1_PLUS;
    bias.DACSlot = static_cast<u16>(SimDacIndex(sim.bias));
    bias.DACChan = static_cast<u16>(sim.bias.channel);
    bias.R = static_cast<f32>(sim.biasResistor);
    bias.flag = CURRENT_FLAG_MONITORED;
    bias.ADCSlot = static_cast<u16>(SimAdcIndex(sim.inputs[kSigMonitor].port));
    bias.ADCChan = static_cast<u16>(sim.inputs[kSigMonitor].port.channel);
    CurrentChannel& coil = CurrentChannels[1];
    coil.kind = CURRENT_SWEEP2_PLUS;
    coil.DACSlot = static_cast<u16>(SimDacIndex(sim.coil));
    coil.DACChan = static_cast<u16>(sim.coil.channel);
    const int signals[] = {kSigJ1, kSigJ2, kSigArray};
    for (int k = 0; k < 3; ++k) {
        VoltageChannel& v = VoltageChannels[k];
        v.kind = VOLTAGE_POSITIVE;
        v.ADCSlot = static_cast<u16>(SimAdcIndex(sim.inputs[signals[k]].port));
        v.ADCChan = static_cast<u16>(sim.inputs[signals[k]].port.channel);
        v.extGain = static_cast<f32>(sim.inputs[signals[k]].gain);
    }
    InitDacState();
}

PanelRack::~PanelRack() {
    ResetInstrumentDefaults();
}
