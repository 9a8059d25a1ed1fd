#include "instrument/daq/sim_config.h"
#include "instrument/daq/sim_internal.h"

#include "settings/profile.h"
#include "support/c_locale.h"

#include <algorithm>
#include <cctype>
#include <cmath>
#include <cstdlib>
#include <cstring>
#include <unistd.h>

namespace {

const char* const kSignalNames[kSigCount] = {"J1",          "J2",      "Array",
                                             "Thermometer", "Monitor", "Trigger"};

SimCardConfig DefaultMultifunctionCard() {
    SimCardConfig c;
    c.slot = 1;
    c.id = 16001;
    c.name = "SimDAQ MIO-16 (16-bit)";
    c.bits = 16;
    c.inputs = {{0, 15}};
    c.gains = {0.5f, 1, 2, 5, 10, 20, 50, 100};
    c.outputs = 2;
    return c;
}

SimCardConfig DefaultOutputCard() {
    SimCardConfig c;
    c.slot = 2;
    c.id = 12008;
    c.name = "SimDAQ AO-8 (12-bit)";
    c.bits = 12;
    c.gains = {1};
    c.outputs = 8;
    return c;
}

SimPort Port(int slot, int channel) {
    return SimPort{0, slot, channel};
}

std::string Trim(const std::string& s) {
    size_t a = s.find_first_not_of(" \t\r\n");
    if (a == std::string::npos) return "";
    size_t b = s.find_last_not_of(" \t\r\n");
    return s.substr(a, b - a + 1);
}

bool Iequals(const std::string& a, const char* b) {
    if (a.size() != std::strlen(b)) return false;
    for (size_t k = 0; k < a.size(); ++k)
        if (std::tolower(static_cast<unsigned char>(a[k])) !=
            std::tolower(static_cast<unsigned char>(b[k])))
            return false;
    return true;
}

bool ParseNumber(const std::string& text, double* value) {
    std::string t = Trim(text);
    if (t.empty()) return false;
    char* end = nullptr;
    double v = StrToDoubleC(t.c_str(), &end);
    if (end == t.c_str() || *end != '\0' || !std::isfinite(v)) return false;
    *value = v;
    return true;
}

// Reading one file's keys against the values already in place, which serve as defaults.
class Reader {
  public:
    explicit Reader(const char* file) : file_(file) {}

    std::string Text(const char* section, const char* key) const {
        char buffer[512];
        GetPrivateProfileString(section, key, "", buffer, sizeof buffer, file_);
        return Trim(buffer);
    }
    // A value that is not a number or lies outside [lo, hi] keeps the default.
    void Number(const char* section, const char* key, double lo, double hi, double& value) const {
        double v;
        if (ParseNumber(Text(section, key), &v) && v >= lo && v <= hi) value = v;
    }
    // As Number for quantities that must be strictly positive.
    void Positive(const char* section, const char* key, double hi, double& value) const {
        double v;
        if (ParseNumber(Text(section, key), &v) && v > 0 && v <= hi) value = v;
    }
    void Integer(const char* section, const char* key, int lo, int hi, int& value) const {
        double v;
        if (ParseNumber(Text(section, key), &v) && v == std::floor(v) && v >= lo && v <= hi)
            value = static_cast<int>(v);
    }
    void Flag(const char* section, const char* key, bool& value) const {
        int v = value ? 1 : 0;
        Integer(section, key, 0, 1, v);
        value = v != 0;
    }
    // "slot,channel" for a PC card, "chassis,slot,channel" for an SCXI module, "none".
    void Terminal(const char* section, const char* key, SimPort& port) const {
        std::string t = Text(section, key);
        if (t.empty()) return;
        if (Iequals(t, "none")) {
            port = SimPort{};
            return;
        }
        std::vector<int> parts;
        size_t pos = 0;
        while (pos <= t.size()) {
            size_t comma = t.find(',', pos);
            double v;
            if (!ParseNumber(t.substr(pos, comma == std::string::npos ? comma : comma - pos), &v) ||
                v != std::floor(v) || v < 0 || v > 255)
                return;
            parts.push_back(static_cast<int>(v));
            if (comma == std::string::npos) break;
            pos = comma + 1;
        }
        if (parts.size() == 2) port = SimPort{0, parts[0], parts[1]};
        if (parts.size() == 3) port = SimPort{parts[0], parts[1], parts[2]};
    }

