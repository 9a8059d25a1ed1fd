// The instrument globals back at the values the program starts with.
#include "common/test_support.h"

#include "instrument/autozero.h"
#include "instrument/averaging.h"
#include "instrument/daq/daq_driver.h"
#include "instrument/daq_cards.h"
#include "instrument/delays.h"
#include "instrument/thermometer.h"
#include "instrument/virtual_channels.h"

#include <cstdio>
#include <string>
#include <tuple>

namespace {

auto Options() {
    return std::tie(GetCurrentAveragingTimes, GetCurrentAveragingStart, GetVoltageAveragingTimes,
                    GetVoltageAveragingStart, TurboAveraging, TA_SampleRate, TA_IStatus, TA_VStatus,
                    AutoZeroExtraAveraging, ShowAutoZeroWarning, AutoZero_IgnoreTSensor,
                    AutoZero_Do4CurrentMon, AutoZero_RedoOnDoIt, SystemDecayTime, DelayAfterSweep2,
                    DelayBeforeVoltage, MaxDACStep, PrimitiveGeneratorStep, TermoIsTofR,
                    SensorCurrent, UseAbsV);
}

// Taken before main, while every global still holds its initialiser.
const auto kDefaults = std::apply([](auto&... g) { return std::tuple(g...); }, Options());
const std::string kTermoFileName = TermoFileName;

} // namespace

void ResetInstrumentDefaults() {
    SetDaqDriver(nullptr);
    ResetCards();
    for (auto& c : CurrentChannels)
        c = CurrentChannel();
    for (auto& v : VoltageChannels)
        v = VoltageChannel();
    InitDacState();
    Options() = kDefaults;
    ResizeAveragingArray();
    std::snprintf(TermoFileName, sizeof TermoFileName, "%s", kTermoFileName.c_str());
    ResetTemperatureTable();
}
