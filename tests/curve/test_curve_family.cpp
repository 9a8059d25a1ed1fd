#include "common/test_support.h"
#include "curve/curve_family.h"
#include "curve_test_helpers.h"
#include "platform/headless_host.h"

#include <gtest/gtest.h>

#include <string>
#include <tuple>

namespace {

// A family of curves named "0", "1", ... with i + 1 points each.
CurveFamily Numbered(unsigned n) {
    CurveFamily f;
    f.SetCurveCount(n);
    for (unsigned i = 0; i < n; ++i)
        f.GetCurve(i) = Ramp(i + 1, std::to_string(i).c_str());
    return f;
}

std::string Names(const CurveFamily& f) {
    std::string s;
    for (unsigned i = 0; i < f.count; ++i)
        s += f.curves[i].GetName();
    return s;
}

} // namespace

TEST(CurveFamily, ConstructedStateAndSetCurveCount) {
    CurveFamily f;
    EXPECT_EQ(std::tuple(f.count, f.date, f.timeSpent, f.saved, f.curves),
              std::tuple(0u, 0, -1.0f, 1, nullptr));
    float out = 7;
    EXPECT_EQ(f.MaxY(out), 0);
    EXPECT_EQ(out, 7.0f);
    // The records move without copying their points.
    f = Numbered(4);
    const Point* held = f.curves[1].points;
    EXPECT_EQ(f.SetCurveCount(6), 6u);
    EXPECT_EQ(std::tuple(f.curves[1].points, Names(f), f.curves[5].count),
              std::tuple(held, "0123", 0u));
    EXPECT_EQ(f.SetCurveCount(2), 2u);
    EXPECT_EQ(std::tuple(f.curves[1].points, Names(f)), std::tuple(held, "01"));
    {
        AllocationBudget none(0);
        EXPECT_EQ(f.SetCurveCount(5), 2u);
    }
    EXPECT_EQ(f.SetCurveCount(0), 0u);
    EXPECT_EQ(f.curves, nullptr);
}

TEST(CurveFamily, DeleteMoveAndSwapKeepTheOrder) {
    CurveFamily f = Numbered(6);
    EXPECT_EQ(f.DeleteCurves(1, 2), 1);
    EXPECT_EQ(Names(f), "0345");
    f.MoveCurve(0, 3);
    EXPECT_EQ(Names(f), "3450");
    f.MoveCurve(2, 0);
    EXPECT_EQ(Names(f), "5340");
    f.MoveCurve(1, 1);
    f.SwapCurves(0, 3);
    EXPECT_EQ(Names(f), "0345");
    {
        // Without a smaller array the deletion is done in place.
        AllocationBudget none(0);
        EXPECT_EQ(f.DeleteCurves(0, 1), 1);
    }
    EXPECT_EQ(Names(f), "45");
    AssertCapture capture;
    EXPECT_EQ(f.DeleteCurves(1, 2), 0);
    EXPECT_EQ(f.DeleteCurves(1, 0), 0);
    f.MoveCurve(0, 2);
    f.SwapCurves(2, 0);
    EXPECT_EQ(capture.Count(), 4);
    EXPECT_EQ(Names(f), "45");
    EXPECT_EQ(f.GetCurve(2).count, 0u);
    EXPECT_EQ(f.DeleteCurves(0, 1), 1);
    EXPECT_EQ(f.curves, nullptr);
    EXPECT_EQ(f.DeleteCurves(0, 0), 0);
    EXPECT_EQ(capture.Count(), 6);
}

