#include "instrument/virtual_channels.h"

#include "settings/profile.h"
#include "support/bounded_text.h"

#include <cstdio>

namespace {

const char kCurrentsSection[] = "Virtual Currents";
const char kVoltagesSection[] = "Virtual Voltages";

// "VirtCurr[007].kind": the record's index in three digits, then the field.
struct Key {
    char text[48];
    Key(const char* prefix, int index, const char* field) {
        std::snprintf(text, sizeof text, "%s[%03d].%s", prefix, index, field);
    }
};

long ReadInt(const char* section, const char* prefix, int i, const char* field, long dflt,
             const char* file) {
    return ReadProfileLong(section, Key(prefix, i, field).text, dflt, file);
}
f32 ReadFloat(const char* section, const char* prefix, int i, const char* field, const char* file) {
    return static_cast<f32>(ReadProfileDouble(section, Key(prefix, i, field).text, 1.0, file));
}
void ReadComment(const char* section, const char* prefix, int i, char* out, const char* file) {
    GetPrivateProfileString(section, Key(prefix, i, "comment").text, "", out, kChannelCommentSize,
                            file);
}
void WriteInt(const char* section, const char* prefix, int i, const char* field, int value,
              const char* file) {
    WriteProfileInt(section, Key(prefix, i, field).text, "%d", value, file);
}
void WriteFloat(const char* section, const char* prefix, int i, const char* field, f32 value,
                const char* file) {
    WriteProfileDouble(section, Key(prefix, i, field).text, "%G", value, file);
}

// Without detected inputs (settings read with no rack, as the settings tools do) there is no
// first channel to take, and channel 0 is as good as any.
u16 FirstChannelOf(AdcCard& card) {
    return card.channels.ranges.empty() ? 0 : FirstChannel(card);
}

} // namespace

unsigned ValidateCurrentChannel(CurrentChannel& c) {
    unsigned mask = 0;
    if (c.kind < 0 || c.kind >= kCurrentKindCount) c.kind = 0, mask |= 1;
    if (c.DACSlot >= DacCardsCount) c.DACSlot = 0, mask |= 2;
    if (c.DACChan >= DacCards[c.DACSlot].channelCount) c.DACChan = 0, mask |= 4;
    if (c.ADCSlot >= AdcCardsCount) c.ADCSlot = 0, mask |= 16;
    AdcCard& adc = AdcCards[c.ADCSlot];
    if (!HasChannel(adc, c.ADCChan)) c.ADCChan = FirstChannelOf(adc), mask |= 32;
    if (!HasGain(adc, c.ADCGain) && !adc.gains.empty()) c.ADCGain = adc.gains[0];
    if (c.extGain == 0.0f) c.extGain = 1.0f, mask |= 256;
    if (c.R == 0.0f) c.R = 1.0f, mask |= 512;
    return mask;
}

unsigned ValidateVoltageChannel(VoltageChannel& v) {
    unsigned mask = 0;
    if (v.kind < 0 || v.kind >= kVoltageKindCount) v.kind = 0, mask |= 1;
    if (v.ADCSlot >= AdcCardsCount) v.ADCSlot = 0, mask |= 16;
    AdcCard& adc = AdcCards[v.ADCSlot];
    if (!HasChannel(adc, v.ADCChan)) v.ADCChan = FirstChannelOf(adc), mask |= 32;
    if (!HasGain(adc, v.ADCGain) && !adc.gains.empty()) v.ADCGain = adc.gains[0];
    if (v.extGain == 0.0f) v.extGain = 1.0f, mask |= 256;
    return mask;
}

void LoadCurrentRecord(CurrentChannel& c, int i, const char* file) {
    ProfileBatch batch(file);
    const char* s = kCurrentsSection;
    c.kind = static_cast<i16>(ReadInt(s, "VirtCurr", i, "kind", 0, file));
    ReadComment(s, "VirtCurr", i, c.comment, file);
    c.DACSlot = static_cast<u16>(ReadInt(s, "VirtCurr", i, "DACSlot", 0, file));
    // The default -1 becomes 65535 and fails the channel check: a record never saved ends on
    // channel 0.
    c.DACChan = static_cast<u16>(ReadInt(s, "VirtCurr", i, "DACChan", -1, file));
    c.ADCSlot = static_cast<u16>(ReadInt(s, "VirtCurr", i, "ADCSlot", 0, file));
    c.ADCChan = static_cast<u16>(ReadInt(s, "VirtCurr", i, "ADCChan", 0, file));
    c.ADCGain = ReadFloat(s, "VirtCurr", i, "ADCGain", file);
    c.extGain = ReadFloat(s, "VirtCurr", i, "extGain", file);
    c.R = ReadFloat(s, "VirtCurr", i, "R", file);
    c.flag = static_cast<u16>(ReadInt(s, "VirtCurr", i, "flag", 0, file));
    ValidateCurrentChannel(c);
}

