// The Math menu's curve operations on hand-made curves, their commands, and vantrel-cli math.
#include "analysis/curve_operations.h"
#include "analysis/math_options.h"
#include "analysis/multi_point_derivative.h"
#include "analysis/self_field.h"
#include "common/test_support.h"
#include "curve/undo.h"
#include "files/data_file.h"
#include "files/data_file_options.h"
#include "platform/headless_host.h"
#include "ui/command_ids.h"
#include "ui/command_table.h"
#include "ui/main_state.h"

#include <gtest/gtest.h>

#include <cmath>
#include <vector>

namespace {

Curve Make(const std::vector<float>& x, const std::vector<float>& y) {
    Curve c;
    for (size_t i = 0; i < x.size(); ++i)
        c.AddPoint(x[i], y[i]);
    return c;
}

std::vector<float> Ys(const Curve& c) {
    std::vector<float> y;
    for (std::uint32_t i = 0; i < c.count; ++i)
        y.push_back(c.points[i].y);
    return y;
}

TEST(CurveOperations, SmoothRepeatsTheEndsAndKeepsAConstant) {
    Curve line = Make({0, 1, 2, 3, 4}, {0, 3, 6, 9, 12});
    SmoothCurve(line, 1);
    EXPECT_EQ(Ys(line), (std::vector<float>{1, 3, 6, 9, 11})); // (0+0+3)/3 and (9+12+12)/3
    Curve flat = Make({0, 1, 2}, {2.5f, 2.5f, 2.5f});
    SmoothCurve(flat, 7); // wider than the curve
    EXPECT_EQ(Ys(flat), (std::vector<float>{2.5f, 2.5f, 2.5f}));
    Curve one = Make({0}, {4});
    SmoothCurve(one, 3);
    EXPECT_EQ(Ys(one), std::vector<float>{4});
}

TEST(CurveOperations, FilterReplacesSpikesByTheDescribedFormula) {
    Curve c = Make({0, 1, 2, 3, 4}, {1, 1, 20, 3, 3});
    EXPECT_EQ(FilterSpikes(c, 5), 1u);
    EXPECT_FLOAT_EQ(c.points[2].y, ((3 - 1) * 2.0f + 3 * 1.0f - 1 * 3.0f) / 2);
    Curve equalX = Make({1, 1, 1}, {0, 50, 8});
    EXPECT_EQ(FilterSpikes(equalX, 5), 1u);
    EXPECT_FLOAT_EQ(equalX.points[1].y, 4.0f); // (yn - yp) / 2
    Curve small = Make({0, 1, 2}, {0, 4, 0});
    EXPECT_EQ(FilterSpikes(small, 5), 0u);
    EXPECT_EQ(Ys(small), (std::vector<float>{0, 4, 0}));
}

TEST(CurveOperations, SkipKeepsCornersAndDropsStraightRuns) {
    std::vector<float> x, y;
    for (int i = 0; i <= 10; ++i)
        x.push_back(i), y.push_back(i < 5 ? 0.0f : i - 5.0f);
    Curve corner = Make(x, y);
    EXPECT_EQ(SkipExtraPoints(corner, 3), 11u);
    ASSERT_EQ(corner.count, 3u);
    EXPECT_EQ(std::tuple(corner.points[1].x, corner.points[1].y), std::tuple(5.0f, 0.0f));
    Curve empty;
    EXPECT_EQ(SkipExtraPoints(empty, 3), 0u);
}

TEST(CurveOperations, YAsNewXRefusesInOrderAndTakesTheSource) {
    CurveFamily f;
    EXPECT_STREQ(YAsNewXRefusal(f), "Not applicable to 0 or 1 curve");
    f.SetCurveCount(2);
    f.GetCurve(0) = Make({0, 1}, {5, 6});
    f.GetCurve(1) = Make({0}, {7});
    EXPECT_STREQ(YAsNewXRefusal(f), "Curves have a different number of points");
    f.GetCurve(1) = Make({0, 2}, {7, 8});
    EXPECT_STREQ(YAsNewXRefusal(f), "Curves have a different X coords");
    f.GetCurve(1) = Make({0, 1}, {7, 8});
    f.SetUnits("s", "V");
    ASSERT_EQ(YAsNewXRefusal(f), nullptr);
    YAsNewX(f, 0);
    ASSERT_EQ(f.count, 1u);
    EXPECT_EQ(
        std::tuple(f.GetCurve(0).points[1].x, f.GetCurve(0).points[1].y, std::string(f.xUnits)),
        std::tuple(6.0f, 8.0f, std::string("V")));
}

class MathCommandTest : public ::testing::Test {
  protected:
    void SetUp() override {
        HeadlessReset();
        ResetMathOptions();
        gDataFileLink = {};
        SetSelectionState(0);
        gCurves.Reset();
        gCurves.SetCurveCount(1);
        gCurves.GetCurve(0) = Make({0, 1, 2, 3}, {2, 4, 6, 10});
        fDataSaved = 1;
    }
    std::string Box() const {
        auto b = HeadlessBoxes();
        return b.empty() ? "" : b.back().caption + "|" + b.back().text;
    }
};

// Inside a selection the commands refuse; Abs with nothing ticked changes nothing; a zero ymin
// restores the family; (Y-Ymin)/Ymin works in percent.
TEST_F(MathCommandTest, FramingRefusalsAndRelative) {
    SetSelectionState(2);
    EXPECT_EQ(CommandDispatch(nullptr, IDM_SMOOTH), 1);
    EXPECT_EQ(Box(), "Math & Selection|This function is not implemented yet\nto work inside a "
                     "selection.");
    EXPECT_EQ(Ys(gCurves.GetCurve(0)), (std::vector<float>{2, 4, 6, 10}));
    SetSelectionState(0);

    CommandDispatch(nullptr, IDM_ABS);
    EXPECT_EQ(fDataSaved, 1);

    ASSERT_EQ(CommandDispatch(nullptr, IDM_NORMALIZE_YMIN), 1);
    EXPECT_EQ(Ys(gCurves.GetCurve(0)), (std::vector<float>{0, 100, 200, 400}));
    EXPECT_STREQ(gCurves.yUnits, "%");
    EXPECT_EQ(fDataSaved, 0);

    gCurves.GetCurve(0) = Make({0, 1}, {0, 5});
    CommandDispatch(nullptr, IDM_NORMALIZE_YMIN);
    EXPECT_EQ(Box(), "Error in DeltaY/Ymin|Can not calculate DeltaY/Ymin\nsince Ymin=0");
    EXPECT_EQ(Ys(gCurves.GetCurve(0)), (std::vector<float>{0, 5}));

    gCurves.GetCurve(0) =
        Make({0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10}, {0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10});
    CommandDispatch(nullptr, IDM_SKIP_POINTS);
    EXPECT_EQ(Box(), "Skip Results|Before: 11 , After: 2 , 450% skiped");
}

// The window's command and vantrel-cli math give the same data file.
TEST_F(MathCommandTest, CliAndWindowWriteTheSameFile) {
    TempDir dir;
    const std::string in = dir.File("in.dat");
    WriteWholeFile(in, "0 1\n1 9\n2 3\n3 4\n4 5\n5 30\n6 7\n");
    ResetDataFileOptions();
    fShowOptionsOnLoad = 0;
    for (const auto& [command, verb] :
         {std::pair{IDM_SMOOTH, "smooth"}, std::pair{IDM_FILTER, "filter"}}) {
        ASSERT_EQ(OpenDataFile(nullptr, in.c_str(), 0), 0);
        CommandDispatch(nullptr, command);
        const std::string window = dir.File(std::string("window-") + verb + ".dat");
        ASSERT_EQ(WriteDataPairQuiet(window.c_str()), DATA_PAIR_DONE);
        const std::string cli = dir.File(std::string("cli-") + verb + ".dat");
        ProcessResult r = RunCli({"math", verb, in, "-o:" + cli, "-set:Math/FilterParameter=4"});
        ASSERT_EQ(r.exitCode, 0) << r.err << r.out;
        if (command == IDM_SMOOTH)
            EXPECT_EQ(ReadWholeFile(cli), ReadWholeFile(window)) << verb;
        else
            EXPECT_NE(ReadWholeFile(cli), ReadWholeFile(window)) << "A=4 against A=10";
    }
    ProcessResult r = RunCli({"math", "nosuch", in, "-o:" + dir.File("x.dat")});
    EXPECT_EQ(r.exitCode, 2);
    EXPECT_NE(r.err.find("no operation \"nosuch\""), std::string::npos);
}

} // namespace

