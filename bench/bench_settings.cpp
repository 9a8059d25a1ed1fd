// Loading and saving all settings over a full vtl.ini: 32 currents and 128 voltages besides
// every group that is built, so that the walk cost is that of a real rack.
#include "settings/profile.h"
#include "ui/settings_registry.h"

#include <benchmark/benchmark.h>

#include <cstdio>
#include <filesystem>
#include <fstream>
#include <string>

namespace {

std::string MakeFullIni() {
    std::filesystem::path dir = std::filesystem::temp_directory_path() / "vantrel_bench_settings";
    std::filesystem::create_directories(dir);
    std::string ini = (dir / "vtl.ini").string();
    std::ofstream out(ini, std::ios::binary | std::ios::trunc);
    const char* currentKeys[] = {"Name", "Card", "Channel", "Resistor", "Min",
                                 "Max",  "Unit", "Gain",    "Offset",   "Enabled"};
    const char* voltageKeys[] = {"Name",  "Card", "Channel", "Gain",    "Offset",
                                 "Range", "Unit", "Mux",     "Average", "Enabled"};
    out << "[Virtual Currents]\r\n";
    for (unsigned c = 0; c < 32; ++c)
        for (unsigned k = 0; k < 10; ++k)
            out << "Current[" << c << "]." << currentKeys[k] << "=" << (c * 17 + k) % 1000
                << ".25\r\n";
    out << "\r\n[Virtual Voltages]\r\n";
    for (unsigned v = 0; v < 128; ++v)
        for (unsigned k = 0; k < 10; ++k)
            out << "Voltage[" << v << "]." << voltageKeys[k] << "=" << (v * 31 + k) % 1000
                << ".5\r\n";
    out << "\r\n";
    out.close();
    SaveAllSettings(ini.c_str());
    return ini;
}

const std::string& FullIni() {
    static const std::string ini = MakeFullIni();
    return ini;
}

void BM_LoadAllSettings(benchmark::State& state) {
    const std::string& ini = FullIni();
    for (auto _ : state)
        benchmark::DoNotOptimize(LoadAllSettings(ini.c_str()));
    state.counters["bytes"] = static_cast<double>(std::filesystem::file_size(ini));
}
BENCHMARK(BM_LoadAllSettings)->Unit(benchmark::kMillisecond);

void BM_SaveAllSettings(benchmark::State& state) {
    const std::string& ini = FullIni();
    for (auto _ : state)
        benchmark::DoNotOptimize(SaveAllSettings(ini.c_str()));
}
BENCHMARK(BM_SaveAllSettings)->Unit(benchmark::kMillisecond);

} // namespace
