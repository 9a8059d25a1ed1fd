// The card-level calls of the simulated rack: they check their arguments as the cards do, since
// the program learns what a card can do from which calls fail.
#include "instrument/daq/sim_acquire.h"
#include "instrument/daq/sim_internal.h"

#include <cmath>
#include <cstdio>

SimState gSim;
std::mutex gSimLock;

namespace {

constexpr double kScxiLsb = 20.0 / 4096; // SCXI analog outputs: 12 bits over -10..+10 V
constexpr int kScxiZero = 2048;

double Lsb(const SimCardConfig& card) {
    return 2 * card.span / std::ldexp(1.0, card.bits);
}
int HalfScale(const SimCardConfig& card) {
    return 1 << (card.bits - 1);
}

// The code of a gain as the program computes it, by exact single-precision comparison.
int CodeOfGain(float g) {
    if (g == 0.5f) return -1;
    if (g == 0.2f) return -2;
    if (g == 0.1f) return -3;
    if (g == 0.01f) return -10;
    return static_cast<int>(g);
}

const SimCardConfig* Card(int slot, int* index) {
    *index = SimCardIndex(slot);
    return *index < 0 ? nullptr : &gSim.config.cards[static_cast<size_t>(*index)];
}

const SimModuleConfig* Module(int chassis, int slot, int* index) {
    const SimScxiConfig& s = gSim.config.scxi;
    if (s.chassis == 0 || chassis != s.chassis || s.commMode == 0) return nullptr;
    for (size_t k = 0; k < s.modules.size(); ++k)
        if (s.modules[k].slot == slot) {
            *index = static_cast<int>(k);
            return &s.modules[k];
        }
    return nullptr;
}

i16 CheckInput(const SimCardConfig* card, int channel, int gainCode, double* factor) {
    if (!card) return kSimErrUnknownDevice;
    if (!SimCardHasInput(*card, channel)) return kSimErrBadChannel;
    if (!SimGainOfCode(*card, gainCode, factor)) return kSimErrBadGain;
    return 0;
}

i16 ScaleReading(const SimCardConfig& card, double factor, f64 gainAdjust, f64 offset, int reading,
                 f64* volts) {
    if (!SimReadingValid(card, reading) || gainAdjust == 0) return kSimErrBadValue;
    double code = SimVoltsOfReading(card, reading) / Lsb(card);
    *volts = (code - offset) * Lsb(card) / (factor * gainAdjust);
    return 0;
}

void AfterOutputChange(double t) {
    SimEvolveTo(t);
    SimTick(gSim.config.stepSeconds);
}

i16 Get_NI_DAQ_Version(u32* version) {
    std::lock_guard<std::mutex> guard(gSimLock);
    SimEnsureLoaded();
    if (!version) return kSimErrBadValue;
    *version = gSim.config.version;
    return 0;
}

i16 Get_DAQ_Device_Info(i16 slot, u32 infoType, u32* infoValue) {
    std::lock_guard<std::mutex> guard(gSimLock);
    SimEnsureLoaded();
    int k;
    const SimCardConfig* card = Card(slot, &k);
    if (!card) return kSimErrUnknownDevice;
    if (infoType != kDaqInfoDeviceType) return kDaqNotSupported;
    if (!infoValue) return kSimErrBadValue;
    *infoValue = card->id;
    return 0;
}

i16 SCXI_Get_Chassis_Info(i16 chassis, i16* chassisType, i16* address, i16* commMode, i16* commPath,
                          i16* numSlots) {
    std::lock_guard<std::mutex> guard(gSimLock);
    SimEnsureLoaded();
    const SimScxiConfig& s = gSim.config.scxi;
    if (s.chassis == 0 || chassis != s.chassis) return kSimErrUnknownDevice;
    if (!chassisType || !address || !commMode || !commPath || !numSlots) return kSimErrBadValue;
    *chassisType = 1;
    *address = static_cast<i16>(s.address);
    *commMode = static_cast<i16>(s.commMode);
    // The chassis talks through the first card of the rack.
    *commPath = gSim.config.cards.empty() ? 0 : static_cast<i16>(gSim.config.cards[0].slot);
    *numSlots = static_cast<i16>(s.slots);
    return 0;
}

i16 SCXI_Get_Module_Id(i16 chassis, i16 moduleSlot, i16* moduleId) {
    std::lock_guard<std::mutex> guard(gSimLock);
    SimEnsureLoaded();
    const SimScxiConfig& s = gSim.config.scxi;
    if (s.chassis == 0 || chassis != s.chassis || s.commMode == 0) return kSimErrUnknownDevice;
    if (moduleSlot < 1 || moduleSlot > s.slots || !moduleId) return kSimErrBadValue;
    int k;
    const SimModuleConfig* m = Module(chassis, moduleSlot, &k);
    *moduleId = m ? static_cast<i16>(m->id) : 0;
    return 0;
}

i16 AI_VScale(i16 slot, i16 channel, i16 gainCode, f64 gainAdjust, f64 offset, i16 reading,
              f64* volts) {
    std::lock_guard<std::mutex> guard(gSimLock);
    SimEnsureLoaded();
    int k;
    const SimCardConfig* card = Card(slot, &k);
    double factor;
    if (i16 status = CheckInput(card, channel, gainCode, &factor)) return status;
    if (!volts) return kSimErrBadValue;
    return ScaleReading(*card, factor, gainAdjust, offset, reading, volts);
}

i16 DAQ_VScale(i16 slot, i16 channel, i16 gainCode, f64 gainAdjust, f64 offset, u32 count,
               const i16* samples, f64* volts) {
    std::lock_guard<std::mutex> guard(gSimLock);
    SimEnsureLoaded();
    int k;
    const SimCardConfig* card = Card(slot, &k);
    double factor;
    if (i16 status = CheckInput(card, channel, gainCode, &factor)) return status;
    if (!samples || !volts || count == 0) return kSimErrBadValue;
    // Two-word samples carry the reading in their upper word.
    int words = card->sampleWords;
    for (u32 s = 0; s < count; ++s) {
        i16 reading = samples[s * static_cast<u32>(words) + static_cast<u32>(words - 1)];
        if (i16 status = ScaleReading(*card, factor, gainAdjust, offset, reading, &volts[s]))
            return status;
    }
    return 0;
}

i16 AI_Read(i16 slot, i16 channel, i16 gainCode, i16* reading) {
    std::lock_guard<std::mutex> guard(gSimLock);
    SimEnsureLoaded();
    int k;
    const SimCardConfig* card = Card(slot, &k);
    double factor;
    if (i16 status = CheckInput(card, channel, gainCode, &factor)) return status;
    if (!reading) return kSimErrBadValue;
    double v = SimInputVolts(k, channel, SimClockNow()) * factor;
    *reading = SimReadingOfVolts(*card, v);
    SimTick(gSim.config.stepSeconds);
    return 0;
}

i16 AO_VScale(i16 slot, i16 channel, f64 volts, i16* reading) {
    std::lock_guard<std::mutex> guard(gSimLock);
    SimEnsureLoaded();
    int k;
    const SimCardConfig* card = Card(slot, &k);
    if (!card) return kSimErrUnknownDevice;
    if (channel < 0 || channel >= card->outputs) return kSimErrBadChannel;
    double lsb = Lsb(*card);
    double lowest = -HalfScale(*card) * lsb, highest = (HalfScale(*card) - 1) * lsb;
    if (!(volts >= lowest && volts <= highest) || !reading) return kSimErrBadValue;
    *reading = SimReadingOfVolts(*card, volts);
    return 0;
}

i16 AO_Write(i16 slot, i16 channel, i16 reading) {
    std::lock_guard<std::mutex> guard(gSimLock);
    SimEnsureLoaded();
    int k;
    const SimCardConfig* card = Card(slot, &k);
    if (!card) return kSimErrUnknownDevice;
    if (channel < 0 || channel >= card->outputs) return kSimErrBadChannel;
    if (!SimReadingValid(*card, reading)) return kSimErrBadValue;
    double t = SimClockNow();
    // The sample lives on under the old output up to now; the new one acts at once.
    SimEvolveTo(t);
    gSim.outputs[static_cast<size_t>(k)][static_cast<size_t>(channel)] = reading;
    AfterOutputChange(t);
    return 0;
}

i16 SCXI_AO_Write(i16 chassis, i16 moduleSlot, i16 channel, i16 opCode, i16 rangeCode, f64 volts,
                  i16 reading, i16* written) {
    std::lock_guard<std::mutex> guard(gSimLock);
    SimEnsureLoaded();
    int k = 0;
    const SimModuleConfig* m = Module(chassis, moduleSlot, &k);
    if (!m) return kSimErrUnknownDevice;
    if (channel < 0 || channel >= m->channels) return kSimErrBadChannel;
    int raw;
    if (opCode == 2 && rangeCode == 6) {
        // The probe: answers the binary value of 0 V and changes nothing.
        if (written) *written = kScxiZero;
        return 0;
    } else if (opCode == 1 && rangeCode == 5) {
        raw = reading;
    } else if (opCode == 0) {
        if (!(volts >= -10.0 && volts <= (4095 - kScxiZero) * kScxiLsb)) return kSimErrBadValue;
        raw = kScxiZero + static_cast<int>(std::lround(volts / kScxiLsb));
    } else {
        return kDaqNotSupported;
    }
    if (raw < 0 || raw > 4095) return kSimErrBadValue;
    double t = SimClockNow();
    SimEvolveTo(t);
    gSim.moduleVolts[static_cast<size_t>(k)][static_cast<size_t>(channel)] =
        (raw - kScxiZero) * kScxiLsb;
    if (written) *written = static_cast<i16>(raw);
    AfterOutputChange(t);
    return 0;
}

i16 NotSupportedOp(i16, i16, const i16*, const i16*, u32, u32, f64) {
    return kDaqNotSupported;
}
i16 NotSupportedScale(i16, i16, u32, f64, const f64*, i16*) {
    return kDaqNotSupported;
}
i16 NotSupportedGroup(i16, i16, i16) {
    return kDaqNotSupported;
}
i16 NotSupportedCheck(i16, i16, i16*, u32*, u32*) {
    return kDaqNotSupported;
}

i16 ErrorHandler(i16 status, const char* call, i16 flag) {
    {
        std::lock_guard<std::mutex> guard(gSimLock);
        gSim.lastError = status;
    }
    if (status < 0 && flag)
        std::fprintf(stderr, "simulated NI-DAQ: status %d in %s\n", status, call ? call : "?");
    return status;
}

} // namespace

