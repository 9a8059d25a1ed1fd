// A checked array of 16-bit elements with its count; reading past the count is a programming
// error caught by the check "i>=0" (the index seen as a signed distance from the end).
#pragma once
#include "support/debug_check.h"

#include <cstdint>

struct DynamicArray {
    unsigned count = 0;
    std::int16_t* data = nullptr;

    DynamicArray() = default;
    explicit DynamicArray(unsigned n) { Resize(n); }
    DynamicArray(const DynamicArray&) = delete;
    DynamicArray& operator=(const DynamicArray&) = delete;
    ~DynamicArray() { delete[] data; }

    // New elements are zero; the first min(old, n) keep their values. Returns 0 without memory.
    int Resize(unsigned n);

    // An index at or past the count fails the check and reads element 0 (or a spare zero).
    std::int16_t& operator[](unsigned i) {
        VASSERT_MSG(i < count, "i>=0");
        return i < count ? data[i] : Spare();
    }
    const std::int16_t& operator[](unsigned i) const {
        VASSERT_MSG(i < count, "i>=0");
        return i < count ? data[i] : Spare();
    }

  private:
    static std::int16_t& Spare();
};
