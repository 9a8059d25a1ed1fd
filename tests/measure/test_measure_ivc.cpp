// V(I) runs on the simulated sample, wired by the shipped settings file.
#include "common/test_support.h"
#include "curve/undo.h"
#include "ui/settings_registry.h"
#include "instrument/daq/daq_driver.h"
#include "instrument/daq/sim_driver.h"
#include "instrument/daq_cards.h"
#include "instrument/virtual_channels.h"
#include "measure/measure_ivc.h"
#include "measure/measure_options.h"
#include "measure/measure_run.h"
#include "platform/headless_host.h"
#include "platform/measure_dialog.h"
#include "support/bounded_text.h"

#include <gtest/gtest.h>

#include <csignal>

#include <cstdio>
#include <string>

namespace {

// The shipped settings with the thermometer table they name, so loading them is silent.
void CopyShippedSettings(const TempDir& dir) {
    for (const char* name : {"vtl.ini", "thinfilm.R(T)"})
        WriteWholeFile(dir.File(name), ReadWholeFile(SourcePath(std::string("data/") + name)));
}

// Stops the run when the points field shows point gStopAt (the refresh comes every point
// with InteractionTime 0), so the stop is seen at the end of that point.
std::uint32_t gStopAt = 0;
int gEnded = -1;
const MeasureDialogCalls gStopper = {
    .ShowPoints =
        [](void*, int which, const char* text) {
            unsigned n = 0;
            std::sscanf(text, "%u", &n);
            if (which == 1 && gStopAt && n == gStopAt) fAbortRequested = 1;
        },
    .ShowProgress = [](void*, int, const char*) {},
    .RefreshCurrents = [](void*) {},
    .RefreshVoltages = [](void*) {},
    .ShowVoltage = [](void*, int, const char*, unsigned) {},
    .ShowPhase = [](void*, const char*) {},
    .EndDialog = [](void*, int result) { gEnded = result; },
};

class MeasureIvcTest : public ::testing::Test {
  protected:
    void SetUp() override {
        std::string sim = dir_.File("simdaq.ini");
        WriteWholeFile(sim, "[Clock]\nMode=step\n[Noise]\nSeed=7\n");
        ASSERT_TRUE(SimDaqLoad(sim.c_str()));
        SetDaqDriver(&gSimDaqDriver);
        char report[kCardsReportSize];
        ASSERT_EQ(0, DetectCards(report, sizeof report, dir_.Path().c_str())) << report;
        InitDacState();
        CopyShippedSettings(dir_);
        BoundedCopy(gIniFileName, dir_.File("vtl.ini").c_str());
        LoadAllSettings(gIniFileName);
        savedInteraction_ = InteractionTime;
        InteractionTime = 0;
        SystemDecayTime = DelayAfterJumpToStart = 0;
        CurrentMesureMethod = 0;
        IVC_Trigger = 0;
        IVC_xAxis_WhatKindOfParam = 0;
        gStopAt = 0;
        gEnded = -1;
        SetMeasureDialog(&gStopper);
        gCurves.Reset();
        gUndoCurves.Reset();
        MeasureWorkingRange1 = IVC_Range;
    }
    void TearDown() override {
        InteractionTime = savedInteraction_;
        SetMeasureDialog(nullptr);
        ResetInstrumentDefaults();
        gCurves.Reset();
        gUndoCurves.Reset();
    }
    int Run() { return RunMeasurement(nullptr, *FindMeasureParams("IVC")); }

    TempDir dir_;
    std::uint32_t savedInteraction_ = 500;
};

} // namespace

// Both directions: the return starts at the turning value, so J1 switches near Ic on the way up
// and back near Ir on the way down.
TEST_F(MeasureIvcTest, BothDirectionsShowTheHysteresisLoopOfJ1) {
    MeasureWorkingRange1.from = 32768;
    MeasureWorkingRange1.to = 32768 + 6144; // 0 to 187.5 microamperes of bias
    MeasureWorkingRange1.step = 16;
    MeasureWorkingRange1.bothDirections = 1;
    ASSERT_EQ(Run(), 1);
    ASSERT_EQ(std::tuple(gEnded, gCurves.count), std::tuple(1, 3u));
    EXPECT_EQ(std::tuple(std::string(gCurves.GetCurve(0).GetName()), std::string(gCurves.name),
                         std::string(gCurves.xUnits), std::string(gCurves.yUnits)),
              std::tuple("J1", "IVC", "A", "V"));
    const Curve& j1 = gCurves.GetCurve(0);
    const std::uint32_t n = SweepPointCount(MeasureWorkingRange1);
    ASSERT_EQ(j1.count, 2 * n);
    EXPECT_NEAR(j1.GetPoint(n - 1).x, j1.GetPoint(n).x, 1e-6); // the turning value twice
    // The first point above 50 uV going up, and the first below it coming down.
    const float threshold = 50e-6f;
    std::uint32_t up = 0, down = n;
    while (up < n && j1.GetPoint(up).y <= threshold)
        ++up;
    while (down < 2 * n && j1.GetPoint(down).y >= threshold)
        ++down;
    ASSERT_TRUE(up < n && down < 2 * n);
    const double ic = SimDaqSampleState().j1.ic, ir = SimDaqSampleState().j1.ir;
    const double slack = 0.01 * ic + 2 * 16 * 20.0 / 65536 / 10000; // and two sweep steps
    EXPECT_NEAR(j1.GetPoint(up).x, ic, slack);
    EXPECT_NEAR(j1.GetPoint(down).x, ir, slack);
    // The swept current is back where it stood, and nothing needed a message.
    EXPECT_EQ(DacState[FirstSweep1Current()], 32768u);
    EXPECT_TRUE(HeadlessBoxes().empty());
}

