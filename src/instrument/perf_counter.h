// The high precision counter for waits and measurements below a millisecond. Marks and counts
// are in ticks of the counter (nanoseconds of CLOCK_MONOTONIC with the system clock); a null
// mark means the one global mark.
#pragma once
#include <cstdint>

using i64 = std::int64_t;
using u32 = std::uint32_t;
using u64 = std::uint64_t;

// Ticks per second of the system counter.
i64 PerfCountFrequency();

bool PerfCount_Start(i64* mark);
// Spins, never sleeps; false if the counter fails.
bool PerfCount_Wait(i64* mark, u64 ticks);
bool PerfCount_Delay(u64 ticks);
bool PerfCount_IsIncBy(i64* mark, u64 ticks);
u32 PerfCount_HowManyTicksPassed(i64* mark);
