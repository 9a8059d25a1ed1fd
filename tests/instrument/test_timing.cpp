#include "common/test_support.h"
#include "instrument/perf_counter.h"
#include "instrument/timing.h"
#include "instrument/timing_clock.h"

#include <gtest/gtest.h>

#include <vector>

namespace {

// Hand-driven time: each reading returns now and then moves it on by step.
u32 gNow = 0;
u32 gStep = 1;
std::vector<u32> gSleeps;
int gBegins = 0;
int gEnds = 0;
bool gCounterWorks = true;
i64 gTicks = 0;

u32 FakeMilliseconds() {
    u32 now = gNow;
    gNow += gStep;
    return now;
}
void FakeSleep(u32 ms) {
    gSleeps.push_back(ms);
    gNow += ms;
}
bool FakeBegin() {
    ++gBegins;
    return true;
}
void FakeEnd() {
    ++gEnds;
}
bool FakeCounter(i64* ticks) {
    *ticks = gTicks;
    gTicks += 100;
    return gCounterWorks;
}

const TimingClock kFakeClock = {FakeMilliseconds, FakeSleep, FakeBegin, FakeEnd, FakeCounter};

class Timing : public ::testing::Test {
  protected:
    void SetUp() override {
        gNow = 1000, gStep = 1, gSleeps.clear(), gBegins = gEnds = 0;
        gCounterWorks = true, gTicks = 0;
        SetTimingClock(&kFakeClock);
    }
    void TearDown() override {
        EXPECT_EQ(TimerNesting(), 0);
        SetTimingClock(nullptr);
    }
};

TEST_F(Timing, TenMillisecondsOnlySpin) {
    u32 mark = gNow;
    TimerWait(&mark, 10);
    EXPECT_TRUE(gSleeps.empty());
    EXPECT_GE(gNow - mark, 10u);
}

TEST_F(Timing, ElevenMillisecondsSleepOneThenSpin) {
    u32 mark = gNow;
    TimerWait(&mark, 11);
    EXPECT_EQ(gSleeps, std::vector<u32>{1});
    EXPECT_GE(gNow - mark, 11u);
}

TEST_F(Timing, PastMarkReturnsAtOnce) {
    u32 mark = gNow - 50;
    TimerWait(&mark, 10);
    EXPECT_EQ(gNow, 1001u);
}

TEST_F(Timing, WaitAcrossTheWrap) {
    gNow = 0xFFFFFFF0u;
    u32 mark = gNow;
    TimerWait(&mark, 40);
    EXPECT_EQ(gSleeps, std::vector<u32>{30});
    EXPECT_GE(gNow, 40u - 16u);
    EXPECT_LT(gNow, 100u);
}

TEST_F(Timing, DueAndElapsedSubtractFirst) {
    gStep = 0;
    u32 mark = 0xFFFFFFF0u;
    gNow = 0x10;
    EXPECT_EQ(TimerElapsed(&mark), 0x20u);
    EXPECT_TRUE(TimerIsDue(&mark, 0x20));
    EXPECT_FALSE(TimerIsDue(&mark, 0x21));
}

TEST_F(Timing, NestedBracketsRaiseTheResolutionOnce) {
    TimerStart();
    u32 inner = 0;
    TimerStart(&inner);
    EXPECT_EQ(TimerNesting(), 2);
    TimerStop();
    EXPECT_EQ(gEnds, 0);
    TimerStop();
    EXPECT_EQ(gBegins, 1);
    EXPECT_EQ(gEnds, 1);
    Delay(0);
    EXPECT_EQ(gBegins, 1);
    Delay(3);
    EXPECT_EQ(gBegins, 2);
    EXPECT_EQ(gEnds, 2);
}

TEST_F(Timing, StopVariantsCloseTheBracket) {
    gStep = 0;
    TimerStart();
    gNow += 5;
    EXPECT_FALSE(TimerIsDueStop(nullptr, 6));
    EXPECT_EQ(TimerNesting(), 1);
    EXPECT_TRUE(TimerIsDueStop(nullptr, 5));
    EXPECT_EQ(TimerNesting(), 0);
    TimerStart();
    gNow += 7;
    EXPECT_EQ(TimerElapsedStop(nullptr), 7u);
    gStep = 1;
    TimerStart();
    TimerWaitAndStop(nullptr, 2);
    EXPECT_EQ(TimerNesting(), 0);
}

TEST_F(Timing, NestingErrorsAreCaught) {
    AssertCapture capture;
    TimerStop();
    EXPECT_EQ(capture.Count(), 1);
    EXPECT_EQ(gEnds, 0);
    for (int i = 0; i < 6; ++i)
        TimerStart();
    EXPECT_EQ(capture.Count(), 2);
    for (int i = 0; i < 6; ++i)
        TimerStop();
    EXPECT_EQ(gBegins, 1);
    EXPECT_EQ(gEnds, 1);
}

TEST_F(Timing, ScopedTimerRestartKeepsTheResolution) {
    {
        ScopedTimer timer;
        timer.Restart();
        EXPECT_EQ(TimerNesting(), 1);
        EXPECT_EQ(gEnds, 0);
        timer.Stop();
        EXPECT_FALSE(timer.IsRunning());
        AssertCapture capture;
        timer.Stop();
        timer.Wait(1);
        timer.IsDue(1);
        timer.Elapsed();
        EXPECT_EQ(capture.Count(), 4);
        timer.Restart();
    }
    EXPECT_EQ(gBegins, 2);
    EXPECT_EQ(gEnds, 2);
    ScopedTimer idle(false);
    EXPECT_EQ(TimerNesting(), 0);
}

TEST_F(Timing, PerfCountSpinsToTheTicks) {
    i64 mark = 0;
    EXPECT_TRUE(PerfCount_Start(&mark));
    EXPECT_TRUE(PerfCount_Wait(&mark, 1000));
    EXPECT_GE(gTicks - mark, 1000);
    EXPECT_TRUE(PerfCount_IsIncBy(&mark, 1000));
    EXPECT_FALSE(PerfCount_IsIncBy(&mark, 100000));
    mark = gTicks - (i64{1} << 32) - 5;
    EXPECT_EQ(PerfCount_HowManyTicksPassed(&mark), 5u);
    EXPECT_TRUE(PerfCount_Start(nullptr));
    EXPECT_TRUE(PerfCount_Wait(nullptr, 300));
}

TEST_F(Timing, FailingCounter) {
    gCounterWorks = false;
    i64 mark = 0;
    EXPECT_FALSE(PerfCount_Start(&mark));
    EXPECT_FALSE(PerfCount_Wait(&mark, 10));
    EXPECT_FALSE(PerfCount_Delay(10));
    EXPECT_TRUE(PerfCount_Delay(0));
    AssertCapture capture;
    PerfCount_IsIncBy(&mark, 1);
    PerfCount_HowManyTicksPassed(&mark);
    ASSERT_EQ(capture.Count(), 2);
    EXPECT_EQ(capture.Messages()[0],
              "PerfCount_IsIncBy() is called while performance counter is not available");
    EXPECT_EQ(capture.Messages()[1], "PerfCount_HowManyTicksPassed() is called while performance "
                                     "counter is not available");
}

TEST(SystemTiming, DelayLastsAtLeastItsLength) {
    const TimingClock& clock = SystemTimingClock();
    u32 before = clock.Milliseconds();
    i64 ticksBefore = 0, ticksAfter = 0;
    ASSERT_TRUE(clock.Counter(&ticksBefore));
    Delay(3);
    EXPECT_GE(clock.Milliseconds() - before, 3u);
    ASSERT_TRUE(clock.Counter(&ticksAfter));
    EXPECT_GE(ticksAfter - ticksBefore, 2000000);
    EXPECT_TRUE(PerfCount_Delay(100000));
    EXPECT_EQ(TimerNesting(), 0);
}

} // namespace