void LoadVoltageRecord(VoltageChannel& v, int i, const char* file) {
    ProfileBatch batch(file);
    const char* s = kVoltagesSection;
    v.kind = static_cast<i16>(ReadInt(s, "VirtVolt", i, "kind", 0, file));
    ReadComment(s, "VirtVolt", i, v.comment, file);
    v.ADCSlot = static_cast<u16>(ReadInt(s, "VirtVolt", i, "ADCSlot", 0, file));
    v.ADCChan = static_cast<u16>(ReadInt(s, "VirtVolt", i, "ADCChan", 0, file));
    v.ADCGain = ReadFloat(s, "VirtVolt", i, "ADCGain", file);
    v.extGain = ReadFloat(s, "VirtVolt", i, "extGain", file);
    v.NoAutoZero = static_cast<u16>(ReadInt(s, "VirtVolt", i, "NoAutoZero", 0, file));
    ValidateVoltageChannel(v);
}

void SaveCurrentRecord(const CurrentChannel& c, int i, const char* file) {
    ProfileBatch batch(file);
    const char* s = kCurrentsSection;
    WriteInt(s, "VirtCurr", i, "kind", c.kind, file);
    WritePrivateProfileString(s, Key("VirtCurr", i, "comment").text, c.comment, file);
    WriteInt(s, "VirtCurr", i, "DACSlot", c.DACSlot, file);
    WriteInt(s, "VirtCurr", i, "DACChan", c.DACChan, file);
    WriteInt(s, "VirtCurr", i, "ADCSlot", c.ADCSlot, file);
    WriteInt(s, "VirtCurr", i, "ADCChan", c.ADCChan, file);
    WriteFloat(s, "VirtCurr", i, "ADCGain", c.ADCGain, file);
    WriteFloat(s, "VirtCurr", i, "extGain", c.extGain, file);
    WriteFloat(s, "VirtCurr", i, "R", c.R, file);
    WriteInt(s, "VirtCurr", i, "flag", c.flag, file);
}

void SaveVoltageRecord(const VoltageChannel& v, int i, const char* file) {
    ProfileBatch batch(file);
    const char* s = kVoltagesSection;
    WriteInt(s, "VirtVolt", i, "kind", v.kind, file);
    WritePrivateProfileString(s, Key("VirtVolt", i, "comment").text, v.comment, file);
    WriteInt(s, "VirtVolt", i, "ADCSlot", v.ADCSlot, file);
    WriteInt(s, "VirtVolt", i, "ADCChan", v.ADCChan, file);
    WriteFloat(s, "VirtVolt", i, "ADCGain", v.ADCGain, file);
    WriteFloat(s, "VirtVolt", i, "extGain", v.extGain, file);
    WriteInt(s, "VirtVolt", i, "NoAutoZero", v.NoAutoZero, file);
}

// All currents first, then all voltages, each record validated as it comes.
int LoadVirtualChannels(const char* file) {
    ProfileBatch batch(file);
    for (int i = 0; i < kCurrentChannelCount; ++i)
        LoadCurrentRecord(CurrentChannels[i], i, file);
    for (int i = 0; i < kVoltageChannelCount; ++i)
        LoadVoltageRecord(VoltageChannels[i], i, file);
    return 1;
}

int SaveVirtualChannels(const char* file) {
    ProfileBatch batch(file);
    for (int i = 0; i < kCurrentChannelCount; ++i)
        SaveCurrentRecord(CurrentChannels[i], i, file);
    for (int i = 0; i < kVoltageChannelCount; ++i)
        SaveVoltageRecord(VoltageChannels[i], i, file);
    return 1;
}