  private:
    const char* file_;
};

// "0-7,16-23", "0,1,2" or "none"; any malformed piece keeps the default list.
void ReadChannelRanges(const std::string& text, std::vector<SimChannelRange>& ranges) {
    if (text.empty()) return;
    if (Iequals(text, "none")) {
        ranges.clear();
        return;
    }
    std::vector<SimChannelRange> out;
    size_t pos = 0;
    while (pos < text.size()) {
        size_t end = text.find_first_of(",; \t", pos);
        std::string piece = text.substr(pos, end == std::string::npos ? end : end - pos);
        pos = end == std::string::npos ? text.size() : end + 1;
        if (piece.empty()) continue;
        size_t dash = piece.find('-', 1);
        double a, b;
        if (!ParseNumber(piece.substr(0, dash), &a)) return;
        b = a;
        if (dash != std::string::npos && !ParseNumber(piece.substr(dash + 1), &b)) return;
        if (a != std::floor(a) || b != std::floor(b)) return;
        if (a > b) std::swap(a, b);
        // Channel 255 is never a channel of a card.
        a = std::max(a, 0.0);
        b = std::min(b, 254.0);
        if (a <= b) out.push_back({static_cast<int>(a), static_cast<int>(b)});
    }
    std::sort(out.begin(), out.end(),
              [](const SimChannelRange& x, const SimChannelRange& y) { return x.first < y.first; });
    ranges.clear();
    for (const SimChannelRange& r : out) {
        if (!ranges.empty() && r.first <= ranges.back().last + 1)
            ranges.back().last = std::max(ranges.back().last, r.last);
        else
            ranges.push_back(r);
    }
}

// Gains in the separators of nidaq.ini; a 0 makes the list decibels, as there.
void ReadGains(const std::string& text, std::vector<float>& gains, bool& fLog) {
    if (text.empty()) return;
    std::vector<float> list;
    bool fZero = false;
    size_t pos = 0;
    while (pos < text.size() && list.size() < 16) {
        size_t end = text.find_first_of("\n\r ,;\t:", pos);
        std::string piece = text.substr(pos, end == std::string::npos ? end : end - pos);
        pos = end == std::string::npos ? text.size() : end + 1;
        if (piece.empty()) continue;
        double v;
        if (!ParseNumber(piece, &v) || std::fabs(v) > 1000) return;
        if (v == 0) fZero = true;
        list.push_back(static_cast<float>(v));
    }
    if (list.empty()) return;
    if (fZero) fLog = true;
    if (!fLog) {
        std::erase_if(list, [](float g) { return g <= 0; });
        if (list.empty()) return;
    }
    gains = list;
}

void RepairGains(SimCardConfig& c) {
    // The channel probe converts with gain code 1 (linear) or 0 (decibels): a card without that
    // gain would look like a card without inputs.
    float unity = c.fLogGains ? 0.0f : 1.0f;
    if (std::find(c.gains.begin(), c.gains.end(), unity) == c.gains.end()) c.gains.push_back(unity);
    std::sort(c.gains.begin(), c.gains.end());
    c.gains.erase(std::unique(c.gains.begin(), c.gains.end()), c.gains.end());
}

void ReadCard(const Reader& r, int index, SimCardConfig& c) {
    char section[32];
    SnprintfC(section, sizeof section, "Card%d", index + 1);
    r.Integer(section, "Slot", 1, 16, c.slot);
    double id = c.id;
    r.Positive(section, "Id", 4294967295.0, id);
    if (id == std::floor(id)) c.id = static_cast<std::uint32_t>(id);
    std::string name = r.Text(section, "Name");
    if (!name.empty()) c.name = name.substr(0, 255);
    double bits = c.bits;
    r.Number(section, "Bits", 1, 32, bits);
    c.bits = bits <= 14 ? 12 : 16;
    r.Positive(section, "Span", 100, c.span);
    r.Flag(section, "Coding", c.fOffsetBinary);
    ReadChannelRanges(r.Text(section, "Inputs"), c.inputs);
    r.Flag(section, "LogGains", c.fLogGains);
    ReadGains(r.Text(section, "Gains"), c.gains, c.fLogGains);
    RepairGains(c);
    r.Integer(section, "Outputs", 0, 128, c.outputs);
    c.sampleWords = c.fLogGains ? 2 : 1;
    r.Integer(section, "SampleWords", 1, 2, c.sampleWords);
}

void ReadScxi(const Reader& r, SimScxiConfig& s) {
    r.Integer("SCXI", "Chassis", 0, 3, s.chassis);
    r.Integer("SCXI", "Address", 0, 255, s.address);
    r.Integer("SCXI", "Slots", 1, 12, s.slots);
    r.Integer("SCXI", "CommMode", 0, 3, s.commMode);
    int count = static_cast<int>(s.modules.size());
    r.Integer("SCXI", "Modules", 0, 12, count);
    s.modules.resize(static_cast<size_t>(count));
    for (int k = 0; k < count; ++k) {
        SimModuleConfig& m = s.modules[static_cast<size_t>(k)];
        char section[32];
        SnprintfC(section, sizeof section, "SCXIModule%d", k + 1);
        if (m.id == 0) {
            m.slot = k + 1;
            m.id = 1124;
            m.name = "SimSCXI AO-6";
            m.channels = 6;
        }
        r.Integer(section, "Slot", 1, 12, m.slot);
        r.Integer(section, "Id", 1, 32767, m.id);
        std::string name = r.Text(section, "Name");
        if (!name.empty()) m.name = name.substr(0, 127);
        r.Integer(section, "Channels", 0, 64, m.channels);
    }
    // A module outside the chassis or on an occupied slot is not plugged in.
    std::vector<SimModuleConfig> kept;
    for (const SimModuleConfig& m : s.modules) {
        bool fTaken = std::any_of(kept.begin(), kept.end(),
                                  [&](const SimModuleConfig& k) { return k.slot == m.slot; });
        if (m.slot <= s.slots && !fTaken) kept.push_back(m);
    }
    s.modules = kept;
}

void RepairSlots(std::vector<SimCardConfig>& cards) {
    bool used[17] = {};
    for (SimCardConfig& c : cards) {
        if (used[c.slot]) {
            int free = 1;
            while (free <= 16 && used[free])
                ++free;
            c.slot = free;
        }
        used[c.slot] = true;
    }
}

const SimCardConfig* CardInSlot(const SimConfig& c, int slot) {
    for (const SimCardConfig& card : c.cards)
        if (card.slot == slot) return &card;
    return nullptr;
}

bool OutputExists(const SimConfig& c, const SimPort& p) {
    if (p.channel < 0) return false;
    if (p.chassis == 0) {
        const SimCardConfig* card = CardInSlot(c, p.slot);
        return card && p.channel < card->outputs;
    }
    if (p.chassis != c.scxi.chassis || c.scxi.commMode == 0) return false;
    for (const SimModuleConfig& m : c.scxi.modules)
        if (m.slot == p.slot) return p.channel < m.channels;
    return false;
}

bool InputExists(const SimConfig& c, const SimPort& p) {
    if (p.channel < 0 || p.chassis != 0) return false;
    const SimCardConfig* card = CardInSlot(c, p.slot);
    if (!card) return false;
    for (const SimChannelRange& r : card->inputs)
        if (p.channel >= r.first && p.channel <= r.last) return true;
    return false;
}

bool SamePort(const SimPort& a, const SimPort& b) {
    return a.channel >= 0 && a.chassis == b.chassis && a.slot == b.slot && a.channel == b.channel;
}

// Wiring to a terminal that isn't there, or a second wire on one terminal, is left unwired.
void RepairWiring(SimConfig& c) {
    SimPort* outs[] = {&c.bias, &c.coil, &c.heater, &c.trigger};
    for (size_t k = 0; k < 4; ++k) {
        if (!OutputExists(c, *outs[k])) *outs[k] = SimPort{};
        for (size_t j = 0; j < k; ++j)
            if (SamePort(*outs[j], *outs[k])) *outs[k] = SimPort{};
    }
    for (int k = 0; k < kSigCount; ++k) {
        SimPort& p = c.inputs[k].port;
        if (!InputExists(c, p)) p = SimPort{};
        for (int j = 0; j < k; ++j)
            if (SamePort(c.inputs[j].port, p)) p = SimPort{};
    }
}

void ReadJunction(const Reader& r, const char* section, SimJunctionConfig& j) {
    r.Positive(section, "Ic", 1.0, j.ic0);
    r.Positive(section, "Rn", 1e6, j.rn);
    r.Number(section, "BetaC", 0, 1000, j.betaC);
    r.Number(section, "Ie", 0, 1.0, j.ie);
    r.Positive(section, "H0", 10.0, j.h0);
    r.Number(section, "StepVoltage", 0, 1.0, j.stepVoltage);
    r.Number(section, "StepIc", 0, 1.0, j.stepIc);
    // An excess current above the critical current has no place on the branch.
    j.ie = std::min(j.ie, j.ic0);
}

} // namespace

