#include "sim_rack.h"

#include "instrument/virtual_channels.h"

namespace {
DaqDriver gRecording;
std::vector<DacWrite> gWrites;
std::vector<int> gScript;
size_t gScriptAt = 0;
int gDaqOpStatus = 0;
} // namespace

SimRack::SimRack(bool wire) {
    LoadSimRack(dir_);
    gWrites.clear(), gScript.clear(), gScriptAt = 0, gDaqOpStatus = 0;
    if (!wire) return;
    const SimConfig& sim = SimDaqConfig();
    CurrentChannel& bias = CurrentChannels[kBias];
    bias.kind = CURRENT_SWEEP1_PLUS;
    bias.DACSlot = static_cast<u16>(SimDacIndex(sim.bias));
    bias.DACChan = static_cast<u16>(sim.bias.channel);
    bias.R = static_cast<f32>(sim.biasResistor);
    const SimInputConfig& monitor = sim.inputs[kSigMonitor];
    bias.flag = CURRENT_FLAG_MONITORED;
    bias.ADCSlot = static_cast<u16>(SimAdcIndex(monitor.port));
    bias.ADCChan = static_cast<u16>(monitor.port.channel);
    // The monitor sees the current through its shunt, the DAC drives it through R.
    bias.extGain = static_cast<f32>(sim.monitorShunt * monitor.gain / sim.biasResistor);
    CurrentChannel& coil = CurrentChannels[kCoil];
    coil.kind = CURRENT_SWEEP2_PLUS;
    coil.DACSlot = static_cast<u16>(SimDacIndex(sim.coil));
    coil.DACChan = static_cast<u16>(sim.coil.channel);
    coil.R = static_cast<f32>(sim.coilResistor);
    const int signals[] = {kSigJ1, kSigJ2, kSigArray};
    for (int k = 0; k < 3; ++k) {
        const SimInputConfig& in = sim.inputs[signals[k]];
        VoltageChannels[k].kind = VOLTAGE_POSITIVE;
        VoltageChannels[k].ADCSlot = static_cast<u16>(SimAdcIndex(in.port));
        VoltageChannels[k].ADCChan = static_cast<u16>(in.port.channel);
        VoltageChannels[k].extGain = static_cast<f32>(in.gain);
    }
    InitDacState();
}

void InstallRecordingDriver() {
    gRecording = gSimDaqDriver;
    gRecording.name = "recording";
    gRecording.AO_Write = [](i16 slot, i16 channel, i16 reading) -> i16 {
        gWrites.push_back({slot, channel, reading});
        return gSimDaqDriver.AO_Write(slot, channel, reading);
    };
    gRecording.AI_Read = [](i16 slot, i16 channel, i16 gainCode, i16* reading) -> i16 {
        if (gScriptAt >= gScript.size())
            return gSimDaqDriver.AI_Read(slot, channel, gainCode, reading);
        *reading = static_cast<i16>(gScript[gScriptAt++]);
        return 0;
    };
    gRecording.DAQ_Op = [](i16 slot, i16 channel, i16 gain, i16* buffer, u32 n, f64 rate) -> i16 {
        if (gDaqOpStatus) return static_cast<i16>(gDaqOpStatus);
        return gSimDaqDriver.DAQ_Op(slot, channel, gain, buffer, n, rate);
    };
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
