#include "instrument/virtual_channels.h"
#include "support/physical_units.h"
#include "ui/measure_panel.h"

#include <cstdio>
#include <utility>

namespace {

constexpr std::uint32_t kFull = 65535;

int SweepCurrent(const SweepRange& r) {
    return r.findCurrent ? r.findCurrent() : -1;
}

void Text(MeasurePanel& p, int range, int control, const char* text) {
    if (p.view) p.view->SetText(p.viewData, SweepControlId(range, control), text);
}
void Check(MeasurePanel& p, int range, int control, int on) {
    if (p.view) p.view->SetCheck(p.viewData, SweepControlId(range, control), on);
}
void Enable(MeasurePanel& p, int range, int control, int on) {
    if (p.view) p.view->Enable(p.viewData, SweepControlId(range, control), on);
}

// The present value of the swept current on the common scale.
bool PresentValue(const SweepRange& r, std::uint32_t* value) {
    int c = SweepCurrent(r);
    if (c < 0) return false;
    *value = ScaleFromCardBits(c, MirrorCurrentBits(c, DacState[c]));
    return true;
}

// "set stop" shows whether to is off full scale, also when symmetric moved it.
void FollowStop(MeasurePanel& p, int range) {
    SweepRange& r = WorkingRange(range);
    p.sweep[range].setStop = r.to != kFull;
    Check(p, range, SC_SetStop, p.sweep[range].setStop);
}

void Changed(MeasurePanel& p) {
    RecomputePoints(p);
    ShowMemory(p);
}

} // namespace

SweepRange& WorkingRange(int range) {
    return range == 0 ? MeasureWorkingRange1 : MeasureWorkingRange2;
}

std::uint32_t& WorkingPoints(int range) {
    return range == 0 ? MeasurePointsN1 : MeasurePointsN2;
}

std::uint32_t LimitedPointCount(SweepRange& r, std::uint32_t growth, std::uint32_t limit) {
    std::uint32_t distance = r.to > r.from ? r.to - r.from : r.from - r.to;
    if (growth == 0) growth = 1;
    for (;;) {
        if (r.step != 0) {
            std::uint32_t n = distance / r.step;
            if (n <= limit) return n + 1;
        }
        r.step += growth;
    }
}

void RecomputePoints(MeasurePanel& p) {
    for (int range = 0; range < 2; ++range) {
        SweepRange& r = WorkingRange(range);
        if (!r.findCurrent) { // a count range: N is what the user typed
            ShowSweep(p, range);
            continue;
        }
        int c = r.findCurrent();
        p.sweep[range].missing = c < 0;
        if (c < 0) {
            WorkingPoints(range) = 1;
        } else {
            std::uint32_t before = r.step;
            std::uint32_t limit = r.bothDirections ? 0x7FFFFFFEu : 0xFFFFFFFEu;
            WorkingPoints(range) = LimitedPointCount(r, ScaleFromCardBits(c, 1), limit);
            if (r.step != before) {
                char text[16];
                std::uint32_t bits = ScaleToCardBits(c, r.step);
                std::snprintf(text, sizeof text, "%u", bits ? bits : 1);
                Text(p, range, SC_Step, text);
            }
        }
        ShowSweep(p, range);
    }
}

void ShowSweep(MeasurePanel& p, int range) {
    SweepRange& r = WorkingRange(range);
    char text[48];
    if (p.sweep[range].missing)
        std::snprintf(text, sizeof text, "???");
    else
        std::snprintf(text, sizeof text, "%u", WorkingPoints(range));
    Text(p, range, SC_Points, text);
    int c = SweepCurrent(r);
    if (r.findCurrent && c >= 0)
        std::snprintf(text, sizeof text, "%u .. %u", ScaleToCardBits(c, r.from),
                      ScaleToCardBits(c, r.to));
    else if (r.findCurrent)
        std::snprintf(text, sizeof text, "???");
    else
        text[0] = 0;
    Text(p, range, SC_Limits, text);
}

void SweepSetStart(MeasurePanel& p, int range, int on) {
    if (p.running) return; // the thread owns the working ranges now
    SweepRange& r = WorkingRange(range);
    std::uint32_t value = 0;
    if (on && !PresentValue(r, &value)) on = 0;
    r.from = on ? value : 0;
    p.sweep[range].setStart = on;
    Check(p, range, SC_SetStart, on);
    if (r.symmetric) {
        r.to = kFull - r.from;
        FollowStop(p, range);
    }
    Changed(p);
}

