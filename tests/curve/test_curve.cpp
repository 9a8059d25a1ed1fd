#include "common/test_support.h"
#include "curve_test_helpers.h"

#include <gtest/gtest.h>

#include <cfloat>
#include <string>

TEST(Point, ConstructMultiplyAndTolerances) {
    Point zero;
    EXPECT_EQ(zero.x, 0.0f);
    EXPECT_EQ(zero.y, 0.0f);
    Point p(2, 3);
    Point r = (p *= Point(4, -1));
    EXPECT_EQ(p.x, 8.0f);
    EXPECT_EQ(r.y, -3.0f);
    r.x = 0; // the result is a copy
    EXPECT_EQ(p.x, 8.0f);

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
    EXPECT_EQ(c.count, 9u);
    EXPECT_EQ(c.capacity, 16u);

    const Point* before = c.points;
    EXPECT_EQ(c.Resize(9), 9);
    EXPECT_NE(c.points, before);
    EXPECT_EQ(c.capacity, 9u);
    EXPECT_EQ(c.GetPoint(0).y, 2.0f);
    EXPECT_EQ(c.GetPoint(8).x, 8.0f);

    EXPECT_EQ(c.Reserve(4), 4);
    EXPECT_EQ(c.count, 4u);
    EXPECT_EQ(c.GetPoint(3).x, 3.0f);
    EXPECT_EQ(c.Reserve(20), 4);
    EXPECT_EQ(c.Resize(6), 6);
    EXPECT_EQ(c.GetPoint(5).x, 0.0f);

    c.SetName("keep");
    EXPECT_EQ(c.Resize(0), 0);
    EXPECT_EQ(c.points, nullptr);
    EXPECT_EQ(c.capacity, 0u);
    EXPECT_STREQ(c.GetName(), "keep");
}

TEST(Curve, OutOfRangeIndicesFailTheCheckAndTouchNothing) {
    Curve c = Ramp(3);
    AssertCapture capture;
    c.GetPoint(3) = Point(99, 99);
    const Curve& cc = c;
    EXPECT_EQ(cc.GetPoint(7).x, 0.0f);
    EXPECT_EQ(c.DeletePoints(3, 3), 3);
    EXPECT_EQ(c.DeletePoints(0, 3), 3);
    EXPECT_EQ(c.DeletePoints(2, 1), 3);
    EXPECT_EQ(capture.Count(), 6);
    EXPECT_EQ(c.count, 3u);
    EXPECT_EQ(c.GetPoint(2).y, 20.0f);
}

TEST(Curve, DeletePointsShrinksToFit) {
    Curve c = Ramp(6);
    EXPECT_EQ(c.DeletePoints(1, 2), 4);
    EXPECT_EQ(c.capacity, 4u);
    EXPECT_EQ(c.GetPoint(1).x, 3.0f);
    EXPECT_EQ(c.GetPoint(3).x, 5.0f);
    EXPECT_EQ(c.DeletePoints(0, 3), 0);
    EXPECT_EQ(c.points, nullptr);
}

TEST(Curve, ShortageOfMemoryLeavesTheCurveConsistent) {
    Curve c = Ramp(5);
    {
        AllocationBudget none(0);
        EXPECT_EQ(c.Reserve(50), kCurveFailure);
        EXPECT_EQ(c.capacity, 5u);
        EXPECT_EQ(c.AddPoint(7, 7), kCurveFailure);
        EXPECT_EQ(c.count, 5u);
        // The points go all the same; only the larger array stays.
        EXPECT_EQ(c.DeletePoints(1, 2), kCurveFailure);
        EXPECT_EQ(c.count, 3u);
        EXPECT_EQ(c.capacity, 5u);
        EXPECT_EQ(c.GetPoint(1).x, 3.0f);
        Curve copy;
        copy = c;
        EXPECT_EQ(copy.count, 0u);
    }
    // Room left behind by the deletion must come back as (0, 0).
    EXPECT_EQ(c.Resize(5), 5);
    EXPECT_EQ(c.GetPoint(4).x, 0.0f);
    EXPECT_EQ(c.GetPoint(3).y, 0.0f);
}

