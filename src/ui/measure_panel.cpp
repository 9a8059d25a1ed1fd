#include "ui/measure_panel.h"

#include "curve/curve_style.h"
#include "curve/undo.h"
#include "instrument/autozero.h"
#include "instrument/virtual_channels.h"
#include "platform/host.h"
#include "support/bounded_text.h"
#include "support/error_report.h"
#include "support/message_box.h"

#include <cstdio>
#include <cstring>

int gMeasureAutoZeroBox = 0;

const int kRunDisabledControls[] = {
    MC_DoIt,
    MC_Options,
    MC_Generator,
    MC_GeneratorMore,
    MC_Pause,
    MC_Resume,
    MC_Clear,
    MC_AutoZero,
    MC_AutoZeroMore,
    MC_All,
    MC_Sweep1Zero,
    // Beyond the buttons of the protocol: whatever else moves a current or opens options.
    MC_XAxis,
    MC_YAxis,
    MC_CurrentRows,
    MC_VoltageRows,
    SweepControlId(0, SC_SetStart),
    SweepControlId(0, SC_SetStop),
    SweepControlId(0, SC_GoStart),
    SweepControlId(0, SC_GoStop),
    SweepControlId(1, SC_SetStart),
    SweepControlId(1, SC_SetStop),
    SweepControlId(1, SC_GoStart),
    SweepControlId(1, SC_GoStop),
    // The sweep rows write the working ranges, which the thread owns during the run.
    SweepControlId(0, SC_Symmetric),
    SweepControlId(0, SC_Both),
    SweepControlId(0, SC_Reset),
    SweepControlId(0, SC_Xchange),
    SweepControlId(0, SC_Step),
    SweepControlId(1, SC_Symmetric),
    SweepControlId(1, SC_Both),
    SweepControlId(1, SC_Reset),
    SweepControlId(1, SC_Xchange),
    SweepControlId(1, SC_Step),
};
const int kRunDisabledCount = sizeof kRunDisabledControls / sizeof kRunDisabledControls[0];

namespace {

// The hardware generator is not part of this program yet: its controls stay off.
const int kGeneratorControls[] = {MC_Generator, MC_GeneratorMore, MC_Pause, MC_Resume, MC_Clear};

void Enable(MeasurePanel& p, int control, int on) {
    if (p.view) p.view->Enable(p.viewData, control, on);
}

void LoadRange(int range, const SweepRange* own) {
    SweepRange defaults{0, 65535, 1, 0, 0, nullptr};
    if (range == 1) defaults.to = 0;
    WorkingRange(range) = own ? *own : defaults;
}

void OpenRange(MeasurePanel& p, int range) {
    SweepRange& r = WorkingRange(range);
    const int boxes[] = {SC_SetStart, SC_SetStop, SC_GoStart, SC_GoStop, SC_Symmetric};
    if (!r.findCurrent) {
        for (int b : boxes)
            Enable(p, SweepControlId(range, b), 0);
        WorkingPoints(range) = SweepPointCount(r);
    } else {
        p.sweep[range].setStart = r.from != 0;
        p.sweep[range].setStop = r.to != 65535;
        if (p.view) {
            p.view->SetCheck(p.viewData, SweepControlId(range, SC_SetStart),
                             p.sweep[range].setStart);
            p.view->SetCheck(p.viewData, SweepControlId(range, SC_SetStop), p.sweep[range].setStop);
        }
        SweepSymmetric(p, range, r.symmetric);
    }
    if (p.view) p.view->SetCheck(p.viewData, SweepControlId(range, SC_Both), r.bothDirections != 0);
    int c = r.findCurrent ? r.findCurrent() : -1;
    std::uint32_t bits = ScaleToCardBits(c, r.step);
    char text[16];
    std::snprintf(text, sizeof text, "%u", bits ? bits : 1);
    if (p.view) p.view->SetText(p.viewData, SweepControlId(range, SC_Step), text);
}

} // namespace

bool MeasureCaption(char* caption, std::size_t size, const char* title) {
    std::size_t need = std::strlen(caption) + std::strlen(title);
    if (need >= 256 || need >= size) {
        INTERNAL_ERROR(INTERNAL_ERROR_STRING);
        return false;
    }
    BoundedAppend(caption, title, size);
    return true;
}

void MeasurePanelOpen(MeasurePanel& p, const MeasureParams& params, const MeasurePanelView* view,
                      void* viewData, void* dialog, int currentRows, int voltageRows) {
    p.params = &params;
    p.view = view;
    p.viewData = viewData;
    p.dialog = dialog;
    p.running = 0;
    p.ended = 0;
    p.currentRows = currentRows < kPanelCurrentRows ? currentRows : kPanelCurrentRows;
    p.voltageRows = voltageRows < kPanelVoltageRows ? voltageRows : kPanelVoltageRows;
    p.currentBase = 0;
    p.voltageBase = 0;
    if (view) {
        view->SetRowScroll(viewData, 0, kPanelCurrentRows - p.currentRows);
        view->SetRowScroll(viewData, 1, kPanelVoltageRows - p.voltageRows);
    }

    LoadRange(0, params.primary);
    LoadRange(1, params.secondary);
    for (int range = 0; range < 2; ++range)
        p.sweep[range] = SweepPanel{};
    OpenRange(p, 0);
    OpenRange(p, 1);
    RecomputePoints(p);
    ShowMemory(p);

    Enable(p, MC_Options, params.optionsHandler != nullptr);
    Enable(p, MC_XAxis, params.xAxisHandler != nullptr);
    Enable(p, MC_YAxis, params.yAxisHandler != nullptr);
    for (int control : kGeneratorControls)
        Enable(p, control, 0);
    if (view) {
        view->SetCheck(viewData, MC_Generator, 0);
        view->SetCheck(viewData, MC_AutoZero, gMeasureAutoZeroBox);
        view->SetText(viewData, MC_Cancel, "Cancel");
    }
    RefreshCurrentRows(p, -1);
    RefreshVoltageRows(p);
    if (view && !view->StartTimer(viewData, 250))
        MessageBoxBeep(dialog,
                       "Can not run timer.\nCurrent and voltage readings\nwill not be animated",
                       "Error in MeasureDlg_OnInitDialog()", MB_OK | MB_ICONERROR);
}

