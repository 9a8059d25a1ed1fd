// The millisecond clock: brackets that hold the timer at its finest resolution while they are
// open, and waits that sleep for the bulk and spin for the last SleepReserve ms. A null mark
// means the one global mark. Marks hold whole ms, but TimerStart also keeps the fine start of
// each mark it sets, so that waits and TimerIsDue count exactly from it and never end early;
// a mark set by hand counts from the end of its millisecond.
#pragma once
#include <cstdint>

using u32 = std::uint32_t;

constexpr u32 SleepThreshold = 10; // a wait this long or shorter only spins
constexpr u32 SleepReserve = 10;   // the spun end of a longer wait
static_assert(SleepReserve <= SleepThreshold);
constexpr int kMaxTimerNesting = 5;

void TimerStart(u32* mark = nullptr);
void TimerStop();
void TimerWait(u32* mark, u32 ms);
void TimerWaitAndStop(u32* mark, u32 ms);
bool TimerIsDue(u32* mark, u32 ms);
bool TimerIsDueStop(u32* mark, u32 ms);
u32 TimerElapsed(u32* mark);
u32 TimerElapsedStop(u32* mark);
void Delay(u32 ms);

// The brackets open now, for tests and checks.
int TimerNesting();

class ScopedTimer {
  public:
    explicit ScopedTimer(bool start = true);
    ~ScopedTimer();
    ScopedTimer(const ScopedTimer&) = delete;
    ScopedTimer& operator=(const ScopedTimer&) = delete;

    void Restart();
    void Stop();
    void Wait(u32 ms);
    bool IsDue(u32 ms);
    u32 Elapsed();
    bool IsRunning() const { return running_; }

  private:
    u32 mark_ = 0;
    bool running_ = false;
};
