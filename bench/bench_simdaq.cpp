// Single-point throughput of the simulated instrument: one bias write and one read per pass.
#include "instrument/daq/sim_driver.h"

#include <benchmark/benchmark.h>

static void BM_SimWriteRead(benchmark::State& state) {
    SimDaqLoad("/nonexistent/simdaq.ini"); // built-in rack and sample
    i16 r = 0, reading = 0;
    for (auto _ : state) {
        gSimDaqDriver.AO_Write(1, 0, r);
        gSimDaqDriver.AI_Read(1, 0, 1, &reading);
        benchmark::DoNotOptimize(reading);
        r = static_cast<i16>((r + 7) & 0x3FFF);
    }
    state.SetItemsProcessed(2 * state.iterations()); // driver calls
}
BENCHMARK(BM_SimWriteRead);