void PanelAutoZero(MeasurePanel& p, int on) {
    if (p.running) return;
    int state = DoAutoZero(on, p.dialog);
    if (p.view) p.view->SetCheck(p.viewData, MC_AutoZero, state);
    gMeasureAutoZeroBox = state;
    RefreshCurrentRows(p, -1);
    RefreshVoltageRows(p);
}

void PanelShowShifts(MeasurePanel& p, int monitors) {
    if (monitors)
        ShowAutoZeroMonitorShifts(p.dialog);
    else
        ShowAutoZeroVoltageShifts(p.dialog);
}

void PanelHandler(MeasurePanel& p, int which) {
    if (!p.params || p.running) return;
    void (*handler)(void*, void*) = which == 0   ? p.params->optionsHandler
                                    : which == 1 ? p.params->xAxisHandler
                                                 : p.params->yAxisHandler;
    if (!handler) return;
    handler(nullptr, p.dialog);
    RecomputePoints(p);
    ShowMemory(p);
}

static void End(MeasurePanel& p, int result) {
    if (p.ended) return;
    p.ended = 1;
    if (p.view) p.view->End(p.viewData, result);
}

void MeasurePanelDoIt(MeasurePanel& p, int doIt) {
    if (p.ended) return;
    if (p.running) {
        // Stop: the thread sees it at its next point and ends the dialog itself.
        if (!doIt) fAbortRequested = 1;
        return;
    }
    if (p.view) p.view->StopTimer(p.viewData);
    SweepRange& primary = MeasureWorkingRange1;
    if (!primary.findCurrent) {
        primary.from = 0;
        primary.to = MeasurePointsN1 ? MeasurePointsN1 - 1 : 0;
        primary.step = 1;
    }
    // Also on Cancel: limits set and then cancelled are kept for the next opening.
    if (p.params && p.params->primary) *p.params->primary = MeasureWorkingRange1;
    if (p.params && p.params->secondary) *p.params->secondary = MeasureWorkingRange2;
    fAbortRequested = 0;

    if (doIt && p.params) {
        if (!SaveUndo()) {
            End(p, 0);
            return;
        }
        RedoAutoZero(p.dialog);
        for (int k = 0; k < kRunDisabledCount; ++k)
            Enable(p, kRunDisabledControls[k], 0);
        p.running = 1;
        if (!StartMeasurementThread(p.dialog, *p.params)) {
            // StartMeasurementThread has ended the dialog through its calls already.
            p.running = 0;
            return;
        }
        if (p.view) p.view->SetText(p.viewData, MC_Cancel, "Stop");
        return;
    }
    End(p, 0);
}

void MeasurePanelEnded(MeasurePanel& p, int result) {
    p.running = 0;
    for (int k = 0; k < kRunDisabledCount; ++k)
        Enable(p, kRunDisabledControls[k], 1);
    for (int control : kGeneratorControls)
        Enable(p, control, 0);
    Enable(p, MC_Options, p.params && p.params->optionsHandler);
    Enable(p, MC_XAxis, p.params && p.params->xAxisHandler);
    Enable(p, MC_YAxis, p.params && p.params->yAxisHandler);
    for (int range = 0; range < 2; ++range) {
        bool finder = WorkingRange(range).findCurrent != nullptr;
        Enable(p, SweepControlId(range, SC_SetStart), finder);
        Enable(p, SweepControlId(range, SC_GoStart), finder);
        Enable(p, SweepControlId(range, SC_GoStop), finder);
        Enable(p, SweepControlId(range, SC_Symmetric), finder);
        Enable(p, SweepControlId(range, SC_SetStop), finder && p.sweep[range].stopEnabled);
    }
    if (p.view) p.view->SetText(p.viewData, MC_Cancel, "Cancel");
    End(p, result);
}

void MeasurePanelShowPoints(MeasurePanel& p, int which, const char* text) {
    if (p.view) p.view->SetText(p.viewData, SweepControlId(which == 2 ? 1 : 0, SC_Points), text);
}

void MeasurePanelShowProgress(MeasurePanel& p, int percent, const char* text) {
    if (p.view) p.view->ShowProgress(p.viewData, percent, text);
}

void MeasurePanelShowVoltage(MeasurePanel& p, int voltage, const char* text, unsigned bits) {
    int row = voltage - p.voltageBase;
    int rows = p.voltageRows;
    if (row < 0 || row >= rows || !p.view) return;
    VoltageRowView r{};
    r.voltage = voltage;
    r.connected = 1;
    r.bits = static_cast<std::int32_t>(bits);
    const AdcCard& adc = AdcCards[VoltageChannels[voltage].ADCSlot];
    r.minimum = adc.MinReading;
    r.maximum = adc.MaxReading;
    r.color = RGB_Spectrum7(static_cast<unsigned>(voltage) % kCurveStyleCount, kCurveStyleCount);
    BoundedCopy(r.text, text, sizeof r.text);
    p.view->ShowVoltageRow(p.viewData, row, r);
}
