// How exact the settling waits are on the system clock: Delay(1), Delay(5) and a wait on a mark,
// each started at a random phase of the millisecond. Counters, in ms of (actual - asked):
// min_ms, mean_ms, p50_ms and p99_ms (printed with SI prefixes: 50u is 50e-6 ms), and early,
// the count of waits that ended before the asked time. The goal is early = 0 and p99_ms under
// 0.1 on an idle machine. Spin1, a bare 1 ms spin on the counter, shows what the scheduler of
// a loaded machine adds by itself.
#include "instrument/perf_counter.h"
#include "instrument/timing.h"
#include "instrument/timing_clock.h"

#include <benchmark/benchmark.h>

#include <algorithm>
#include <random>
#include <vector>

namespace {

i64 NowNs() {
    i64 now = 0;
    SystemTimingClock().Counter(&now);
    return now;
}

// A spin of up to 1 ms puts the next start at a random phase of the millisecond.
void RandomPhase(std::mt19937& random) {
    PerfCount_Delay(std::uniform_int_distribution<u64>(0, kCounterTicksPerMs - 1)(random));
}

void Report(benchmark::State& state, std::vector<double>& lateMs) {
    std::sort(lateMs.begin(), lateMs.end());
    double sum = 0;
    for (double late : lateMs)
        sum += late;
    const size_t n = lateMs.size();
    state.counters["min_ms"] = lateMs.front();
    state.counters["mean_ms"] = sum / static_cast<double>(n);
    state.counters["p50_ms"] = lateMs[n / 2];
    state.counters["p99_ms"] = lateMs[std::min(n - 1, n * 99 / 100)];
    state.counters["early"] =
        static_cast<double>(std::lower_bound(lateMs.begin(), lateMs.end(), 0.0) - lateMs.begin());
}

// One wait as a measurement makes it; returns ns from just before the wait began to its end.
using WaitFn = i64 (*)(u32 ms, std::mt19937& random);

i64 DelayWait(u32 ms, std::mt19937&) {
    i64 t0 = NowNs();
    Delay(ms);
    return NowNs() - t0;
}

// A settling wait after some work: the mark is set, the work takes up to 1 ms, then the wait.
i64 MarkWait(u32 ms, std::mt19937& random) {
    u32 mark = 0;
    i64 t0 = NowNs();
    TimerStart(&mark);
    RandomPhase(random);
    TimerWaitAndStop(&mark, ms);
    return NowNs() - t0;
}

i64 Spin(u32 ms, std::mt19937&) {
    i64 t0 = NowNs();
    PerfCount_Delay(u64{ms} * kCounterTicksPerMs);
    return NowNs() - t0;
}

void BM_Wait(benchmark::State& state, WaitFn wait, u32 ms) {
    SetTimingClock(nullptr);
    std::mt19937 random(12345);
    std::vector<double> lateMs;
    lateMs.reserve(static_cast<size_t>(state.max_iterations));
    for (auto _ : state) {
        RandomPhase(random);
        i64 actual = wait(ms, random);
        state.SetIterationTime(static_cast<double>(actual) * 1e-9);
        lateMs.push_back(static_cast<double>(actual - i64{ms} * kCounterTicksPerMs) /
                         static_cast<double>(kCounterTicksPerMs));
    }
    Report(state, lateMs);
}

BENCHMARK_CAPTURE(BM_Wait, Delay1, DelayWait, 1)
    ->Iterations(2000)
    ->UseManualTime()
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(BM_Wait, Delay5, DelayWait, 5)
    ->Iterations(500)
    ->UseManualTime()
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(BM_Wait, Spin1, Spin, 1)
    ->Iterations(2000)
    ->UseManualTime()
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(BM_Wait, MarkWait2, MarkWait, 2)
    ->Iterations(1000)
    ->UseManualTime()
    ->Unit(benchmark::kMillisecond);

} // namespace