SimConfig DefaultSimConfig() {
    SimConfig c;
    c.cards = {DefaultMultifunctionCard(), DefaultOutputCard()};
    c.bias = Port(1, 0);
    c.coil = Port(1, 1);
    c.heater = Port(2, 0);
    c.trigger = Port(2, 1);
    c.inputs[kSigJ1] = {Port(1, 0), 1000.0, 0.0021, 3e-6};
    c.inputs[kSigJ2] = {Port(1, 1), 1000.0, -0.0014, -2e-6};
    c.inputs[kSigArray] = {Port(1, 2), 10.0, 0.0008, 1e-5};
    c.inputs[kSigThermometer] = {Port(1, 3), 100.0, 0.0005, 0.0};
    c.inputs[kSigMonitor] = {Port(1, 4), 1.0, 0.0003, 0.0};
    c.inputs[kSigTrigger] = {Port(1, 7), 1.0, 0.0, 0.0};
    c.j1 = {1e-4, 10.0, 5.0, 1e-5, 2e-3, 2e-4, 5e-5}; // hysteretic: retraps near 0.54 Ic
    c.j2 = {6e-5, 15.0, 0.0, 0.0, 3e-3};  // overdamped
    return c;
}

void ReadSimConfig(const char* file, SimConfig& c) {
    c = DefaultSimConfig();
    Reader r(file);

    std::string version = r.Text("Rack", "Version");
    if (!version.empty()) {
        char* end = nullptr;
        unsigned long v = std::strtoul(version.c_str(), &end, 0);
        if (end && *end == '\0' && v <= 0xFFFF) c.version = static_cast<unsigned>(v);
    }
    int count = static_cast<int>(c.cards.size());
    r.Integer("Rack", "Cards", 0, 16, count);
    while (static_cast<int>(c.cards.size()) < count) {
        SimCardConfig extra;
        extra.slot = static_cast<int>(c.cards.size()) + 1;
        extra.id = 1000 + static_cast<std::uint32_t>(extra.slot);
        extra.name = "SimDAQ card";
        extra.gains = {1};
        c.cards.push_back(extra);
    }
    c.cards.resize(static_cast<size_t>(count));
    for (int k = 0; k < count; ++k)
        ReadCard(r, k, c.cards[static_cast<size_t>(k)]);
    RepairSlots(c.cards);
    ReadScxi(r, c.scxi);

    r.Terminal("Outputs", "Bias", c.bias);
    r.Terminal("Outputs", "Coil", c.coil);
    r.Terminal("Outputs", "Heater", c.heater);
    r.Terminal("Outputs", "Trigger", c.trigger);
    r.Positive("Outputs", "BiasResistor", 1e9, c.biasResistor);
    r.Positive("Outputs", "CoilResistor", 1e9, c.coilResistor);
    r.Positive("Outputs", "HeaterResistor", 1e9, c.heaterResistor);
    r.Positive("Inputs", "MonitorShunt", 1e9, c.monitorShunt);
    for (int k = 0; k < kSigCount; ++k) {
        std::string base = kSignalNames[k];
        SimInputConfig& in = c.inputs[k];
        r.Terminal("Inputs", base.c_str(), in.port);
        r.Positive("Inputs", (base + "Gain").c_str(), 1e7, in.gain);
        r.Number("Inputs", (base + "Offset").c_str(), -10, 10, in.offset);
        r.Number("Inputs", (base + "ThermoEMF").c_str(), -1, 1, in.thermoEmf);
    }
    RepairWiring(c);

    ReadJunction(r, "J1", c.j1);
    ReadJunction(r, "J2", c.j2);
    r.Integer("Array", "N", 1, 1000, c.array.count);
    r.Positive("Array", "Ic", 1.0, c.array.ic0);
    r.Number("Array", "Spread", 0, 0.5, c.array.spread);
    r.Positive("Array", "Rn", 1e6, c.array.rn);
    r.Number("Array", "BetaC", 0, 1000, c.array.betaC);
    r.Number("Array", "GapVoltage", 0, 0.1, c.array.gapVoltage);
    double seed = c.array.seed;
    r.Number("Array", "Seed", 0, 4294967295.0, seed);
    c.array.seed = static_cast<unsigned>(seed);
    r.Number("Field", "Offset", -10, 10, c.fieldOffset);

    r.Positive("Temperature", "Tc", 1000, c.tc);
    r.Positive("Temperature", "T0", 1000, c.t0);
    r.Number("Temperature", "DriftRate", -10, 10, c.driftRate);
    r.Number("Temperature", "TimeConstant", 0, 1e6, c.timeConstant);
    r.Number("Temperature", "HeaterKPerW", 0, 1e6, c.heaterKPerW);
    r.Positive("Thermometer", "SensorCurrent", 1.0, c.sensorCurrent);

    r.Number("Noise", "Sigma", 0, 10, c.noiseSigma);
    std::string noiseSeed = r.Text("Noise", "Seed");
    if (!noiseSeed.empty()) {
        char* end = nullptr;
        unsigned long long v = std::strtoull(noiseSeed.c_str(), &end, 0);
        if (end && *end == '\0' && noiseSeed[0] != '-') c.noiseSeed = v;
    }
    r.Positive("Hum", "Frequency", 1e6, c.humFrequency);
    r.Number("Hum", "Amplitude", 0, 10, c.humAmplitude);
    std::string mode = r.Text("Clock", "Mode");
    if (Iequals(mode, "step")) c.fStepClock = true;
    if (Iequals(mode, "real")) c.fStepClock = false;
    r.Number("Clock", "StepSeconds", 0, 10, c.stepSeconds);
}

