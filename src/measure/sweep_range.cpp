#include "measure/sweep_range.h"
#include "instrument/virtual_channels.h"

namespace {
constexpr std::uint32_t kFull = 65535;
constexpr std::uint32_t kMid = 32768;
} // namespace

SweepRange IVC_Range = {0, kFull, kFull / 512 + 1, 0, 0, FirstSweep1Current};
SweepRange Field_Range = {0, kFull, 128, 0, 0, FirstSweep2Current};
SweepRange IVF_Range = {kMid, kMid + kMid / 8, kMid / 256 + 1, 0, 0, FirstSweep2Current};
SweepRange CountRangeA = {0, 9999, 1, 0, 0, nullptr};
SweepRange CountRangeB = {0, 9999, 1, 0, 0, nullptr};
SweepRange CountRangeC = {0, 9999, 1, 0, 0, nullptr};
SweepRange AmplitudeRange = {kMid, kFull, (kFull - kMid) / 256, 0, 0, FirstSweep1Current};

SweepRange MeasureWorkingRange1 = IVC_Range;
SweepRange MeasureWorkingRange2 = IVF_Range;
std::uint32_t MeasurePointsN1 = 0;
std::uint32_t MeasurePointsN2 = 0;

std::uint32_t SweepPointCount(const SweepRange& range) {
    if (range.step == 0) return 0;
    std::uint32_t span = range.to > range.from ? range.to - range.from : range.from - range.to;
    return span / range.step + 1;
}

bool SweepIterator::HasMore(std::uint32_t& value) {
    std::uint32_t lo = range_->from < range_->to ? range_->from : range_->to;
    std::uint32_t hi = range_->from < range_->to ? range_->to : range_->from;
    if (value_ >= lo && value_ <= hi) {
        value = value_;
        return true;
    }
    if (range_->bothDirections && phase_ == 0) {
        value_ = range_->to;
        phase_ = 1;
        value = value_;
        return true;
    }
    return false;
}

void SweepIterator::Next() {
    bool up =
        (phase_ == 0 && range_->from < range_->to) || (phase_ == 1 && range_->to < range_->from);
    // Unsigned on purpose: a step below zero wraps high and ends the sweep in HasMore.
    value_ = up ? value_ + range_->step : value_ - range_->step;
}
