#include "files/profile.h"
#include "support/debug_check.h"
#include "ui/setup_panel.h"

#include <cstdio>

namespace {

constexpr std::size_t kEntryLimit = 79;

void AddUser(std::string& entry, char tag, int index) {
    char user[16];
    std::snprintf(user, sizeof user, " %c%d", tag, index);
    entry += user;
}

} // namespace

std::string AdcChannelEntry(int adc, unsigned physical, int skipCurrent, int skipVoltage) {
    char number[16];
    std::snprintf(number, sizeof number, "%u", physical);
    std::string entry = number;
    int users = 0;
    for (int c = 0; c < kCurrentChannelCount && users < 16; ++c) {
        const CurrentChannel& r = CurrentChannels[c];
        if (c == skipCurrent || !IsCurrentConnected(c) || !IsCurrentMonitored(c)) continue;
        if (r.ADCSlot != adc || r.ADCChan != physical) continue;
        AddUser(entry, 'i', c);
        ++users;
    }
    for (int v = 0; v < kVoltageChannelCount && users < 16; ++v) {
        const VoltageChannel& r = VoltageChannels[v];
        if (v == skipVoltage || !IsVoltageConnected(v)) continue;
        if (r.ADCSlot != adc || r.ADCChan != physical) continue;
        AddUser(entry, 'v', v);
        ++users;
    }
    VASSERT(entry.size() <= kEntryLimit);
    return entry;
}

std::string DacChannelEntry(int dac, unsigned channel, int skipCurrent) {
    char number[16];
    std::snprintf(number, sizeof number, "%u", channel);
    std::string entry = number;
    int users = 0;
    for (int c = 0; c < kCurrentChannelCount && users < 17; ++c) {
        const CurrentChannel& r = CurrentChannels[c];
        if (c == skipCurrent || !IsCurrentConnected(c)) continue;
        if (r.DACSlot != dac || r.DACChan != channel) continue;
        AddUser(entry, 'i', c);
        ++users;
    }
    VASSERT(entry.size() <= kEntryLimit);
    return entry;
}

std::vector<std::string> AdcChannelList(int adc, int skipCurrent, int skipVoltage) {
    std::vector<std::string> list;
    if (adc < 0 || adc >= AdcCardsCount) return list;
    const AdcCard& card = AdcCards[adc];
    for (u16 logical = 0; logical < ChannelCount(card); ++logical) {
        u16 physical = 0;
        PhysicalFromLogical(card, logical, &physical);
        list.push_back(AdcChannelEntry(adc, physical, skipCurrent, skipVoltage));
    }
    return list;
}

std::vector<std::string> DacChannelList(int dac, int skipCurrent) {
    std::vector<std::string> list;
    if (dac < 0 || dac >= DacCardsCount) return list;
    for (unsigned ch = 0; ch < DacCards[dac].channelCount; ++ch)
        list.push_back(DacChannelEntry(dac, ch, skipCurrent));
    return list;
}

std::vector<std::string> CardList(bool dacs) {
    std::vector<std::string> list;
    int count = dacs ? DacCardsCount : AdcCardsCount;
    for (int k = 0; k < count; ++k) {
        char entry[96];
        if (dacs)
            std::snprintf(entry, sizeof entry, "%u:%s", unsigned(DacCards[k].slot),
                          DacCards[k].name.c_str());
        else
            std::snprintf(entry, sizeof entry, "%u:%s", unsigned(AdcCards[k].slot),
                          AdcCards[k].name.c_str());
        list.push_back(entry);
    }
    return list;
}

std::vector<std::string> GainList(int adc) {
    std::vector<std::string> list;
    if (adc < 0 || adc >= AdcCardsCount) return list;
    for (f32 gain : AdcCards[adc].gains) {
        char entry[32];
        std::snprintf(entry, sizeof entry, "%G", double(gain));
        list.push_back(entry);
    }
    return list;
}

// --- One record in vtl.ini ------------------------------------------------------------------

