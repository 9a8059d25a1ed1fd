#include "measure/ic_search.h"

#include "instrument/daq_cards.h"
#include "instrument/delays.h"
#include "instrument/timing.h"
#include "instrument/virtual_channels.h"
#include "measure/ic_options.h"
#include "measure/measure_run.h"
#include "platform/measure_dialog.h"
#include "support/message_box.h"

#include <chrono>
#include <cmath>
#include <cstdarg>
#include <cstdio>
#include <ctime>
#include <sys/time.h>

IcSearchCounters gIcSearchCounters;
Statistic DeltaIcStatistic;
Statistic PredictionMissStatistic;

namespace {

const char kCaption[] = "Error in Ic<H>";

using Clock = std::chrono::steady_clock;

std::uint64_t NsSince(Clock::time_point start) {
    return static_cast<std::uint64_t>(
        std::chrono::duration_cast<std::chrono::nanoseconds>(Clock::now() - start).count());
}

void ShowFailure(const char* text) {
    MessageBoxBeep(nullptr, text, kCaption, MB_OK | MB_ICONSTOP);
}

void ShowNonZeroVoltageFailure() {
    ShowFailure("Can not reach the state with non zero Voltage\nConsider the following "
                "reasons:\n\n1. Too big criteria\n2. 'Sweep1' current too small or not "
                "connected\n3. Voltage not connected or small gain factor\n");
}

void ShowStepVoltageFailure() {
    ShowFailure("Can not reach the state where V>Vstep\nConsider the following reasons:\n\n1. "
                "May be too big criteria\n2. Reset Voltage has starange value\n3. 'Sweep1' "
                "current too small or not connected\n4. Voltage not connected or small gain "
                "factor\n");
}

// Steps 1 to 4 of every probe: Stop, the current, the wait.
void SetAndSettle(int current, std::uint32_t bits) {
    if (fAbortRequested) throw MeasureIcException(-1);
    SetCurrent(bits, current);
    Delay(SystemDecayTime);
}

// The current's DAC limits on a copy of value.
BoundedBits WithinDac(int current, std::uint32_t value) {
    const DacCard& dac = DacCards[CurrentChannels[current].DACSlot];
    BoundedBits b(value);
    b.SetLower(dac.MinReading);
    b.SetUpper(dac.MaxReading);
    return b;
}

std::uint32_t ForwardTimes(std::uint32_t a) {
    const std::uint64_t step = static_cast<std::uint64_t>(IcH_ForwardStep) * a;
    return step > UINT32_MAX ? UINT32_MAX : static_cast<std::uint32_t>(step);
}

std::uint64_t BackStepsInRange(const BoundedBits& b) {
    return (static_cast<std::uint64_t>(b.Upper()) - b.Lower()) / IcH_BackwardStep + 1;
}

// Steps 1 to 4 shared by both searches: the bounded current, the reset bias, the forecast.
struct SearchStart {
    BoundedBits I, R, F;
    std::uint32_t diff;
};

SearchStart Predict(std::uint32_t n, int current, std::uint32_t& lastIc, std::uint32_t& previousIc,
                    std::uint32_t iReset) {
    SearchStart s{WithinDac(current, lastIc), BoundedBits(), BoundedBits(), 0};
    s.R = s.I;
    s.R.Assign(iReset);
    s.F = s.I;
    if (lastIc > previousIc) {
        s.diff = lastIc - previousIc;
        if (IcH_UsePrediction) s.F.Up(s.diff);
    } else {
        s.diff = previousIc - lastIc;
        if (IcH_UsePrediction) s.F.Down(s.diff);
    }
    previousIc = lastIc;
    if (n != 0) DeltaIcStatistic.Add(s.diff);
    s.I = s.F;
    return s;
}

void Finish(std::uint32_t n, int current, const SearchStart& s, std::uint32_t& lastIc,
            std::uint32_t& previousIc, std::uint32_t& iReset) {
    lastIc = s.I.Value();
    SetCurrent(lastIc, current);
    iReset = s.R.Value();
    Delay(SystemDecayTime);
    if (n == 0)
        previousIc = lastIc;
    else if (IcH_UsePrediction)
        PredictionMissStatistic.Add(static_cast<double>(lastIc) - s.F.Value());
}

} // namespace

