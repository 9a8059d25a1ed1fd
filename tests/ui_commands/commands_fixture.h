// A clean program state for each command test: empty families, unsaved, no selection, the
// headless host and window with nothing recorded.
#pragma once
#include "curve/undo.h"
#include "platform/headless_host.h"
#include "ui/command_table.h"
#include "ui/main_state.h"
#include "ui/main_window_calls.h"

#include <gtest/gtest.h>

class Commands : public ::testing::Test {
  protected:
    void SetUp() override {
        HeadlessReset();
        HeadlessWindow() = HeadlessWindowRecord();
        gCurves.Reset();
        gUndoCurves.Reset();
        fUndoEnabled = 0;
        fDataSaved = 0;
        SetSelectionState(0);
    }

    // A family of curves with points (i, c * i).
    static void Fill(unsigned curves, unsigned points) {
        gCurves.SetCurveCount(curves);
        for (unsigned c = 0; c < curves; ++c)
            for (unsigned i = 0; i < points; ++i)
                gCurves.GetCurve(c).AddPoint(float(i), float(c * i));
    }
};