int SimCardIndex(int slot) {
    const std::vector<SimCardConfig>& cards = gSim.config.cards;
    for (size_t k = 0; k < cards.size(); ++k)
        if (cards[k].slot == slot) return static_cast<int>(k);
    return -1;
}

bool SimCardHasInput(const SimCardConfig& card, int channel) {
    for (const SimChannelRange& r : card.inputs)
        if (channel >= r.first && channel <= r.last) return true;
    return false;
}

bool SimGainOfCode(const SimCardConfig& card, int gainCode, double* factor) {
    for (float g : card.gains)
        if (CodeOfGain(g) == gainCode) {
            *factor = card.fLogGains ? std::pow(10.0, g / 20.0) : g;
            return true;
        }
    return false;
}

bool SimReadingValid(const SimCardConfig& card, int reading) {
    if (card.bits >= 16) return true; // every 16-bit value is a reading
    if (card.fOffsetBinary) return reading >= 0 && reading < 2 * HalfScale(card);
    return reading >= -HalfScale(card) && reading < HalfScale(card);
}

double SimVoltsOfReading(const SimCardConfig& card, int reading) {
    int code = card.fOffsetBinary ? static_cast<u16>(reading) - HalfScale(card) : reading;
    return code * Lsb(card);
}

i16 SimReadingOfVolts(const SimCardConfig& card, double volts) {
    double code = std::nearbyint(volts / Lsb(card));
    double half = HalfScale(card);
    // The converter clips at its ends.
    code = code < -half ? -half : (code > half - 1 ? half - 1 : code);
    int c = static_cast<int>(code);
    if (card.fOffsetBinary) return static_cast<i16>(static_cast<u16>(c + HalfScale(card)));
    return static_cast<i16>(c);
}

