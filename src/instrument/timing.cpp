#include "instrument/timing.h"
#include "instrument/timing_clock.h"
#include "support/debug_check.h"

#include <atomic>

namespace {

std::atomic<int> gTimerNesting{0};
// Shared by every caller that passes no mark, without a lock, as the brackets always were.
u32 gTimerMark = 0;

u32* MarkOf(u32* mark) {
    return mark ? mark : &gTimerMark;
}

} // namespace

int TimerNesting() {
    return gTimerNesting.load();
}

void TimerStart(u32* mark) {
    int nesting = ++gTimerNesting;
    VASSERT(nesting <= kMaxTimerNesting);
    if (nesting == 1) {
        bool raised = Clock().BeginPeriod();
        VASSERT(raised);
    }
    *MarkOf(mark) = Clock().Milliseconds();
}

void TimerStop() {
    int nesting = gTimerNesting.load();
    VASSERT(nesting > 0);
    if (nesting <= 0) return;
    if (--gTimerNesting == 0) Clock().EndPeriod();
}

void TimerWait(u32* mark, u32 ms) {
    u32 start = *MarkOf(mark);
    const TimingClock& clock = Clock();
    // Subtracting first keeps every comparison right across the wrap of the clock.
    u32 passed = clock.Milliseconds() - start;
    if (passed > ms) return;
    u32 remaining = ms - passed;
    if (remaining > SleepThreshold) clock.Sleep(remaining - SleepReserve);
    // Sleeping overshoots by a scheduler tick; spinning the end keeps a 1 ms wait at 1 ms.
    while (clock.Milliseconds() - start < ms) {
    }
}

void TimerWaitAndStop(u32* mark, u32 ms) {
    TimerWait(mark, ms);
    TimerStop();
}

bool TimerIsDue(u32* mark, u32 ms) {
    return Clock().Milliseconds() - *MarkOf(mark) >= ms;
}

bool TimerIsDueStop(u32* mark, u32 ms) {
    bool due = TimerIsDue(mark, ms);
    if (due) TimerStop();
    return due;
}

u32 TimerElapsed(u32* mark) {
    return Clock().Milliseconds() - *MarkOf(mark);
}

u32 TimerElapsedStop(u32* mark) {
    u32 elapsed = TimerElapsed(mark);
    TimerStop();
    return elapsed;
}

void Delay(u32 ms) {
    if (ms == 0) return;
    u32 mark = 0;
    TimerStart(&mark);
    TimerWaitAndStop(&mark, ms);
}

ScopedTimer::ScopedTimer(bool start) : running_(start) {
    if (start) TimerStart(&mark_);
}

ScopedTimer::~ScopedTimer() {
    if (running_) TimerStop();
}

void ScopedTimer::Restart() {
    // The new bracket opens before the old one closes, so the resolution never drops between.
    TimerStart(&mark_);
    if (running_) TimerStop();
    running_ = true;
}

void ScopedTimer::Stop() {
    VASSERT(running_);
    if (!running_) return;
    TimerStop();
    running_ = false;
}

void ScopedTimer::Wait(u32 ms) {
    VASSERT(running_);
    if (running_) TimerWait(&mark_, ms);
}

bool ScopedTimer::IsDue(u32 ms) {
    VASSERT(running_);
    return running_ && TimerIsDue(&mark_, ms);
}

u32 ScopedTimer::Elapsed() {
    VASSERT(running_);
    return running_ ? TimerElapsed(&mark_) : 0;
}