namespace {

const char kCurrents[] = "Virtual Currents";
const char kVoltages[] = "Virtual Voltages";

struct Key {
    char text[48];
    Key(const char* prefix, int index, const char* field) {
        std::snprintf(text, sizeof text, "%s[%03d].%s", prefix, index, field);
    }
};

void PutInt(const char* s, const char* prefix, int i, const char* field, int value,
            const char* file) {
    WriteProfileInt(s, Key(prefix, i, field).text, "%d", value, file);
}
void PutFloat(const char* s, const char* prefix, int i, const char* field, f32 value,
              const char* file) {
    WriteProfileDouble(s, Key(prefix, i, field).text, "%G", value, file);
}
long GetInt(const char* s, const char* prefix, int i, const char* field, long dflt,
            const char* file) {
    return ReadProfileLong(s, Key(prefix, i, field).text, dflt, file);
}
f32 GetFloat(const char* s, const char* prefix, int i, const char* field, const char* file) {
    return static_cast<f32>(ReadProfileDouble(s, Key(prefix, i, field).text, 1.0, file));
}

} // namespace

void SaveCurrentRecord(const CurrentChannel& c, int i, const char* file) {
    ProfileBatch batch(file);
    const char* p = "VirtCurr";
    PutInt(kCurrents, p, i, "kind", c.kind, file);
    WritePrivateProfileString(kCurrents, Key(p, i, "comment").text, c.comment, file);
    PutInt(kCurrents, p, i, "DACSlot", c.DACSlot, file);
    PutInt(kCurrents, p, i, "DACChan", c.DACChan, file);
    PutInt(kCurrents, p, i, "ADCSlot", c.ADCSlot, file);
    PutInt(kCurrents, p, i, "ADCChan", c.ADCChan, file);
    PutFloat(kCurrents, p, i, "ADCGain", c.ADCGain, file);
    PutFloat(kCurrents, p, i, "extGain", c.extGain, file);
    PutFloat(kCurrents, p, i, "R", c.R, file);
    PutInt(kCurrents, p, i, "flag", c.flag, file);
}

void SaveVoltageRecord(const VoltageChannel& v, int i, const char* file) {
    ProfileBatch batch(file);
    const char* p = "VirtVolt";
    PutInt(kVoltages, p, i, "kind", v.kind, file);
    WritePrivateProfileString(kVoltages, Key(p, i, "comment").text, v.comment, file);
    PutInt(kVoltages, p, i, "ADCSlot", v.ADCSlot, file);
    PutInt(kVoltages, p, i, "ADCChan", v.ADCChan, file);
    PutFloat(kVoltages, p, i, "ADCGain", v.ADCGain, file);
    PutFloat(kVoltages, p, i, "extGain", v.extGain, file);
    PutInt(kVoltages, p, i, "NoAutoZero", v.NoAutoZero, file);
}

void LoadCurrentRecord(CurrentChannel& c, int i, const char* file) {
    ProfileBatch batch(file);
    const char* p = "VirtCurr";
    c.kind = static_cast<i16>(GetInt(kCurrents, p, i, "kind", 0, file));
    GetPrivateProfileString(kCurrents, Key(p, i, "comment").text, "", c.comment,
                            kChannelCommentSize, file);
    c.DACSlot = static_cast<u16>(GetInt(kCurrents, p, i, "DACSlot", 0, file));
    c.DACChan = static_cast<u16>(GetInt(kCurrents, p, i, "DACChan", -1, file));
    c.ADCSlot = static_cast<u16>(GetInt(kCurrents, p, i, "ADCSlot", 0, file));
    c.ADCChan = static_cast<u16>(GetInt(kCurrents, p, i, "ADCChan", 0, file));
    c.ADCGain = GetFloat(kCurrents, p, i, "ADCGain", file);
    c.extGain = GetFloat(kCurrents, p, i, "extGain", file);
    c.R = GetFloat(kCurrents, p, i, "R", file);
    c.flag = static_cast<u16>(GetInt(kCurrents, p, i, "flag", 0, file));
    ValidateCurrentChannel(c);
}

void LoadVoltageRecord(VoltageChannel& v, int i, const char* file) {
    ProfileBatch batch(file);
    const char* p = "VirtVolt";
    v.kind = static_cast<i16>(GetInt(kVoltages, p, i, "kind", 0, file));
    GetPrivateProfileString(kVoltages, Key(p, i, "comment").text, "", v.comment,
                            kChannelCommentSize, file);
    v.ADCSlot = static_cast<u16>(GetInt(kVoltages, p, i, "ADCSlot", 0, file));
    v.ADCChan = static_cast<u16>(GetInt(kVoltages, p, i, "ADCChan", 0, file));
    v.ADCGain = GetFloat(kVoltages, p, i, "ADCGain", file);
    v.extGain = GetFloat(kVoltages, p, i, "extGain", file);
    v.NoAutoZero = static_cast<u16>(GetInt(kVoltages, p, i, "NoAutoZero", 0, file));
    ValidateVoltageChannel(v);
}