namespace {

// The slope of a line over 2N + 1 points is the line's slope; with the edges discarded a curve
// of 20 points keeps 12 and one of 16 keeps 8; a parabola's derivative is 2x inside.
TEST(MultiPointDerivative, SlopesAndLengths) {
    ResetMathOptions();
    struct Case {
        unsigned n;
        std::int32_t discard;
        unsigned kept;
    } cases[] = {{20, 1, 12}, {16, 1, 8}, {5, 1, 5}, {20, 0, 20}};
    for (const Case& k : cases) {
        CurveFamily f;
        f.SetCurveCount(1);
        for (unsigned i = 0; i < k.n; ++i)
            f.GetCurve(0).AddPoint(i * 0.5f, 3.0f * i * 0.5f + 1);
        f.SetUnits("A", "V");
        DeriveDiscardEdge = k.discard;
        DeriveDiscardDir = 0;
        CurveFamily d;
        MultiPointDerivative(f, false, d);
        ASSERT_EQ(d.GetCurve(0).count, k.kept) << k.n;
        EXPECT_STREQ(d.yUnits, "V/A");
        if (k.discard && k.n >= 9)
            for (std::uint32_t i = 0; i < d.GetCurve(0).count; ++i)
                EXPECT_NEAR(d.GetCurve(0).points[i].y, 3.0, 1e-5) << k.n << " " << i;
    }
    // With DeriveDiscardDir the second half takes its own step, (x[n-1] - x[n/2]) / (n/2): on a
    // one-way sweep of 20 points 0.45 instead of 0.5.
    CurveFamily line, d2;
    line.SetCurveCount(1);
    for (unsigned i = 0; i < 20; ++i)
        line.GetCurve(0).AddPoint(i * 0.5f, 3.0f * i * 0.5f);
    DeriveDiscardDir = 1;
    MultiPointDerivative(line, false, d2);
    EXPECT_NEAR(d2.GetCurve(0).points[11].y, 3.0 * 0.5 / 0.45, 1e-4);
    DeriveDiscardDir = 0;
    DeriveDiscardEdge = 1;
    CurveFamily p;
    p.SetCurveCount(1);
    for (int i = -20; i <= 20; ++i)
        p.GetCurve(0).AddPoint(i * 0.1f, i * 0.1f * i * 0.1f);
    CurveFamily d;
    MultiPointDerivative(p, false, d);
    for (std::uint32_t i = 0; i < d.GetCurve(0).count; ++i)
        EXPECT_NEAR(d.GetCurve(0).points[i].y, 2 * d.GetCurve(0).points[i].x, 1e-4) << i;
    ResetMathOptions();
}

} // namespace

