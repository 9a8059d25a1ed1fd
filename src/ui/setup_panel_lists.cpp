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