TEST(CurveFamily, AssignmentHeaderAndShortage) {
    CurveFamily f = Numbered(3);
    f.SetHeader("IVC", "A", "V", "me");
    f.date = 1000;
    f.saved = 0;
    f.curves[2].Mark();
    CurveFamily g;
    g = f;
    EXPECT_EQ(std::tuple(Names(g), g.curves[2].IsMarked(), std::string(g.designer), g.saved),
              std::tuple("012", true, "me", 0));
    EXPECT_NE(g.curves[2].points, f.curves[2].points);
    g = g;
    EXPECT_EQ(g.count, 3u);
    {
        // A family of the same shape is copied into the arrays it holds, with no allocation.
        AllocationBudget none(0);
        g = f;
    }
    EXPECT_EQ(Names(g), "012");
    EXPECT_EQ(g.curves[1].capacity, g.curves[1].count);
    CurveFamily k;
    {
        // The array and the points of curve 0 only: the copy ends before curve 1.
        AllocationBudget two(2);
        k = f;
    }
    EXPECT_EQ(std::tuple(Names(k), k.date), std::tuple("0", 1000));
    CurveFamily h;
    h.CopyHeader(f);
    EXPECT_EQ(std::tuple(h.count, h.saved, std::string(h.name)), std::tuple(0u, 1, "IVC"));
    f.Clear();
    EXPECT_EQ(std::tuple(f.count, f.saved, std::string(f.xUnits)), std::tuple(0u, 1, "A"));
    f.Reset();
    EXPECT_EQ(std::tuple(std::string(f.xUnits), f.date), std::tuple("", 0));
}

TEST(CurveFamily, HeaderTextsAndExtent) {
    CurveFamily f;
    EXPECT_EQ(f.SetYUnits(std::string(16, 'y').c_str()), 0);
    EXPECT_EQ(std::string(f.yUnits), std::string(15, 'y'));
    EXPECT_EQ(f.SetComment(std::string(511, 'c').c_str()), 1);
    EXPECT_EQ(f.AppendToComment("c"), 0);
    EXPECT_EQ(f.SetHeader(std::string(64, 'n').c_str(), "A", "V", "me"), 1);
    EXPECT_EQ(f.SetHeader(std::string(64, 'n').c_str(), std::string(16, 'a').c_str(),
                          std::string(16, 'v').c_str(), std::string(64, 'd').c_str()),
              0);
    f.SetCurveCount(3);
    float out = 5;
    EXPECT_EQ(f.MinX(out), 0);
    f.GetCurve(1) = MakeCurve({{2, -3}, {4, 8}});
    f.GetCurve(2) = MakeCurve({{-1, 1}});
    EXPECT_EQ(f.MinX(out), 1);
    EXPECT_EQ(out, -1.0f);
    EXPECT_EQ(f.MaxY(out), 1);
    EXPECT_EQ(out, 8.0f);
}

TEST(CurveFamily, MarksAndMarkedIndices) {
    CurveFamily f = Numbered(5);
    f.MarkAll();
    FloatRect r{2.5f, 3.5f, 0, 100}; // curves with an x of 3: 3 and 4
    f.MarkInRectangle(r);
    EXPECT_EQ(f.CountMarked(), 2u);
    EXPECT_EQ(f.GetMarkedCurveIndex(1), 4);
    f.curves[1].Mark();
    EXPECT_EQ(f.GetMarkedCurveIndex(0), 1);
    {
        AssertCapture capture;
        EXPECT_EQ(f.GetMarkedCurveIndex(3), -1);
        EXPECT_EQ(capture.Messages(),
                  std::vector<std::string>{"CurveFamily::GetMarkedCurveIndex - MarkedCurveNumber "
                                           "is wrong"});
    }
    EXPECT_EQ(f.DeleteMarked(), 1);
    EXPECT_EQ(Names(f), "02");
    EXPECT_EQ(f.DeleteMarked(), 0);
    f.UnmarkAll();
    EXPECT_EQ(f.CountMarked(), 0u);
}

TEST(CurveFamily, SwapAxesAndDeleteInRectangle) {
    CurveFamily f = Numbered(3);
    f.SetUnits("A", "V");
    f.SwapAxes();
    EXPECT_EQ(std::tuple(std::string(f.xUnits), std::string(f.yUnits)), std::tuple("V", "A"));
    EXPECT_EQ(Pts(f.curves[2]), "0,0 10,1 20,2");
    // Curves 0 and 1 lie wholly inside and go; curve 2 keeps its last point.
    FloatRect r{10, 0, 0, 1};
    EXPECT_EQ(f.DeleteInRectangle(r), 0);
    EXPECT_EQ(std::tuple(f.count, Names(f), Pts(f.curves[0])), std::tuple(1u, "2", "20,2"));
}