void FieldResetter::GoToReset() const {
    if (!active) return;
    SetCurrent(hReset, current);
    Delay(DelayAfterSweep2);
}

void FieldResetter::GoBack() const {
    if (!active) return;
    SetCurrent(hNow, current);
    Delay(DelayAfterSweep2);
}

void ShowZeroVoltageFailure() {
    ShowFailure("Can not reach the state with zero Voltage\nConsider the following reasons:\n\n1. "
                "Too small criteria\n2. Starting bias point is on the wrong side of IVC\n3. Big "
                "shift of zero voltage -- use 'Auto Zero'\n4. Voltage is not connected "
                "physically\n5. Too big voltage gain factor which causes overload of "
                "amplifier\n6. 'BackStep' too big -- zero voltage region overstepped\n7. IVC "
                "shifted to far from origin by external current(s)\n");
}

void ShowResetVoltageFailure() {
    ShowFailure("Can not reset Voltage -- state with V<Vreset\nConsider the following "
                "reasons:\n\n1. Initial point is on the oposite side of IVC\n2. ResetVoltage "
                "value is contradictory\n3. Voltage not connected or huge gain factor");
}

bool SearchBelowCriterion(int current, std::uint32_t bits, int voltage) {
    const Clock::time_point start = Clock::now();
    SetAndSettle(current, bits);
    double drop = 0;
    if (IcH_CompensateSeriesR) drop = GetCurrent(current) * static_cast<double>(IcH_SeriesR);
    double v = GetVoltage(voltage).volts - drop;
    if (IcH_UseAbsV)
        v = std::fabs(v);
    else if (CurrentChannels[current].kind == CURRENT_SWEEP1_MINUS)
        v = -v;
    gIcSearchCounters.probeNs += NsSince(start);
    ++gIcSearchCounters.probes;
    return v < static_cast<double>(IcH_Criterion);
}

int CompareWithStep(int current, std::uint32_t bits, int voltage) {
    const Clock::time_point start = Clock::now();
    SetAndSettle(current, bits);
    const float v = static_cast<float>(GetVoltage(voltage).volts);
    const float vs = IcH_StepVoltage, vr = IcH_ResetVoltage, c = IcH_Criterion;
    int result = 0;
    if (vs - c < v && v < vs + c)
        result = 1;
    else if ((vr < vs && v > vs + c) || (vs < vr && v < vs - c))
        result = 2;
    gIcSearchCounters.probeNs += NsSince(start);
    ++gIcSearchCounters.probes;
    return result;
}

bool ResetProbeIm(int current, std::uint32_t bits, int voltage) {
    SetAndSettle(current, bits);
    const float v = static_cast<float>(GetVoltage(voltage).volts);
    return IcH_StepVoltage <= IcH_ResetVoltage ? v > IcH_ResetVoltage : v < IcH_ResetVoltage;
}

int ResetVoltageState(ResetFunctor& f) {
    const Clock::time_point start = Clock::now();
    f.iReset->Up(IcH_ResetStabStep);
    f.field.GoToReset();
    int result = 1;
    while (!f.probe(f.current, f.iReset->Value(), f.voltage)) {
        if (f.iReset->Down(IcH_ZeroStep) < 0) {
            f.fail();
            result = 0;
            break;
        }
        Delay(IcX_DelayDuringReset);
    }
    Delay(IcX_DelayAfterReset);
    f.field.GoBack();
    gIcSearchCounters.resetNs += NsSince(start);
    ++gIcSearchCounters.resets;
    return result;
}

void LogPhase(void* dlg, const char* format, ...) {
    if (!IcX_ShowPhaseMessage && !IcX_CreateLogFile) return;
    char text[128];
    va_list args;
    va_start(args, format);
    std::vsnprintf(text, sizeof text, format, args);
    va_end(args);
    if (IcX_ShowPhaseMessage) MeasureDialog().ShowPhase(dlg, text);
    if (!IcX_CreateLogFile) return;
    std::FILE* f = std::fopen("Ic(H).log", "a");
    if (!f) return;
    timeval now;
    gettimeofday(&now, nullptr);
    std::tm t{};
    localtime_r(&now.tv_sec, &t);
    std::fprintf(f, "[%02u:%02u:%04u %02u:%02u:%02u.%03u]:", unsigned(t.tm_mday),
                 unsigned(t.tm_mon + 1), unsigned(t.tm_year + 1900), unsigned(t.tm_hour),
                 unsigned(t.tm_min), unsigned(t.tm_sec), unsigned(now.tv_usec / 1000));
    std::fprintf(f, "%s\n", text);
    std::fclose(f);
}

