// One point of a sweep as a measurement makes it: SetCurrent, then GetVoltage with averaging 1,
// over the simulated instrument. The same calls made straight on the driver table give the
// driver's share; the rest is our own code.
#include "instrument/averaging.h"
#include "instrument/daq/sim_driver.h"
#include "instrument/daq_cards.h"
#include "instrument/virtual_channels.h"

#include <benchmark/benchmark.h>

#include <chrono>

namespace {

void SetUpRack() {
    static bool done = false;
    if (done) return;
    done = true;
    SimDaqLoad(nullptr);
    SetDaqDriver(&gSimDaqDriver);
    char report[kCardsReportSize];
    DetectCards(report, sizeof report, ".");
    CurrentChannel& bias = CurrentChannels[0];
    bias.kind = CURRENT_SWEEP1_PLUS;
    bias.R = 1e4f;
    VoltageChannel& j1 = VoltageChannels[0];
    j1.kind = VOLTAGE_POSITIVE;
    j1.extGain = 1000.0f;
    InitDacState();
    GetVoltageAveragingTimes = 1;
    GetVoltageAveragingStart = 0;
    TurboAveraging = 0;
    ResizeAveragingArray();
}

// Neighbouring values, as a sweep makes them: one DAC write per point.
inline u32 PointBits(u32 k) {
    return 32768 + (k & 1023);
}

double VirtualLoop(u32 points, double* sink) {
    auto t0 = std::chrono::steady_clock::now();
    for (u32 k = 0; k < points; ++k) {
        SetCurrent(PointBits(k), 0);
        *sink += GetVoltage(0).volts;
    }
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - t0).count();
}

double DriverLoop(u32 points, double* sink) {
    const DaqDriver& d = Daq();
    const i16 slot = DacCards[0].slot, gain = GainCode(1.0f);
    auto t0 = std::chrono::steady_clock::now();
    for (u32 k = 0; k < points; ++k) {
        d.AO_Write(slot, 0, static_cast<i16>(PointBits(k) - 32768));
        i16 reading;
        d.AI_Read(slot, 0, gain, &reading);
        *sink += reading;
    }
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - t0).count();
}

void BM_SetCurrentGetVoltage(benchmark::State& state) {
    SetUpRack();
    double sink = 0;
    u32 k = 0;
    for (auto _ : state) {
        SetCurrent(PointBits(k++), 0);
        sink += GetVoltage(0).volts;
    }
    benchmark::DoNotOptimize(sink);
    state.SetItemsProcessed(state.iterations());
}
BENCHMARK(BM_SetCurrentGetVoltage);

void BM_DriverOnly(benchmark::State& state) {
    SetUpRack();
    const DaqDriver& d = Daq();
    const i16 slot = DacCards[0].slot, gain = GainCode(1.0f);
    double sink = 0;
    u32 k = 0;
    for (auto _ : state) {
        d.AO_Write(slot, 0, static_cast<i16>(PointBits(k++) - 32768));
        i16 reading;
        d.AI_Read(slot, 0, gain, &reading);
        sink += reading;
    }
    benchmark::DoNotOptimize(sink);
    state.SetItemsProcessed(state.iterations());
}
BENCHMARK(BM_DriverOnly);

// Both loops back to back, several times, keeping the fastest of each against noise of the
// shared machine: own_ns is per point, own_share the fraction of a point outside the driver.
void BM_OwnCodeShare(benchmark::State& state) {
    SetUpRack();
    const u32 points = 20000;
    double sink = 0, bestVirtual = 1e30, bestDriver = 1e30;
    for (auto _ : state) {
        double v = VirtualLoop(points, &sink), d = DriverLoop(points, &sink);
        if (v < bestVirtual) bestVirtual = v;
        if (d < bestDriver) bestDriver = d;
    }
    benchmark::DoNotOptimize(sink);
    const double own = (bestVirtual - bestDriver) / points;
    state.counters["points_per_s"] = points / bestVirtual;
    state.counters["driver_ns"] = bestDriver / points * 1e9;
    state.counters["own_ns"] = own * 1e9;
    state.counters["own_share"] = own / (bestVirtual / points);
}
BENCHMARK(BM_OwnCodeShare)->Iterations(20)->Unit(benchmark::kMillisecond);

} // namespace
