#include "sim_rack.h"

#include "instrument/virtual_channels.h"

std::vector<DacWrite> gRecordedWrites;
std::vector<int> gScriptedReadings;
int gDaqOpStatus = 0;

namespace {
DaqDriver gRecording;
} // namespace

SimRack::SimRack(bool wire) {
    LoadSimRack(dir_);
    gRecordedWrites.clear(), gScriptedReadings.clear(), gDaqOpStatus = 0;
    if (!wire) return;
    WireSimSample();
    // The monitor sees the current through its shunt, the DAC drives it through R.
    const SimConfig& sim = SimDaqConfig();
    CurrentChannels[kBias].extGain =
        static_cast<f32>(sim.monitorShunt * sim.inputs[kSigMonitor].gain / sim.biasResistor);
    CurrentChannels[kCoil].R = static_cast<f32>(sim.coilResistor);
}

void InstallRecordingDriver() {
    gRecording = gSimDaqDriver;
    gRecording.name = "recording";
    gRecording.AO_Write = [](i16 slot, i16 channel, i16 reading) -> i16 {
        gRecordedWrites.push_back({slot, channel, reading});
        return gSimDaqDriver.AO_Write(slot, channel, reading);
    };
    gRecording.AI_Read = [](i16 slot, i16 channel, i16 gainCode, i16* reading) -> i16 {
        if (gScriptedReadings.empty())
            return gSimDaqDriver.AI_Read(slot, channel, gainCode, reading);
        *reading = static_cast<i16>(gScriptedReadings.front());
        gScriptedReadings.erase(gScriptedReadings.begin());
        return 0;
    };
    gRecording.DAQ_Op = [](i16 slot, i16 channel, i16 gain, i16* buffer, u32 n, f64 rate) -> i16 {
        if (gDaqOpStatus) return static_cast<i16>(gDaqOpStatus);
        return gSimDaqDriver.DAQ_Op(slot, channel, gain, buffer, n, rate);
    };
    SetDaqDriver(&gRecording);
}
