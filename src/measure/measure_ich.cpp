#include "measure/measure_ich.h"

#include "curve/undo.h"
#include "instrument/autozero.h"
#include "instrument/delays.h"
#include "instrument/timing.h"
#include "instrument/virtual_channels.h"
#include "measure/ic_options.h"
#include "measure/ic_search.h"
#include "measure/measure_ivc.h"
#include "measure/measure_options.h"
#include "measure/measure_run.h"
#include "measure/run_journal.h"
#include "platform/measure_dialog.h"
#include "support/debug_check.h"
#include "support/message_box.h"

#include <algorithm>
#include <vector>

namespace {

enum class ScanKind { Ic, Im };

const char kCannotStart[] = "Can not start measurements";

// What the epilogue restores and names.
struct ScanState {
    int sweep1 = -1, sweep2 = -1;
    std::uint32_t saved1 = 0, saved2 = 0;
    std::uint32_t start = 0;
};

// Cuts the curves after a trigger failure or a Cancel at "Next point?".
void CutAt(std::uint32_t n, std::uint32_t perPoint) {
    if (n == 0)
        gCurves.Clear();
    else
        gCurves.ResizeCurves(n * perPoint);
}

void Epilogue(const ScanState& s) {
    SetCurrentAbs(s.saved2, s.sweep2);
    SetCurrentAbs(s.saved1, s.sweep1);
    const std::uint32_t elapsed = TimerElapsed(const_cast<std::uint32_t*>(&s.start));
    TimerStop();
    SetMeasuredFamilyTexts("Ic(H)", IcX_xUnits(), "A", elapsed);
    for (std::uint32_t c = 0; c < gCurves.count; ++c) {
        Curve& curve = gCurves.GetCurve(c);
        curve.AppendToName("/");
        curve.AppendToName(CurrentChannels[s.sweep1].comment);
    }
}

// Edges mode: x spread evenly between the x read at the first and at the last field value.
void SpreadEdges(std::uint32_t N, std::uint32_t M, bool both, double xStart, double xEnd) {
    for (std::uint32_t c = 0; c < gCurves.count; ++c) {
        Curve& curve = gCurves.GetCurve(c);
        for (std::uint32_t n = 0; n < N; ++n)
            for (std::uint32_t m = 0; m < M; ++m) {
                const std::uint32_t i = n * M + m;
                const float x = static_cast<float>(n * (xEnd - xStart) / N + xStart);
                if (i < curve.count) curve.GetPoint(i).x = x;
                if (both && 2 * N * M - i - 1 < curve.count)
                    curve.GetPoint(2 * N * M - i - 1).x = x;
            }
    }
}

int RunScan(void* dlg, ScanKind kind) {
    ScanState s;
    s.sweep2 = FirstSweep2Current();
    s.sweep1 = FirstSweep1Current();
    if (s.sweep1 < 0 || s.sweep2 < 0) {
        MessageBoxBeep(dlg,
                       s.sweep2 < 0 ? "No Sweep2 virtual current found!"
                                    : "No Sweep1 virtual current found!",
                       kCannotStart, MB_OK | MB_ICONSTOP);
        return 0;
    }
    std::vector<int> signals(kVoltageChannelCount);
    const int voltages = ListSignalVoltages(signals.data());
    if (voltages == 0) {
        MessageBoxBeep(dlg,
                       "I don't know what are you going to measure,\nsince all virtual voltages "
                       "are disconnected.\nChoose Options | Virtual Voltages from menu\nto select "
                       "at least one voltage",
                       kCannotStart, MB_OK | MB_ICONSTOP);
        return 0;
    }
    TimerStart(&s.start);
    const std::uint32_t M = kind == ScanKind::Ic ? IcX_MeasurementsPerOneFieldValue : 1;
    gCurves.Clear();
    gCurves.SetCurveCount(static_cast<unsigned>(voltages));
    NameCurvesAfterVoltages();

    SweepRange range = MeasureWorkingRange1;
    range.from = ScaleToCardBits(s.sweep2, range.from);
    range.to = ScaleToCardBits(s.sweep2, range.to);
    range.step = std::max<std::uint32_t>(1, ScaleToCardBits(s.sweep2, range.step));
    std::uint32_t N = SweepPointCount(range);
    if (range.bothDirections) N *= 2;
    gCurves.ResizeCurves(N * M);
    s.saved1 = DacState[s.sweep1];
    s.saved2 = DacState[s.sweep2];

    std::vector<std::uint32_t> lastIc(voltages), previousIc(voltages), iReset(voltages);
    if (kind == ScanKind::Ic) IcSearchBeginScan();
    std::uint32_t n = 0;
    try {
        LogPhase(dlg, "Seaching I_reset for all currents..");
        for (int c = 0; c < voltages; ++c) {
            BoundedBits R(MirrorCurrentBits(s.sweep1, s.saved1));
            const DacCard& dac = DacCards[CurrentChannels[s.sweep1].DACSlot];
            R.SetLower(dac.MinReading);
            R.SetUpper(dac.MaxReading);
            ResetFunctor reset{s.sweep1,
                               &R,
                               signals[c],
                               kind == ScanKind::Ic ? SearchBelowCriterion : ResetProbeIm,
                               kind == ScanKind::Ic ? ShowZeroVoltageFailure
                                                    : ShowResetVoltageFailure,
                               FieldResetter()};
            if (!ResetVoltageState(reset)) {
                gCurves.Clear();
                Epilogue(s);
                return 1;
            }
            lastIc[c] = previousIc[c] = iReset[c] = R.Value();
        }
        SetCurrent(range.from, s.sweep2);
        Delay(std::max(DelayAfterSweep2, DelayAfterJumpToStart));
        if (kind == ScanKind::Im) IcSearchBeginScan();
        const double xStart = IcX_GetParamValue(dlg, s.sweep2, 0);
        double xEnd = xStart;

        SweepIterator it(range);
        std::uint32_t H;
        for (it.Begin(); it.HasMore(H) && n < N; it.Next(), ++n) {
            LogPhase(dlg, "Setting new value of sweep2 = %u", H);
            SetCurrent(H, s.sweep2);
            if (IcH_Trigger && TriggerPulse() < 0) {
                MessageBoxBeep(dlg,
                               "Cannot trigger as requested.\nProbably the trigger current is "
                               "not defined.",
                               "Ic(H) Error", MB_OK | MB_ICONSTOP);
                CutAt(n, M);
                Epilogue(s);
                return 1;
            }
            std::uint32_t mark;
            TimerStart(&mark);
            ShowSweep1Point(dlg, n, N, s.sweep2);
            ShowProgress(dlg, TimerElapsed(&s.start), n, N);
            TimerWaitAndStop(&mark, DelayAfterSweep2);
            MeasureDialog().RefreshCurrents(dlg);
            if (StopAfterEachCurve &&
                MessageBoxBeep(dlg, "Next point?", "Delay", MB_OKCANCEL) == IDCANCEL) {
                CutAt(n, M);
                Epilogue(s);
                return 1;
            }
            if (kind == ScanKind::Ic && IcH_AutoZeroSweep1forEachH) AutoZeroAtSweepZero();
            for (int c = 0; c < voltages; ++c)
                for (std::uint32_t m = 0; m < M; ++m) {
                    FieldResetter field{1, H, s.saved2, s.sweep2};
                    int onStep = 1;
                    const int found =
                        kind == ScanKind::Ic
                            ? SearchIc(dlg, n, s.sweep1, signals[c], lastIc[c], previousIc[c],
                                       iReset[c], field)
                            : SearchIm(dlg, n, static_cast<unsigned>(c), s.sweep1, signals[c],
                                       lastIc[c], previousIc[c], iReset[c], field, onStep);
                    if (!found) {
                        Epilogue(s);
                        return 1;
                    }
                    Point& p = gCurves.GetCurve(static_cast<unsigned>(c)).GetPoint(n * M + m);
                    p.y = onStep == 1 ? static_cast<float>(GetCurrent(s.sweep1)) : 0.0f;
                    p.x = IcX_GetParamValue(dlg, s.sweep2, n);
                }
            JournalPoints((n + 1) * M);
            if (H == range.to) xEnd = IcX_GetParamValue(dlg, s.sweep2, n);
            MeasureDialog().RefreshCurrents(dlg);
        }
        if (range.bothDirections) N /= 2;
        if (CurrentMesureMethod == 1) SpreadEdges(N, M, range.bothDirections, xStart, xEnd);
        IcSearchEndScan();
        if (IcH_UsePrediction)
            VASSERT(PredictionMissStatistic.Count() ==
                    (gCurves.GetCurve(0).count - M) * gCurves.count);
        PlayMeasureSound(kind == ScanKind::Ic ? "Ic(H).wav" : "Im(H).wav");
    } catch (const MeasureIcException& e) {
        if (e.code == -1) TruncateOrClear(n * M);
    } catch (const StatisticException&) {
        // A scan of fewer than two points has no statistics; its points stay.
    }
    Epilogue(s);
    return 1;
}

} // namespace

float IcX_GetParamValue(void*, int sweep2, unsigned n) {
    switch (IcH_xAxis_WhatKindOfParam) {
    case 0:
        return static_cast<float>(GetCurrent(sweep2) * IcH_xAxis_Factor);
    case 1:
        return n * IcH_xAxis_Step + IcH_xAxis_From;
    default:
        VASSERT_MSG(false, "IcX_GetParamValue -- Unknown value of IcH_xAxis_Param");
        return 0.0f;
    }
}

const char* IcX_xUnits() {
    return IcH_xAxis_WhatKindOfParam == 1 ? IcH_xAxis_Auto_Units : IcH_xAxis_Sweep2_Units;
}

int MeasureIcH(void* dlg) {
    return RunScan(dlg, ScanKind::Ic);
}

int MeasureImH(void* dlg) {
    return RunScan(dlg, ScanKind::Im);
}
