#include "ui/command_ids.h"
#include "commands_fixture.h"

#include <set>
#include <string>

namespace {

TEST(CommandTable, NumbersAreUniqueAndMenusKnown) {
    std::set<int> seen;
    std::set<std::string> menus(gMenuTitles, gMenuTitles + gMenuCount);
    for (unsigned i = 0; i < gCommandCount; ++i) {
        const CommandRow& row = gCommandTable[i];
        EXPECT_TRUE(seen.insert(row.number).second) << row.number;
        if (!(row.flags & CMD_HIDDEN)) EXPECT_TRUE(menus.count(row.menu)) << row.number;
        // A command is never in both selection lists.
        EXPECT_FALSE((row.flags & CMD_IN_SELECTION) && (row.flags & CMD_OUT_SELECTION));
    }
    // F6 shows in the menu text and has no key; an unknown number has no row.
    EXPECT_EQ(FindCommand(IDM_MEASURE_KEP)->keys, nullptr);
    EXPECT_EQ(FindCommand(4242), nullptr);
}

TEST_F(Commands, MenuStatesFollowTheSelection) {
    EXPECT_FALSE(IsCommandEnabled(IDM_DESELECT));
    EXPECT_TRUE(IsCommandEnabled(IDM_RESELECT));
    EXPECT_TRUE(IsCommandEnabled(IDM_DYDX_X));
    EXPECT_TRUE(IsCommandEnabled(IDM_SWAP_XY));
    SetSelectionState(2);
    EXPECT_TRUE(IsCommandEnabled(IDM_DESELECT));
    EXPECT_FALSE(IsCommandEnabled(IDM_RESELECT));
    EXPECT_FALSE(IsCommandEnabled(IDM_DYDX_X));
    EXPECT_FALSE(IsCommandEnabled(IDM_SWAP_XY));
    EXPECT_TRUE(IsCommandEnabled(IDM_OPEN));
    // The rubber band leaves the menu as it was.
    SetSelectionState(1);
    EXPECT_TRUE(IsCommandEnabled(IDM_DESELECT));
    SetSelectionState(0);
    EXPECT_FALSE(IsCommandEnabled(IDM_DESELECT));
}

TEST_F(Commands, NotHandledAndNotBuiltStayDisabledAndDoNothing) {
    for (int n : {IDM_CUT, IDM_DXB_DXF, IDM_OPT_IMAXH, IDM_TEST, IDM_MEASURE_KEP})
        EXPECT_FALSE(IsCommandEnabled(n)) << n;
    Fill(1, 3);
    EXPECT_EQ(CommandDispatch(nullptr, IDM_DXB_DXF), 0);
    EXPECT_EQ(CommandDispatch(nullptr, 9999), 0);
    EXPECT_EQ(gCurves.count, 1u);
    EXPECT_TRUE(HeadlessBoxes().empty());
}

TEST_F(Commands, UndoStartsDisabledAndFollowsTheFirstSnapshot) {
    EXPECT_FALSE(IsCommandEnabled(IDM_UNDO));
    SaveUndo(); // empty family: no snapshot
    EXPECT_FALSE(IsCommandEnabled(IDM_UNDO));
    Fill(2, 4);
    SaveUndo();
    EXPECT_TRUE(IsCommandEnabled(IDM_UNDO));
}

} // namespace
