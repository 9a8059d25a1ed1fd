// The clocks under the timing brackets and the high precision counter, as a table of plain
// functions so that tests can drive time by hand.
#pragma once
#include <cstdint>

using i64 = std::int64_t;
using u32 = std::uint32_t;

// Ticks of the high precision counter per millisecond: it counts nanoseconds.
constexpr i64 kCounterTicksPerMs = 1000000;

// Both clocks read one monotonic time: the milliseconds are the counter's ticks divided by
// kCounterTicksPerMs. The timing brackets run on the counter, and fall back on the
// milliseconds only when it fails.
struct TimingClock {
    // Milliseconds of the monotonic clock; the value wraps at 2^32.
    u32 (*Milliseconds)();
    void (*Sleep)(u32 ms);
    // Hold and release the finest timer resolution; BeginPeriod gives false on failure.
    bool (*BeginPeriod)();
    void (*EndPeriod)();
    // The high precision counter in ticks of PerfCountFrequency() per second (nanoseconds);
    // false when the machine has none.
    bool (*Counter)(i64* ticks);
};

// CLOCK_MONOTONIC for both clocks, the counter in nanoseconds, nanosleep for the sleep.
const TimingClock& SystemTimingClock();
const TimingClock& Clock();
// Installs a clock; null puts back the system one.
void SetTimingClock(const TimingClock* clock);
