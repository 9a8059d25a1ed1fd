#include "curve/curve_family.h"
#include "curve/undo.h"

#include <benchmark/benchmark.h>

#include <cstring>
#include <vector>

namespace {

constexpr unsigned kFillPoints = 10000000;
constexpr unsigned kFamilyCurves = 100;
constexpr unsigned kFamilyPoints = 100000;

void FillFamily(CurveFamily& f, unsigned curves, unsigned points) {
    f.Reset();
    f.SetCurveCount(curves);
    f.ResizeCurves(points);
    for (unsigned i = 0; i < curves; ++i) {
        Curve& c = f.GetCurve(i);
        for (unsigned k = 0; k < points; ++k)
            c.points[k] = Point(float(k), float(i));
    }
}

// A measurement pre-sizes once and writes by index.
void BM_CurveFillByResizeAndIndex(benchmark::State& state) {
    for (auto _ : state) {
        Curve c;
        c.Resize(kFillPoints);
        for (unsigned i = 0; i < kFillPoints; ++i)
            c.GetPoint(i) = Point(float(i), 1.0f);
        benchmark::DoNotOptimize(c.points);
    }
    state.SetItemsProcessed(state.iterations() * kFillPoints);
}
BENCHMARK(BM_CurveFillByResizeAndIndex)->Unit(benchmark::kMillisecond);

void BM_FamilyAssign(benchmark::State& state) {
    CurveFamily source, copy;
    FillFamily(source, kFamilyCurves, kFamilyPoints);
    for (auto _ : state) {
        copy = source;
        benchmark::DoNotOptimize(copy.curves);
    }
    state.SetBytesProcessed(state.iterations() * kFamilyCurves * kFamilyPoints * sizeof(Point));
}
BENCHMARK(BM_FamilyAssign)->Unit(benchmark::kMillisecond);

// The floor for BM_FamilyAssign: the same bytes, one memcpy, into memory already held.
void BM_MemcpySameBytes(benchmark::State& state) {
    const std::size_t bytes = std::size_t(kFamilyCurves) * kFamilyPoints * sizeof(Point);
    std::vector<char> from(bytes, 1), to(bytes, 2);
    for (auto _ : state) {
        std::memcpy(to.data(), from.data(), bytes);
        benchmark::DoNotOptimize(to.data());
        benchmark::ClobberMemory();
    }
    state.SetBytesProcessed(state.iterations() * bytes);
}
BENCHMARK(BM_MemcpySameBytes)->Unit(benchmark::kMillisecond);

void BM_SaveUndoAndRestoreUndo(benchmark::State& state) {
    FillFamily(gCurves, kFamilyCurves, kFamilyPoints);
    for (auto _ : state) {
        SaveUndo();
        RestoreUndo();
        benchmark::DoNotOptimize(gCurves.curves);
    }
    gCurves.Reset();
    gUndoCurves.Reset();
}
BENCHMARK(BM_SaveUndoAndRestoreUndo)->Unit(benchmark::kMillisecond);

// Exchanges two records whatever they hold: the time must not grow with the family.
void BM_RestoreUndo(benchmark::State& state) {
    const unsigned curves = unsigned(state.range(0));
    FillFamily(gCurves, curves, curves ? kFamilyPoints : 0);
    gUndoCurves = gCurves;
    for (auto _ : state) {
        RestoreUndo();
        benchmark::DoNotOptimize(gCurves.curves);
    }
    state.counters["points"] = double(curves) * (curves ? kFamilyPoints : 0);
    gCurves.Reset();
    gUndoCurves.Reset();
}
BENCHMARK(BM_RestoreUndo)->Arg(0)->Arg(1)->Arg(10)->Arg(100);

} // namespace