TEST_F(MeasureIvcTest, StopEarlyClearsAndLaterKeepsThePointsBefore) {
    // Something to undo: a family from an earlier run.
    gCurves.SetCurveCount(1);
    gCurves.GetCurve(0).SetName("earlier");
    std::uint32_t before = DacState[FirstSweep1Current()];

    gStopAt = 3;
    ASSERT_EQ(Run(), 1);
    ASSERT_EQ(std::tuple(gCurves.count, gUndoCurves.count), std::tuple(0u, 1u));
    EXPECT_EQ(std::tuple(std::string(gUndoCurves.GetCurve(0).GetName()),
                         DacState[FirstSweep1Current()], gPaintedCurves.load()),
              std::tuple("earlier", before, &gCurves));
    gStopAt = 10;
    ASSERT_EQ(Run(), 1);
    ASSERT_EQ(gCurves.count, 3u);
    for (unsigned c = 0; c < 3; ++c)
        EXPECT_EQ(gCurves.GetCurve(c).count, 10u);
    EXPECT_EQ(DacState[FirstSweep1Current()], before);
    // No sound after a stop; a normal end plays IVC.wav.
    EXPECT_TRUE(HeadlessSounds().empty());
    gStopAt = 0;
    MeasureWorkingRange1.step = 4096;
    ASSERT_EQ(Run(), 1);
    ASSERT_EQ(HeadlessSounds().size(), 1u);
    EXPECT_NE(HeadlessSounds()[0].find("IVC.wav"), std::string::npos);
}

TEST_F(MeasureIvcTest, EdgesModeWritesALinearXAndMirrorsTheReturn) {
    CurrentMesureMethod = 1;
    MeasureWorkingRange1.from = 0;
    MeasureWorkingRange1.to = 65535 - 65535 % 4096; // the sweep passes exactly through to
    MeasureWorkingRange1.step = 4096;
    MeasureWorkingRange1.bothDirections = 1;
    ASSERT_EQ(Run(), 1);
    const Curve& c = gCurves.GetCurve(1);
    const std::uint32_t n = SweepPointCount(MeasureWorkingRange1);
    ASSERT_EQ(c.count, 2 * n);
    double x0 = c.GetPoint(0).x, dx = c.GetPoint(1).x - x0;
    ASSERT_NE(dx, 0.0);
    for (std::uint32_t k = 0; k < n; ++k) {
        EXPECT_NEAR(c.GetPoint(k).x, x0 + k * dx, 1e-6 * (1 + std::abs(x0))) << k;
        EXPECT_EQ(c.GetPoint(2 * n - k - 1).x, c.GetPoint(k).x) << k;
    }
    // The division is by N: the last forward point lies one interval short of x_end.
    double xEnd = x0 + n * dx;
    EXPECT_GT(xEnd, c.GetPoint(n - 1).x);
}

TEST_F(MeasureIvcTest, AutomaticXAxisAndMissingTriggerAndMissingCurrent) {
    IVC_xAxis_WhatKindOfParam = 1;
    IVC_xAxis_From = -30.0f;
    IVC_xAxis_Step = 0.5f;
    MeasureWorkingRange1.step = 8192;
    ASSERT_EQ(Run(), 1);
    const Curve& c = gCurves.GetCurve(0);
    for (std::uint32_t k = 0; k < c.count; ++k)
        EXPECT_FLOAT_EQ(c.GetPoint(k).x, -30.0f + 0.5f * k);
    EXPECT_STREQ(gCurves.xUnits, "dBm");

    // Without a trigger current a run asked to trigger stops at its first point, emptied.
    CurrentChannels[FirstTriggerCurrent()].kind = 0;
    IVC_Trigger = 1;
    ASSERT_EQ(Run(), 1);
    EXPECT_EQ(gCurves.count, 0u);
    ASSERT_FALSE(HeadlessBoxes().empty());
    EXPECT_EQ(
        HeadlessBoxes().back().caption + "|" + HeadlessBoxes().back().text,
        "IVC Error|Cannot trigger as requested.\nProbably the trigger current is not defined.");

    // No sweep1 current: nothing starts, result 0, the family stays.
    IVC_Trigger = 0;
    gCurves.SetCurveCount(2);
    CurrentChannels[FirstSweep1Current()].kind = 0;
    EXPECT_EQ(Run(), 0);
    EXPECT_EQ(gCurves.count, 2u);
    EXPECT_EQ(HeadlessBoxes().back().caption + "|" + HeadlessBoxes().back().text,
              "Can not start measurements|No Sweep1 virtual current found!");
}

