#include "curve/undo.h"
#include "curve_test_helpers.h"
#include "platform/headless_host.h"

#include <gtest/gtest.h>

#include <string>
#include <tuple>

namespace {

void StartWith(unsigned curves) {
    gCurves.Reset();
    gUndoCurves.Reset();
    fUndoEnabled = 0;
    gCurves.SetCurveCount(curves);
    for (unsigned i = 0; i < curves; ++i)
        gCurves.GetCurve(i) = Ramp(4 + i);
    gCurves.SetPlotName("before");
}

} // namespace

TEST(Undo, SecondUndoIsARedoAndAnEmptyFamilyLeavesTheCopy) {
    EXPECT_EQ(gPaintedCurves, &gCurves);
    StartWith(2);
    ASSERT_EQ(SaveUndo(), 1);
    EXPECT_EQ(fUndoEnabled, 1);
    gCurves.DeleteCurves(0, 0);
    gCurves.SetPlotName("after");
    const Curve* kept = gCurves.curves;
    RestoreUndo();
    EXPECT_EQ(std::tuple(gCurves.count, std::string(gCurves.name)), std::tuple(2u, "before"));
    RestoreUndo();
    // Exchanged, not copied.
    EXPECT_EQ(std::tuple(gCurves.count, std::string(gCurves.name), gCurves.curves,
                         gCurves.curves[0].count, gPaintedCurves.load()),
              std::tuple(1u, "after", kept, 5u, &gCurves));
    gCurves.Reset();
    EXPECT_EQ(SaveUndo(), 1);
    EXPECT_EQ(gUndoCurves.count, 2u);
    EXPECT_TRUE(HeadlessBoxes().empty());
}

TEST(Undo, ShortageAsksWhetherToGoOn) {
    StartWith(3);
    HeadlessScriptAnswer(IDNO);
    HeadlessScriptAnswer(IDYES);
    {
        // The curve array and one curve's points: the copy falls short.
        AllocationBudget two(2);
        EXPECT_EQ(SaveUndo(), 0);
    }
    EXPECT_EQ(std::tuple(fUndoEnabled, gUndoCurves.count), std::tuple(0, 1u));
    {
        AllocationBudget none(0);
        EXPECT_EQ(SaveUndo(), 1);
    }
    EXPECT_EQ(std::tuple(gUndoCurves.count, gCurves.count), std::tuple(0u, 3u));
    auto boxes = HeadlessBoxes();
    ASSERT_EQ(boxes.size(), 2u);
    EXPECT_EQ(std::tuple(boxes[0].text, boxes[0].caption, boxes[0].flags & MB_TYPEMASK),
              std::tuple("Not enough memory to provide 'Undo'\nContinue Anyway?", "Undo",
                         unsigned(MB_YESNO)));
    gCurves.Reset();
    gUndoCurves.Reset();
}
