#include "common/test_support.h"
#include "instrument/perf_counter.h"
#include "instrument/timing.h"
#include "instrument/timing_clock.h"

#include <gtest/gtest.h>

#include <tuple>
#include <vector>

namespace {

constexpr i64 kMs = 1000000;

// Hand-driven time in ns for both clocks: a reading returns now, then adds the step.
i64 gNs = 0, gStep = 0, gLast = 0;
std::vector<u32> gSleeps;
int gBegins = 0, gEnds = 0;
bool gCounterWorks = true;

i64 Read() {
    return gLast = gNs, gNs += gStep, gLast;
}

const TimingClock kFakeClock = {
    [] { return static_cast<u32>(Read() / kMs); },
    [](u32 ms) { gSleeps.push_back(ms), gNs += ms * kMs; },
    [] { return ++gBegins > 0; },
    [] { ++gEnds; },
    [](i64* ticks) { return *ticks = Read(), gCounterWorks; },
};

// The periods begun and ended on the clock, and the brackets open.
std::tuple<int, int, int> Brackets() {
    return {gBegins, gEnds, TimerNesting()};
}

class Timing : public ::testing::Test {
  protected:
    void SetUp() override {
        gCounterWorks = true, gStep = 0, gBegins = gEnds = 0;
        SetTimingClock(&kFakeClock);
    }
    void TearDown() override {
        EXPECT_EQ(TimerNesting(), 0);
        SetTimingClock(nullptr);
    }
};

// The ways a wait can run: a mark of its own, the global mark, Delay, a ScopedTimer.
enum Way { kOwnMark, kGlobalMark, kDelay, kScoped };

TEST_F(Timing, WaitsFromAnyPhaseEndAtTheAskedTimeAndNotBefore) {
    // Start in ns, ms asked, the sleeps expected.
    for (auto [start, ms, sleeps] : {std::tuple(1000 * kMs, 1u, std::vector<u32>{}),
                                     {1000 * kMs + 999999, 1u, {}},
                                     {1000 * kMs + 999000, 10u, {}},
                                     {1000 * kMs + 500000, 11u, {1}},
                                     {0xFFFFFFF0 * kMs + 700000, 40u, {30}}}) { // ms clock wraps
        for (Way way : {kOwnMark, kGlobalMark, kDelay, kScoped}) {
            SCOPED_TRACE(testing::Message() << start << " ns, " << ms << " ms, " << way);
            gNs = start, gStep = 1000, gSleeps.clear();
            u32 mark = 0, *m = way == kOwnMark ? &mark : nullptr;
            if (way == kDelay) Delay(ms);
            if (way == kScoped) ScopedTimer(true).Wait(ms);
            if (way < kDelay) TimerStart(m), TimerWaitAndStop(m, ms);
            EXPECT_GE(gLast - start, ms * kMs);
            EXPECT_LT(gLast - start, ms * kMs + gStep);
            EXPECT_EQ(gSleeps, sleeps);
        }
    }
}

TEST_F(Timing, DueAndElapsedCountFromTheFineStart) {
    // Start and time passed in ns, ms asked, elapsed ms; a mark set by hand has no known phase
    // and counts from the end of its millisecond.
    for (auto [start, passed, ms, elapsed, byHandElapsed] :
         {std::tuple(1000 * kMs + 900000, kMs - 1, 1u, 0u, 0u),
          {1000 * kMs + 900000, kMs, 1u, 1u, 0u},
          {1000 * kMs, 5 * kMs - 1, 5u, 4u, 3u},
          {1000 * kMs + 500000, 5 * kMs, 5u, 5u, 4u},
          {1000 * kMs + 500000, 5 * kMs + 600000, 5u, 5u, 5u},
          {0xFFFFFFF0 * kMs + 500000, 0x20 * kMs, 0x20u, 0x20u, 0x1Fu},
          {0xFFFFFFF0 * kMs + 500000, 0x20 * kMs, 0x21u, 0x20u, 0x1Fu}}) {
        SCOPED_TRACE(testing::Message() << start << " + " << passed << " ns");
        u32 mark = 0, byHand = 0;
        gNs = start - 7 * kMs; // a record of an earlier start must not count for a mark
        TimerStart(&byHand);   // set by hand afterwards
        gNs = start;
        byHand = static_cast<u32>(start / kMs);
        TimerStart(&mark);
        TimerStart();
        ScopedTimer scoped;
        gNs = start + passed;
        for (u32* m : {&mark, static_cast<u32*>(nullptr)})
            EXPECT_EQ(std::tuple(TimerElapsed(m), TimerIsDue(m, ms)),
                      std::tuple(elapsed, elapsed >= ms));
        EXPECT_EQ(std::tuple(scoped.Elapsed(), scoped.IsDue(ms)),
                  std::tuple(elapsed, elapsed >= ms));
        EXPECT_EQ(std::tuple(TimerElapsed(&byHand), TimerIsDue(&byHand, ms)),
                  std::tuple(byHandElapsed, byHandElapsed >= ms));
        TimerStop(), TimerStop(), TimerStop();
    }
    // A mark already far past returns at once, on a single reading.
    u32 past = static_cast<u32>(gNs / kMs) - 50;
    gStep = 1;
    TimerWait(&past, 10);
    EXPECT_EQ(gNs, gLast + 1);
}

TEST_F(Timing, BracketsNestStopAndRestart) {
    u32 inner = 0;
    TimerStart();
    TimerStart(&inner);
    TimerStop();
    EXPECT_EQ(Brackets(), std::tuple(1, 0, 1)); // nested brackets share one period
    TimerStop();
    Delay(0);
    EXPECT_EQ(Brackets(), std::tuple(1, 1, 0));
    TimerStart();
    gNs += 5 * kMs;
    EXPECT_FALSE(TimerIsDueStop(nullptr, 6)); // not due: the bracket stays open
    EXPECT_EQ(TimerNesting(), 1);
    EXPECT_TRUE(TimerIsDueStop(nullptr, 5));
    TimerStart();
    gNs += 7 * kMs;
    EXPECT_EQ(TimerElapsedStop(nullptr), 7u);
    // A stop too many, and a start past the deepest nesting, fail the check and do nothing.
    AssertCapture capture;
    TimerStop();
    for (int i = 0; i < 2 * (kMaxTimerNesting + 1); ++i)
        i <= kMaxTimerNesting ? TimerStart() : TimerStop();
    EXPECT_EQ(std::tuple(capture.Count(), gBegins, gEnds), std::tuple(2, 4, 4));
    {
        ScopedTimer timer;
        timer.Restart();
        EXPECT_EQ(Brackets(), std::tuple(5, 4, 1)); // a restart keeps its bracket
        timer.Stop();
        EXPECT_FALSE(timer.IsRunning());
        timer.Stop(); // every use of a stopped timer fails the check
        timer.Wait(1);
        timer.IsDue(1);
        timer.Elapsed();
        EXPECT_EQ(capture.Count(), 6);
        timer.Restart();
    }
    ScopedTimer idle(false);
    EXPECT_EQ(Brackets(), std::tuple(6, 6, 0));
}

TEST_F(Timing, PerfCountSpinsToTheTicksOfTheSystemTime) {
    gNs = 0, gStep = 100;
    i64 mark = 0;
    EXPECT_TRUE(PerfCount_Start(&mark) && PerfCount_Wait(&mark, 1000));
    EXPECT_EQ(gLast - mark, 1000);
    EXPECT_TRUE(PerfCount_IsIncBy(&mark, 1000));
    EXPECT_FALSE(PerfCount_IsIncBy(&mark, 100000));
    mark = gNs - (i64{1} << 32) - 5;
    EXPECT_EQ(PerfCount_HowManyTicksPassed(&mark), 5u);
    EXPECT_TRUE(PerfCount_Start(nullptr) && PerfCount_Wait(nullptr, 300));
    gCounterWorks = false;
    EXPECT_FALSE(PerfCount_Start(&mark) || PerfCount_Wait(&mark, 10) || PerfCount_Delay(10));
    EXPECT_TRUE(PerfCount_Delay(0));
    AssertCapture capture;
    PerfCount_IsIncBy(&mark, 1);
    PerfCount_HowManyTicksPassed(&mark);
    EXPECT_EQ(capture.Count(), 2);
    // Without the counter the waits fall back on the ms clock and still never end early.
    gNs = 1000 * kMs + 999999, gStep = 1000;
    Delay(2);
    EXPECT_GE(gLast - (1000 * kMs + 999999), 2 * kMs);
    // The system clocks read one time: the ms are the counter's ticks / 10^6.
    const TimingClock& clock = SystemTimingClock();
    i64 ticks = 0;
    u32 before = clock.Milliseconds();
    ASSERT_TRUE(clock.Counter(&ticks));
    u32 after = clock.Milliseconds();
    EXPECT_LE(static_cast<u32>(ticks / kMs) - before, after - before);
    EXPECT_EQ(PerfCountFrequency(), 1000 * kMs);
}

} // namespace
