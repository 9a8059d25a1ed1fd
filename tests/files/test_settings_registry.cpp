#include "common/test_support.h"
#include "curve/curve_style.h"
#include "settings/profile.h"
#include "ui/settings_registry.h"
#include "measure/measure_options.h"
#include "platform/headless_host.h"
#include "ui/plot_options.h"

#include <gtest/gtest.h>

#include <sys/stat.h>

namespace {

// Garbage of every sort around keys that can be read.
std::string HandWritten() {
    std::string text = "\xEF\xBB\xBF; vtl.ini kept by hand\r\n"
                       "[Measure]\r\n"
                       "SystemDecayTime=25\n"
                       "this line is garbage\r\n"
                       "InteractionTime=99999999999999999999\r\n"
                       "MaxDACStep=?\r\n"
                       "DelayAfterSweep2=   40 ms\r\n"
                       "[measure]\r\n"
                       "SystemDecayTime=77\r\n"
                       "[Graphics]\r\n"
                       "PenWidth=2\r\n"
                       "CurveColor[0]=1,2,3,13,15\r\n"
                       "CurveColor[1]=\x01\x02\xff\r\n"
                       "Long=";
    text += std::string(70000, 'z');
    text += "\r\n[Setup]\r\nSwapXY_Axes=1\r\nWindowPositionLeft=5000\r\n";
    text += std::string("\0\0binary\0", 9);
    return text;
}

struct MeasureSnapshot {
    uint32_t values[7];
    int32_t flags[4];
    bool operator==(const MeasureSnapshot&) const = default;
};

MeasureSnapshot Snapshot() {
    return {{DelayAfterJumpToStart, SystemDecayTime, DelayAfterSweep2, DelayBeforeVoltage,
             MaxDACStep, PrimitiveGeneratorStep, InteractionTime},
            {StopAfterEachCurve, CurrentMesureMethod, SwapXY_Axes, RescalePlotAfterMeasurement}};
}

void RestoreDefaults() {
    DelayAfterJumpToStart = SystemDecayTime = DelayAfterSweep2 = DelayBeforeVoltage = 0;
    MaxDACStep = PrimitiveGeneratorStep = 256;
    InteractionTime = 500;
    StopAfterEachCurve = CurrentMesureMethod = SwapXY_Axes = 0;
    RescalePlotAfterMeasurement = 1;
}

int gCounted;
int CountingFn(const char*) {
    return ++gCounted;
}

} // namespace

TEST(SettingsRegistry, AFirstStartWithoutAFileKeepsDefaultsAndCreatesNothing) {
    TempDir dir;
    std::string ini = dir.File("vtl.ini");
    RestoreDefaults();
    HeadlessReset();
    EXPECT_EQ(LoadAllSettings(ini.c_str()), 1);
    EXPECT_EQ(InteractionTime, 500u);
    EXPECT_EQ(gCurveStyles[3].color, RGB_Spectrum7(3, 14));
    struct stat st;
    EXPECT_NE(stat(ini.c_str(), &st), 0);
    EXPECT_EQ(HeadlessStatusText(0), "Time spent to load all settings: 0.0 sec");
    EXPECT_EQ(SaveAllSettings(ini.c_str()), 1);
    EXPECT_EQ(HeadlessStatusText(0), "Time spent to save all settings: 0.0 sec (INI)");
    EXPECT_EQ(GetPrivateProfileInt("Measure", "InteractionTime", 0, ini.c_str()), 500);
}

TEST(SettingsRegistry, AHandWrittenFileLoadsWhatCanBeReadAndSavingLosesNothing) {
    TempDir dir;
    std::string ini = dir.File("vtl.ini");
    RestoreDefaults();
    WriteWholeFile(ini, HandWritten());
    LoadAllSettings(ini.c_str());
    EXPECT_EQ(SystemDecayTime, 25u); // the first of two sections wins
    EXPECT_EQ(DelayAfterSweep2, 40u);
    EXPECT_EQ(MaxDACStep, 256u);
    EXPECT_EQ(SwapXY_Axes, 1);
    EXPECT_EQ(gCurveStyles[0].color, MakeRGB(1, 2, 3));
    EXPECT_EQ(gCurveStyles[0].lineStyle, 1);
    EXPECT_EQ(gCurveStyles[0].symbol, 1);
    EXPECT_EQ(gCurveStyles[1].color, RGB_Spectrum7(1, 14));
    EXPECT_EQ(gCurveStyles[1].lineWidth, 2);
    MeasureSnapshot loaded = Snapshot();

    SaveAllSettings(ini.c_str());
    std::string saved = ReadWholeFile(ini);
    for (const char* kept : {"; vtl.ini kept by hand\r\n", "this line is garbage\r\n",
                             "[measure]\r\nSystemDecayTime=77\r\n", "WindowPositionLeft=5000\r\n"})
        EXPECT_NE(saved.find(kept), std::string::npos) << kept;
    EXPECT_NE(saved.find(std::string(70000, 'z')), std::string::npos);
    LoadAllSettings(ini.c_str());
    EXPECT_TRUE(Snapshot() == loaded);
    SaveAllSettings(ini.c_str());
    EXPECT_EQ(ReadWholeFile(ini), saved);
    RestoreDefaults();
}

