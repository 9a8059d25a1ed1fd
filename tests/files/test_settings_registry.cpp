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

namespace {

void RestoreDefaults() {
    DelayAfterJumpToStart = SystemDecayTime = DelayAfterSweep2 = DelayBeforeVoltage = 0;
    MaxDACStep = PrimitiveGeneratorStep = 256;
    InteractionTime = 500;
    StopAfterEachCurve = CurrentMesureMethod = SwapXY_Axes = 0;
    RescalePlotAfterMeasurement = 1;
}

} // namespace

// A first start creates nothing; a save that can't write says so once and claims nothing; a
// hand-written file loads what can be read (the profile reader's own garbage handling is tested
// with it) and saving loses nothing. The status texts tell the time: only their format counts.
TEST(SettingsRegistry, LoadsWhatCanBeReadAndSavesLosingNothingOrSaysItCouldNot) {
    using ::testing::MatchesRegex;
    TempDir dir;
    std::string ini = dir.File("vtl.ini"), locked = UnwritableFolder(dir) + "/vtl.ini";
    RestoreDefaults();
    EXPECT_EQ(LoadAllSettings(ini.c_str()), 1);
    EXPECT_EQ(access(ini.c_str(), F_OK), -1);
    const std::string loaded = HeadlessStatusText(0);
    EXPECT_THAT(loaded, MatchesRegex("Time spent to load all settings: [0-9]+\\.[0-9] sec"));
    EXPECT_EQ(SaveAllSettings(locked.c_str()), 0);
    ASSERT_EQ(HeadlessBoxes().size(), 1u);
    EXPECT_EQ(HeadlessBoxes()[0].text.rfind("Can not write file\n" + locked + "\n", 0), 0u);
    EXPECT_EQ(HeadlessStatusText(0), loaded);

    WriteWholeFile(ini, "; kept by hand\r\n[Measure]\r\nSystemDecayTime=25\ngarbage\r\n"
                        "DelayAfterSweep2=   40 ms\r\n[measure]\r\nSystemDecayTime=77\r\n"
                        "[Graphics]\r\nPenWidth=2\r\nCurveColor[0]=1,2,3,13,15\r\n"
                        "CurveColor[1]=\x01\x02\xff\r\n[Setup]\r\nSwapXY_Axes=1\r\n");
    LoadAllSettings(ini.c_str());
    // The first of two sections wins; line style 13 and symbol 15 wrap to 1 and 1.
    EXPECT_EQ(std::tuple(SystemDecayTime, DelayAfterSweep2, SwapXY_Axes, gCurveStyles[0].color,
                         gCurveStyles[0].lineStyle, gCurveStyles[0].symbol, gCurveStyles[1].color,
                         gCurveStyles[1].lineWidth),
              std::tuple(25u, 40u, 1, MakeRGB(1, 2, 3), 1, 1, RGB_Spectrum7(1, 14), 2));
    // Changed variables go out and come back: a save after loading them over the defaults
    // writes the same file.
    DelayBeforeVoltage = 3;
    PrimitiveGeneratorStep = 1024;
    CurrentMesureMethod = 1;
    gCurveStyles[6] = {MakeRGB(9, 8, 7), 3, 5, 4, 12};
    EXPECT_EQ(SaveAllSettings(ini.c_str()), 1);
    EXPECT_THAT(HeadlessStatusText(0),
                MatchesRegex("Time spent to save all settings: [0-9]+\\.[0-9] sec \\(INI\\)"));
    std::string saved = ReadWholeFile(ini);
    for (const char* kept :
         {"; kept by hand\r\n", "garbage\r\n", "[measure]\r\nSystemDecayTime=77"})
        EXPECT_NE(saved.find(kept), std::string::npos) << kept;
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
    auto moved = [&] {
        LoadWindowPosition(nullptr, ini.c_str());
        std::vector<int> rect(4);
        HeadlessGetWindowRect(rect.data());
        return rect;
    };
    // No keys: the present rectangle, one pixel larger.
    EXPECT_EQ(moved(), (std::vector<int>{10, 20, 411, 321}));
    EXPECT_EQ(SaveWindowPosition(nullptr, ini.c_str()), 1);
    EXPECT_NE(ReadWholeFile(ini).find("[Setup]\r\nWindowPositionLeft=10\r\nWindowPositionTop=20\r\n"
                                      "WindowPositionRight=411\r\nWindowPositionBottom=321\r\n"),
              std::string::npos);
    WriteWholeFile(ini, "[Setup]\r\nWindowPositionLeft=1500\r\nWindowPositionTop=100\r\n"
                        "WindowPositionRight=2500\r\nWindowPositionBottom=900\r\n");
    EXPECT_EQ(moved(), (std::vector<int>{0, 100, 1025, 769}));
    const int big[4] = {0, 0, 1920, 1080};
    HeadlessSetDesktopRect(big);
}
