// Sweep ranges on the common 16-bit scale and their iterator.
#pragma once
#include <cstdint>

struct SweepRange {
    std::uint32_t from;
    std::uint32_t to;             // inclusive
    std::uint32_t step;           // always positive; the direction follows from from and to
    std::uint32_t bothDirections; // the sweep returns from to back to from
    std::uint32_t symmetric;      // to = 65535 - from
    int (*findCurrent)();         // the swept virtual current, or -1; null for point counts
};

// The measurements' own ranges, with their initial values.
extern SweepRange IVC_Range;
extern SweepRange Field_Range;
extern SweepRange IVF_Range;
extern SweepRange CountRangeA;
extern SweepRange CountRangeB;
extern SweepRange CountRangeC;
extern SweepRange AmplitudeRange;

// The copies the dialog edits and the thread converts to card bits, and their point counts.
extern SweepRange MeasureWorkingRange1;
extern SweepRange MeasureWorkingRange2;
extern std::uint32_t MeasurePointsN1;
extern std::uint32_t MeasurePointsN2;

// |to - from| / step + 1 by integer division (one direction); 0 for a zero step.
std::uint32_t SweepPointCount(const SweepRange& range);

class SweepIterator {
  public:
    explicit SweepIterator(const SweepRange& range) : range_(&range) { Begin(); }
    void Begin() {
        value_ = range_->from;
        phase_ = 0;
    }
    // True while the value lies between from and to; at the end of the forward run of a
    // two-direction sweep it turns round at to, so the turning value comes twice.
    bool HasMore(std::uint32_t& value);
    void Next();
    std::uint32_t Phase() const { return phase_; }

  private:
    std::uint32_t value_ = 0;
    std::uint32_t phase_ = 0;
    const SweepRange* range_;
};
