#include "common/test_support.h"
#include "recording_canvas.h"
#include "support/exceptions.h"
#include "ui/gfont.h"
#include "ui/gpen.h"
#include "ui/indicator.h"
#include "ui/plot_path.h"

#include <gtest/gtest.h>

#include <string>
#include <tuple>

namespace {

using Ints = std::vector<int>;

std::string Text(const GFont& font, void (GFont::*describe)(char*, size_t) const) {
    char text[80];
    (font.*describe)(text, sizeof text);
    return text;
}

TEST(GFont, HeightNamesAndDescriptions) {
    RecordingCanvas dc;
    dc.caps.logPixelsY = 96;
    GFont font("Courier New", 9, 0x112233);
    font.weight = 700;
    font.italic = 1;
    font.CreateFor(dc.Table());
    EXPECT_EQ(
        std::tuple(font.Height(dc.Table()), dc.Calls("SetFont")[0].text,
                   dc.Calls("SetFont")[0].args[0], Text(font, &GFont::Describe),
                   Text(font, &GFont::DescribeShort)),
        std::tuple(12, "Courier New", 12, "Courier New, 9pt\nbold + italic", "Courier New, 9pt"));
    for (auto [weight, name] :
         {std::pair(150, "thin"), {151, "ultra-light"}, {1000, "black"}, {0, ""}, {1001, ""}})
        EXPECT_STREQ(FontWeightName(weight), name) << weight;
    // Without a device the height throws.
    PlotCanvas t = dc.Table();
    t.GetCaps = [](void*, CanvasCaps*) { return 0; };
    try {
        GFont().Height(t);
        ADD_FAILURE();
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
    EXPECT_NE(ReadWholeFile(ini).find("AxesName=Times\r\nAxesSize=14\r\n"), std::string::npos);
    EXPECT_NE(ReadWholeFile(ini).find("AxesColor=0xABCDEF\r\n"), std::string::npos);
    GFont back;
    back.Load(ini.c_str(), "Setup", "Axes");
    EXPECT_EQ(std::tuple(std::string(back.faceName), back.height, back.weight, back.underline,
                         back.color),
              std::tuple("Times", 14u, 400, 1, 0xABCDEFu));
    // Missing keys give the built-in defaults.
    back.Load(ini.c_str(), "Setup", "Other");
    EXPECT_EQ(std::tuple(std::string(back.faceName), back.height, back.color),
              std::tuple("Arial", 9u, 0u));
}

TEST(GPen, LoadRefusesBadStylesAndWidthsAndTheWidthField) {
    TempDir dir;
    std::string ini = dir.File("vtl.ini");
    WriteWholeFile(ini, "[Setup]\r\nPStyle=22\r\nPWidth=-1\r\nQStyle=21\r\nQWidth=3\r\n"
                        "QColor=0x0000FF\r\n");
    GPen p(PEN_DOT, 2, 0x123456);
    p.Load(ini.c_str(), "Setup", "P"); // 0x16: low bits 6 are refused; no colour: it stays
    EXPECT_EQ(std::tuple(p.style, p.width, p.color), std::tuple(PEN_DOT, 2, 0x123456u));
    p.Load(ini.c_str(), "Setup", "Q"); // 0x15 is stored as 5
    EXPECT_EQ(std::tuple(p.style, p.width, p.color), std::tuple(5, 3, 0x0000FFu));
    p.Save(ini.c_str(), "Setup", "R");
    EXPECT_NE(ReadWholeFile(ini).find("RColor=0x0000FF"), std::string::npos);

    p.SetWidthFromText("4");
    EXPECT_STREQ(p.Show().width, "4");
    EXPECT_THROW(p.SetWidthFromText("x"), GPenUIException);
    EXPECT_THROW(p.SetWidthFromText("-2"), GPenUIException);
    EXPECT_EQ(p.width, 4);
    EXPECT_EQ(PenStyleName(6), nullptr);
    RecordingCanvas dc;
    AssertCapture capture;
    GPen(9, 1, 0).CreateFor(dc.Table());
    EXPECT_EQ(std::tuple(capture.Count(), dc.Calls("SetPen")[0].args[0]), std::tuple(1, PEN_SOLID));
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
        path.MoveTo(6, 7); // continues
        path.LineTo(7, 7);
        path.MoveTo(9, 9); // breaks
        path.LineTo(10, 8);
    }
    ASSERT_EQ(dc.Calls("Polyline").size(), 2u);
    EXPECT_EQ(dc.Calls("Polyline")[0].args, (Ints{0, 10, 5, 12, 5, 3, 5, 20, 5, 7, 6, 7, 7, 7}));
    EXPECT_EQ(dc.Calls("Polyline")[1].args, (Ints{9, 9, 10, 8}));
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
    EXPECT_EQ(std::tuple(bars.low.right, bars.high.left), std::tuple(0, 0));
    EXPECT_EQ(SetIndicatorColors(s, 0x800080, 0xFFFFFF), 1);
    EXPECT_EQ(s.textColor, 0x7FFF7Fu);
    char text[32];
    ColorSelectionText(0x0A141E, text, sizeof text);
    EXPECT_STREQ(text, "RGB=(030,020,010)");
}

} // namespace
