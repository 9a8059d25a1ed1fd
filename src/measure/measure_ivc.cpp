#include "measure/measure_ivc.h"
#include "measure/ivc_options.h"
#include "curve/undo.h"
#include "instrument/daq_cards.h"
#include "instrument/timing.h"
#include "instrument/virtual_channels.h"
#include "instrument/virtual_channels.h"
#include "measure/measure_options.h"
#include "measure/measure_run.h"
#include "measure/run_journal.h"
#include "support/debug_check.h"
#include "support/message_box.h"

#include <vector>

float IVC_GetParamValue(void*, int current, unsigned point) {
    switch (IVC_xAxis_WhatKindOfParam) {
    case 0:
        return static_cast<float>(GetCurrent(current) * IVC_xAxis_Factor);
    case 1:
        return point * IVC_xAxis_Step + IVC_xAxis_From;
    default:
        VASSERT_MSG(false, "IVC_GetParamValue -- Unknown value of IVC_xAxis_Param");
        return 0.0f;
    }
}

const char* IVC_xUnits() {
    return IVC_xAxis_WhatKindOfParam == 1 ? IVC_xAxis_Auto_Units : IVC_xAxis_Units;
}

static std::uint32_t TriggerBits(int current, float level) {
    const DacCard& dac = DacCards[CurrentChannels[current].DACSlot];
    double lo = dac.MinReading, hi = dac.MaxReading;
    return static_cast<std::uint32_t>(lo + (hi - lo) * (level + 1.0) / 2.0);
}

int TriggerPulse() {
    int t = FirstTriggerCurrent();
    if (t < 0) return -1;
    SetCurrentAbs(TriggerBits(t, TriggerLevel1), t);
    Delay(TriggerDelay);
    SetCurrentAbs(TriggerBits(t, TriggerLevel2), t);
    Delay(TriggerDelay);
    return 0;
}

int MeasureIVC(void* dlg) {
    int current = FirstSweep1Current();
    if (current < 0) {
        MessageBoxBeep(dlg, "No Sweep1 virtual current found!", "Can not start measurements",
                       MB_OK | MB_ICONSTOP);
        return 0;
    }
    std::vector<int> signals(kVoltageChannelCount);
    int m = ListSignalVoltages(signals.data());
    if (m == 0) {
        MessageBoxBeep(dlg,
                       "I don't know what are you going to measure,\nsince all virtual voltages "
                       "are disconnected.\nChoose Options | Virtual Voltages from menu\nto select "
                       "at least one voltage",
                       "Can not start measurements", MB_OK | MB_ICONSTOP);
        return 0;
    }

    std::uint32_t start;
    TimerStart(&start);
    // A new family: no curve, mark or tag of the one before is carried into the run.
    gCurves.Clear();
    gCurves.SetCurveCount(static_cast<unsigned>(m));
    NameCurvesAfterVoltages();

    SweepRange range = MeasureWorkingRange1;
    range.from = ScaleToCardBits(current, range.from);
    range.to = ScaleToCardBits(current, range.to);
    range.step = ScaleToCardBits(current, range.step);
    if (range.step == 0) range.step = 1; // a step below one card bit would never move

    std::uint32_t N = SweepPointCount(range);
    if (range.bothDirections) N *= 2;
    gCurves.ResizeCurves(N);

    std::uint32_t interaction;
    TimerStart(&interaction);
    std::uint32_t saved = DacState[current];

    SetCurrent(range.from, current);
    Delay(DelayAfterJumpToStart);
    double xStart = IVC_GetParamValue(dlg, current, 0);
    double xEnd = xStart;
    bool passedTo = false;

    bool stopped = false;
    std::uint32_t n = 0;
    SweepIterator it(range);
    std::uint32_t v;
    for (it.Begin(); it.HasMore(v) && n < N; it.Next(), ++n) {
        SetCurrent(v, current);
        if (IVC_Trigger && TriggerPulse() < 0) {
            MessageBoxBeep(dlg,
                           "Cannot trigger as requested.\nProbably the trigger current is not "
                           "defined.",
                           "IVC Error", MB_OK | MB_ICONSTOP);
            if (n == 0)
                gCurves.Clear();
            else
                gCurves.ResizeCurves(n);
            stopped = true;
            break;
        }
        std::uint32_t mark;
        TimerStart(&mark);
        if (TimerIsDue(&interaction, InteractionTime)) {
            TimerStart(&interaction);
            TimerStop();
            ShowSweep1Point(dlg, n, N, current);
            RefreshVoltageReadings(dlg);
            ShowProgress(dlg, TimerElapsed(&start), n, N);
        }
        TimerWaitAndStop(&mark, SystemDecayTime);
        float x = IVC_GetParamValue(dlg, current, n);
        if (v == range.to) {
            xEnd = x;
            passedTo = true;
        }
        for (int c = 0; c < m; ++c) {
            VoltageReading y = GetVoltage(signals[c]);
            Point& p = gCurves.GetCurve(c).GetPoint(n);
            p.x = x;
            p.y = static_cast<float>(y.volts);
        }
        JournalPoints(n + 1);
        if (fAbortRequested) {
            TruncateOrClear(n);
            stopped = true;
            break;
        }
    }

    if (!stopped) {
        if (range.bothDirections) N /= 2;
        if (CurrentMesureMethod == 1 && passedTo) {
            for (unsigned c = 0; c < gCurves.count; ++c) {
                Curve& curve = gCurves.GetCurve(c);
                for (std::uint32_t k = 0; k < N && k < curve.count; ++k) {
                    long double x = (static_cast<long double>(xEnd) - xStart) * k / N + xStart;
                    curve.GetPoint(k).x = static_cast<float>(x);
                    if (range.bothDirections && 2 * N - k - 1 < curve.count)
                        curve.GetPoint(2 * N - k - 1).x = static_cast<float>(x);
                }
            }
        }
        PlayMeasureSound("IVC.wav");
    }

    SetCurrentAbs(saved, current);
    std::uint32_t elapsed = TimerElapsed(&start);
    TimerStop(); // interaction timer
    TimerStop(); // start timer
    SetMeasuredFamilyTexts("IVC", IVC_xUnits(), "V", elapsed);
    return 1;
}
