#include "common/test_support.h"
#include "settings/profile.h"
#include "measure/measure_options.h"

#include <gtest/gtest.h>

// Load keeps what the file lacks; save writes every key, in order, in its own section.
TEST(MeasureOptions, DelaysLoadKeepsMissingKeysAndSaveWritesAll) {
    TempDir dir;
    std::string ini = dir.File("vtl.ini");
    WriteWholeFile(ini, "[Measure]\r\nSystemDecayTime=15\r\nStopAfterEachCurve=1\r\n"
                        "CurrentMesureMethod=1\r\n[Setup]\r\nSwapXY_Axes=1\r\n");
    Delays_LoadOptions(ini.c_str());
    GeneralMeasure_LoadOptions(ini.c_str());
    std::string out = dir.File("out.ini");
    Delays_SaveOptions(out.c_str());
    GeneralMeasure_SaveOptions(out.c_str());
    EXPECT_EQ(ReadWholeFile(out),
              "[Measure]\r\nDelayAfterJumpToStart=0\r\nSystemDecayTime=15\r\nDelayAfterSweep2=0\r\n"
              "DelayBeforeVoltage=0\r\nMaxDACStep=256\r\nPrimitiveGeneratorStep=256\r\n"
              "InteractionTime=500\r\nStopAfterEachCurve=1\r\nCurrentMesureMethod=1\r\n"
              "\r\n[Setup]\r\nSwapXY_Axes=1\r\nRescalePlotAfterMeasurement=1\r\n");
    SystemDecayTime = 0;
    StopAfterEachCurve = CurrentMesureMethod = SwapXY_Axes = 0;
}

// The radio caption that the printed row shows for the chosen button.
TEST(MeasureOptions, PrintedRowShowsTheChosenMethod) {
    OptionRows rows;
    CurrentMesureMethod = 1;
    GeneralMeasure_WriteRows(rows);
    CurrentMesureMethod = 0;
    EXPECT_EQ(
        OptionRowsText(rows),
        "General Measurement Options\nHow the sweep current is measured\tonly on the edges\n");
}
