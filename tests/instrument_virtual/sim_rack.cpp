#include "sim_rack.h"

#include "instrument/autozero.h"
#include "instrument/averaging.h"
#include "instrument/daq_cards.h"
#include "instrument/virtual_channels.h"
#include "measure/measure_options.h"

#include <gtest/gtest.h>

namespace {
DaqDriver gRecording;
std::vector<DacWrite> gWrites;
std::vector<int> gScript;
size_t gScriptAt = 0;
int gDaqOpStatus = 0;

i16 RecordingAoWrite(i16 slot, i16 channel, i16 reading) {
    gWrites.push_back({slot, channel, reading});
    return gSimDaqDriver.AO_Write(slot, channel, reading);
}
i16 ScriptedAiRead(i16 slot, i16 channel, i16 gainCode, i16* reading) {
    if (gScriptAt < gScript.size()) {
        *reading = static_cast<i16>(gScript[gScriptAt++]);
        return 0;
    }
    return gSimDaqDriver.AI_Read(slot, channel, gainCode, reading);
}
i16 FailingDaqOp(i16 slot, i16 channel, i16 gainCode, i16* buffer, u32 count, f64 rate) {
    if (gDaqOpStatus) return static_cast<i16>(gDaqOpStatus);
    return gSimDaqDriver.DAQ_Op(slot, channel, gainCode, buffer, count, rate);
}
} // namespace

SimRack::SimRack(const std::string& extraIni) {
    std::string ini = dir_.File("simdaq.ini");
    WriteWholeFile(ini, "[Clock]\nMode=step\n[Noise]\nSeed=12345\n" + extraIni);
    EXPECT_TRUE(SimDaqLoad(ini.c_str()));
    SetDaqDriver(&gSimDaqDriver);
    char report[kCardsReportSize];
    EXPECT_EQ(0, DetectCards(report, sizeof report, dir_.Path().c_str())) << report;
    for (auto& c : CurrentChannels)
        c = CurrentChannel();
    for (auto& v : VoltageChannels)
        v = VoltageChannel();
    InitDacState();
    GetCurrentAveragingTimes = GetVoltageAveragingTimes = 1;
    GetCurrentAveragingStart = GetVoltageAveragingStart = 0;
    TurboAveraging = 0;
    TA_SampleRate = 1000.0f;
    ResizeAveragingArray();
    MaxDACStep = 256;
    PrimitiveGeneratorStep = 256;
    DelayBeforeVoltage = SystemDecayTime = DelayAfterSweep2 = 0;
    AutoZeroExtraAveraging = 10;
    ShowAutoZeroWarning = AutoZero_IgnoreTSensor = AutoZero_Do4CurrentMon = 0;
    AutoZero_RedoOnDoIt = 0;
    gWrites.clear();
    gScript.clear();
    gScriptAt = 0;
    gDaqOpStatus = 0;
}

SimRack::~SimRack() {
    SetDaqDriver(nullptr);
    ResetCards();
}

int SimRack::DacOf(const SimPort& port) {
    for (int k = 0; k < DacCardsCount; ++k)
        if (DacCards[k].chassis == port.chassis && DacCards[k].slot == port.slot) return k;
    return -1;
}

int SimRack::AdcOf(const SimPort& port) {
    for (int k = 0; k < AdcCardsCount; ++k)
        if (AdcCards[k].chassis == port.chassis && AdcCards[k].slot == port.slot) return k;
    return -1;
}

void SimRack::WireSample() {
    const SimConfig& sim = SimDaqConfig();
    CurrentChannel& bias = CurrentChannels[kBias];
    bias.kind = CURRENT_SWEEP1_PLUS;
    bias.DACSlot = static_cast<u16>(DacOf(sim.bias));
    bias.DACChan = static_cast<u16>(sim.bias.channel);
    bias.R = static_cast<f32>(sim.biasResistor);
    const SimInputConfig& monitor = sim.inputs[kSigMonitor];
    bias.flag = CURRENT_FLAG_MONITORED;
    bias.ADCSlot = static_cast<u16>(AdcOf(monitor.port));
    bias.ADCChan = static_cast<u16>(monitor.port.channel);
    // The monitor sees the current through its shunt, the DAC drives it through R.
    bias.extGain = static_cast<f32>(sim.monitorShunt * monitor.gain / sim.biasResistor);
    CurrentChannel& coil = CurrentChannels[kCoil];
    coil.kind = CURRENT_SWEEP2_PLUS;
    coil.DACSlot = static_cast<u16>(DacOf(sim.coil));
    coil.DACChan = static_cast<u16>(sim.coil.channel);
    coil.R = static_cast<f32>(sim.coilResistor);
    const int signals[] = {kSigJ1, kSigJ2, kSigArray};
    for (int k = 0; k < 3; ++k) {
        const SimInputConfig& in = sim.inputs[signals[k]];
        VoltageChannel& v = VoltageChannels[k];
        v.kind = VOLTAGE_POSITIVE;
        v.ADCSlot = static_cast<u16>(AdcOf(in.port));
        v.ADCChan = static_cast<u16>(in.port.channel);
        v.extGain = static_cast<f32>(in.gain);
    }
    InitDacState();
}

void InstallRecordingDriver() {
    gRecording = gSimDaqDriver;
    gRecording.name = "recording";
    gRecording.AO_Write = RecordingAoWrite;
    gRecording.AI_Read = ScriptedAiRead;
    gRecording.DAQ_Op = FailingDaqOp;
    SetDaqDriver(&gRecording);
}
std::vector<DacWrite>& RecordedWrites() {
    return gWrites;
}
std::vector<int>& ScriptedReadings() {
    return gScript;
}
void FailDaqOp(int status) {
    gDaqOpStatus = status;
}
