#include "instrument/card_text.h"
#include "instrument/daq_cards.h"
#include "settings/profile.h"
#include "support/bounded_text.h"
#include "support/c_locale.h"
#include "support/debug_check.h"

#include <cstring>
#include <iterator>
#include <string>

namespace {

constexpr int kPcSlots = 16;
constexpr int kLastChassis = 3;
// The channel probe stops here: 255 never counts as a valid channel.
constexpr int kAdcProbeEnd = 255;
constexpr int kMaxDacChannels = 130;

const f32 kLinearGains[] = {0.01f, 0.1f, 0.2f, 0.5f, 1, 2, 5, 10, 20, 50, 100, 200, 500, 1000};
const f32 kDecibelGains[] = {-60, -50, -40, -30, -20, -10, 0, 10, 20, 30, 40, 50, 60, 70, 80, 90};

// The scaling step: AI_VScale, or DAQ_VScale over four made-up samples on cards without it.
i16 ScaleReading(i16 slot, i16 channel, i16 gainCode, i16 reading, f64* volts) {
    i16 status = Daq().AI_VScale(slot, channel, gainCode, 1.0, 0.0, reading, volts);
    if (status != kDaqNotSupported) return status;
    u32 raw = static_cast<u32>(static_cast<i32>(reading));
    u32 samples32[4];
    samples32[0] = samples32[1] = (raw << 16) | (reading == 0 ? 1u : 0u);
    samples32[2] = raw << 20;
    samples32[3] = raw << 8;
    // Laid out little-endian, as the driver reads a 32-bit sample buffer.
    i16 samples[8];
    for (int i = 0; i < 4; ++i) {
        samples[2 * i] = static_cast<i16>(samples32[i] & 0xFFFFu);
        samples[2 * i + 1] = static_cast<i16>(samples32[i] >> 16);
    }
    f64 fourVolts[4] = {};
    status = Daq().DAQ_VScale(slot, channel, gainCode, 1.0, 0.0, 4, samples, fourVolts);
    *volts = fourVolts[0];
    return status;
}

// A probe conversion: gain code 1, else gain code 0.
i16 ProbeConversion(i16 slot, i16 channel, i16 reading, f64* volts) {
    i16 status = ScaleReading(slot, channel, 1, reading, volts);
    if (status != 0) status = ScaleReading(slot, channel, 0, reading, volts);
    return status;
}

ChannelRangeList ProbeAdcChannels(i16 slot) {
    ChannelRangeList list;
    int runStart = -1;
    for (int channel = 0; channel <= kAdcProbeEnd; ++channel) {
        f64 volts = 0.0;
        bool pass = channel != kAdcProbeEnd &&
                    ProbeConversion(slot, static_cast<i16>(channel), 0, &volts) == 0;
        if (pass && runStart < 0) runStart = channel;
        if (!pass && runStart >= 0) {
            list.ranges.push_back({static_cast<u16>(runStart), static_cast<u16>(channel - 1)});
            runStart = -1;
        }
    }
    return list;
}

struct Readings {
    u16 min, max, zero, shift;
};

Readings AutodetectReadings(i16 slot) {
    f64 volts = 0.0;
    if (ProbeConversion(slot, 0, 4096, &volts) == 0) {
        f64 low = 0.0;
        ProbeConversion(slot, 0, -32767, &low);
        return {0, 65535, 32768, static_cast<u16>(low <= 0.0 ? 32768 : 0)};
    }
    bool converts2049 = ProbeConversion(slot, 0, 2049, &volts) == 0;
    return {0, 4095, 2048, static_cast<u16>(converts2049 ? 0 : 2048)};
}

// The file's readings replace the probed ones only as a consistent set.
Readings MergeReadings(Readings probed, const char* section, const char* nidaqIni) {
    Readings file;
    file.min =
        static_cast<u16>(GetPrivateProfileInt(section, "ADC.MinReading", probed.min, nidaqIni));
    file.max =
        static_cast<u16>(GetPrivateProfileInt(section, "ADC.MaxReading", probed.max, nidaqIni));
    file.zero =
        static_cast<u16>(GetPrivateProfileInt(section, "ADC.ZeroReading", probed.zero, nidaqIni));
    file.shift =
        static_cast<u16>(GetPrivateProfileInt(section, "ADC.ZeroShift", probed.shift, nidaqIni));
    if (file.min < file.zero && file.zero < file.max) return file;
    return probed;
}

// Parsing stops at the first piece that is not a number.
std::vector<f32> ParseGains(const char* text) {
    std::vector<f32> gains;
    const char* separators = "\n\r ,;\t:";
    const char* p = text;
    while (*p) {
        p += std::strspn(p, separators);
        if (!*p) break;
        size_t length = std::strcspn(p, separators);
        std::string piece(p, length);
        char* end = nullptr;
        f64 value = StrToDoubleC(piece.c_str(), &end);
        if (end == piece.c_str()) break;
        gains.push_back(static_cast<f32>(value));
        p += length;
    }
    return gains;
}

// Fills the gains of card and returns their source (1, 0, -1, -2).
int DetectGains(AdcCard& card, const char* section, const char* nidaqIni) {
    f64 volts = 0.0;
    bool linear = ScaleReading(card.slot, 0, 1, 0, &volts) == 0;
    std::vector<f32> probed;
    i16 probedLog = linear ? 0 : 1;
    const f32* candidates = linear ? kLinearGains : kDecibelGains;
    size_t candidateCount = linear ? std::size(kLinearGains) : std::size(kDecibelGains);
    for (size_t i = 0; i < candidateCount; ++i) {
        f32 gain = candidates[i];
        if (ScaleReading(card.slot, 0, GainCode(gain), 0, &volts) != 0) continue;
        probed.push_back(gain);
        // Zero is a possible gain only in decibels.
        if (gain == 0.0f) probedLog = 1;
    }

    char text[128];
    GetPrivateProfileString(section, "gains", "", text, sizeof text, nidaqIni);
    std::vector<f32> fromFile = ParseGains(text);
    i16 fileLog = static_cast<i16>(GetPrivateProfileInt(section, "logGains", 0, nidaqIni));
    for (f32 g : fromFile)
        if (g == 0.0f) fileLog = 1;

    int source;
    if (!fromFile.empty()) {
        // Only the scales are compared, never the lists value by value.
        source = !probed.empty() && (probedLog != 0) == (fileLog != 0) ? 0 : 1;
        card.gains = fromFile;
        card.logGains = fileLog;
    } else if (!probed.empty()) {
        source = -1;
        card.gains = probed;
        card.logGains = probedLog;
    } else {
        source = -2;
        card.gains = {1.0f};
        card.logGains = 0;
    }
    card.gainCount = static_cast<i16>(card.gains.size());
    return source;
}

void AppendAdcReport(const AdcCard& card, int source, char* report, size_t size) {
    const char* sourceName = GainSourceName(source);
    if (card.gainCount > 0) {
        AppendFormat(report, size, "  Number of gains:%u (%G",
                     static_cast<unsigned>(card.gainCount), static_cast<f64>(card.gains[0]));
        for (size_t i = 1; i < card.gains.size(); ++i)
            AppendFormat(report, size, ",%G", static_cast<f64>(card.gains[i]));
        AppendFormat(report, size, ") Scale:%s (Source:%s)\n", card.logGains ? "Log" : "Lin",
                     sourceName);
    }
    AppendFormat(report, size,
                 "  ADC: %3u channels, Reading=[%u, %u, %u], ADC Voltage=[%f, %f] (Source: %s)\n",
                 static_cast<unsigned>(ChannelCount(card)), static_cast<unsigned>(card.MinReading),
                 static_cast<unsigned>(card.ZeroReading), static_cast<unsigned>(card.MaxReading),
                 card.MinVoltage, card.MaxVoltage, sourceName);
}

void AddAdcCard(u32 id, i16 slot, const ChannelRangeList& channels, const std::string& name,
                const char* section, const char* nidaqIni, char* report, size_t size) {
    VASSERT(AdcCardsCount < kMaxCards);
    if (AdcCardsCount >= kMaxCards) return;
    AdcCard& card = AdcCards[AdcCardsCount];
    card.id = id;
    card.chassis = 0;
    card.slot = slot;
    card.channels = channels;
    card.name = name;
    Readings readings = MergeReadings(AutodetectReadings(slot), section, nidaqIni);
    card.MinReading = readings.min;
    card.MaxReading = readings.max;
    card.ZeroReading = readings.zero;
    card.ZeroShift = readings.shift;
    ProbeConversion(slot, 0, static_cast<i16>(card.MinReading - card.ZeroShift), &card.MinVoltage);
    ProbeConversion(slot, 0, static_cast<i16>(card.MaxReading - card.ZeroShift), &card.MaxVoltage);
    int source = DetectGains(card, section, nidaqIni);
    AppendAdcReport(card, source, report, size);
    ++AdcCardsCount;
}

u16 CountDacChannels(i16 chassis, i16 slot) {
    u16 count = 0;
    for (int channel = 0; channel < kMaxDacChannels; ++channel) {
        i16 status;
        if (chassis == 0) {
            i16 reading = 0;
            status = Daq().AO_VScale(slot, static_cast<i16>(channel), 0.0, &reading);
        } else {
            i16 written = 0;
            status = Daq().SCXI_AO_Write(chassis, slot, static_cast<i16>(channel), 2, 6, 0.0, 0,
                                         &written);
        }
        if (status != 0) break;
        ++count;
    }
    return count;
}

// Runs until the interval can't be halved any more in f64.
f64 BisectVoltageLimit(i16 slot, f64 bad) {
    f64 good = 0.0;
    f64 probe = bad / 2;
    while (probe != good && probe != bad) {
        i16 reading = 0;
        if (Daq().AO_VScale(slot, 0, probe, &reading) == 0)
            good = probe;
        else
            bad = probe;
        probe = (good + bad) / 2;
    }
    return good;
}

void ProbeDacLimits(DacCard& card) {
    card.MinVoltage = BisectVoltageLimit(card.slot, -1000.0);
    card.MinReading = 0;
    card.MaxVoltage = BisectVoltageLimit(card.slot, 1000.0);
    i16 top = 0;
    Daq().AO_VScale(card.slot, 0, card.MaxVoltage, &top);
    switch (static_cast<u16>(top)) {
    case 32767:
        card.ZeroShift = 32768, card.MaxReading = 65535;
        break;
    case 2047:
        card.ZeroShift = 2048, card.MaxReading = 4095;
        break;
    case 4095:
        card.ZeroShift = 0, card.MaxReading = 4095;
        break;
    case 65535:
        card.ZeroShift = 0, card.MaxReading = 65535;
        break;
    default:
        card.ZeroShift = 0, card.MaxReading = 0;
        break;
    }
    i16 zero = 0;
    Daq().AO_VScale(card.slot, 0, 0.0, &zero);
    card.ZeroReading = static_cast<u16>(zero + card.ZeroShift);
}

void SetScxiDacLimits(DacCard& card) {
    card.MinVoltage = -10.0;
    card.MaxVoltage = 9.9951171875;
    card.MinReading = 0;
    card.MaxReading = 4095;
    card.ZeroReading = 2048;
    card.ZeroShift = 0;
}

void AddDacCard(u32 id, i16 chassis, i16 slot, u16 channelCount, const std::string& name,
                char* report, size_t size) {
    VASSERT(DacCardsCount < kMaxCards);
    if (DacCardsCount >= kMaxCards) return;
    DacCard& card = DacCards[DacCardsCount];
    card.id = id;
    card.chassis = chassis;
    card.slot = slot;
    card.channelCount = channelCount;
    card.name = name;
    if (chassis == 0)
        ProbeDacLimits(card);
    else
        SetScxiDacLimits(card);
    AppendFormat(report, size, "  DAC: %3u channels, Reading=[%u,%u,%u], DAC Voltage=[%f,%f]\n",
                 static_cast<unsigned>(card.channelCount), static_cast<unsigned>(card.MinReading),
                 static_cast<unsigned>(card.ZeroReading), static_cast<unsigned>(card.MaxReading),
                 card.MinVoltage, card.MaxVoltage);
    ++DacCardsCount;
}

// The slot count of a chassis; 0 when it is absent.
int ChassisSlots(int chassis, char* report, size_t size) {
    if (chassis == 0) return kPcSlots;
    i16 type = 0, address = 0, commMode = 0, commPath = 0, slots = 0;
    if (Daq().SCXI_Get_Chassis_Info(static_cast<i16>(chassis), &type, &address, &commMode,
                                    &commPath, &slots) != 0 ||
        commMode == 0)
        return 0;
    AppendFormat(report, size, "SCXI_Chassis #%02d: addr=%2d, contains %d slots\n", chassis,
                 static_cast<int>(address), static_cast<int>(slots));
    return slots;
}

std::string InFolder(const char* folder, const char* file) {
    std::string path = folder ? folder : "";
    if (!path.empty() && path.back() != '/') path += '/';
    return path + file;
}

} // namespace

