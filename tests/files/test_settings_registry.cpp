#include "common/test_support.h"
#include "curve/curve_style.h"
#include "settings/profile.h"
#include "ui/settings_registry.h"
#include "measure/measure_options.h"
#include "platform/headless_host.h"
#include "ui/plot_options.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <unistd.h>
#include <vector>

using ::testing::MatchesRegex;

namespace {

void RestoreDefaults() {
    DelayAfterJumpToStart = SystemDecayTime = DelayAfterSweep2 = DelayBeforeVoltage = 0;
    MaxDACStep = PrimitiveGeneratorStep = 256;
    InteractionTime = 500;
    StopAfterEachCurve = CurrentMesureMethod = SwapXY_Axes = 0;
    RescalePlotAfterMeasurement = 1;
}

} // namespace

// A first start creates nothing; a save that can't write claims nothing (its box is the profile
// batch's); saving what was loaded loses nothing, and what was saved comes back. How each group
// repairs its keys is tested with the group. The status texts tell the time: only their format
// counts.
TEST(SettingsRegistry, LoadsAndSavesEveryGroupOrSaysItCouldNot) {
    TempDir dir;
    std::string ini = dir.File("vtl.ini"), locked = UnwritableFolder(dir) + "/vtl.ini";
    EXPECT_EQ(LoadAllSettings(ini.c_str()), 1);
    EXPECT_EQ(access(ini.c_str(), F_OK), -1);
    const std::string loaded = HeadlessStatusText(0);
    EXPECT_THAT(loaded, MatchesRegex("Time spent to load all settings: [0-9]+\\.[0-9] sec"));
    EXPECT_EQ(SaveAllSettings(locked.c_str()), 0);
    EXPECT_EQ(std::tuple(HeadlessBoxes().size(), HeadlessStatusText(0)), std::tuple(1u, loaded));

    WriteWholeFile(ini, "; kept by hand\r\n[Measure]\r\nSystemDecayTime=25\ngarbage\r\n"
                        "DelayAfterSweep2=   40 ms\r\n[Graphics]\r\nCurveColor[0]=1,2,3,4,5\r\n"
                        "[Setup]\r\nSwapXY_Axes=1\r\n");
    LoadAllSettings(ini.c_str());
    EXPECT_EQ(std::tuple(SystemDecayTime, DelayAfterSweep2, SwapXY_Axes, gCurveStyles[0].color),
              std::tuple(25u, 40u, 1, MakeRGB(1, 2, 3)));
    DelayBeforeVoltage = 3;
    PrimitiveGeneratorStep = 1024;
    CurrentMesureMethod = 1;
    gCurveStyles[6] = {MakeRGB(9, 8, 7), 3, 5, 4, 12};
    EXPECT_EQ(SaveAllSettings(ini.c_str()), 1);
    EXPECT_THAT(HeadlessStatusText(0),
                MatchesRegex("Time spent to save all settings: [0-9]+\\.[0-9] sec \\(INI\\)"));
    std::string saved = ReadWholeFile(ini);
    EXPECT_EQ(saved.rfind("; kept by hand\r\n[Measure]\r\nSystemDecayTime=25\r\ngarbage\r\n", 0),
              0u);
    RestoreDefaults();
    gCurveStyles[6] = {};
    LoadAllSettings(ini.c_str());
    EXPECT_EQ(gCurveStyles[6].color, MakeRGB(9, 8, 7));
    SaveAllSettings(ini.c_str());
    EXPECT_EQ(ReadWholeFile(ini), saved);
    EXPECT_EQ(HeadlessBoxes().size(), 1u);
    RestoreDefaults();
}

TEST(WindowPosition, ClampsToASmallerDesktopAndGrowsByOne) {
    TempDir dir;
    std::string ini = dir.File("vtl.ini");
    const int desktop[4] = {0, 0, 1024, 768}, window[4] = {10, 20, 410, 320};
    HeadlessSetDesktopRect(desktop);
    HeadlessSetWindowRect(window);
    // No keys: the present rectangle, one pixel larger, is what is saved.
    LoadWindowPosition(nullptr, ini.c_str());
    EXPECT_EQ(SaveWindowPosition(nullptr, ini.c_str()), 1);
    EXPECT_NE(ReadWholeFile(ini).find("[Setup]\r\nWindowPositionLeft=10\r\nWindowPositionTop=20\r\n"
                                      "WindowPositionRight=411\r\nWindowPositionBottom=321\r\n"),
              std::string::npos);
    WriteWholeFile(ini, "[Setup]\r\nWindowPositionLeft=1500\r\nWindowPositionTop=100\r\n"
                        "WindowPositionRight=2500\r\nWindowPositionBottom=900\r\n");
    LoadWindowPosition(nullptr, ini.c_str());
    std::vector<int> rect(4);
    HeadlessGetWindowRect(rect.data());
    EXPECT_EQ(rect, (std::vector<int>{0, 100, 1025, 769}));
    const int big[4] = {0, 0, 1920, 1080};
    HeadlessSetDesktopRect(big);
}
