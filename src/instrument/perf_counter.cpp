#include "instrument/perf_counter.h"
#include "instrument/timing_clock.h"
#include "support/debug_check.h"

namespace {

// The counter's mirror of SleepThreshold and SleepReserve; it only guards their order.
constexpr u64 kPerfCountSleepThreshold = 10000;
constexpr u64 kPerfCountSleepReserve = 10000;
static_assert(kPerfCountSleepReserve <= kPerfCountSleepThreshold);

i64 gPerfCountMark = 0;

i64* MarkOf(i64* mark) {
    return mark ? mark : &gPerfCountMark;
}

} // namespace

i64 PerfCountFrequency() {
    return 1000 * kCounterTicksPerMs;
}

bool PerfCount_Start(i64* mark) {
    return Clock().Counter(MarkOf(mark));
}

bool PerfCount_Wait(i64* mark, u64 ticks) {
    i64 start = *MarkOf(mark);
    i64 now = 0;
    const TimingClock& clock = Clock();
    if (!clock.Counter(&now)) return false;
    while (static_cast<u64>(now - start) < ticks)
        if (!clock.Counter(&now)) return false;
    return true;
}

bool PerfCount_Delay(u64 ticks) {
    if (ticks == 0) return true;
    i64 mark = 0;
    if (!PerfCount_Start(&mark)) return false;
    return PerfCount_Wait(&mark, ticks);
}

bool PerfCount_IsIncBy(i64* mark, u64 ticks) {
    i64 now = 0;
    bool ok = Clock().Counter(&now);
    VASSERT_MSG(ok, "PerfCount_IsIncBy() is called while performance counter is not available");
    if (!ok) return false;
    return static_cast<u64>(now - *MarkOf(mark)) >= ticks;
}

u32 PerfCount_HowManyTicksPassed(i64* mark) {
    i64 now = 0;
    bool ok = Clock().Counter(&now);
    VASSERT_MSG(ok, "PerfCount_HowManyTicksPassed() is called while performance counter is not "
                    "available");
    if (!ok) return 0;
    return static_cast<u32>(static_cast<u64>(now - *MarkOf(mark)));
}
