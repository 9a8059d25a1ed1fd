// DAC bits that stay within bounds: the steps of the critical current search. A step that only
// reaches a bound is still a step (1); a step from the bound itself means the search has run
// out of range (-1).
#pragma once
#include <cstdint>

class BoundedBits {
  public:
    explicit BoundedBits(std::uint32_t value = 0) : value_(value) {}

    std::uint32_t Value() const { return value_; }
    std::uint32_t Lower() const { return lower_; }
    std::uint32_t Upper() const { return upper_; }
    // Moves the bound, dragging the value and the other bound along when they lie beyond it.
    void SetLower(std::uint32_t b) {
        lower_ = b;
        if (value_ < b) value_ = b;
        if (upper_ < b) upper_ = b;
    }
    void SetUpper(std::uint32_t b) {
        upper_ = b;
        if (value_ > b) value_ = b;
        if (lower_ > b) lower_ = b;
    }
    // No check against the bounds.
    void Assign(std::uint32_t v) { value_ = v; }

    int Up(std::uint32_t n) {
        if (value_ == upper_ && n != 0) return -1;
        if (upper_ < n || upper_ - n < value_) {
            value_ = upper_;
            return 1;
        }
        value_ += n;
        return 0;
    }
    int Down(std::uint32_t n) {
        if (value_ == lower_ && n != 0) return -1;
        if (lower_ > UINT32_MAX - n || value_ < lower_ + n) {
            value_ = lower_;
            return 1;
        }
        value_ -= n;
        return 0;
    }
    int Shift(std::int64_t n) {
        return n >= 0 ? Up(static_cast<std::uint32_t>(n)) : Down(static_cast<std::uint32_t>(-n));
    }

  private:
    std::uint32_t value_;
    std::uint32_t lower_ = 0;
    std::uint32_t upper_ = UINT32_MAX;
};