int SearchIc(void* dlg, std::uint32_t n, int current, int voltage, std::uint32_t& lastIc,
             std::uint32_t& previousIc, std::uint32_t& iReset, const FieldResetter& field) {
    SearchStart s = Predict(n, current, lastIc, previousIc, iReset);
    ResetFunctor reset{current,
                       &s.R,
                       voltage,
                       SearchBelowCriterion,
                       ShowZeroVoltageFailure,
                       IcX_ResetField ? field : FieldResetter()};
    LogPhase(dlg, "New Current: last Ic=%u, I_reset=%u, I_forecast=%u", previousIc, s.R.Value(),
             s.F.Value());
    LogPhase(dlg, "Trying I=%5u, I_reset=%5u", s.I.Value(), s.R.Value());
    auto fail = [n]() {
        TruncateOrClear(n);
        return 0;
    };

    // Getting below Ic. A noisy voltage near the criterion could keep I and the reset bias
    // chasing each other for ever: as many tries as back steps fit in the DAC's range.
    std::uint64_t tries = BackStepsInRange(s.I);
    while (!SearchBelowCriterion(current, s.I.Value(), voltage)) {
        LogPhase(dlg, "We are above Ic. Resetting..");
        if (tries-- == 0 || s.I.Down(IcH_BackwardStep) < 0) {
            ShowZeroVoltageFailure();
            return fail();
        }
        if (s.I.Value() < s.R.Value()) s.I = s.R;
        if (!ResetVoltageState(reset)) return fail();
        LogPhase(dlg, "Trying I=%5u, I_reset=%5u", s.I.Value(), s.R.Value());
    }
    LogPhase(dlg, "We are below Ic. Going up with acceleration..");

    // Going up: the step doubles after AccelCount + 1 steps; an overshoot costs a reset and
    // halves it, and only a jump at one ForwardStep ends the search.
    std::uint32_t a = 1;
    for (;;) {
        std::uint32_t c = 0;
        while (SearchBelowCriterion(current, s.I.Value(), voltage)) {
            if (c > IcX_AccelCount) {
                a *= 2;
                c = 0;
            }
            if (a == 0) a = UINT32_MAX / (IcH_ForwardStep * 8);
            if (s.I.Up(ForwardTimes(a)) < 0) {
                ShowNonZeroVoltageFailure();
                return fail();
            }
            ++c;
        }
        if (a == 1) break;
        s.I.Down(ForwardTimes(a));
        a /= 2;
        if (!ResetVoltageState(reset)) return fail();
    }
    LogPhase(dlg, "Jumped above the step at I=%u", s.I.Value());
    if (IcH_NumberOfTimes > 1) LogPhase(dlg, "maximizing..");

    // Further efforts never lower I: the result is the highest jump of all.
    for (std::uint32_t k = 1; k < IcH_NumberOfTimes; ++k) {
        if (!ResetVoltageState(reset)) return fail();
        while (SearchBelowCriterion(current, s.I.Value(), voltage))
            if (s.I.Up(IcH_ForwardStep) < 0) {
                ShowNonZeroVoltageFailure();
                return fail();
            }
    }
    if (IcH_NumberOfTimes > 1) LogPhase(dlg, "Jumped above the step at I=%u", s.I.Value());

    s.I.Down(IcH_ForwardStep);
    if (IcX_ResetToGetIc) {
        LogPhase(dlg, "resetting to get Ic..");
        if (!ResetVoltageState(reset)) return fail();
        LogPhase(dlg, "Reset ok. I_reset=%u", s.R.Value());
    }
    LogPhase(dlg, "Found Ic=%u", s.I.Value());
    Finish(n, current, s, lastIc, previousIc, iReset);
    return 1;
}