const char* GainSourceName(int source) {
    switch (source) {
    case 1:
        return "nidaq.ini";
    case 0:
        return "autodetection, nidaq.ini has the same data or nothing";
    case -1:
        return "autodetection, nidaq.ini is wrong/incomplete";
    default:
        return "nidaq.ini is wrong/incomplete, autodetection n/a";
    }
}

int DetectCards(char* report, size_t size, const char* programDirectory) {
    ResetCards();
    std::string nidaqIni = InFolder(programDirectory, "nidaq.ini");
    std::string scxiIni = InFolder(programDirectory, "SCXI.ini");
    if (size == 0) return 1;
    report[0] = 0;
    char line[128];
    DescribeVersion(line, sizeof line);
    BoundedAppend(report, line, size);
    BoundedAppend(report, "\n", size);

    for (int chassis = 0; chassis <= kLastChassis; ++chassis) {
        int slots = ChassisSlots(chassis, report, size);
        for (int s = 1; s <= slots; ++s) {
            i16 slot = static_cast<i16>(s);
            char section[16];
            char name[256];
            u32 id = 0;
            if (chassis == 0) {
                if (Daq().Get_DAQ_Device_Info(slot, kDaqInfoDeviceType, &id) != 0) continue;
                SnprintfC(section, sizeof section, "%u", id);
                GetPrivateProfileString(section, "name", section, name, sizeof name,
                                        nidaqIni.c_str());
                AppendFormat(report, size, "Slot #%02u: Card-ID:%lu, Name:%s\n",
                             static_cast<unsigned>(s), static_cast<unsigned long>(id), name);
            } else {
                i16 moduleId = 0;
                if (Daq().SCXI_Get_Module_Id(static_cast<i16>(chassis), slot, &moduleId) != 0 ||
                    moduleId < 1)
                    continue;
                id = static_cast<u32>(moduleId);
                SnprintfC(section, sizeof section, "%d", static_cast<int>(moduleId));
                GetPrivateProfileString(section, "name", "???", name, 128, scxiIni.c_str());
                AppendFormat(report, size, "  module in slot #%2d: name=%s [ID=%d]\n", s, name,
                             static_cast<int>(moduleId));
            }

            // SCXI modules are output-only here.
            if (chassis == 0) {
                ChannelRangeList channels = ProbeAdcChannels(slot);
                if (!channels.ranges.empty())
                    AddAdcCard(id, slot, channels, name, section, nidaqIni.c_str(), report, size);
            }
            u16 dacChannels = CountDacChannels(static_cast<i16>(chassis), slot);
            if (dacChannels > 0)
                AddDacCard(id, static_cast<i16>(chassis), slot, dacChannels, name, report, size);
        }
    }
    if (DacCardsCount == 0) return 1;
    if (AdcCardsCount == 0) return 2;
    return 0;
}