TEST(Curve, ClearAssignmentAndScaled) {
    Curve c = Ramp(3, "iv");
    c.tag = 42;
    c.Mark();
    c.AddPoint(5, 5); // capacity 11, count 4
    Curve copy(c);
    EXPECT_EQ(copy.capacity, 4u);
    EXPECT_EQ(copy.tag, 42u);
    EXPECT_TRUE(copy.IsMarked());
    EXPECT_STREQ(copy.GetName(), "iv");
    EXPECT_EQ(copy.GetPoint(3).y, 5.0f);
    EXPECT_NE(copy.points, c.points);
    copy = copy;
    EXPECT_EQ(copy.count, 4u);

    Curve scaled = c.Scaled(Point(2, -1));
    EXPECT_EQ(c.GetPoint(1).x, 2.0f);
    EXPECT_EQ(c.GetPoint(1).y, -10.0f);
    EXPECT_EQ(scaled.GetPoint(1).y, -10.0f);

    c.Clear();
    EXPECT_EQ(c.count + c.capacity + c.tag + unsigned(c.marked), 0u);
    EXPECT_EQ(c.points, nullptr);
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

TEST(Curve, ExtremesScanTheWholeCurve) {
    Curve c;
    float out = 123;
    EXPECT_FALSE(c.MaxX(out));
    EXPECT_FALSE(c.MinY(out, 0, 0));
    EXPECT_EQ(out, 123.0f);
    c = MakeCurve({{5, -1}, {-2, 7}, {3, 2}});
    EXPECT_TRUE(c.MaxX(out, 1, 1));
    EXPECT_EQ(out, 5.0f);
    EXPECT_TRUE(c.MinX(out, 2, 2));
    EXPECT_EQ(out, -2.0f);
    EXPECT_TRUE(c.MaxY(out));
    EXPECT_EQ(out, 7.0f);
    EXPECT_TRUE(c.MinY(out));
    EXPECT_EQ(out, -1.0f);
    AssertCapture capture;
    c.MaxX(out, 3, UINT_MAX);
    EXPECT_EQ(capture.Count(), 1);
}

TEST(Curve, IndexOfExtremes) {
    Curve c = MakeCurve({{1, 4}, {3, 0}, {3, 0}, {-1, 9}});
    EXPECT_EQ(IndexOfMaxX(c), 1);
    EXPECT_EQ(IndexOfMinX(c), 3);
    EXPECT_EQ(IndexOfMinX(c, 0, 3), 0);
    EXPECT_EQ(IndexOfMinY(c), 1);
    EXPECT_EQ(IndexOfMaxY(c, 1, 3), 1);
    EXPECT_EQ(IndexOfMaxY(c, 2), 3);
    EXPECT_EQ(IndexOfMaxCoordinate(CoordinateY, c, 0, 1000), 3);
    AssertCapture capture;
    EXPECT_EQ(IndexOfMaxX(c, 4), kCurveFailure);
    EXPECT_EQ(IndexOfMaxX(c, 2, 1), kCurveFailure);
    EXPECT_EQ(IndexOfMinY(Curve()), kCurveFailure);
    EXPECT_EQ(capture.Count(), 3);
}

TEST(Curve, DeleteInRectangleRunsAndEdges) {
    // Inside runs at the start, in the middle and at the end, edges included.
    Curve a = MakeCurve({{0, 0}, {1, 1}, {5, 5}, {2, 2}, {3, 1}, {6, 6}, {1, 2}, {2, 0}});
    Curve b = a;
    FloatRect r{0, 3, 0, 2};
    FloatRect swapped{3, 0, 2, 0};
    EXPECT_EQ(a.DeleteInRectangle(r), 0);
    EXPECT_EQ(b.DeleteInRectangle(swapped), 0);
    EXPECT_EQ(swapped.x1, 0.0f);
    EXPECT_EQ(swapped.y2, 2.0f);
    ASSERT_EQ(a.count, 2u);
    EXPECT_EQ(a.GetPoint(0).x, 5.0f);
    EXPECT_EQ(a.GetPoint(1).x, 6.0f);
    ASSERT_EQ(b.count, 2u);
    EXPECT_EQ(b.GetPoint(1).x, 6.0f);

    Curve c = Ramp(4);
    FloatRect edge{1, 2, 10, 20};
    {
        AllocationBudget none(0);
        EXPECT_EQ(c.DeleteInRectangle(edge), 1);
    }
    EXPECT_EQ(c.count, 2u);
    EXPECT_EQ(c.GetPoint(1).x, 3.0f);
}

TEST(Curve, MarkIfInRectangleLeavesTheMarkWhenNothingIsInside) {
    Curve c = Ramp(3);
    FloatRect miss{5, 6, 5, 6}, hit{2, 1, 20, 5};
    c.Mark();
    c.MarkIfInRectangle(miss);
    EXPECT_TRUE(c.IsMarked());
    c.Unmark();
    c.MarkIfInRectangle(hit);
    EXPECT_TRUE(c.IsMarked());
}

TEST(Curve, DifferentiateMergesEqualX) {
    Curve c = MakeCurve({{1, 2}, {1, 4}, {2, 5}});
    EXPECT_EQ(c.DifferentiateX(), 1);
    ASSERT_EQ(c.count, 1u);
    EXPECT_EQ(c.GetPoint(0).x, 1.5f);
    EXPECT_EQ(c.GetPoint(0).y, 2.0f);

    // Equal x that are not neighbours stay apart.
    Curve y = MakeCurve({{0, 0}, {2, 4}, {0, 8}, {1, 8}});
    EXPECT_EQ(y.DifferentiateY(), 3);
    EXPECT_EQ(y.GetPoint(0).x, 1.0f);
    EXPECT_EQ(y.GetPoint(0).y, 2.0f);
    EXPECT_EQ(y.GetPoint(1).y, -2.0f);
    EXPECT_EQ(y.GetPoint(2).x, 0.5f);
    EXPECT_EQ(y.GetPoint(2).y, 0.0f);

    Curve same = MakeCurve({{3, 1}, {3, 2}, {3, 9}}, "flat");
    same.Mark();
    EXPECT_EQ(same.DifferentiateX(), 0);
    EXPECT_EQ(same.points, nullptr);
    EXPECT_STREQ(same.GetName(), "");
    EXPECT_FALSE(same.IsMarked());
}

TEST(Curve, IntegrateTrapezoidAndEmptyGuard) {
    Curve empty;
    empty.Integrate();
    EXPECT_EQ(empty.count, 0u);
    Curve c = MakeCurve({{0, 1}, {1, 3}, {3, 3}, {4, -2}});
    c.Integrate();
    EXPECT_EQ(c.GetPoint(0).y, 0.0f);
    EXPECT_EQ(c.GetPoint(1).y, 2.0f);
    EXPECT_EQ(c.GetPoint(2).y, 8.0f);
    EXPECT_EQ(c.GetPoint(3).y, 8.5f);
    EXPECT_EQ(c.GetPoint(3).x, 4.0f);
}
