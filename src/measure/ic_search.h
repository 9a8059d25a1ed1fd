// The critical current search: walks the sweep1 current up in DAC bits until the voltage
// passes the criterion, with an accelerating step and a reset of the junction after each
// overshoot, starting from the last Ic corrected by its last change. The Im search finds the
// top of a step at a finite voltage the same way. Runs in the measurement thread only.
#pragma once
#include "measure/bounded_bits.h"
#include "support/exceptions.h"
#include "support/least_square_fit.h"

#include <cstdint>

// Stop in any probe throws MeasureIcException(-1); the scan catches it.

// The field's excursion during a reset: to hReset and back to hNow, each followed by
// DelayAfterSweep2. Idle unless active.
struct FieldResetter {
    int active = 0;
    std::uint32_t hNow = 0;
    std::uint32_t hReset = 0;
    int current = -1;
    void GoToReset() const;
    void GoBack() const;
};

// What a reset needs: the current and its reset bias (changed in place), the voltage, the
// probe that tells the reset state is reached, and the message shown when it is not.
struct ResetFunctor {
    int current;
    BoundedBits* iReset;
    int voltage;
    bool (*probe)(int current, std::uint32_t bits, int voltage);
    void (*fail)();
    FieldResetter field;
};

// The voltage probes: set the current, wait SystemDecayTime, read. True below the criterion.
bool SearchBelowCriterion(int current, std::uint32_t bits, int voltage);
// 1 on the step, 2 beyond it, 0 otherwise.
int CompareWithStep(int current, std::uint32_t bits, int voltage);
// True when the reset of the Im search has reached the side of the reset voltage.
bool ResetProbeIm(int current, std::uint32_t bits, int voltage);
void ShowZeroVoltageFailure();
void ShowResetVoltageFailure();

// 1 when the reset state was reached; 0 after the failure message. The current stays at the
// reset bias.
int ResetVoltageState(ResetFunctor& f);

// One search at point n. 1: Ic found, the current stands at it, lastIc and iReset updated.
// 0: a failure was shown and the family was cut; the scan goes to its epilogue.
int SearchIc(void* dlg, std::uint32_t n, int current, int voltage, std::uint32_t& lastIc,
             std::uint32_t& previousIc, std::uint32_t& iReset, const FieldResetter& field);
// The Im search; lastState tells whether the voltage was ever on the step (1) at this point.
int SearchIm(void* dlg, std::uint32_t n, unsigned curve, int current, int voltage,
             std::uint32_t& lastIc, std::uint32_t& previousIc, std::uint32_t& iReset,
             const FieldResetter& field, int& lastState);

// The phase line of the dialog and, when asked for, a line of "Ic(H).log".
void LogPhase(void* dlg, const char* format, ...) __attribute__((format(printf, 2, 3)));

// Counters and statistics of a scan; written by the measurement thread.
struct IcSearchCounters {
    std::uint64_t probeNs = 0, probes = 0, resetNs = 0, resets = 0;
};
extern IcSearchCounters gIcSearchCounters;
extern Statistic DeltaIcStatistic;
extern Statistic PredictionMissStatistic;
void IcSearchBeginScan();
// Fills gIcStatistics. Throws StatisticException for a scan of fewer than two points.
void IcSearchEndScan();
