#include "curve/curve_style.h"
#include "instrument/daq_cards.h"
#include "instrument/thermometer.h"
#include "instrument/virtual_channels.h"
#include "support/physical_units.h"
#include "ui/measure_panel.h"

#include <cstring>

namespace {

int VisibleRows(int rows, int table) {
    return rows < table ? rows : table;
}

int GroupOf(int c) {
    if (IsSweep1Current(c)) return 1;
    if (IsSweep2Current(c)) return 2;
    return 0;
}

u32 DacZero(int c) {
    return DacCards[CurrentChannels[c].DACSlot].ZeroReading;
}

CurrentRowView ReadCurrentRow(int c) {
    CurrentRowView row{};
    row.current = c;
    row.connected = IsCurrentConnected(c);
    row.group = GroupOf(c);
    row.position = SliderPositionFromBits(c, DacState[c], kSliderPositions);
    if (row.connected)
        FormatPhysicalDigits(row.text, sizeof row.text, static_cast<float>(GetCurrent(c)), 4, "A");
    return row;
}

} // namespace

bool SameCurrentGroup(int a, int b) {
    if (a == b) return true;
    if (IsSweep1Current(a) && IsSweep1Current(b)) return true;
    if (IsSweep2Current(a) && IsSweep2Current(b)) return true;
    return IsWaveCurrent(a) && IsWaveCurrent(b);
}

void RefreshCurrentRows(MeasurePanel& p, int changed) {
    if (p.running) return; // the thread's next point shows them
    int rows = VisibleRows(p.currentRows, kCurrentChannelCount);
    for (int row = 0; row < rows; ++row) {
        int c = p.currentBase + row;
        if (changed >= 0 && !SameCurrentGroup(c, changed)) continue;
        // A value beyond the DAC (a smaller card named later) goes back to the card's zero.
        if (DacState[c] > DacCards[CurrentChannels[c].DACSlot].MaxReading) DacState[c] = DacZero(c);
    }
    // Every row is shown again: a move of one current changes what the monitors of others read.
    CurrentRowView all[kCurrentChannelCount];
    ShowCurrentRows(p, all, ReadCurrentRows(p, all));
}

int ReadCurrentRows(const MeasurePanel& p, CurrentRowView* rows) {
    int count = VisibleRows(p.currentRows, kCurrentChannelCount);
    int base = p.currentBase;
    for (int row = 0; row < count; ++row)
        rows[row] = ReadCurrentRow(base + row);
    return count;
}

void ShowCurrentRows(MeasurePanel& p, const CurrentRowView* rows, int count) {
    if (!p.view || (count > 0 && rows[0].current != p.currentBase)) return;
    for (int row = 0; row < count; ++row)
        p.view->ShowCurrentRow(p.viewData, row, rows[row]);
}

int DescribeVoltageRows(const MeasurePanel& p, VoltageRowView* rows) {
    int count = VisibleRows(p.voltageRows, kVoltageChannelCount);
    int base = p.voltageBase;
    for (int row = 0; row < count; ++row) {
        int v = base + row;
        VoltageRowView& r = rows[row];
        r = VoltageRowView{};
        r.voltage = v;
        const AdcCard& adc = AdcCards[VoltageChannels[v].ADCSlot];
        r.minimum = adc.MinReading;
        r.maximum = adc.MaxReading;
        r.color = RGB_Spectrum7(static_cast<unsigned>(v) % kCurveStyleCount, kCurveStyleCount);
        r.connected = IsVoltageConnected(v);
        r.bits = adc.ZeroReading;
    }
    return count;
}

int ReadVoltageRows(const MeasurePanel& p, VoltageRowView* rows) {
    int count = DescribeVoltageRows(p, rows);
    for (int row = 0; row < count; ++row) {
        VoltageRowView& r = rows[row];
        if (!r.connected) continue;
        VoltageReading reading = GetVoltage(r.voltage);
        FormatPhysicalDigits(r.text, sizeof r.text, static_cast<float>(reading.volts), 4, "V");
        r.bits = reading.bits;
    }
    return count;
}

void ShowVoltageRows(MeasurePanel& p, const VoltageRowView* rows, int count) {
    if (!p.view || (count > 0 && rows[0].voltage != p.voltageBase)) return;
    for (int row = 0; row < count; ++row)
        p.view->ShowVoltageRow(p.viewData, row, rows[row]);
}

void RefreshVoltageRows(MeasurePanel& p) {
    VoltageRowView rows[kVoltageChannelCount];
    int n = p.running ? DescribeVoltageRows(p, rows) : ReadVoltageRows(p, rows);
    ShowVoltageRows(p, rows, n);
}

static int Clamp(int base, int rows, int table) {
    int maximum = rows < table ? table - rows : 0;
    return base < 0 ? 0 : base > maximum ? maximum : base;
}

void ScrollCurrentRows(MeasurePanel& p, int base) {
    p.currentBase = Clamp(base, p.currentRows, kCurrentChannelCount);
    RefreshCurrentRows(p, -1);
}

void ScrollVoltageRows(MeasurePanel& p, int base) {
    p.voltageBase = Clamp(base, p.voltageRows, kVoltageChannelCount);
    RefreshVoltageRows(p);
}

void CurrentSlider(MeasurePanel& p, int row, std::uint32_t position) {
    int c = p.currentBase + row;
    if (p.running || c < 0 || c >= kCurrentChannelCount) return;
    if (position >= kSliderPositions) position = kSliderPositions - 1;
    if (IsCurrentConnected(c)) {
        SetCurrentAbs(BitsFromSliderPosition(c, position, kSliderPositions), c);
        RefreshCurrentRows(p, c);
    }
    RefreshVoltageRows(p);
}

void CurrentRowReset(MeasurePanel& p, int row) {
    int c = p.currentBase + row;
    if (p.running || c < 0 || c >= kCurrentChannelCount) return;
    SetCurrentAbs(DacZero(c), c);
    RefreshCurrentRows(p, c);
}

void CurrentRowButton(MeasurePanel& p, int row) {
    if (!p.view || p.running) return;
    p.view->OpenChannelSetup(p.viewData, 0, p.currentBase + row);
    RefreshCurrentRows(p, -1);
    RecomputePoints(p);
    ShowMemory(p);
}

void VoltageRowButton(MeasurePanel& p, int row) {
    if (!p.view || p.running) return;
    p.view->OpenChannelSetup(p.viewData, 1, p.voltageBase + row);
    RefreshVoltageRows(p);
    ShowMemory(p);
}

void TimerTick(MeasurePanel& p) {
    if (p.running) return; // the thread alone reads the cards during a run
    CurrentRowView rows[kCurrentChannelCount];
    ShowCurrentRows(p, rows, ReadCurrentRows(p, rows));
    RefreshVoltageRows(p);
    // The temperature field shows only when a T-sensor is wired, so no card is read for it
    // otherwise.
    if (p.view && FirstTSensorVoltage() >= 0) {
        char text[20];
        FormatTemperature(static_cast<f32>(GetTemperature()), text, sizeof text);
        p.view->SetText(p.viewData, MC_Temperature, text);
    }
}

void PanelAllToZero(MeasurePanel& p) {
    if (p.running) return;
    for (int c = 0; c < kCurrentChannelCount; ++c)
        SetCurrentAbs(DacZero(c), c);
    RefreshCurrentRows(p, -1);
}

void PanelSweep1ToZero(MeasurePanel& p) {
    int c = FirstSweep1Current();
    if (p.running || c < 0) return;
    SetCurrentAbs(DacZero(c), c);
    RefreshCurrentRows(p, c);
}
