#include "common/test_support.h"
#include "curve/curve_family.h"
#include "curve_test_helpers.h"
#include "platform/headless_host.h"

#include <gtest/gtest.h>

#include <string>
#include <tuple>
#include <vector>

using Results = std::vector<std::int64_t>;

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

TEST(CurveFamily, CountDeleteMoveAndSwapMoveTheRecords) {
    CurveFamily f = Numbered(4);
    float out = 7;
    EXPECT_EQ(CurveFamily().MaxY(out), 0);
    EXPECT_EQ(std::tuple(CurveFamily().saved, out), std::tuple(1, 7.0f));
    // The records move without copying their points.
    const Point* held = f.curves[1].points;
    EXPECT_EQ(f.SetCurveCount(6), 6u);
    EXPECT_EQ(std::tuple(f.curves[1].points, Names(f), f.curves[5].count),
              std::tuple(held, "0123", 0u));
    {
        AllocationBudget none(0);
        EXPECT_EQ(f.SetCurveCount(8), 6u);
    }
    f = Numbered(6);
    EXPECT_EQ(f.DeleteCurves(1, 2), 1);
    std::string order = Names(f);
    f.MoveCurve(0, 3);
    order += " " + Names(f);
    f.MoveCurve(2, 0);
    order += " " + Names(f);
    f.MoveCurve(1, 1);
    f.SwapCurves(0, 3);
    EXPECT_EQ(order + " " + Names(f), "0345 3450 5340 0345");
    {
        // Without a smaller array the deletion is done in place.
        AllocationBudget none(0);
        EXPECT_EQ(f.DeleteCurves(0, 1), 1);
    }
    AssertCapture capture;
    EXPECT_EQ((Results{f.DeleteCurves(1, 2), f.DeleteCurves(1, 0)}), (Results{0, 0}));
    f.MoveCurve(0, 2);
    f.SwapCurves(2, 0);
    EXPECT_EQ(std::tuple(capture.Count(), Names(f)), std::tuple(4, "45"));
    EXPECT_EQ(f.GetCurve(2).count, 0u);
    EXPECT_EQ((Results{f.DeleteCurves(0, 1), f.curves == nullptr, f.DeleteCurves(0, 0),
                       f.SetCurveCount(0)}),
              (Results{1, 1, 0, 0}));
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
    CurveFamily k;
    {
        // The array and the points of curve 0 only: the copy ends before curve 1.
        AllocationBudget two(2);
        k = f;
    }
    EXPECT_EQ(std::tuple(Names(k), k.date), std::tuple("0", 1000));
    f.Clear();
    EXPECT_EQ(std::tuple(f.count, f.saved, std::string(f.xUnits)), std::tuple(0u, 1, "A"));
    f.Reset();
    EXPECT_EQ(std::tuple(std::string(f.xUnits), f.date), std::tuple("", 0));
}

TEST(CurveFamily, HeaderTextsAndExtent) {
    CurveFamily f;
    // SetHeader fails only when every field is cut.
    EXPECT_EQ((Results{f.SetComment(std::string(511, 'c').c_str()), f.AppendToComment("c"),
                       f.SetHeader(std::string(64, 'n').c_str(), "A", "V", "me"),
                       f.SetHeader(std::string(64, 'n').c_str(), std::string(16, 'a').c_str(),
                                   std::string(16, 'v').c_str(), std::string(64, 'd').c_str())}),
              (Results{1, 0, 1, 0}));
    EXPECT_EQ(std::string(f.yUnits), std::string(15, 'v'));
    f.SetCurveCount(3);
    float out = 5;
    EXPECT_EQ(f.MinX(out), 0);
    f.GetCurve(1) = MakeCurve({{2, -3}, {4, 8}});
    f.GetCurve(2) = MakeCurve({{-1, 1}});
    EXPECT_TRUE(f.MinX(out) && out == -1.0f && f.MaxY(out) && out == 8.0f);
}

TEST(CurveFamily, MarksAndSwappedAxes) {
    CurveFamily f = Numbered(5);
    f.curves[3].Mark();
    f.curves[4].Mark();
    EXPECT_EQ(std::tuple(f.CountMarked(), f.GetMarkedCurveIndex(1)), std::tuple(2u, 4));
    f.curves[1].Mark();
    EXPECT_EQ(f.GetMarkedCurveIndex(0), 1);
    {
        AssertCapture capture;
        EXPECT_EQ(f.GetMarkedCurveIndex(3), -1);
        EXPECT_EQ(capture.Count(), 1);
    }
    EXPECT_EQ(f.DeleteMarked(), 1);
    EXPECT_EQ(Names(f), "02");
    EXPECT_EQ(f.DeleteMarked(), 0);
    f.MarkAll();
    EXPECT_EQ(f.CountMarked(), 2u);
    f.UnmarkAll();
    EXPECT_EQ(f.CountMarked(), 0u);
    f = Numbered(3);
    f.SetUnits("A", "V");
    f.SwapAxes();
    EXPECT_EQ(std::tuple(std::string(f.xUnits), std::string(f.yUnits), Pts(f.curves[2])),
              std::tuple("V", "A", "0,0 10,1 20,2"));
}

// The arithmetic is the curves'; the family relabels, drops what has too few points, and says
// what it cut.
TEST(CurveFamily, DerivativesAndIntegralRelabelAndReport) {
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
    EXPECT_EQ(std::tuple(f.count, header(f)), std::tuple(1u, "D[IVC,x] A V/A"));
    g.curves[0].AddPoint(1, 5); // one x only: wiped and dropped without a report
    EXPECT_EQ(g.DifferentiateY(), 0);
    EXPECT_EQ(std::tuple(g.count, header(g)), std::tuple(1u, "D[IVC,x](y) V/A V/A"));
    h.Integrate();
    EXPECT_EQ(std::tuple(h.count, header(h)), std::tuple(2u, "Int[IVC,x] A V*A"));
    EXPECT_TRUE(HeadlessBoxes().empty());
    f = CurveFamily();
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
        if (texts[i][0]) {
            EXPECT_EQ(boxes[i].text, texts[i][0]);
        }
        EXPECT_EQ(std::tuple(boxes[i].caption, HeadlessBeeps().at(i)),
                  std::tuple(texts[i][1], unsigned(MB_ICONINFORMATION)));
    }
    EXPECT_EQ(boxes[1].flags & MB_ICONMASK, unsigned(MB_ICONINFORMATION));
}
