// An Ic(H) scan of J1 and J2 on the simulated instrument in step-clock mode (no real waits), with
// and without the prediction: points per second (items), and probes and resets per point.
#include "curve/undo.h"
#include "instrument/daq/daq_driver.h"
#include "instrument/daq/sim_driver.h"
#include "instrument/daq_cards.h"
#include "instrument/virtual_channels.h"
#include "measure/ic_options.h"
#include "measure/ic_search.h"
#include "measure/measure_run.h"
#include "ui/settings_registry.h"

#include <benchmark/benchmark.h>

#include <cstdio>
#include <fstream>
#include <sstream>
#include <string>

namespace {

bool StartInstrument() {
    std::ifstream in(VANTREL_SOURCE_DIR "/data/simdaq.ini");
    std::stringstream text;
    text << in.rdbuf();
    std::string sim = text.str();
    sim.replace(sim.find("Mode=real"), 9, "Mode=step");
    const std::string path = "/tmp/vantrel_bench_simdaq.ini";
    std::ofstream(path) << sim;
    SelectDaqDriver("sim");
    SimDaqSetPath(path.c_str());
    char report[kCardsReportSize];
    if (DetectCards(report, sizeof report, VANTREL_SOURCE_DIR "/data/") != 0) return false;
    InitDacState();
    InstallSettingsGroups();
    LoadAllSettings(VANTREL_SOURCE_DIR "/data/vtl.ini");
    InitDacState();
    VoltageChannels[2].kind = VOLTAGE_NOT_CONNECTED; // the array needs its own criterion
    return true;
}

void BM_IcHScan(benchmark::State& state) {
    static const bool started = StartInstrument();
    if (!started) {
        state.SkipWithError("the simulated instrument did not start");
        return;
    }
    IcH_UsePrediction = static_cast<std::int32_t>(state.range(0));
    IcX_ShowPhaseMessage = 0;
    const MeasureParams* params = FindMeasureParams("Ic(H)");
    std::uint64_t points = 0, probes = 0, resets = 0;
    for (auto _ : state) {
        MeasureWorkingRange1 = {16384, 49152, 128, 0, 0, FirstSweep2Current};
        RunMeasurement(nullptr, *params);
        points += gCurves.GetCurve(0).count * gCurves.count;
        probes += gIcSearchCounters.probes;
        resets += gIcSearchCounters.resets;
    }
    state.SetItemsProcessed(static_cast<std::int64_t>(points));
    state.counters["probes_per_point"] = static_cast<double>(probes) / points;
    state.counters["resets_per_point"] = static_cast<double>(resets) / points;
}
BENCHMARK(BM_IcHScan)
    ->Arg(1)
    ->Arg(0)
    ->ArgName("prediction")
    ->UseRealTime() // the scan runs in the measurement thread
    ->Unit(benchmark::kMillisecond);

} // namespace
