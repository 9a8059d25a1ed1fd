#include "common/test_support.h"
#include "curve/curve_family.h"
#include "curve/curve_style.h"
#include "recording_canvas.h"
#include "ui/plot_render.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <tuple>

namespace {

using Ints = std::vector<int>;

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
    }
    void TearDown() override { std::copy(std::begin(saved_), std::end(saved_), gCurveStyles); }
    void AddCurve(std::initializer_list<Point> points) {
        family_.SetCurveCount(family_.count + 1);
        for (const Point& p : points)
            family_.GetCurve(family_.count - 1).AddPoint(p.x, p.y);
    }
    int Draw() {
        dc_.calls.clear();
        return DrawPlot(options_, &window_, dc_.Table(), family_, view_);
    }
    // The calls named op of the curve pass, while the clip is set.
    std::vector<CanvasCall> CurveCalls(const std::string& op) const {
        std::vector<CanvasCall> out;
        bool on = false;
        for (const CanvasCall& c : dc_.calls) {
            on = c.op == "SetClipRect" || (on && c.op != "RemoveClip");
            if (on && c.op == op) out.push_back(c);
        }
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
    const double cases[][4] = {
        {0, 10, 0, 10},
        {-7, -3, -7.5, -2.5},          // few divisions used: centred
        {0.5, 10.4, -4, 16},           // the grid from below low falls short: next step up
        {5, 5, 5, 5},                  // no range: the step floor vanishes in 64 bits
        {1e-35, 3e-35, -1e-31, 1e-31}, // below the step floor
        {1e30, 3e30, 1e30, 3e30},
    };
    for (const auto& c : cases) {
        double low = c[0], high = c[1];
        OptimizeRange(low, high, 10);
        EXPECT_DOUBLE_EQ(low, c[2]) << c[0] << " " << c[1];
        EXPECT_DOUBLE_EQ(high, c[3]) << c[0] << " " << c[1];
    }
}

TEST_F(PlotRender, ResultsForNothingToDrawAndAPrinterPage) {
    EXPECT_EQ(Draw(), PLOT_NOTHING); // the area is cleared all the same
    EXPECT_EQ(dc_.Calls("FillRect").at(0).args, (Ints{0, 0, 1000, 600, 0xFFFFFF}));
    family_.SetCurveCount(2); // curves without points have no bounds
    EXPECT_EQ(Draw(), PLOT_NOTHING);
    AddCurve({{1, 1}});
    window_.area = CanvasRect{0, 0, 1000, 0};
    EXPECT_EQ(Draw(), PLOT_NO_AREA);
    // A printer page is the whole device and is not cleared.
    dc_.calls.clear();
    ASSERT_EQ(DrawPlot(options_, nullptr, dc_.Table(), family_, view_), PLOT_DRAWN);
    EXPECT_EQ(std::tuple(dc_.Calls("FillRect").size(), view_.plotWidth),
              std::tuple(size_t(0), kWidth));
}

// Big ticks at the x divisions, small ones between, on both edges; the grid lines in the grid
// pen run inside the big ticks, or the full height when the ticks point outward.
TEST_F(PlotRender, FrameTicksAndView) {
    AddCurve({{0, 0}, {10, 5}});
    ASSERT_EQ(Draw(), PLOT_DRAWN);
    EXPECT_EQ(std::tuple(view_.plotLeft, view_.plotBottom, view_.plotWidth, view_.plotHeight,
                         view_.xMax, view_.yMax),
              std::tuple(kLeft, kBottom, kWidth, kHeight, 10.0f, 5.0f));
    auto lines = dc_.Calls("LineTo"); // 99 ticks an axis on both edges, then 9 + 9 grid lines
    ASSERT_EQ(lines.size(), 4u * 99 + 18);
    EXPECT_EQ(std::tuple(lines[0].args, lines[2 * 9].args, lines[4 * 99].args,
                         dc_.Calls("SetPen")[1].args[2]),
              std::tuple(Ints{51, kBottom - 15}, Ints{kLeft + 94, kBottom - 30},
                         Ints{kLeft + 94, kTop + 30}, 0xC0C0C0));
    options_.bigTickSize = -30;
    ASSERT_EQ(Draw(), PLOT_DRAWN);
    lines = dc_.Calls("LineTo");
    EXPECT_EQ(std::tuple(lines[2 * 9].args, lines[4 * 99].args, dc_.Calls("DrawText")[0].args[1]),
              std::tuple(Ints{kLeft + 94, kBottom + 30}, Ints{kLeft + 94, kTop}, kBottom + 30));
}

TEST_F(PlotRender, NumbersAndUnitLabels) {
    family_.SetUnits("A", "V");
    AddCurve({{0, 0}, {10, 5e-6f}});
    ASSERT_EQ(Draw(), PLOT_DRAWN);
    EXPECT_EQ(dc_.Texts(), (std::vector<std::string>{
                               "1",   "2", "3",   "4", "5",   "6", "7",   "8", "9",   "( A)",   "0",
                               "0.5", "1", "1.5", "2", "2.5", "3", "3.5", "4", "4.5", "(\xB5V)"}));
    // Huge values print without a prefix.
    family_.GetCurve(0) = Curve();
    AddCurve({{1e30f, 0}, {3e30f, 5}});
    ASSERT_EQ(Draw(), PLOT_DRAWN);
    EXPECT_EQ(std::tuple(dc_.Texts()[0], dc_.Texts()[9]), std::tuple("1.2E+15", "(A)"));
}