void SweepSetStop(MeasurePanel& p, int range, int on) {
    if (p.running) return;
    SweepRange& r = WorkingRange(range);
    std::uint32_t value = kFull;
    if (on && !PresentValue(r, &value)) on = 0;
    r.to = on ? value : kFull;
    p.sweep[range].setStop = on;
    Check(p, range, SC_SetStop, on);
    if (r.symmetric) {
        r.to = kFull - r.from;
        FollowStop(p, range);
    }
    Changed(p);
}

static void GoTo(MeasurePanel& p, int range, bool start) {
    if (p.running) return;
    SweepRange& r = WorkingRange(range);
    int c = SweepCurrent(r);
    if (c < 0) return;
    SetCurrent(ScaleToCardBits(c, start ? r.from : r.to), c);
    RefreshCurrentRows(p, c);
}

void SweepGoStart(MeasurePanel& p, int range) {
    GoTo(p, range, true);
}
void SweepGoStop(MeasurePanel& p, int range) {
    GoTo(p, range, false);
}

void SweepSymmetric(MeasurePanel& p, int range, int on) {
    if (p.running) return;
    SweepRange& r = WorkingRange(range);
    r.symmetric = on ? 1 : 0;
    Check(p, range, SC_Symmetric, r.symmetric);
    if (on) {
        r.to = kFull - r.from;
        FollowStop(p, range);
    }
    p.sweep[range].stopEnabled = !on;
    Enable(p, range, SC_SetStop, !on);
    Changed(p);
}

void SweepBothDirections(MeasurePanel& p, int range, int on) {
    if (p.running) return;
    WorkingRange(range).bothDirections = on ? 1 : 0;
    Check(p, range, SC_Both, on ? 1 : 0);
    Changed(p);
}

void SweepReset(MeasurePanel& p, int range) {
    if (p.running) return;
    SweepRange& r = WorkingRange(range);
    r.from = 0;
    r.to = kFull;
    r.symmetric = 0;
    p.sweep[range] = SweepPanel{0, 0, 1, p.sweep[range].missing};
    Check(p, range, SC_SetStart, 0);
    Check(p, range, SC_SetStop, 0);
    Check(p, range, SC_Symmetric, 0);
    Enable(p, range, SC_SetStop, 1);
    Changed(p);
}

void SweepXchange(MeasurePanel& p, int range) {
    if (p.running) return;
    SweepRange& r = WorkingRange(range);
    std::swap(r.from, r.to);
    Changed(p);
}

void SweepStepBits(MeasurePanel& p, int range, std::uint32_t bits) {
    if (p.running) return;
    SweepRange& r = WorkingRange(range);
    std::uint32_t step = ScaleFromCardBits(SweepCurrent(r), bits);
    if (step == 0 || step > 32768) step = 1;
    r.step = step;
    Changed(p);
}

void SweepPoints(MeasurePanel& p, int range, std::uint32_t n) {
    if (p.running) return;
    WorkingPoints(range) = n ? n : 1;
    ShowSweep(p, range);
    ShowMemory(p);
}

double MeasureMemoryBytes(std::uint32_t n1, int both1, std::uint32_t n2, int both2,
                          int signalCount) {
    return (n1 * 8.0 * (both1 ? 2 : 1) + 146.0) * n2 * (both2 ? 2 : 1) * signalCount;
}

void MeasureMemoryText(char* text, std::size_t size, double bytes) {
    char value[48];
    if (bytes == 0)
        std::snprintf(value, sizeof value, "???");
    else
        FormatPhysical(value, static_cast<float>(bytes), "B", sizeof value);
    std::snprintf(text, size, "Memory: %s", value);
}

void ShowMemory(MeasurePanel& p) {
    const MeasureParams* params = p.params;
    bool second = params && params->secondary;
    double bytes = MeasureMemoryBytes(
        MeasurePointsN1, MeasureWorkingRange1.bothDirections, second ? MeasurePointsN2 : 1,
        second ? MeasureWorkingRange2.bothDirections : 0, ListSignalVoltages());
    char text[64];
    MeasureMemoryText(text, sizeof text, bytes);
    if (p.view) p.view->SetText(p.viewData, MC_Memory, text);
}
