#include "common/test_support.h"
#include "settings/profile.h"
#include "recording_canvas.h"
#include "support/exceptions.h"
#include "ui/gfont.h"
#include "ui/gpen.h"
#include "ui/indicator.h"
#include "ui/plot_options.h"
#include "ui/plot_path.h"

#include <gtest/gtest.h>

#include <string>

namespace {

TEST(GFont, HeightAndDescriptions) {
    RecordingCanvas dc;
    dc.caps.logPixelsY = 96;
    GFont font("Courier New", 9, 0x112233);
    EXPECT_EQ(font.Height(dc.Table()), 12);
    font.CreateFor(dc.Table());
    EXPECT_EQ(dc.Calls("SetFont")[0].text, "Courier New");
    EXPECT_EQ(dc.Calls("SetFont")[0].args[0], 12);
    font.weight = 700;
    font.italic = 1;
    char text[80];
    font.Describe(text, sizeof text);
    EXPECT_STREQ(text, "Courier New, 9pt\nbold + italic");
    font.DescribeShort(text, sizeof text);
    EXPECT_STREQ(text, "Courier New, 9pt");
    const char* names[] = {"thin", "ultra-light", "normal", "black", "", ""};
    int weights[] = {150, 151, 450, 1000, 0, 1001};
    for (int i = 0; i < 6; ++i)
        EXPECT_STREQ(FontWeightName(weights[i]), names[i]) << weights[i];
}

TEST(GFont, NoDeviceThrows) {
    RecordingCanvas dc;
    PlotCanvas t = dc.Table();
    t.GetCaps = [](void*, CanvasCaps*) { return 0; };
    try {
        GFont().Height(t);
        FAIL();
    } catch (const GFontException& e) {
        EXPECT_EQ(e.code, -1);
    }
}

TEST(GFont, SaveAndLoad) {
    TempDir dir;
    std::string ini = dir.File("vtl.ini");
    GFont font("Times", 14, 0xABCDEF);
    font.weight = 400;
    font.underline = 1;
    font.Save(ini.c_str(), "Setup", "Axes");
    std::string text = ReadWholeFile(ini);
    EXPECT_NE(text.find("AxesName=Times"), std::string::npos);
    EXPECT_NE(text.find("AxesSize=14"), std::string::npos);
    EXPECT_NE(text.find("AxesColor=0xABCDEF"), std::string::npos);
    GFont back;
    back.Load(ini.c_str(), "Setup", "Axes");
    EXPECT_STREQ(back.faceName, "Times");
    EXPECT_EQ(back.height, 14u);
    EXPECT_EQ(back.weight, 400);
    EXPECT_EQ(back.underline, 1);
    EXPECT_EQ(back.color, 0xABCDEFu);
    // Missing keys give the built-in defaults.
    back.Load(ini.c_str(), "Setup", "Other");
    EXPECT_STREQ(back.faceName, "Arial");
    EXPECT_EQ(back.height, 9u);
    EXPECT_EQ(back.color, 0u);
}

TEST(GPen, LoadRefusesBadStylesAndWidths) {
    TempDir dir;
    std::string ini = dir.File("vtl.ini");
    WriteWholeFile(ini, "[Setup]\r\nPStyle=22\r\nPWidth=-1\r\nQStyle=21\r\nQWidth=3\r\n"
                        "QColor=0x0000FF\r\n");
    GPen p(PEN_DOT, 2, 0x123456);
    p.Load(ini.c_str(), "Setup", "P");
    EXPECT_EQ(p.style, PEN_DOT); // 0x16: low bits 6 are refused
    EXPECT_EQ(p.width, 2);
    EXPECT_EQ(p.color, 0x123456u); // missing: the present value stays
    p.Load(ini.c_str(), "Setup", "Q");
    EXPECT_EQ(p.style, 5); // 0x15 is stored as 5
    EXPECT_EQ(p.width, 3);
    EXPECT_EQ(p.color, 0x0000FFu);
    p.Save(ini.c_str(), "Setup", "R");
    EXPECT_NE(ReadWholeFile(ini).find("RColor=0x0000FF"), std::string::npos);
}

TEST(GPen, WidthFieldAndStyleNames) {
    GPen p;
    p.SetWidthFromText("4");
    EXPECT_EQ(p.width, 4);
    EXPECT_THROW(p.SetWidthFromText("x"), GPenUIException);
    EXPECT_THROW(p.SetWidthFromText("-2"), GPenUIException);
    EXPECT_EQ(p.width, 4);
    EXPECT_STREQ(PenStyleName(4), "DashDotDot");
    EXPECT_EQ(PenStyleName(6), nullptr);
    RecordingCanvas dc;
    AssertCapture capture;
    GPen(9, 1, 0).CreateFor(dc.Table());
    EXPECT_EQ(capture.Count(), 1);
    EXPECT_EQ(dc.Calls("SetPen")[0].args[0], PEN_SOLID);
}

TEST(PlotOptions, AxesGroupRoundTrip) {
    TempDir dir;
    std::string ini = dir.File("vtl.ini");
    WriteWholeFile(ini, "[Setup]\r\nGridX=5\r\nBigTickSize=-20\r\nAxesLinesColor=0x0000FF\r\n"
                        "[Graphics]\r\nOptimizeGrid=1\r\n");
    PlotOptions kept = gPlotOptions;
    LoadPlotOptions(ini.c_str());
    EXPECT_EQ(gPlotOptions.gridX, 5u);
    EXPECT_EQ(gPlotOptions.gridY, 10u); // missing: unchanged
    EXPECT_EQ(gPlotOptions.bigTickSize, -20);
    EXPECT_EQ(gPlotOptions.optimizeGrid, 1);
    EXPECT_EQ(gPlotOptions.axesPen.color, 0x0000FFu);
    gPlotOptions.smallTicksY = 4;
    SavePlotOptions(ini.c_str());
    std::string text = ReadWholeFile(ini);
    EXPECT_NE(text.find("SmallTicksY=4"), std::string::npos);
    EXPECT_NE(text.find("GridLinesStyle=2"), std::string::npos);
    // The font takes its own load defaults for keys the file lacks: colour 0.
    EXPECT_NE(text.find("AxesCaptionFontColor=0x000000"), std::string::npos);
    gPlotOptions = kept;
}

TEST(PlotPath, ColumnRunsShrinkToTheirExtremes) {
    RecordingCanvas dc;
    {
        PlotPath path(dc.Table(), true);
        path.MoveTo(0, 10);
        for (int y : {12, 3, 20, 7})
            path.LineTo(5, y);
        path.LineTo(6, 7);
        path.LineTo(6, 7);
    }
    ASSERT_EQ(dc.Calls("Polyline").size(), 1u);
    EXPECT_EQ(dc.Calls("Polyline")[0].args,
              (std::vector<int>{0, 10, 5, 12, 5, 3, 5, 20, 5, 7, 6, 7}));
    dc.calls.clear();
    {
        PlotPath path(dc.Table(), true);
        path.MoveTo(0, 0);
        path.LineTo(1, 1);
        path.MoveTo(1, 1); // continues
        path.LineTo(2, 2);
        path.MoveTo(5, 5); // breaks
        path.LineTo(6, 6);
    }
    ASSERT_EQ(dc.Calls("Polyline").size(), 2u);
    EXPECT_EQ(dc.Calls("Polyline")[0].args, (std::vector<int>{0, 0, 1, 1, 2, 2}));
}

TEST(Indicator, SplitAndColours) {
    IndicatorState s;
    CanvasRect client{0, 0, 200, 20};
    s.position = s.maximum;
    EXPECT_EQ(IndicatorSplit(s, client).low.right, 200);
    s.position = 0x800;
    EXPECT_EQ(IndicatorSplit(s, client).low.right, 200 * 0x800 / 0xFFF);
    s.minimum = 10;
    s.position = 5;
    IndicatorBars bars = IndicatorSplit(s, client);
    EXPECT_EQ(bars.low.right, 0);
    EXPECT_EQ(bars.high.left, 0);
    EXPECT_EQ(SetIndicatorColors(s, 0x800080, 0xFFFFFF), 1);
    EXPECT_EQ(s.textColor, 0x7FFF7Fu);
    char text[32];
    ColorSelectionText(0x0A141E, text, sizeof text);
    EXPECT_STREQ(text, "RGB=(030,020,010)");
}

} // namespace