TEST_F(PlotRender, FixedRangeOnlyInTheMainWindowAndOnePoint) {
    AddCurve({{0, 0}, {10, 5}});
    view_.scaleAuto = 0;
    view_.xMin = -20, view_.xMax = 20, view_.yMin = 0, view_.yMax = 100;
    ASSERT_EQ(Draw(), PLOT_DRAWN);
    EXPECT_EQ(std::tuple(view_.xMin, view_.xMax, view_.yMax), std::tuple(-25.0f, 25.0f, 100.0f));
    window_.kind = PLOT_DERIVATIVE_WINDOW;
    ASSERT_EQ(Draw(), PLOT_DRAWN);
    EXPECT_EQ(std::tuple(view_.xMin, view_.xMax), std::tuple(0.0f, 10.0f));
    // A single point: no range, and nothing inside the box.
    family_.Reset();
    AddCurve({{3, 7}});
    ASSERT_EQ(Draw(), PLOT_DRAWN);
    EXPECT_EQ(std::tuple(view_.xMin, view_.xMax, view_.xPerPixel), std::tuple(3.0f, 3.0f, 1e-32));
    EXPECT_TRUE(CurveCalls("Ellipse").empty());
}

TEST_F(PlotRender, SegmentsLeavingTheBoxAreDrawnFromInsideAndCut) {
    gCurveStyles[0].symbol = SYMBOL_NONE;
    view_.scaleAuto = 0;
    view_.xMin = 0, view_.xMax = 10, view_.yMin = 0, view_.yMax = 10;
    AddCurve({{5, 5}, {20, 5}, {30, 5}, {5, 6}, {6, 6}});
    ASSERT_EQ(Draw(), PLOT_DRAWN);
    auto px = [](double x) { return static_cast<int>(kLeft + x * kWidth / 10); };
    auto py = [](double y) { return static_cast<int>(kBottom - y * kHeight / 10); };
    auto polylines = CurveCalls("Polyline");
    ASSERT_EQ(polylines.size(), 2u);
    EXPECT_EQ(polylines[0].args, (Ints{px(5), py(5), px(20), py(5)}));
    EXPECT_EQ(polylines[1].args, (Ints{px(30), py(5), px(5), py(6), px(6), py(6)}));
    // A far point is cut to just outside the box.
    family_.GetCurve(0) = Curve();
    family_.GetCurve(0).AddPoint(5, 5);
    family_.GetCurve(0).AddPoint(1e30f, 5);
    ASSERT_EQ(Draw(), PLOT_DRAWN);
    polylines = CurveCalls("Polyline");
    ASSERT_EQ(polylines.size(), 1u);
    EXPECT_EQ(polylines[0].args, (Ints{px(5), py(5), kLeft + kWidth + 2, py(5)}));
}

TEST_F(PlotRender, SymbolsOnlyDrawNoLineAndNoSymbolOnTheFrame) {
    // Symbols only: no line. Points on the frame are not strictly inside: no symbol.
    gCurveStyles[0].lineStyle = PEN_INVISIBLE;
    gCurveStyles[0].symbol = SYMBOL_PIXEL;
    AddCurve({{0, 0}, {3, 3}, {6, 4}, {10, 5}});
    ASSERT_EQ(Draw(), PLOT_DRAWN);
    EXPECT_EQ(std::tuple(CurveCalls("Polyline").size(), CurveCalls("SetPixel").size()),
              std::tuple(size_t(0), size_t(2)));
}

TEST_F(PlotRender, FifteenthCurveTakesTheFirstStyle) {
    for (unsigned i = 0; i < kCurveStyleCount; ++i)
        gCurveStyles[i].color = 0x100 + i, gCurveStyles[i].lineWidth = 1;
    for (int c = 0; c < 15; ++c)
        AddCurve({{0, 0}, {5, static_cast<float>(c)}, {10, 20}});
    ASSERT_EQ(Draw(), PLOT_DRAWN);
    Ints lineColors;
    for (const CanvasCall& c : CurveCalls("SetPen"))
        if (c.args[1] == 1) lineColors.push_back(c.args[2]);
    ASSERT_EQ(lineColors.size(), 15u);
    EXPECT_EQ(std::tuple(lineColors[13], lineColors[14]), std::tuple(0x100 + 13, 0x100));
}

TEST(DrawSymbol, ShapesKeepTheCurrentPoint) {
    RecordingCanvas dc;
    PlotCanvas t = dc.Table();
    t.MoveTo(t.context, 1, 2);
    for (int symbol : {SYMBOL_CIRCLE, SYMBOL_DIAMOND, SYMBOL_TRIANGLE_UP, SYMBOL_TRIANGLE_DOWN})
        DrawSymbol(t, 100, 100, symbol, 10, 0);
    DrawSymbol(t, 100, 100, SYMBOL_PIXEL, 10, 0x123456);
    DrawSymbol(t, 100, 100, SYMBOL_SQUARE, 0, 0); // size 0 draws nothing
    // d = 14 for the diamond; h = 17, w = 15 for the triangles.
    std::vector<Ints> drawn;
    for (const CanvasCall& c : dc.calls)
        if (c.op != "MoveTo") drawn.push_back(c.args);
    EXPECT_EQ(drawn, (std::vector<Ints>{{89, 89, 111, 111},
                                        {100, 86, 114, 100, 100, 114, 86, 100, 100, 86},
                                        {100, 83, 115, 108, 85, 108, 100, 83},
                                        {100, 117, 115, 92, 85, 92, 100, 117},
                                        {100, 100, 0x123456}}));
    EXPECT_EQ(std::tuple(dc.current.x, dc.current.y), std::tuple(1, 2));
    AssertCapture capture;
    DrawSymbol(t, 100, 100, 7, 10, 0);
    EXPECT_EQ(capture.Messages(), std::vector<std::string>{"DrawSymbol() -- unknown symbol type"});
}

} // namespace