TEST(CurveFamily, DerivativesAndIntegralRelabel) {
    CurveFamily f;
    f.SetHeader("IVC", "A", "V", "");
    f.SetCurveCount(2);
    f.GetCurve(0) = MakeCurve({{1, 1}});
    f.GetCurve(1) = MakeCurve({{0, 0}, {2, 4}});
    CurveFamily g = f, h = f;
    auto header = [](const CurveFamily& f) {
        return std::string(f.name) + " " + f.xUnits + " " + f.yUnits;
    };
    EXPECT_EQ(f.DifferentiateX(), 1);
    EXPECT_EQ(std::tuple(f.count, Pts(f.curves[0])), std::tuple(1u, "1,2"));
    EXPECT_EQ(header(f), "D[IVC,x] A V/A");
    g.curves[0].AddPoint(1, 5); // one x only: wiped and dropped without a report
    EXPECT_EQ(g.DifferentiateY(), 0);
    EXPECT_EQ(g.count, 1u);
    EXPECT_EQ(header(g), "D[IVC,x](y) V/A V/A");
    h.Integrate();
    EXPECT_EQ(header(h), "Int[IVC,x] A V*A");
    EXPECT_EQ(Pts(h.curves[1]), "0,0 2,4");
    EXPECT_TRUE(HeadlessBoxes().empty());
}

TEST(CurveFamily, RelabelTruncationBoxes) {
    CurveFamily f;
    f.SetPlotName(std::string(61, 't').c_str());
    f.SetUnits("mA", "uV");
    f.DifferentiateX();
    EXPECT_EQ(std::string(f.name), "D[" + std::string(61, 't'));
    f.SetUnits("abcdefg", "hijklmno");
    f.Integrate();
    EXPECT_STREQ(f.yUnits, "hijklmno*abcdef");
    ReportDiscardedCurves();
    auto boxes = HeadlessBoxes();
    ASSERT_EQ(boxes.size(), 4u);
    const char* texts[][2] = {
        {"The name of plot is too long.\nTruncated.", "CurveFamily::DifferentiateX()"},
        {"The name of Y-units is too long.\nTruncated.", "CurveFamily::Integrate()"},
        {nullptr, "CurveFamily::Integrate()"},
        {"Some curves consisted of 0 or 1 point only.\nThey have been discarded.", ""}};
    for (int i = 0; i < 4; ++i) {
        if (texts[i][0]) EXPECT_EQ(boxes[i].text, texts[i][0]);
        EXPECT_EQ(boxes[i].caption, texts[i][1]);
        EXPECT_EQ(HeadlessBeeps().at(i), unsigned(MB_ICONINFORMATION));
    }
    EXPECT_EQ(boxes[1].flags & MB_ICONMASK, unsigned(MB_ICONINFORMATION));
}

TEST(CurveFamily, SplitCurve) {
    CurveFamily f = Numbered(3);
    f.GetCurve(1) = Ramp(10, "iv");
    EXPECT_EQ(f.SplitCurve(1, 0), 1);
    EXPECT_EQ(f.SplitCurve(1, 9), 1);
    EXPECT_EQ(std::tuple(f.count, f.curves[1].count), std::tuple(3u, 10u));
    EXPECT_EQ(f.SplitCurve(1, 3), 1);
    EXPECT_EQ(Names(f), "0iv#1iv#22");
    EXPECT_EQ(Pts(f.curves[1]), "0,0 1,10 2,20");
    EXPECT_EQ(Pts(f.curves[2]), "4,40 5,50 6,60 7,70 8,80 9,90");
    {
        // The new record, but no points for the copy: the family stays as it was.
        AllocationBudget one(1);
        EXPECT_EQ(f.SplitCurve(2, 2), 0);
    }
    EXPECT_EQ(Names(f), "0iv#1iv#22");
}
