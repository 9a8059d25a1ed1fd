#include "instrument/timing.h"
#include "instrument/timing_clock.h"
#include "support/debug_check.h"

#include <atomic>
#include <mutex>

namespace {

std::atomic<int> gTimerNesting{0};
// Shared by every caller that passes no mark, without a lock, as the brackets always were.
u32 gTimerMark = 0;

// A mark holds whole ms, and counting from them alone ends a wait up to 1 ms early. So each
// TimerStart also records its fine start, keyed by the mark's address; a record counts only
// while the mark still holds the value it was given. A few slots suffice: loops restart the
// same marks, and a mark whose record was taken over only waits longer, never shorter.
struct FineStart {
    const u32* mark;
    u32 ms;
    i64 ns;
};
constexpr int kFineStarts = 16;
FineStart gFineStarts[kFineStarts] = {};
int gNextFineStart = 0; // the oldest slot, taken by a mark that has none
std::mutex gFineStartsLock;

u32* MarkOf(u32* mark) {
    return mark ? mark : &gTimerMark;
}

// The fine time in ns; false when the counter fails and the ms clock stands in, read as the
// start of its millisecond so that it never runs ahead.
bool ReadNs(i64* now) {
    const TimingClock& clock = Clock();
    if (clock.Counter(now)) return true;
    *now = i64{clock.Milliseconds()} * kCounterTicksPerMs;
    return false;
}

void RecordStart(const u32* mark, i64 ns) {
    std::lock_guard lock(gFineStartsLock);
    FineStart* slot = nullptr;
    for (FineStart& record : gFineStarts)
        if (record.mark == mark) slot = &record;
    if (!slot) {
        slot = &gFineStarts[gNextFineStart];
        gNextFineStart = (gNextFineStart + 1) % kFineStarts;
    }
    *slot = {mark, *mark, ns};
}

// The start of the mark in the ns of now. A mark with no record (set by hand, or its record
// taken over) counts from the end of its millisecond, the latest it can have started.
i64 StartNs(const u32* mark, i64 now) {
    {
        std::lock_guard lock(gFineStartsLock);
        for (const FineStart& record : gFineStarts)
            if (record.mark == mark && record.ms == *mark) return record.ns;
    }
    // Subtracting first keeps this right across the wrap of the ms clock.
    u32 passed = static_cast<u32>(now / kCounterTicksPerMs) - *mark;
    return now - now % kCounterTicksPerMs - (i64{passed} - 1) * kCounterTicksPerMs;
}

i64 PassedNs(u32* mark, i64 now) {
    return now - StartNs(MarkOf(mark), now);
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
    i64 now = 0;
    bool fine = ReadNs(&now);
    u32* m = MarkOf(mark);
    *m = static_cast<u32>(now / kCounterTicksPerMs);
    RecordStart(m, fine ? now : now + kCounterTicksPerMs);
}

void TimerStop() {
    int nesting = gTimerNesting.load();
    VASSERT(nesting > 0);
    if (nesting <= 0) return;
    if (--gTimerNesting == 0) Clock().EndPeriod();
}

void TimerWait(u32* mark, u32 ms) {
    i64 now = 0;
    ReadNs(&now);
    i64 remaining = i64{ms} * kCounterTicksPerMs - PassedNs(mark, now);
    if (remaining <= 0) return;
    i64 end = now + remaining;
    // Rounding the sleep up eats less than 1 ms of the reserve. Sleeping overshoots by a
    // scheduler tick; spinning the end on the fine clock keeps a 1 ms wait at 1 ms.
    if (remaining > i64{SleepThreshold} * kCounterTicksPerMs) {
        i64 sleep = remaining - i64{SleepReserve} * kCounterTicksPerMs;
        Clock().Sleep(static_cast<u32>((sleep + kCounterTicksPerMs - 1) / kCounterTicksPerMs));
    }
    while (now < end)
        ReadNs(&now);
}

void TimerWaitAndStop(u32* mark, u32 ms) {
    TimerWait(mark, ms);
    TimerStop();
}

bool TimerIsDue(u32* mark, u32 ms) {
    i64 now = 0;
    ReadNs(&now);
    return PassedNs(mark, now) >= i64{ms} * kCounterTicksPerMs;
}

bool TimerIsDueStop(u32* mark, u32 ms) {
    bool due = TimerIsDue(mark, ms);
    if (due) TimerStop();
    return due;
}

u32 TimerElapsed(u32* mark) {
    i64 now = 0;
    ReadNs(&now);
    i64 passed = PassedNs(mark, now);
    // Whole ms that have fully passed; the u32 wraps as the ms clock does.
    return passed <= 0 ? 0 : static_cast<u32>(passed / kCounterTicksPerMs);
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