const SimConfig& SimDaqConfig() {
    std::lock_guard<std::mutex> guard(gSimLock);
    SimEnsureLoaded();
    return gSim.config;
}

void SimLoadLocked(const char* path, bool* fFileFound) {
    if (path) gSim.path = path;
    *fFileFound = access(gSim.path.c_str(), R_OK) == 0;
    ReadSimConfig(gSim.path.c_str(), gSim.config);
    gSim.fLoaded = true;
    gSim.outputs.clear();
    for (const SimCardConfig& card : gSim.config.cards) {
        // Every output starts at 0 V, as after a power-up reset.
        i16 zero = SimReadingOfVolts(card, 0.0);
        gSim.outputs.push_back(std::vector<i16>(static_cast<size_t>(card.outputs), zero));
    }
    gSim.moduleVolts.clear();
    for (const SimModuleConfig& m : gSim.config.scxi.modules)
        gSim.moduleVolts.push_back(std::vector<double>(static_cast<size_t>(m.channels), 0.0));
    gSim.timeout.assign(gSim.config.cards.size(), -1.0);
    gSim.start = std::chrono::steady_clock::now();
    gSim.manualTime = 0;
    gSim.rng = gSim.config.noiseSeed;
    gSim.fSpareNormal = false;
    gSim.lastError = 0;
    SimResetSample();
}

void SimEnsureLoaded() {
    bool fFound;
    if (!gSim.fLoaded) SimLoadLocked(nullptr, &fFound);
}

bool SimDaqLoad(const char* path) {
    std::lock_guard<std::mutex> guard(gSimLock);
    bool fFound = false;
    SimLoadLocked(path, &fFound);
    return fFound;
}

void SimDaqSetPath(const char* path) {
    std::lock_guard<std::mutex> guard(gSimLock);
    gSim.path = path && *path ? path : "simdaq.ini";
    gSim.fLoaded = false;
}