TEST(MeasureCli, MeasuresTheShippedSampleAndWritesTheDataPair) {
    TempDir dir;
    WriteWholeFile(dir.File("simdaq.ini"), "[Clock]\nMode=step\n");
    CopyShippedSettings(dir);
    ProcessResult r =
        RunCli({"measure", "IVC", "-i:" + dir.File("vtl.ini"), "-simdaq:" + dir.File("simdaq.ini"),
                "-step:1024", "-o:" + dir.File("run.dat"), "-set:Measure/InteractionTime=0"});
    ASSERT_EQ(r.exitCode, 0) << r.err;
    EXPECT_NE(r.out.find("IVC: 3 curve(s)"), std::string::npos) << r.out;
    EXPECT_NE(r.out.find("J1                               64 points"), std::string::npos) << r.out;
    EXPECT_NE(ReadWholeFile(dir.File("run.ini")).find("NameOfCurve0=J1"), std::string::npos);
    // The automatic pair lands in "data" beside the settings file; the -set: copy is gone and
    // the user's settings file is unchanged.
    EXPECT_NE(r.out.find("data: " + dir.File("data/IVC_")), std::string::npos) << r.out;
    EXPECT_EQ(ReadWholeFile(dir.File("vtl.ini")), ReadWholeFile(SourcePath("data/vtl.ini")));

    r = RunCli({"measure", "NoSuch", "-i:" + dir.File("vtl.ini")});
    EXPECT_EQ(r.exitCode, 2);
    EXPECT_NE(r.err.find("no measurement \"NoSuch\""), std::string::npos);
}

TEST_F(MeasureIvcTest, StartsFromAClearedFamilyAndGivesItTheMeasurementComment) {
    gCurves.SetCurveCount(4);
    for (unsigned c = 0; c < 4; ++c) {
        gCurves.GetCurve(c).Mark();
        gCurves.GetCurve(c).tag = 7;
    }
    gCurves.SetComment("comment of the file that was open");
    BoundedCopy(gMeasureComment, "sample B7, second cool-down");
    MeasureWorkingRange1.from = 32768;
    MeasureWorkingRange1.to = 32768 + 640;
    MeasureWorkingRange1.step = 64;
    ASSERT_EQ(Run(), 1);
    gMeasureComment[0] = '\0';
    ASSERT_EQ(gCurves.count, 3u);
    for (unsigned c = 0; c < gCurves.count; ++c) {
        EXPECT_FALSE(gCurves.GetCurve(c).IsMarked()) << c;
        EXPECT_EQ(gCurves.GetCurve(c).tag, 0u) << c;
    }
    EXPECT_STREQ(gCurves.comment, "sample B7, second cool-down");
    EXPECT_EQ(gUndoCurves.count, 4u); // the old family is the undo copy
}

TEST(MeasureCli, CtrlCStopsTheRunCleanlyAndKeepsItsData) {
    TempDir dir;
    CopyShippedSettings(dir);
    // 1024 points of 20 ms each; the interrupt comes at the first progress line, one
    // InteractionTime (300 ms, some 15 points) into the run, so the run keeps what it measured.
    ProcessResult r = RunCli({"measure", "IVC", "-i:" + dir.File("vtl.ini"), "-step:64",
                              "-set:Measure/SystemDecayTime=20", "-set:Measure/InteractionTime=300",
                              "-o:" + dir.File("stopped.dat")},
                             "", SIGINT, "%");
    ASSERT_EQ(r.exitCode, 0) << r.err;
    EXPECT_NE(r.out.find("(stopped)"), std::string::npos) << r.out;
    std::string ini = ReadWholeFile(dir.File("stopped.ini"));
    size_t at = ini.find("NumberOfPointsInCurve0=");
    ASSERT_NE(at, std::string::npos);
    const unsigned long points = std::stoul(ini.substr(at + 23));
    EXPECT_GE(points, 1u);
    EXPECT_LT(points, 1024u);
}
