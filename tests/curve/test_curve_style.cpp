#include "common/test_support.h"
#include "curve/curve_style.h"
#include "settings/profile.h"

#include <gtest/gtest.h>

#include <tuple>

namespace {

auto Fields(const CurveStyle& s) {
    return std::tuple(s.color, s.lineStyle, s.symbol, s.lineWidth, s.symbolSize);
}

} // namespace

TEST(CurveStyle, SpectrumStartsBlackAndRunsThroughAllZones) {
    std::vector<unsigned> colors;
    for (unsigned i : {0, 1, 2, 5, 10, 13})
        colors.push_back(RGB_Spectrum7(i, 14));
    EXPECT_EQ(colors, (std::vector<unsigned>{0, MakeRGB(128, 0, 0), MakeRGB(255, 0, 0),
                                             MakeRGB(127, 255, 0), MakeRGB(0, 0, 255),
                                             MakeRGB(127, 0, 127)}));
    EXPECT_EQ(RGB_Spectrum7(0, 1), 0u);
    EXPECT_EQ(MakeRGB(0, 0, 0x80), 0x800000u); // blue sits in the high byte
    AssertCapture capture;
    EXPECT_EQ(RGB_Spectrum7(3, 3), 0u);
    EXPECT_EQ(capture.Count(), 2);
}

// Loading starts every slot from the defaults, then the slot keys, then the colours; saving writes
// the three keys of each slot and nothing else (the round trip is the settings registry's).
TEST(CurveStyle, LoadTakesDefaultsThenSlotKeysThenColoursAndSaveWritesThreeKeys) {
    TempDir dir;
    std::string ini = dir.File("vtl.ini"), out = dir.File("out.ini");
    WriteWholeFile(ini,
                   "[Graphics]\r\nPenWidth=3\r\nGraphSymbolSize=8\r\n"
                   "CurveColor[0]=1,2,3,13,15\r\n"
                   "CurveColor[1]=257,-1,4\r\n"
                   "CurveColor[2]=9,9\r\n"
                   "CurveColor[3]=10,20,30,-1,-8\r\n"
                   "CurveColor[4]=200,100,50,2,3\r\n"
                   "Curve[1].SymbolSize=2\r\nCurve[2].LineWidth=7\r\nCurve[4].LineWidth=4\r\n");
    gCurveStyles[5].symbol = 4;
    ASSERT_EQ(LoadCurveStyles(ini.c_str()), 1);
    // Style and symbol of slot 0 out of range, of slot 3 from the defaults; two fields of slot 2
    // are not a colour.
    EXPECT_EQ(Fields(gCurveStyles[0]), std::tuple(MakeRGB(1, 2, 3), 1, 1, 3, 8));
    EXPECT_EQ(Fields(gCurveStyles[1]), std::tuple(MakeRGB(1, 255, 4), 0, 1, 3, 2));
    EXPECT_EQ(Fields(gCurveStyles[2]), std::tuple(RGB_Spectrum7(2, 14), 0, 1, 7, 8));
    EXPECT_EQ(std::tuple(gCurveStyles[3].lineStyle, gCurveStyles[3].symbol), std::tuple(5, 6));
    EXPECT_EQ(gCurveStyles[5].symbol, 1);
    SaveCurveStyles(out.c_str());
    std::string text = ReadWholeFile(out);
    EXPECT_NE(text.find("CurveColor[4]=200,100,50,2,3\r\nCurve[4].SymbolSize=8\r\n"
                        "Curve[4].LineWidth=4\r\n"),
              std::string::npos);
    EXPECT_EQ(text.find("PenWidth"), std::string::npos);
}
