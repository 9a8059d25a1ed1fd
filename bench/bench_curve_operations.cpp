// The Math menu's operations on a family of 10 curves of 10^5 and 10^6 points: time per point
// (items are points), to see that each is linear and what 10^6 points cost.
#include "analysis/curve_operations.h"
#include "analysis/math_options.h"
#include "analysis/multi_point_derivative.h"
#include "curve/curve_family.h"

#include <benchmark/benchmark.h>

#include <cmath>

namespace {

CurveFamily Family(std::uint32_t points) {
    CurveFamily f;
    f.SetCurveCount(10);
    for (std::uint32_t c = 0; c < 10; ++c) {
        Curve& curve = f.GetCurve(c);
        curve.Resize(points);
        for (std::uint32_t i = 0; i < points; ++i)
            curve.points[i] = Point(i * 1e-3f, std::sin(i * 1e-3f) + ((i % 97) == 0 ? 5.0f : 0.0f));
    }
    return f;
}

template <class Op> void Run(benchmark::State& state, Op op) {
    const auto points = static_cast<std::uint32_t>(state.range(0));
    const CurveFamily source = Family(points);
    for (auto _ : state) {
        state.PauseTiming();
        CurveFamily f = source;
        state.ResumeTiming();
        op(f);
        benchmark::DoNotOptimize(f.GetCurve(0).points[0]);
    }
    state.SetItemsProcessed(static_cast<std::int64_t>(state.iterations()) * 10 * points);
}

void BM_Smooth(benchmark::State& state) {
    Run(state, [](CurveFamily& f) {
        for (std::uint32_t c = 0; c < f.count; ++c)
            SmoothCurve(f.GetCurve(c), 5);
    });
}
void BM_Filter(benchmark::State& state) {
    Run(state, [](CurveFamily& f) {
        for (std::uint32_t c = 0; c < f.count; ++c)
            FilterSpikes(f.GetCurve(c), 1.0f);
    });
}
void BM_MultiPointDerivative(benchmark::State& state) {
    Run(state, [](CurveFamily& f) {
        CurveFamily d;
        MultiPointDerivative(f, false, d);
        benchmark::DoNotOptimize(d.count);
    });
}
void BM_SimpleDerivative(benchmark::State& state) {
    Run(state, [](CurveFamily& f) { f.DifferentiateX(); });
}
void BM_Shift(benchmark::State& state) {
    Run(state, [](CurveFamily& f) {
        for (std::uint32_t c = 0; c < f.count; ++c)
            ShiftCurve(f.GetCurve(c), 1.0, 2.0);
    });
}

} // namespace

BENCHMARK(BM_Smooth)->Arg(100000)->Arg(1000000)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_Filter)->Arg(100000)->Arg(1000000)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_MultiPointDerivative)->Arg(100000)->Arg(1000000)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_SimpleDerivative)->Arg(100000)->Arg(1000000)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_Shift)->Arg(100000)->Arg(1000000)->Unit(benchmark::kMillisecond);
