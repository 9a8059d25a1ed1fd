#include "curve/undo.h"
#include "curve_test_helpers.h"
#include "platform/headless_host.h"

#include <gtest/gtest.h>

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
    EXPECT_EQ(gCurves.count, 2u);
    EXPECT_STREQ(gCurves.name, "before");
    RestoreUndo();
    EXPECT_EQ(gCurves.count, 1u);
    EXPECT_STREQ(gCurves.name, "after");
    EXPECT_EQ(gCurves.curves, kept); // exchanged, not copied
    EXPECT_EQ(gCurves.curves[0].count, 5u);
    EXPECT_EQ(gPaintedCurves, &gCurves);
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
    EXPECT_EQ(fUndoEnabled, 0);
    EXPECT_EQ(gUndoCurves.count, 1u);
    {
        AllocationBudget none(0);
        EXPECT_EQ(SaveUndo(), 1);
    }
    EXPECT_EQ(gUndoCurves.count, 0u);
    auto boxes = HeadlessBoxes();
    ASSERT_EQ(boxes.size(), 2u);
    EXPECT_EQ(boxes[0].text, "Not enough memory to provide 'Undo'\nContinue Anyway?");
    EXPECT_EQ(boxes[0].caption, "Undo");
    EXPECT_EQ(boxes[0].flags & MB_TYPEMASK, unsigned(MB_YESNO));
    EXPECT_EQ(gCurves.count, 3u);
    gCurves.Reset();
    gUndoCurves.Reset();
}
