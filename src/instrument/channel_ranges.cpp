#include "instrument/daq_cards.h"
#include "support/debug_check.h"

u16 ChannelCount(const AdcCard& card) {
    unsigned total = 0;
    for (const ChannelRange& r : card.channels.ranges)
        total += r.last - r.first + 1u;
    return static_cast<u16>(total);
}

bool PhysicalFromLogical(const AdcCard& card, u16 logical, u16* physical) {
    unsigned rest = logical;
    for (const ChannelRange& r : card.channels.ranges) {
        unsigned width = r.last - r.first + 1u;
        if (rest < width) {
            *physical = static_cast<u16>(r.first + rest);
            return true;
        }
        rest -= width;
    }
    return false;
}

bool LogicalFromPhysical(const AdcCard& card, u16 physical, u16* logical) {
    unsigned before = 0;
    for (const ChannelRange& r : card.channels.ranges) {
        if (physical >= r.first && physical <= r.last) {
            *logical = static_cast<u16>(before + (physical - r.first));
            return true;
        }
        before += r.last - r.first + 1u;
    }
    return false;
}

bool HasChannel(const AdcCard& card, u16 physical) {
    for (const ChannelRange& r : card.channels.ranges)
        if (physical >= r.first && physical <= r.last) return true;
    return false;
}

namespace {

// Positions the cursor on the channel after physical, wrapping past the last range.
void AdvanceCursor(AdcCard& card, u16 physical) {
    const std::vector<ChannelRange>& ranges = card.channels.ranges;
    if (physical < ranges[card.rangeCursor].last) {
        card.nextChannel = static_cast<u16>(physical + 1);
        return;
    }
    card.rangeCursor = (card.rangeCursor + 1) % ranges.size();
    card.nextChannel = ranges[card.rangeCursor].first;
}

} // namespace

u16 FirstChannel(AdcCard& card) {
    VASSERT(!card.channels.ranges.empty());
    if (card.channels.ranges.empty()) return 0;
    card.rangeCursor = 0;
    u16 channel = card.channels.ranges[0].first;
    AdvanceCursor(card, channel);
    return channel;
}

u16 NextChannel(AdcCard& card) {
    VASSERT(card.rangeCursor < card.channels.ranges.size());
    if (card.rangeCursor >= card.channels.ranges.size()) return 0;
    u16 channel = card.nextChannel;
    AdvanceCursor(card, channel);
    return channel;
}

bool HasGain(const AdcCard& card, f32 gain) {
    for (f32 g : card.gains)
        if (g == gain) return true;
    return false;
}

i16 GainCode(f32 gain) {
    // The driver codes the fractional gains by negative numbers; decibels go the same way.
    if (gain == 0.5f) return -1;
    if (gain == 0.2f) return -2;
    if (gain == 0.1f) return -3;
    if (gain == 0.01f) return -10;
    return static_cast<i16>(gain);
}
