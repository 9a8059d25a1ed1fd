#include "common/test_support.h"
#include "curve_test_helpers.h"

#include <gtest/gtest.h>

#include <string>
#include <tuple>
#include <vector>

using Results = std::vector<std::int64_t>;

TEST(Curve, ExactCapacityAdditiveGrowthAndNames) {
    Curve c;
    EXPECT_EQ((Results{c.AddPoint(1, 2), c.capacity}), (Results{1, 8}));
    for (int i = 1; i < 9; ++i)
        c.AddPoint(float(i), 0);
    EXPECT_EQ(std::tuple(c.count, c.capacity), std::tuple(9u, 16u));
    const Point* before = c.points;
    EXPECT_EQ((Results{c.Resize(9), c.capacity, c.points != before, c.Reserve(4), c.Reserve(20),
                       c.Resize(6)}),
              (Results{9, 9, 1, 4, 4, 6}));
    EXPECT_EQ(Pts(c), "1,2 1,0 2,0 3,0 0,0 0,0");
    // Names hold 127 characters; the name stays when the points go.
    std::string fits(127, 'a');
    EXPECT_EQ((Results{c.SetName(fits.c_str()), c.AppendToName("b"),
                       c.SetName((fits + "b").c_str()), c.Resize(0)}),
              (Results{1, 0, 0, 0}));
    EXPECT_EQ(std::tuple(c.points, c.capacity, std::string(c.GetName())),
              std::tuple(nullptr, 0u, fits));
}

// Deleting points has no caller in the programs yet; its tests come with the first one.
TEST(Curve, RangeChecksAndShortageOfMemory) {
    Curve c = Ramp(4);
    {
        AssertCapture capture;
        c.GetPoint(4) = Point(99, 99);
        EXPECT_EQ(std::as_const(c).GetPoint(7).x, 0.0f);
        EXPECT_EQ(std::tuple(capture.Count(), Pts(c)), std::tuple(2, "0,0 1,10 2,20 3,30"));
    }
    AllocationBudget none(0);
    EXPECT_EQ((Results{c.Resize(50), c.AddPoint(7, 7), c.count, c.capacity}),
              (Results{kCurveFailure, kCurveFailure, 4, 4}));
    Curve copy;
    copy = c;
    EXPECT_EQ(copy.count, 0u);
}

TEST(Curve, ClearAndAssignment) {
    Curve c = Ramp(3, "iv");
    c.tag = 42;
    c.Mark();
    c.AddPoint(5, 5); // capacity 11, count 4
    Curve copy(c);
    EXPECT_EQ(std::tuple(copy.capacity, copy.tag, copy.IsMarked(), std::string(copy.GetName()),
                         Pts(copy), copy.points != c.points),
              std::tuple(4u, 42u, true, "iv", "0,0 1,10 2,20 5,5", true));
    copy = copy;
    EXPECT_EQ(copy.count, 4u);
    c.Clear();
    EXPECT_EQ(std::tuple(c.count, c.capacity, c.tag, c.marked, c.points, std::string(c.GetName())),
              std::tuple(0u, 0u, 0u, 0, nullptr, ""));
}

TEST(Curve, Extremes) {
    Curve c;
    float out = 123;
    EXPECT_FALSE(c.MaxX(out) || c.MinY(out, 0, 0));
    EXPECT_EQ(out, 123.0f);
    c = MakeCurve({{5, -1}, {-2, 7}, {3, 2}});
    // The values scan the whole curve whatever the range.
    float v[4];
    EXPECT_TRUE(c.MaxX(v[0], 1, 1) && c.MinX(v[1], 2, 2) && c.MaxY(v[2]) && c.MinY(v[3]));
    EXPECT_EQ(std::vector<float>(v, v + 4), (std::vector<float>{5, -2, 7, -1}));
    AssertCapture capture;
    c.MaxX(out, 4, UINT_MAX);
    EXPECT_EQ(capture.Count(), 1);
}

TEST(Curve, DifferentiateMergesEqualXAndIntegrate) {
    Curve c = MakeCurve({{1, 2}, {1, 4}, {2, 5}});
    // Equal x that are not neighbours stay apart.
    Curve y = MakeCurve({{0, 0}, {2, 4}, {0, 8}, {1, 8}});
    EXPECT_EQ((Results{c.DifferentiateX(), y.DifferentiateY()}), (Results{1, 3}));
    EXPECT_EQ(std::tuple(Pts(c), Pts(y)), std::tuple("1.5,2", "1,2 1,-2 0.5,0"));
    Curve same = MakeCurve({{3, 1}, {3, 2}, {3, 9}}, "flat");
    same.Mark();
    EXPECT_EQ(same.DifferentiateX(), 0);
    EXPECT_EQ(std::tuple(same.points, std::string(same.GetName()), same.IsMarked()),
              std::tuple(nullptr, "", false));
    // The trapezoid rule, and nothing to do on an empty curve.
    Curve empty;
    empty.Integrate();
    EXPECT_EQ(empty.count, 0u);
    c = MakeCurve({{0, 1}, {1, 3}, {3, 3}, {4, -2}});
    c.Integrate();
    EXPECT_EQ(Pts(c), "0,0 1,2 3,8 4,8.5");
}
