// The data pair against a bare C library loop of the same formatted writes and reads:
// a family of 10 curves of 100000 points.
#include "curve/undo.h"
#include "files/data_file.h"
#include "files/data_file_options.h"

#include <benchmark/benchmark.h>

#include <cstdio>
#include <cstdlib>
#include <string>
#include <unistd.h>
#include <vector>

namespace {

constexpr unsigned kCurves = 10;
constexpr unsigned kPoints = 100000;

std::string BenchPath(const char* ext) {
    return "/tmp/vantrel_bench_" + std::to_string(getpid()) + ext;
}

void FillFamily() {
    gCurves.Reset();
    gCurves.SetCurveCount(kCurves);
    for (unsigned i = 0; i < kCurves; ++i) {
        Curve& c = gCurves.GetCurve(i);
        c.Resize(kPoints);
        for (unsigned k = 0; k < kPoints; ++k)
            c.points[k] = Point(k * 1e-3f + i, 1.2345e-4f * k - i);
    }
    fShowOptionsOnSave = fShowOptionsOnLoad = 0;
}

void BM_WriteDataPair(benchmark::State& state) {
    FillFamily();
    std::string dat = BenchPath(".dat");
    for (auto _ : state)
        benchmark::DoNotOptimize(WriteDataPair(dat.c_str()));
    state.SetItemsProcessed(state.iterations() * kCurves * kPoints);
}

void BM_ReadDataPair(benchmark::State& state) {
    FillFamily();
    std::string dat = BenchPath(".dat");
    WriteDataPair(dat.c_str());
    for (auto _ : state)
        benchmark::DoNotOptimize(ReadDataPair(dat.c_str(), 0));
    state.SetItemsProcessed(state.iterations() * kCurves * kPoints);
}

// The same cells with snprintf into a buffer and fwrite, as a lower bound for the writer.
void BM_BareWrite(benchmark::State& state) {
    FillFamily();
    std::string path = BenchPath(".bare");
    for (auto _ : state) {
        std::FILE* out = std::fopen(path.c_str(), "wb");
        std::string buffer;
        char cell[128];
        for (unsigned row = 0; row < kPoints; ++row) {
            for (unsigned i = 0; i < kCurves; ++i) {
                const Point& p = gCurves.curves[i].points[row];
                int n = std::snprintf(cell, sizeof cell, "%*.*g%c%*.*g", 12, 8, double(p.x), '\t',
                                      12, 8, double(p.y));
                buffer.append(cell, n);
                buffer.append(i + 1 == kCurves ? "\r\n" : "\t");
            }
            if (buffer.size() > 65536) {
                std::fwrite(buffer.data(), 1, buffer.size(), out);
                buffer.clear();
            }
        }
        std::fwrite(buffer.data(), 1, buffer.size(), out);
        std::fclose(out);
    }
    state.SetItemsProcessed(state.iterations() * kCurves * kPoints);
}

// Reads the whole table back with strtof into preallocated arrays.
void BM_BareRead(benchmark::State& state) {
    FillFamily();
    std::string dat = BenchPath(".dat");
    WriteDataPair(dat.c_str());
    std::vector<float> values(2ul * kCurves * kPoints);
    for (auto _ : state) {
        std::FILE* in = std::fopen(dat.c_str(), "rb");
        std::string text;
        char chunk[1 << 16];
        size_t n;
        while ((n = std::fread(chunk, 1, sizeof chunk, in)) > 0)
            text.append(chunk, n);
        std::fclose(in);
        const char* at = text.c_str();
        char* end;
        for (float& v : values) {
            v = std::strtof(at, &end);
            at = end;
        }
        benchmark::DoNotOptimize(values.data());
    }
    state.SetItemsProcessed(state.iterations() * kCurves * kPoints);
}

} // namespace

BENCHMARK(BM_WriteDataPair)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_BareWrite)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_ReadDataPair)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_BareRead)->Unit(benchmark::kMillisecond);