namespace {

// The peak of one-signed curves and the refusal of mixed ones; the two-curve parameters; the
// command's automatic mode moves each peak to zero field and lists the curves it passed over.
TEST(SelfField, PeaksTwoCurvesAndTheAutomaticMode) {
    float peak, field;
    EXPECT_EQ(FindCurrentPeak(Make({-1, 0, 1}, {1, 3, 2}), peak, field), 0);
    EXPECT_EQ(std::tuple(peak, field), std::tuple(3.0f, 0.0f));
    EXPECT_EQ(FindCurrentPeak(Make({-1, 0, 1}, {0, -2, -5}), peak, field), 0);
    EXPECT_EQ(std::tuple(peak, field), std::tuple(-5.0f, 1.0f));
    EXPECT_EQ(FindCurrentPeak(Make({-1, 0, 1}, {2, -3, 1}), peak, field), 1);
    EXPECT_EQ(std::tuple(peak, field), std::tuple(3.0f, 0.0f));
    const TwoCurveSelfField two = TwoCurveParameters(2, 0.5f, -2, -0.3f);
    EXPECT_NEAR(two.k, 0.2, 1e-7);
    EXPECT_NEAR(two.fieldShift, 0.1, 1e-7);
    EXPECT_EQ(TwoCurveParameters(1, 2, 1, 5).k, 0.0);

    HeadlessReset();
    SetSelectionState(0);
    gSelfFieldMode = 0;
    gCurves.Reset();
    gCurves.SetCurveCount(2);
    gCurves.GetCurve(0) = Make({0.1f, 0.2f, 0.3f}, {1, 4, 2});
    gCurves.GetCurve(1) = Make({0, 1}, {1, -1});
    ASSERT_EQ(CommandDispatch(nullptr, IDM_SELF_FIELD), 1);
    EXPECT_FLOAT_EQ(gCurves.GetCurve(0).points[1].x, 0.0f); // 0.2 - (0.2 / 4) * 4
    EXPECT_FLOAT_EQ(gSelfFieldCoefficient, 0.05);
    ASSERT_FALSE(HeadlessBoxes().empty());
    EXPECT_EQ(HeadlessBoxes().back().caption + "|" + HeadlessBoxes().back().text,
              "Warning|The following curves were not processed:\n  1");
    EXPECT_EQ(gCurves.GetCurve(1).points[1].x, 1.0f);
}

} // namespace

