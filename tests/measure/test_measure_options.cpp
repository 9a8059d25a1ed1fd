#include "common/test_support.h"
#include "settings/profile.h"
#include "measure/measure_options.h"
#include "platform/headless_host.h"

#include <gtest/gtest.h>

TEST(MeasureOptions, DelaysLoadKeepsMissingKeysAndSaveWritesAll) {
    TempDir dir;
    std::string ini = dir.File("vtl.ini");
    EXPECT_EQ(InteractionTime, 500u);
    EXPECT_EQ(MaxDACStep, 256u);
    WriteWholeFile(ini, "[Measure]\r\nSystemDecayTime=15\r\nStopAfterEachCurve=1\r\n"
                        "CurrentMesureMethod=1\r\n[Setup]\r\nSwapXY_Axes=1\r\n");
    Delays_LoadOptions(ini.c_str());
    GeneralMeasure_LoadOptions(ini.c_str());
    EXPECT_EQ(SystemDecayTime, 15u);
    EXPECT_EQ(StopAfterEachCurve, 1);
    EXPECT_EQ(InteractionTime, 500u);
    EXPECT_EQ(PrimitiveGeneratorStep, 256u);
    EXPECT_EQ(CurrentMesureMethod, 1);
    EXPECT_EQ(SwapXY_Axes, 1);
    EXPECT_EQ(RescalePlotAfterMeasurement, 1);
    std::string out = dir.File("out.ini");
    Delays_SaveOptions(out.c_str());
    GeneralMeasure_SaveOptions(out.c_str());
    EXPECT_EQ(ReadWholeFile(out),
              "[Measure]\r\nDelayAfterJumpToStart=0\r\nSystemDecayTime=15\r\nDelayAfterSweep2=0\r\n"
              "DelayBeforeVoltage=0\r\nMaxDACStep=256\r\nPrimitiveGeneratorStep=256\r\n"
              "InteractionTime=500\r\nStopAfterEachCurve=1\r\nCurrentMesureMethod=1\r\n"
              "\r\n[Setup]\r\nSwapXY_Axes=1\r\nRescalePlotAfterMeasurement=1\r\n");
    SystemDecayTime = 0;
    StopAfterEachCurve = 0;
    CurrentMesureMethod = 0;
    SwapXY_Axes = 0;
}

TEST(MeasureOptions, LimitsOfTheDelaysTable) {
    const SetupRow* rows = gDelaysSetupTable.rows;
    ASSERT_EQ(gDelaysSetupTable.rowCount, 8u);
    EXPECT_EQ(rows[4].minimum.u, 1u); // MaxDACStep from 1
    EXPECT_EQ(rows[5].minimum.u, 1u);
    EXPECT_EQ(rows[5].maximum.u, 1024u);
    EXPECT_EQ(rows[7].kind, SETUP_CHECK);
    EXPECT_EQ(gGeneralMeasureSetupTable.rows[0].kind, SETUP_RADIO);
}

TEST(MeasureOptions, PrintedRows) {
    OptionRows rows;
    DelayAfterSweep2 = 12;
    Delays_WriteRows(rows);
    DelayAfterSweep2 = 0;
    EXPECT_EQ(OptionRowsText(rows), "Delays\n"
                                    "Delay after current jumps to the first point (ms)\t0\n"
                                    "Delay after Sweep1 is set (ms)\t0\n"
                                    "Delay after Sweep2 is set (ms)\t12\n"
                                    "Delay after multiplexing  (ms)\t0\n"
                                    "Interactivity time (ms)\t500\n"
                                    "Stop After Each Curve?\tNo\n");
    CurrentMesureMethod = 1;
    GeneralMeasure_WriteRows(rows);
    CurrentMesureMethod = 0;
    ASSERT_EQ(rows.rows.size(), 1u);
    EXPECT_EQ(rows.title, "General Measurement Options");
    EXPECT_EQ(rows.rows[0].label, "How the sweep current is measured");
    EXPECT_EQ(rows.rows[0].value, "only on the edges");
}

TEST(MeasureOptions, DialogsGoThroughTheHostAndCancelChangesNothing) {
    HeadlessReset();
    HeadlessScriptDialog(0);
    EXPECT_EQ(Delays_OptionsDialog(nullptr), 0);
    EXPECT_EQ(GeneralMeasure_OptionsDialog(nullptr), 1);
    EXPECT_EQ(InteractionTime, 500u);
}
