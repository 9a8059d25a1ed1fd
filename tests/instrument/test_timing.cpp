#include "common/test_support.h"
#include "instrument/perf_counter.h"
#include "instrument/timing.h"
#include "instrument/timing_clock.h"

#include <gtest/gtest.h>

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
    struct Row {
        i64 start; // ns
        u32 ms;
        std::vector<u32> sleeps;
    } rows[] = {
        {1000 * kMs, 1, {}},
        {1000 * kMs + 999999, 1, {}},
        {1000 * kMs + 300000, 5, {}},
        {1000 * kMs + 999000, 10, {}},
        {1000 * kMs + 500000, 11, {1}},
        {0xFFFFFFF0 * kMs + 700000, 40, {30}}, // across the wrap of the ms clock
    };
    for (const Row& row : rows) {
        for (Way way : {kOwnMark, kGlobalMark, kDelay, kScoped}) {
            SCOPED_TRACE(testing::Message() << row.start << " ns, " << row.ms << " ms, " << way);
            gNs = row.start, gStep = 1000, gSleeps.clear();
            u32 mark = 0, *m = way == kOwnMark ? &mark : nullptr;
            if (way == kDelay) Delay(row.ms);
            if (way == kScoped) ScopedTimer(true).Wait(row.ms);
            if (way < kDelay) TimerStart(m), TimerWaitAndStop(m, row.ms);
            EXPECT_GE(gLast - row.start, row.ms * kMs);
            EXPECT_LT(gLast - row.start, row.ms * kMs + gStep);
            EXPECT_EQ(gSleeps, row.sleeps);
        }
    }
}

TEST_F(Timing, DueAndElapsedCountFromTheFineStart) {
    // A mark set by hand has no known phase: it counts from the end of its millisecond.
    struct Row {
        i64 start, passed; // ns
        u32 ms, elapsed, elapsedByHand;
    } rows[] = {
        {1000 * kMs + 900000, 200000, 1, 0, 0},
        {1000 * kMs + 900000, kMs - 1, 1, 0, 0},
        {1000 * kMs + 900000, kMs, 1, 1, 0},
        {1000 * kMs, 5 * kMs - 1, 5, 4, 3},
        {1000 * kMs + 500000, 5 * kMs, 5, 5, 4},
        {1000 * kMs + 500000, 5 * kMs + 600000, 5, 5, 5},
        {0xFFFFFFF0 * kMs + 500000, 0x20 * kMs, 0x20, 0x20, 0x1F},
        {0xFFFFFFF0 * kMs + 500000, 0x20 * kMs, 0x21, 0x20, 0x1F},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(testing::Message() << row.start << " + " << row.passed << " ns");
        u32 mark = 0, byHand = 0;
        gNs = row.start - 7 * kMs; // a record of an earlier start must not count for a mark
        TimerStart(&byHand);       // set by hand afterwards
        gNs = row.start;
        byHand = static_cast<u32>(row.start / kMs);
        TimerStart(&mark);
        TimerStart();
        ScopedTimer scoped;
        gNs = row.start + row.passed;
        for (u32* m : {&mark, static_cast<u32*>(nullptr)}) {
            EXPECT_EQ(TimerElapsed(m), row.elapsed);
            EXPECT_EQ(TimerIsDue(m, row.ms), row.elapsed >= row.ms);
        }
        EXPECT_EQ(scoped.Elapsed(), row.elapsed);
        EXPECT_EQ(scoped.IsDue(row.ms), row.elapsed >= row.ms);
        EXPECT_EQ(TimerElapsed(&byHand), row.elapsedByHand);
        EXPECT_EQ(TimerIsDue(&byHand, row.ms), row.elapsedByHand >= row.ms);
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
    EXPECT_EQ(TimerNesting(), 2);
    TimerStop();
    EXPECT_EQ(gEnds, 0);
    TimerStop();
    Delay(0);
    EXPECT_EQ(gBegins, 1);
    EXPECT_EQ(gEnds, 1);
    TimerStart();
    gNs += 5 * kMs;
    EXPECT_FALSE(TimerIsDueStop(nullptr, 6));
    EXPECT_EQ(TimerNesting(), 1);
    EXPECT_TRUE(TimerIsDueStop(nullptr, 5));
    EXPECT_EQ(TimerNesting(), 0);
    TimerStart();
    gNs += 7 * kMs;
    EXPECT_EQ(TimerElapsedStop(nullptr), 7u);
    AssertCapture capture;
    TimerStop();
    EXPECT_EQ(gEnds, 3);
    for (int i = 0; i < 12; ++i)
        i < 6 ? TimerStart() : TimerStop();
    EXPECT_EQ(capture.Count(), 2);
    EXPECT_EQ(gBegins, 4);
    EXPECT_EQ(gEnds, 4);
    {
        ScopedTimer timer;
        timer.Restart();
        EXPECT_EQ(TimerNesting(), 1);
        EXPECT_EQ(gEnds, 4);
        timer.Stop();
        EXPECT_FALSE(timer.IsRunning());
        timer.Stop();
        timer.Wait(1);
        timer.IsDue(1);
        timer.Elapsed();
        EXPECT_EQ(capture.Count(), 6);
        timer.Restart();
    }
    ScopedTimer idle(false);
    EXPECT_EQ(gBegins, 6);
    EXPECT_EQ(gEnds, 6);
}

TEST_F(Timing, PerfCountSpinsToTheTicksOfTheSystemTime) {
    gNs = 0, gStep = 100;
    i64 mark = 0;
    EXPECT_TRUE(PerfCount_Start(&mark));
    EXPECT_TRUE(PerfCount_Wait(&mark, 1000));
    EXPECT_EQ(gLast - mark, 1000);
    EXPECT_TRUE(PerfCount_IsIncBy(&mark, 1000));
    EXPECT_FALSE(PerfCount_IsIncBy(&mark, 100000));
    mark = gNs - (i64{1} << 32) - 5;
    EXPECT_EQ(PerfCount_HowManyTicksPassed(&mark), 5u);
    EXPECT_TRUE(PerfCount_Start(nullptr) && PerfCount_Wait(nullptr, 300));
    gCounterWorks = false;
    EXPECT_FALSE(PerfCount_Start(&mark));
    EXPECT_FALSE(PerfCount_Wait(&mark, 10));
    EXPECT_FALSE(PerfCount_Delay(10));
    EXPECT_TRUE(PerfCount_Delay(0));
    AssertCapture capture;
    PerfCount_IsIncBy(&mark, 1);
    PerfCount_HowManyTicksPassed(&mark);
    EXPECT_EQ(capture.Messages(),
              (std::vector<std::string>{
                  "PerfCount_IsIncBy() is called while performance counter is not available",
                  "PerfCount_HowManyTicksPassed() is called while performance counter is not "
                  "available"}));
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