int SearchIm(void* dlg, std::uint32_t n, unsigned curve, int current, int voltage,
             std::uint32_t& lastIc, std::uint32_t& previousIc, std::uint32_t& iReset,
             const FieldResetter& field, int& lastState) {
    SearchStart s = Predict(n, current, lastIc, previousIc, iReset);
    ResetFunctor reset{current,
                       &s.R,
                       voltage,
                       ResetProbeIm,
                       ShowResetVoltageFailure,
                       IcX_ResetField ? field : FieldResetter()};
    LogPhase(dlg, "Current #%u: last Ic=%u, I_reset=%u, I_forecast=%u", curve, previousIc,
             s.R.Value(), s.F.Value());
    LogPhase(dlg, "Trying I=%5u, I_reset=%5u", s.I.Value(), s.R.Value());
    auto fail = [n]() {
        TruncateOrClear(n);
        return 0;
    };
    lastState = 0;

    std::uint64_t tries = BackStepsInRange(s.I);
    while (CompareWithStep(current, s.I.Value(), voltage) == 2) {
        LogPhase(dlg, "We are above the step. Reseting..");
        if (tries-- == 0 || s.I.Down(IcH_BackwardStep) < 0) {
            ShowResetVoltageFailure();
            return fail();
        }
        if (s.I.Value() < s.R.Value()) s.I = s.R;
        if (!ResetVoltageState(reset)) return fail();
        LogPhase(dlg, "Trying I=%5u, I_reset=%5u", s.I.Value(), s.R.Value());
    }
    LogPhase(dlg, "We are on or below the step. Going up with acceleration..");

    for (int state; (state = CompareWithStep(current, s.I.Value(), voltage)) != 2;) {
        lastState = state;
        if (s.I.Up(IcH_ForwardStep) < 0) {
            ShowStepVoltageFailure();
            return fail();
        }
    }
    LogPhase(dlg, "Jumped above the step at I=%u", s.I.Value());
    if (IcH_NumberOfTimes > 1) LogPhase(dlg, "maximizing..");

    // An effort that finds the voltage below the step waits there for it to move by itself
    // (or for Stop); only on the step is the current raised.
    for (std::uint32_t k = 1; k < IcH_NumberOfTimes; ++k) {
        if (!ResetVoltageState(reset)) return fail();
        for (int state; (state = CompareWithStep(current, s.I.Value(), voltage)) != 2;) {
            if (state != 1) continue;
            lastState = 1;
            if (s.I.Up(IcH_ForwardStep) != 0) {
                ShowStepVoltageFailure();
                return fail();
            }
        }
    }
    if (IcH_NumberOfTimes > 1) LogPhase(dlg, "Jumped above the step at I=%u", s.I.Value());

    s.I.Down(IcH_ForwardStep);
    if (IcX_ResetToGetIc) {
        LogPhase(dlg, "Resetting to get Ic..");
        if (!ResetVoltageState(reset)) return fail();
        LogPhase(dlg, "Reset ok. I_reset=%u", s.R.Value());
    }
    LogPhase(dlg, "Found Im=%u", s.I.Value());
    Finish(n, current, s, lastIc, previousIc, iReset);
    return 1;
}

void IcSearchBeginScan() {
    gIcSearchCounters = IcSearchCounters();
    DeltaIcStatistic.Clear();
    PredictionMissStatistic.Clear();
}

void IcSearchEndScan() {
    const IcSearchCounters& k = gIcSearchCounters;
    IcScanStatistics& s = gIcStatistics;
    s.probes = static_cast<std::int32_t>(k.probes);
    s.resets = static_cast<std::int32_t>(k.resets);
    s.probeTimeUs = k.probes ? static_cast<std::int32_t>(k.probeNs / k.probes / 1000) : 0;
    s.resetTimeUs = k.resets ? static_cast<std::int32_t>(k.resetNs / k.resets / 1000) : 0;
    const Statistic& d = DeltaIcStatistic;
    s.deltaAverage = static_cast<std::int32_t>(d.Average());
    s.deltaStdDev = static_cast<std::int32_t>(d.StdDev());
    s.deltaSpread = static_cast<std::int32_t>(d.Max() - d.Min());
    if (IcH_UsePrediction) {
        const Statistic& m = PredictionMissStatistic;
        s.missAverage = static_cast<std::int32_t>(m.Average());
        s.missStdDev = static_cast<std::int32_t>(m.StdDev());
        s.missSpread = static_cast<std::int32_t>(m.Max() - m.Min());
    }
}
