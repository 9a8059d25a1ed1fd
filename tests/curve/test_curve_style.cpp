#include "common/test_support.h"
#include "curve/curve_style.h"
#include "settings/profile.h"

#include <gtest/gtest.h>

#include <set>

TEST(CurveStyle, SpectrumStartsBlackAndRunsThroughAllZones) {
    EXPECT_EQ(RGB_Spectrum7(0, 14), 0u);
    EXPECT_EQ(RGB_Spectrum7(0, 1), 0u);
    EXPECT_EQ(RGB_Spectrum7(1, 14), MakeRGB(128, 0, 0));
    EXPECT_EQ(RGB_Spectrum7(2, 14), MakeRGB(255, 0, 0));
    EXPECT_EQ(RGB_Spectrum7(5, 14), MakeRGB(127, 255, 0));
    EXPECT_EQ(RGB_Spectrum7(10, 14), MakeRGB(0, 0, 255));
    EXPECT_EQ(RGB_Spectrum7(13, 14), MakeRGB(127, 0, 127));
    std::set<unsigned> zones;
    for (unsigned i = 0; i < 14; ++i)
        zones.insert(i * 0x700u / 14 / 256);
    EXPECT_EQ(zones.size(), 7u);
    // Blue sits in the high byte.
    EXPECT_EQ(MakeRGB(0, 0, 0x80), 0x800000u);
    AssertCapture capture;
    EXPECT_EQ(RGB_Spectrum7(3, 3), 0u);
    ASSERT_EQ(capture.Count(), 2);
    EXPECT_EQ(capture.Messages()[1], "RGB_Spectrum7() -- wrong color cube zone!");
}

TEST(CurveStyle, LoadTakesDefaultsThenSlotKeysThenColours) {
    TempDir dir;
    std::string ini = dir.File("vtl.ini");
    WriteWholeFile(ini, "[Graphics]\r\nPenWidth=3\r\nGraphSymbolSize=8\r\n"
                        "CurveColor[0]=1,2,3,13,15\r\n"
                        "CurveColor[1]=257,-1,4\r\n"
                        "CurveColor[2]=9,9\r\n"
                        "CurveColor[3]=10,20,30,-1,-8\r\n"
                        "Curve[1].SymbolSize=2\r\nCurve[2].LineWidth=7\r\n");
    gCurveStyles[5].symbol = 4;
    ASSERT_EQ(LoadCurveStyles(ini.c_str()), 1);
    EXPECT_EQ(gCurveStyles[0].color, MakeRGB(1, 2, 3));
    EXPECT_EQ(gCurveStyles[0].lineStyle, 1);
    EXPECT_EQ(gCurveStyles[0].symbol, 1);
    EXPECT_EQ(gCurveStyles[1].color, MakeRGB(1, 255, 4));
    EXPECT_EQ(gCurveStyles[1].lineStyle, 0);
    EXPECT_EQ(gCurveStyles[1].symbolSize, 2);
    EXPECT_EQ(gCurveStyles[1].lineWidth, 3);
    EXPECT_EQ(gCurveStyles[2].color, RGB_Spectrum7(2, 14)); // two fields are not a colour
    EXPECT_EQ(gCurveStyles[2].lineWidth, 7);
    EXPECT_EQ(gCurveStyles[2].symbolSize, 8);
    EXPECT_EQ(gCurveStyles[3].lineStyle, 5);
    EXPECT_EQ(gCurveStyles[3].symbol, 6);
    EXPECT_EQ(gCurveStyles[5].symbol, 1); // loading restarts every slot from the defaults
}

TEST(CurveStyle, SaveWritesThreeKeysPerSlotAndRoundTrips) {
    TempDir dir;
    std::string ini = dir.File("vtl.ini");
    WriteWholeFile(ini, "[Graphics]\r\nCurveColor[4]=200,100,50,2,3\r\nCurve[4].LineWidth=4\r\n");
    LoadCurveStyles(ini.c_str());
    CurveStyle before[kCurveStyleCount];
    std::copy(gCurveStyles, gCurveStyles + kCurveStyleCount, before);
    std::string out = dir.File("out.ini");
    SaveCurveStyles(out.c_str());
    std::string text = ReadWholeFile(out);
    EXPECT_NE(text.find("CurveColor[4]=200,100,50,2,3\r\nCurve[4].SymbolSize=5\r\n"
                        "Curve[4].LineWidth=4\r\n"),
              std::string::npos);
    EXPECT_EQ(text.find("PenWidth"), std::string::npos);
    LoadCurveStyles(out.c_str());
    for (unsigned i = 0; i < kCurveStyleCount; ++i) {
        EXPECT_EQ(gCurveStyles[i].color, before[i].color);
        EXPECT_EQ(gCurveStyles[i].lineStyle, before[i].lineStyle);
        EXPECT_EQ(gCurveStyles[i].symbol, before[i].symbol);
        EXPECT_EQ(gCurveStyles[i].lineWidth, before[i].lineWidth);
        EXPECT_EQ(gCurveStyles[i].symbolSize, before[i].symbolSize);
    }
    std::string again = dir.File("again.ini");
    SaveCurveStyles(again.c_str());
    EXPECT_EQ(ReadWholeFile(again), text);
}
