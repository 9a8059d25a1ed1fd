// A window that only remembers what the panel logic told it.
#pragma once
#include "ui/measure_panel.h"

#include <map>
#include <string>

struct RecordedPanel {
    std::map<int, std::string> text;
    std::map<int, int> check;
    std::map<int, int> enabled;
    int ended = -1;
    int timerOn = 0;
    int progress = -1;
    std::string progressText;
    CurrentRowView currentRows[kPanelCurrentRows] = {};
    VoltageRowView voltageRows[kPanelVoltageRows] = {};
};

const MeasurePanelView& RecordingView();
// Records of measurements whose thread functions are elsewhere: a two-sweep and a count range.
extern const MeasureParams kTwoSweepParams;
extern const MeasureParams kCountParams;
// Opens panel over a fresh record with the rows given.
void OpenRecorded(MeasurePanel& panel, RecordedPanel& view, const MeasureParams& params,
                  int currentRows = 4, int voltageRows = 6);
void OpenRecorded(MeasurePanel& panel, RecordedPanel& view, const char* title, int currentRows = 4,
                  int voltageRows = 6);
