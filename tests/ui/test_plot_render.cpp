#include "common/test_support.h"
#include "curve/curve_family.h"
#include "curve/curve_style.h"
#include "recording_canvas.h"
#include "ui/plot_render.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>

namespace {

// With the recording canvas: 30 and 15 pixel ticks, a 9 pixel font, digits 7 pixels wide.
constexpr int kLeft = 42;    // 6 * 7
constexpr int kBottom = 531; // 600 - (9 + 2 * 30)
constexpr int kWidth = 944;  // 1000 - 8 * 7
constexpr int kHeight = 527; // 600 - 60 - 9 - 4
constexpr int kTop = kBottom - kHeight;

class PlotRender : public ::testing::Test {
  protected:
    void SetUp() override {
        std::copy(std::begin(gCurveStyles), std::end(gCurveStyles), saved_);
        window_.area = CanvasRect{0, 0, 1000, 600};
        fEnforceColor = 0;
    }
    void TearDown() override {
        std::copy(std::begin(saved_), std::end(saved_), gCurveStyles);
        fEnforceColor = 0;
    }
    Curve& AddCurve(std::initializer_list<Point> points) {
        family_.SetCurveCount(family_.count + 1);
        Curve& c = family_.GetCurve(family_.count - 1);
        for (const Point& p : points)
            c.AddPoint(p.x, p.y);
        return c;
    }
    int Draw() {
        dc_.calls.clear();
        return DrawPlot(options_, &window_, dc_.Table(), family_, view_);
    }
    // The calls after the clip is set: the curve pass.
    std::vector<CanvasCall> CurveCalls() const {
        std::vector<CanvasCall> out;
        bool on = false;
        for (const CanvasCall& c : dc_.calls) {
            if (c.op == "SetClipRect")
                on = true;
            else if (c.op == "RemoveClip")
                on = false;
            else if (on)
                out.push_back(c);
        }
        return out;
    }
    static std::vector<CanvasCall> Only(const std::vector<CanvasCall>& calls, const char* op) {
        std::vector<CanvasCall> out;
        for (const CanvasCall& c : calls)
            if (c.op == op) out.push_back(c);
        return out;
    }

