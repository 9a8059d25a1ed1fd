#include "common/test_support.h"
#include "curve_test_helpers.h"

#include <gtest/gtest.h>

#include <string>
#include <tuple>

TEST(Point, ConstructMultiplyAndTolerances) {
    Point zero;
    EXPECT_EQ(std::tuple(zero.x, zero.y), std::tuple(0.0f, 0.0f));
    Point p(2, 3);
    Point r = (p *= Point(4, -1));
    r.x = 0; // the result is a copy
    EXPECT_EQ(std::tuple(p.x, p.y, r.y), std::tuple(8.0f, -3.0f, -3.0f));
    Point a(1, 1);
    EXPECT_FALSE(a.Differs(Point(1.00005f, 0.99995f)));
    EXPECT_TRUE(a.Differs(Point(1.0f, 1.0002f)));
    EXPECT_TRUE(a.DiffersNotInBoth(Point(1.0f, 5.0f)));
    EXPECT_FALSE(a.DiffersNotInBoth(Point(2.0f, 5.0f)));
}

TEST(Curve, ExactCapacityAndAdditiveGrowth) {
    Curve c;
    EXPECT_EQ(c.points, nullptr);
    EXPECT_EQ(c.AddPoint(1, 2), 1);
    EXPECT_EQ(c.capacity, 8u);
    for (int i = 1; i < 9; ++i)
        c.AddPoint(float(i), 0);
    EXPECT_EQ(std::tuple(c.count, c.capacity), std::tuple(9u, 16u));
    const Point* before = c.points;
    EXPECT_EQ(c.Resize(9), 9);
    EXPECT_NE(c.points, before);
    EXPECT_EQ(c.capacity, 9u);
    EXPECT_EQ(Pts(c), "1,2 1,0 2,0 3,0 4,0 5,0 6,0 7,0 8,0");
    EXPECT_EQ(c.Reserve(4), 4);
    EXPECT_EQ(Pts(c), "1,2 1,0 2,0 3,0");
    EXPECT_EQ(c.Reserve(20), 4);
    EXPECT_EQ(c.Resize(6), 6);
    EXPECT_EQ(Pts(c), "1,2 1,0 2,0 3,0 0,0 0,0");
    c.SetName("keep");
    EXPECT_EQ(c.Resize(0), 0);
    EXPECT_EQ(std::tuple(c.points, c.capacity), std::tuple(nullptr, 0u));
    EXPECT_STREQ(c.GetName(), "keep");
}

TEST(Curve, DeletePointsShrinksToFitAndChecksItsRange) {
    Curve c = Ramp(6);
    EXPECT_EQ(c.DeletePoints(1, 2), 4);
    EXPECT_EQ(c.capacity, 4u);
    EXPECT_EQ(Pts(c), "0,0 3,30 4,40 5,50");
    {
        AssertCapture capture;
        c.GetPoint(4) = Point(99, 99);
        const Curve& cc = c;
        EXPECT_EQ(cc.GetPoint(7).x, 0.0f);
        EXPECT_EQ(c.DeletePoints(4, 4), 4);
        EXPECT_EQ(c.DeletePoints(0, 4), 4);
        EXPECT_EQ(c.DeletePoints(2, 1), 4);
        EXPECT_EQ(capture.Count(), 6);
        EXPECT_EQ(Pts(c), "0,0 3,30 4,40 5,50");
    }
    EXPECT_EQ(c.DeletePoints(0, 3), 0);
    EXPECT_EQ(c.points, nullptr);
}

TEST(Curve, ShortageOfMemoryLeavesTheCurveConsistent) {
    Curve c = Ramp(5);
    {
        AllocationBudget none(0);
        EXPECT_EQ(c.Reserve(50), kCurveFailure);
        EXPECT_EQ(c.AddPoint(7, 7), kCurveFailure);
        EXPECT_EQ(std::tuple(c.count, c.capacity), std::tuple(5u, 5u));
        // The points go all the same; only the larger array stays.
        EXPECT_EQ(c.DeletePoints(1, 2), kCurveFailure);
        EXPECT_EQ(std::tuple(Pts(c), c.capacity), std::tuple("0,0 3,30 4,40", 5u));
        Curve copy;
        copy = c;
        EXPECT_EQ(copy.count, 0u);
    }
    // Room left behind by the deletion must come back as (0, 0).
    EXPECT_EQ(c.Resize(5), 5);
    EXPECT_EQ(Pts(c), "0,0 3,30 4,40 0,0 0,0");
}

