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
    EXPECT_EQ(FindCommand(4242), nullptr);
}

// Selection greys the commands that work outside it; the rubber band leaves the menu as it was.
TEST_F(Commands, MenuStatesFollowTheSelectionAndUndo) {
    const int ids[] = {IDM_DESELECT, IDM_RESELECT, IDM_DYDX_X, IDM_SWAP_XY, IDM_OPEN, IDM_UNDO};
    auto states = [&] {
        std::string s;
        for (int id : ids)
            s += IsCommandEnabled(id) ? '1' : '0';
        return s;
    };
    EXPECT_EQ(states(), "011110");
    SetSelectionState(2);
    EXPECT_EQ(states(), "100010");
    SetSelectionState(1);
    EXPECT_EQ(states(), "100010");
    SetSelectionState(0);
    SaveUndo(); // empty family: no snapshot
    EXPECT_EQ(states(), "011110");
    Fill(2, 4);
    SaveUndo();
    EXPECT_EQ(states(), "011111");
}

TEST_F(Commands, NotHandledAndNotBuiltStayDisabledAndDoNothing) {
    for (int n : {IDM_CUT, IDM_DXB_DXF, IDM_OPT_IMAXH, IDM_TEST, IDM_MEASURE_KEP})
        EXPECT_FALSE(IsCommandEnabled(n)) << n;
    Fill(1, 3);
    EXPECT_EQ(CommandDispatch(nullptr, IDM_DXB_DXF), 0);
    EXPECT_EQ(CommandDispatch(nullptr, 9999), 0);
    EXPECT_EQ(std::tuple(gCurves.count, HeadlessBoxes().size()), std::tuple(1u, 0u));
}

} // namespace