namespace {

// NaN and infinite values and unsorted x run through every operation without harm: the point
// counts stay where the operation keeps them, and a NaN stays inside the reach of its window.
TEST(CurveOperations, NonFiniteAndUnsortedValues) {
    const float nan = std::nanf(""), inf = INFINITY;
    Curve c = Make({3, 1, 2, 0, 4}, {1, nan, 2, inf, 5});
    SmoothCurve(c, 1);
    EXPECT_EQ(c.count, 5u);
    EXPECT_TRUE(std::isnan(c.points[2].y));
    Curve f = Make({3, 1, 2, 0, 4}, {1, nan, 2, inf, 5});
    FilterSpikes(f, 1);
    EXPECT_EQ(f.count, 5u);
    Curve s = Make({3, 1, 2, 0, 4}, {1, nan, 2, inf, 5});
    SkipExtraPoints(s, 3);
    EXPECT_GE(s.count, 2u);
    EXPECT_EQ(s.points[0].x, 3.0f); // the first and the last point always stay
    EXPECT_EQ(s.points[s.count - 1].x, 4.0f);
}

} // namespace

namespace {

// Derivative then integral gives the curve back at the midpoints, less its value at the first:
// on a parabola exactly, within float arithmetic.
TEST(CurveOperations, DerivativeThenIntegralReturnsTheCurve) {
    CurveFamily f;
    f.SetCurveCount(1);
    for (int i = 0; i <= 100; ++i)
        f.GetCurve(0).AddPoint(i * 0.01f, i * 0.01f * i * 0.01f);
    f.SetUnits("A", "V");
    ASSERT_EQ(f.DifferentiateX(), 0);
    f.Integrate();
    const Curve& c = f.GetCurve(0);
    ASSERT_EQ(c.count, 100u);
    const double m0 = c.points[0].x;
    for (std::uint32_t k = 0; k < c.count; ++k)
        EXPECT_NEAR(c.points[k].y, c.points[k].x * c.points[k].x - m0 * m0, 2e-5) << k;
    EXPECT_STREQ(f.yUnits, "V/A*A");
}

} // namespace