TEST(Curve, ClearAssignmentAndScaled) {
    Curve c = Ramp(3, "iv");
    c.tag = 42;
    c.Mark();
    c.AddPoint(5, 5); // capacity 11, count 4
    Curve copy(c);
    EXPECT_EQ(std::tuple(copy.capacity, copy.tag, copy.IsMarked()), std::tuple(4u, 42u, true));
    EXPECT_STREQ(copy.GetName(), "iv");
    EXPECT_EQ(Pts(copy), "0,0 1,10 2,20 5,5");
    EXPECT_NE(copy.points, c.points);
    copy = copy;
    EXPECT_EQ(copy.count, 4u);
    // Scaled scales the curve itself and returns a copy.
    Curve scaled = c.Scaled(Point(2, -1));
    EXPECT_EQ(Pts(c), "0,-0 2,-10 4,-20 10,-5");
    EXPECT_EQ(Pts(scaled), Pts(c));
    c.Clear();
    EXPECT_EQ(std::tuple(c.count, c.capacity, c.tag, c.marked, c.points),
              std::tuple(0u, 0u, 0u, 0, nullptr));
    EXPECT_STREQ(c.GetName(), "");
}

TEST(Curve, NamesAreCutAt127Characters) {
    Curve c;
    std::string fits(127, 'a');
    EXPECT_EQ(c.SetName(fits.c_str()), 1);
    EXPECT_EQ(c.AppendToName("b"), 0);
    EXPECT_EQ(std::string(c.GetName()), fits);
    EXPECT_EQ(c.SetName((fits + "b").c_str()), 0);
    EXPECT_EQ(c.SetName("I"), 1);
    EXPECT_EQ(c.AppendToName("c#1"), 1);
    EXPECT_STREQ(c.GetName(), "Ic#1");
}

TEST(Curve, Extremes) {
    Curve c;
    float out = 123;
    EXPECT_FALSE(c.MaxX(out));
    EXPECT_FALSE(c.MinY(out, 0, 0));
    EXPECT_EQ(out, 123.0f);
    c = MakeCurve({{5, -1}, {-2, 7}, {3, 2}});
    // The values scan the whole curve whatever the range.
    float v[4];
    EXPECT_TRUE(c.MaxX(v[0], 1, 1) && c.MinX(v[1], 2, 2) && c.MaxY(v[2]) && c.MinY(v[3]));
    EXPECT_EQ(std::vector<float>(v, v + 4), (std::vector<float>{5, -2, 7, -1}));
    // The indices keep to the range, first of equals.
    c = MakeCurve({{1, 4}, {3, 0}, {3, 0}, {-1, 9}});
    EXPECT_EQ((std::vector<std::int64_t>{IndexOfMaxX(c), IndexOfMinX(c), IndexOfMinX(c, 0, 3),
                                         IndexOfMinY(c), IndexOfMaxY(c, 1, 3), IndexOfMaxY(c, 2),
                                         IndexOfMaxCoordinate(CoordinateY, c, 0, 1000)}),
              (std::vector<std::int64_t>{1, 3, 0, 1, 1, 3, 3}));
    AssertCapture capture;
    c.MaxX(out, 4, UINT_MAX);
    EXPECT_EQ(IndexOfMaxX(c, 4), kCurveFailure);
    EXPECT_EQ(IndexOfMaxX(c, 2, 1), kCurveFailure);
    EXPECT_EQ(IndexOfMinY(Curve()), kCurveFailure);
    EXPECT_EQ(capture.Count(), 4);
}

TEST(Curve, RectanglesDeleteRunsAndEdgesAndMark) {
    // Inside runs at the start, in the middle and at the end, edges included.
    Curve a = MakeCurve({{0, 0}, {1, 1}, {5, 5}, {2, 2}, {3, 1}, {6, 6}, {1, 2}, {2, 0}});
    Curve b = a;
    FloatRect r{0, 3, 0, 2}, swapped{3, 0, 2, 0};
    EXPECT_EQ(a.DeleteInRectangle(r), 0);
    EXPECT_EQ(b.DeleteInRectangle(swapped), 0);
    EXPECT_EQ(std::tuple(swapped.x1, swapped.y2), std::tuple(0.0f, 2.0f));
    EXPECT_EQ(Pts(a), "5,5 6,6");
    EXPECT_EQ(Pts(b), "5,5 6,6");
    Curve c = Ramp(4);
    FloatRect edge{1, 2, 10, 20};
    {
        AllocationBudget none(0);
        EXPECT_EQ(c.DeleteInRectangle(edge), 1);
    }
    EXPECT_EQ(Pts(c), "0,0 3,30");
    // Marking leaves the mark when nothing is inside.
    FloatRect miss{5, 6, 5, 6}, hit{2, 1, 20, 5};
    c = Ramp(3);
    c.Mark();
    c.MarkIfInRectangle(miss);
    EXPECT_TRUE(c.IsMarked());
    c.Unmark();
    c.MarkIfInRectangle(hit);
    EXPECT_TRUE(c.IsMarked());
}

TEST(Curve, DifferentiateMergesEqualXAndIntegrate) {
    Curve c = MakeCurve({{1, 2}, {1, 4}, {2, 5}});
    EXPECT_EQ(c.DifferentiateX(), 1);
    EXPECT_EQ(Pts(c), "1.5,2");
    // Equal x that are not neighbours stay apart.
    Curve y = MakeCurve({{0, 0}, {2, 4}, {0, 8}, {1, 8}});
    EXPECT_EQ(y.DifferentiateY(), 3);
    EXPECT_EQ(Pts(y), "1,2 1,-2 0.5,0");
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