TEST(SettingsRegistry, RoundTripGivesTheSameVariablesAndTheSameFile) {
    TempDir dir;
    RestoreDefaults();
    DelayBeforeVoltage = 3;
    PrimitiveGeneratorStep = 1024;
    CurrentMesureMethod = 1;
    gCurveStyles[6] = {MakeRGB(9, 8, 7), 3, 5, 4, 12};
    std::string first = dir.File("first.ini");
    std::string second = dir.File("second.ini");
    SaveAllSettings(first.c_str());
    MeasureSnapshot before = Snapshot();
    RestoreDefaults();
    gCurveStyles[6] = {};
    LoadAllSettings(first.c_str());
    EXPECT_TRUE(Snapshot() == before);
    EXPECT_EQ(gCurveStyles[6].color, MakeRGB(9, 8, 7));
    EXPECT_EQ(gCurveStyles[6].symbolSize, 12);
    SaveAllSettings(second.c_str());
    EXPECT_EQ(ReadWholeFile(second), ReadWholeFile(first));
    RestoreDefaults();
}

TEST(SettingsRegistry, WalkSkipsEmptyPlacesAndChecksThePairs) {
    TempDir dir;
    gCounted = 0;
    const SettingsGroup groups[] = {{.name = "empty"},
                                    {.name = "same", .load = CountingFn, .save = CountingFn}};
    {
        AssertCapture capture;
        WalkSettingsGroups(groups, 2, false, dir.File("vtl.ini").c_str());
        ASSERT_EQ(capture.Count(), 1);
        EXPECT_EQ(capture.Messages()[0], "LoadOptionsFnsList[i]!=SaveOptionsFnsList[i]");
    }
    EXPECT_EQ(gCounted, 1);
}

TEST(WindowPosition, ClampsToASmallerDesktopAndGrowsByOne) {
    TempDir dir;
    std::string ini = dir.File("vtl.ini");
    const int desktop[4] = {0, 0, 1024, 768};
    const int window[4] = {10, 20, 410, 320};
    HeadlessSetDesktopRect(desktop);
    HeadlessSetWindowRect(window);
    // No keys: the present rectangle, one pixel larger.
    LoadWindowPosition(nullptr, ini.c_str());
    int rect[4];
    HeadlessGetWindowRect(rect);
    EXPECT_EQ(rect[0], 10);
    EXPECT_EQ(rect[1], 20);
    EXPECT_EQ(rect[2], 411);
    EXPECT_EQ(rect[3], 321);
    SaveWindowPosition(nullptr, ini.c_str());
    EXPECT_NE(ReadWholeFile(ini).find("[Setup]\r\nWindowPositionLeft=10\r\nWindowPositionTop=20\r\n"
                                      "WindowPositionRight=411\r\nWindowPositionBottom=321\r\n"),
              std::string::npos);
    WriteWholeFile(ini, "[Setup]\r\nWindowPositionLeft=1500\r\nWindowPositionTop=100\r\n"
                        "WindowPositionRight=2500\r\nWindowPositionBottom=900\r\n");
    LoadWindowPosition(nullptr, ini.c_str());
    HeadlessGetWindowRect(rect);
    EXPECT_EQ(rect[0], 0);
    EXPECT_EQ(rect[1], 100);
    EXPECT_EQ(rect[2], 1025);
    EXPECT_EQ(rect[3], 769);
    const int big[4] = {0, 0, 1920, 1080};
    HeadlessSetDesktopRect(big);
}
