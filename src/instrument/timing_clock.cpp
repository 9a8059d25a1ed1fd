#include "instrument/timing_clock.h"

#include <atomic>
#include <cerrno>
#include <ctime>

namespace {

timespec Monotonic() {
    timespec now{};
    clock_gettime(CLOCK_MONOTONIC, &now);
    return now;
}

u32 SystemMilliseconds() {
    timespec now = Monotonic();
    return static_cast<u32>(static_cast<std::uint64_t>(now.tv_sec) * 1000u +
                            static_cast<std::uint64_t>(now.tv_nsec) / 1000000u);
}

void SystemSleep(u32 ms) {
    timespec rest{static_cast<time_t>(ms / 1000u), static_cast<long>(ms % 1000u) * 1000000L};
    while (nanosleep(&rest, &rest) != 0 && errno == EINTR) {
    }
}

// Linux timers already run at full resolution: there is nothing to raise.
bool SystemBeginPeriod() {
    return true;
}
void SystemEndPeriod() {}

bool SystemCounter(i64* ticks) {
    timespec now{};
    if (clock_gettime(CLOCK_MONOTONIC, &now) != 0) return false;
    *ticks = static_cast<i64>(now.tv_sec) * 1000000000 + now.tv_nsec;
    return true;
}

const TimingClock kSystemClock = {SystemMilliseconds, SystemSleep, SystemBeginPeriod,
                                  SystemEndPeriod, SystemCounter};

std::atomic<const TimingClock*> gClock{nullptr};

} // namespace

const TimingClock& SystemTimingClock() {
    return kSystemClock;
}

const TimingClock& Clock() {
    const TimingClock* clock = gClock.load(std::memory_order_acquire);
    return clock ? *clock : kSystemClock;
}

void SetTimingClock(const TimingClock* clock) {
    gClock.store(clock, std::memory_order_release);
}