double SimOutputVolts(const SimPort& port) {
    if (port.channel < 0) return 0;
    if (port.chassis == 0) {
        int k = SimCardIndex(port.slot);
        if (k < 0) return 0;
        const auto& outs = gSim.outputs[static_cast<size_t>(k)];
        if (static_cast<size_t>(port.channel) >= outs.size()) return 0;
        return SimVoltsOfReading(gSim.config.cards[static_cast<size_t>(k)],
                                 outs[static_cast<size_t>(port.channel)]);
    }
    int k = 0;
    const SimModuleConfig* m = Module(port.chassis, port.slot, &k);
    if (!m || port.channel >= m->channels) return 0;
    return gSim.moduleVolts[static_cast<size_t>(k)][static_cast<size_t>(port.channel)];
}

i16 SimDaqLastReportedError() {
    std::lock_guard<std::mutex> guard(gSimLock);
    return gSim.lastError;
}

const DaqDriver gSimDaqDriver = {
    .name = "sim",
    .Get_NI_DAQ_Version = Get_NI_DAQ_Version,
    .Get_DAQ_Device_Info = Get_DAQ_Device_Info,
    .SCXI_Get_Chassis_Info = SCXI_Get_Chassis_Info,
    .SCXI_Get_Module_Id = SCXI_Get_Module_Id,
    .AI_VScale = AI_VScale,
    .DAQ_VScale = DAQ_VScale,
    .AI_Read = AI_Read,
    .DAQ_Op = SimDAQ_Op,
    .SCAN_Op = SimSCAN_Op,
    .AO_VScale = AO_VScale,
    .AO_Write = AO_Write,
    .SCXI_AO_Write = SCXI_AO_Write,
    .Timeout_Config = SimTimeout_Config,
    .WFM_Op = NotSupportedOp,
    .WFM_Scale = NotSupportedScale,
    .WFM_Group_Control = NotSupportedGroup,
    .WFM_Check = NotSupportedCheck,
    .ErrorHandler = ErrorHandler,
};