    CurveStyle saved_[kCurveStyleCount];
    PlotOptions options_;
    PlotWindow window_;
    RecordingCanvas dc_;
    CurveFamily family_;
    ViewScale view_;
};

TEST(OptimizeRange, EdgeCases) {
    struct Case {
        double low, high, wantLow, wantHigh;
    } cases[] = {
        {0, 10, 0, 10},
        {0, 5, 0, 5},
        {-7, -3, -7.5, -2.5},          // few divisions used: centred
        {0.5, 10.4, -4, 16},           // the grid from below low falls short: next step up
        {5, 5, 5, 5},                  // no range: the step floor vanishes in 64 bits
        {1e-35, 3e-35, -1e-31, 1e-31}, // below the step floor
        {1e30, 3e30, 1e30, 3e30},
    };
    for (const Case& c : cases) {
        double low = c.low, high = c.high;
        OptimizeRange(low, high, 10);
        EXPECT_DOUBLE_EQ(low, c.wantLow) << c.low << " " << c.high;
        EXPECT_DOUBLE_EQ(high, c.wantHigh) << c.low << " " << c.high;
    }
}

TEST_F(PlotRender, ResultsForNothingToDraw) {
    EXPECT_EQ(Draw(), PLOT_NOTHING);
    ASSERT_EQ(dc_.Calls("FillRect").size(), 1u); // the area is cleared all the same
    EXPECT_EQ(dc_.Calls("FillRect")[0].args, (std::vector<int>{0, 0, 1000, 600, 0xFFFFFF}));
    family_.SetCurveCount(2); // curves without points have no bounds
    EXPECT_EQ(Draw(), PLOT_NOTHING);
    AddCurve({{1, 1}});
    window_.area = CanvasRect{0, 0, 1000, 0};
    EXPECT_EQ(Draw(), PLOT_NO_AREA);
}

TEST_F(PlotRender, FrameTicksAndView) {
    AddCurve({{0, 0}, {10, 5}});
    ASSERT_EQ(Draw(), PLOT_DRAWN);
    EXPECT_EQ(view_.plotLeft, kLeft);
    EXPECT_EQ(view_.plotBottom, kBottom);
    EXPECT_EQ(view_.plotWidth, kWidth);
    EXPECT_EQ(view_.plotHeight, kHeight);
    EXPECT_FLOAT_EQ(view_.xMax, 10);
    EXPECT_FLOAT_EQ(view_.yMax, 5);
    EXPECT_DOUBLE_EQ(view_.xPerPixel, 10.0 / kWidth);

    auto frame = dc_.Calls("Polyline").at(0).args;
    EXPECT_EQ(frame, (std::vector<int>{kLeft, kBottom, kLeft + kWidth, kBottom, kLeft + kWidth,
                                       kTop, kLeft, kTop, kLeft, kBottom}));
    // The axes pen, then for x tick 1 (small) and tick 10 (big, first division) both edges.
    auto lines = dc_.Calls("LineTo");
    auto moves = dc_.Calls("MoveTo");
    EXPECT_EQ(moves[0].args, (std::vector<int>{51, kBottom}));
    EXPECT_EQ(lines[0].args, (std::vector<int>{51, kBottom - 15}));
    EXPECT_EQ(moves[1].args, (std::vector<int>{51, kTop}));
    EXPECT_EQ(lines[1].args, (std::vector<int>{51, kTop + 15}));
    EXPECT_EQ(lines[2 * 9].args, (std::vector<int>{kLeft + 94, kBottom - 30}));
    // 99 x ticks and 99 y ticks on both sides, then 9 + 9 grid lines.
    EXPECT_EQ(lines.size(), 4u * 99 + 18);
    EXPECT_EQ(moves[2 * 99].args, (std::vector<int>{kLeft, kBottom - 5}));
    EXPECT_EQ(lines[2 * 99 + 1].args, (std::vector<int>{kLeft + kWidth - 15, kBottom - 5}));
    // The grid line of x division 1 runs inside the big ticks.
    EXPECT_EQ(moves[4 * 99].args, (std::vector<int>{kLeft + 94, kBottom - 30}));
    EXPECT_EQ(lines[4 * 99].args, (std::vector<int>{kLeft + 94, kTop + 30}));

    auto pens = dc_.Calls("SetPen");
    EXPECT_EQ(pens[0].args, (std::vector<int>{PEN_SOLID, 1, 0x800000}));
    EXPECT_EQ(pens[1].args, (std::vector<int>{PEN_DOT, 0, 0xC0C0C0}));
    EXPECT_EQ(dc_.Calls("SetClipRect").at(0).args,
              (std::vector<int>{kLeft, kTop, kLeft + kWidth, kBottom}));
    EXPECT_EQ(dc_.Calls("SetTextColor").at(0).args, (std::vector<int>{0x008000}));
    EXPECT_EQ(dc_.Calls("SetFont").at(0).text, "Arial");
    EXPECT_EQ(dc_.Calls("SetFont").at(0).args[0], 9);
}

TEST_F(PlotRender, NumbersAndUnitLabels) {
    family_.SetUnits("A", "V");
    AddCurve({{0, 0}, {10, 5e-6f}});
    ASSERT_EQ(Draw(), PLOT_DRAWN);
    std::vector<std::string> expected = {"1", "2",   "3",    "4",   "5",   "6",   "7",
                                         "8", "9",   "( A)", "0",   "0.5", "1",   "1.5",
                                         "2", "2.5", "3",    "3.5", "4",   "4.5", "(\xB5V)"};
    EXPECT_EQ(dc_.Texts(), expected);
    auto texts = dc_.Calls("DrawText");
    // x label 1 is centred under division 1, below the ticks.
    int from = static_cast<int>(kLeft + 0.5 * kWidth / 10);
    int to = static_cast<int>(kLeft + 1.5 * kWidth / 10);
    EXPECT_EQ(texts[0].args, (std::vector<int>{from, kBottom + 30, to, kBottom + 39, TEXT_CENTER}));
    // y label 0 at the bottom, right-aligned left of the ticks.
    EXPECT_EQ(texts[10].args,
              (std::vector<int>{0, kBottom - 4, kLeft - 30, kBottom + 4, TEXT_RIGHT}));
}

TEST_F(PlotRender, NegativeTicksPointOutwardAndMoveTheNumbers) {
    options_.bigTickSize = -30;
    AddCurve({{0, 0}, {10, 5}});
    ASSERT_EQ(Draw(), PLOT_DRAWN);
    auto lines = dc_.Calls("LineTo");
    EXPECT_EQ(lines[2 * 9].args, (std::vector<int>{kLeft + 94, kBottom + 30}));
    EXPECT_EQ(dc_.Calls("DrawText")[0].args[1], kBottom + 30);
    // The grid runs the full height: t is 0.
    EXPECT_EQ(lines[4 * 99].args, (std::vector<int>{kLeft + 94, kTop}));
}

TEST_F(PlotRender, HugeValuesPrintWithoutPrefix) {
    family_.SetUnits("A", "V");
    AddCurve({{1e30f, 0}, {3e30f, 5}});
    ASSERT_EQ(Draw(), PLOT_DRAWN);
    auto texts = dc_.Texts();
    EXPECT_EQ(texts[0], "1.2E+15");
    EXPECT_EQ(texts[9], "(A)");
}

TEST_F(PlotRender, FixedRangeOnlyInTheMainWindow) {
    AddCurve({{0, 0}, {10, 5}});
    view_.scaleAuto = 0;
    view_.xMin = -20, view_.xMax = 20, view_.yMin = 0, view_.yMax = 100;
    ASSERT_EQ(Draw(), PLOT_DRAWN);
    EXPECT_FLOAT_EQ(view_.xMin, -25); // rounded all the same
    EXPECT_FLOAT_EQ(view_.xMax, 25);
    EXPECT_FLOAT_EQ(view_.yMax, 100);
    window_.kind = PLOT_DERIVATIVE_WINDOW;
    ASSERT_EQ(Draw(), PLOT_DRAWN);
    EXPECT_FLOAT_EQ(view_.xMin, 0);
    EXPECT_FLOAT_EQ(view_.xMax, 10);
}

TEST_F(PlotRender, StrictInsideTestLeavesFramePointsUndrawn) {
    gCurveStyles[0].symbol = SYMBOL_SQUARE;
    gCurveStyles[0].symbolSize = 5; // 5 pixels
    AddCurve({{0, 0}, {5, 2.5f}, {10, 5}});
    ASSERT_EQ(Draw(), PLOT_DRAWN);
    auto curve = CurveCalls();
    auto polylines = Only(curve, "Polyline");
    ASSERT_EQ(polylines.size(), 2u); // the line and one square
    int cx = kLeft + kWidth / 2, cy = static_cast<int>(kBottom - 2.5 / (5.0 / kHeight));
    EXPECT_EQ(polylines[0].args,
              (std::vector<int>{kLeft, kBottom, cx, cy, kLeft + kWidth, kBottom - kHeight}));
    EXPECT_EQ(polylines[1].args[0], cx - 5);
    EXPECT_EQ(polylines[1].args[1], cy - 5);
}

TEST_F(PlotRender, OnePointFamilyDrawsNothingInside) {
    AddCurve({{3, 7}});
    ASSERT_EQ(Draw(), PLOT_DRAWN);
    EXPECT_FLOAT_EQ(view_.xMin, 3);
    EXPECT_FLOAT_EQ(view_.xMax, 3);
    EXPECT_DOUBLE_EQ(view_.xPerPixel, 1e-32);
    EXPECT_TRUE(Only(CurveCalls(), "Ellipse").empty());
}

TEST_F(PlotRender, SegmentsLeavingTheBoxAreDrawnOnlyFromInside) {
    gCurveStyles[0].symbol = SYMBOL_NONE;
    view_.scaleAuto = 0;
    view_.xMin = 0, view_.xMax = 10, view_.yMin = 0, view_.yMax = 10;
    AddCurve({{5, 5}, {20, 5}, {30, 5}, {5, 6}, {6, 6}});
    ASSERT_EQ(Draw(), PLOT_DRAWN);
    auto px = [](double x) { return static_cast<int>(kLeft + x * kWidth / 10); };
    auto py = [](double y) { return static_cast<int>(kBottom - y * kHeight / 10); };
    auto polylines = Only(CurveCalls(), "Polyline");
    ASSERT_EQ(polylines.size(), 2u);
    EXPECT_EQ(polylines[0].args, (std::vector<int>{px(5), py(5), px(20), py(5)}));
    EXPECT_EQ(polylines[1].args, (std::vector<int>{px(30), py(5), px(5), py(6), px(6), py(6)}));
}

TEST_F(PlotRender, FarPointsAreCutToTheBox) {
    gCurveStyles[0].symbol = SYMBOL_NONE;
    view_.scaleAuto = 0;
    view_.xMin = 0, view_.xMax = 10, view_.yMin = 0, view_.yMax = 10;
    AddCurve({{5, 5}, {1e30f, 5}});
    ASSERT_EQ(Draw(), PLOT_DRAWN);
    auto polylines = Only(CurveCalls(), "Polyline");
    ASSERT_EQ(polylines.size(), 1u);
    EXPECT_EQ(polylines[0].args[2], kLeft + kWidth + 2);
    EXPECT_EQ(polylines[0].args[3], polylines[0].args[1]);
}

TEST_F(PlotRender, SymbolsOnlyCurveDrawsNoLine) {
    gCurveStyles[0].lineStyle = PEN_INVISIBLE;
    gCurveStyles[0].symbol = SYMBOL_PIXEL;
    AddCurve({{0, 0}, {3, 3}, {6, 4}, {10, 5}});
    ASSERT_EQ(Draw(), PLOT_DRAWN);
    auto curve = CurveCalls();
    EXPECT_TRUE(Only(curve, "Polyline").empty());
    EXPECT_EQ(Only(curve, "SetPixel").size(), 2u);
}

TEST_F(PlotRender, FifteenthCurveTakesTheFirstStyle) {
    for (unsigned i = 0; i < kCurveStyleCount; ++i) {
        gCurveStyles[i].color = 0x100 + i;
        gCurveStyles[i].lineWidth = 1;
    }
    for (int c = 0; c < 15; ++c)
        AddCurve({{0, 0}, {5, static_cast<float>(c)}, {10, 20}});
    ASSERT_EQ(Draw(), PLOT_DRAWN);
    std::vector<int> lineColors;
    for (const CanvasCall& c : Only(CurveCalls(), "SetPen"))
        if (c.args[1] == 1) lineColors.push_back(c.args[2]);
    ASSERT_EQ(lineColors.size(), 15u);
    EXPECT_EQ(lineColors[13], 0x100 + 13);
    EXPECT_EQ(lineColors[14], 0x100);
}

TEST_F(PlotRender, PenAndSymbolSizesFollowTheResolution) {
    gCurveStyles[0].lineWidth = 5;  // half a millimetre: 5 pixels
    gCurveStyles[0].symbolSize = 3; // 3 pixels
    gCurveStyles[0].symbol = SYMBOL_CIRCLE;
    AddCurve({{0, 0}, {5, 2.5f}, {10, 5}});
    ASSERT_EQ(Draw(), PLOT_DRAWN);
    auto pens = Only(CurveCalls(), "SetPen");
    ASSERT_EQ(pens.size(), 2u);
    EXPECT_EQ(pens[0].args[1], 5);
    EXPECT_EQ(pens[1].args,
              (std::vector<int>{PEN_SOLID, 0, static_cast<int>(gCurveStyles[0].color)}));
    auto ellipses = Only(CurveCalls(), "Ellipse");
    ASSERT_EQ(ellipses.size(), 1u);
    EXPECT_EQ(ellipses[0].args[2] - ellipses[0].args[0], 6); // r = 3 * 1128 / 1000
}

TEST_F(PlotRender, MonochromeDeviceDrawsBlackUnlessColourIsEnforced) {
    dc_.caps.bitsPixel = 1;
    dc_.caps.numColors = 2;
    gCurveStyles[0].color = 0x0000FF;
    AddCurve({{0, 0}, {10, 5}});
    ASSERT_EQ(Draw(), PLOT_DRAWN);
    for (const CanvasCall& c : dc_.Calls("SetPen"))
        EXPECT_EQ(c.args[2], 0);
    EXPECT_EQ(dc_.Calls("SetTextColor")[0].args[0], 0);
    fEnforceColor = 1;
    ASSERT_EQ(Draw(), PLOT_DRAWN);
    EXPECT_EQ(dc_.Calls("SetPen")[0].args[2], 0x800000);
    EXPECT_EQ(Only(CurveCalls(), "SetPen")[0].args[2], 0x0000FF);
}

TEST_F(PlotRender, PrinterPageIsTheWholeDeviceAndNotCleared) {
    AddCurve({{0, 0}, {10, 5}});
    ASSERT_EQ(DrawPlot(options_, nullptr, dc_.Table(), family_, view_), PLOT_DRAWN);
    EXPECT_TRUE(dc_.Calls("FillRect").empty());
    EXPECT_EQ(view_.plotWidth, kWidth);
}

TEST(DrawSymbol, ShapesKeepTheCurrentPoint) {
    RecordingCanvas dc;
    PlotCanvas t = dc.Table();
    t.MoveTo(t.context, 1, 2);
    DrawSymbol(t, 100, 100, SYMBOL_CIRCLE, 10, 0);
    EXPECT_EQ(dc.Calls("Ellipse")[0].args, (std::vector<int>{89, 89, 111, 111}));
    DrawSymbol(t, 100, 100, SYMBOL_DIAMOND, 10, 0); // d = 14
    EXPECT_EQ(dc.Calls("Polyline")[0].args,
              (std::vector<int>{100, 86, 114, 100, 100, 114, 86, 100, 100, 86}));
    DrawSymbol(t, 100, 100, SYMBOL_TRIANGLE_UP, 10, 0); // h = 17, w = 15
    EXPECT_EQ(dc.Calls("Polyline")[1].args,
              (std::vector<int>{100, 83, 115, 108, 85, 108, 100, 83}));
    DrawSymbol(t, 100, 100, SYMBOL_TRIANGLE_DOWN, 10, 0);
    EXPECT_EQ(dc.Calls("Polyline")[2].args,
              (std::vector<int>{100, 117, 115, 92, 85, 92, 100, 117}));
    DrawSymbol(t, 100, 100, SYMBOL_PIXEL, 10, 0x123456);
    EXPECT_EQ(dc.Calls("SetPixel")[0].args, (std::vector<int>{100, 100, 0x123456}));
    EXPECT_EQ(dc.current.x, 1);
    EXPECT_EQ(dc.current.y, 2);
    size_t before = dc.calls.size();
    DrawSymbol(t, 100, 100, SYMBOL_SQUARE, 0, 0);
    EXPECT_EQ(dc.calls.size(), before);
    AssertCapture capture;
    DrawSymbol(t, 100, 100, 7, 10, 0);
    ASSERT_EQ(capture.Count(), 1);
    EXPECT_EQ(capture.Messages()[0], "DrawSymbol() -- unknown symbol type");
}

TEST(HardwareReport, BlueWrappedText) {
    RecordingCanvas dc;
    DrawHardwareReport(dc.Table(), CanvasRect{0, 0, 300, 200}, "No DAC card found.");
    EXPECT_EQ(dc.Calls("SetFont")[0].text, "MS Sans Serif");
    EXPECT_EQ(dc.Calls("SetFont")[0].args, (std::vector<int>{8, 100, 0}));
    EXPECT_EQ(dc.Calls("SetTextColor")[0].args[0], 0xFF0000);
    EXPECT_EQ(dc.Calls("DrawText")[0].args.back(), static_cast<int>(TEXT_WORDBREAK));
}

} // namespace
