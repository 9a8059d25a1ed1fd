// The scroll helper and the enabling helpers.
#include "fake_dialog.h"
#include "platform/headless_host.h"
#include "ui/dialog_helpers.h"
#include "ui/scroll_helper.h"

#include <gtest/gtest.h>

#include <map>

namespace {

TEST(ScrollHelper, MovesWithinLimitsAndBeepsAtThem) {
    struct Row {
        int request, thumb, page;
        bool ctrl;
        int from, to;
        bool beep;
    };
    // The range is 10..110 throughout; Ctrl multiplies a step by the page squared.
    const Row rows[] = {
        {SB_LINEDOWN, 0, 4, false, 50, 51, false},
        {SB_PAGEDOWN, 0, 4, false, 50, 54, false},
        {SB_PAGEUP, 0, 4, true, 80, 16, false},
        {SB_PAGEDOWN, 0, 3, true, 50, 77, false},
        {SB_THUMBPOSITION, 37, 4, false, 50, 37, false},
        {SB_TOP, 0, 4, true, 50, 10, false},
        {SB_BOTTOM, 0, 4, false, 50, 110, false},
        {SB_LINEUP, 0, 4, false, 11, 10, false},
        {SB_LINEUP, 0, 4, false, 10, 10, true},
        {SB_LINEDOWN, 0, 4, false, 110, 110, true},
        {SB_PAGEUP, 0, 4, false, 12, 10, true},
        {SB_LINEDOWN, 0, 4, true, 100, 110, true},
        {SB_PAGEDOWN, 0, 2000, true, 10, 110, true}, // 2000 cubed does not fit 32 bits
        {SB_THUMBTRACK, 200, 4, false, 50, 110, true},
        {SB_ENDSCROLL, 0, 4, false, 120, 110, true},
    };
    for (const Row& r : rows) {
        HeadlessReset();
        int position = r.from;
        int changed = ScrollPosition(r.request, r.thumb, 10, 110, r.page, r.ctrl, &position);
        EXPECT_EQ(std::tuple(position, changed != 0, HeadlessBeeps()),
                  std::tuple(r.to, r.to != r.from,
                             r.beep ? std::vector<unsigned>{BEEP_SIMPLE} : std::vector<unsigned>{}))
            << "request " << r.request << " from " << r.from;
    }
}

TEST(DialogHelpers, EnableListsOfControlsAndMenuItems) {
    FakeDialog fake;
    for (int id : {1, 2, 3, 4})
        fake.controls[id];
    const int ids[] = {2, 4, 9};
    EnableControls(&fake.dialog, ids, 3, 0);
    EXPECT_TRUE(fake.controls[1].enabled && fake.controls[3].enabled);
    EXPECT_FALSE(fake.controls[2].enabled || fake.controls[4].enabled);
    EnableControls(&fake.dialog, ids, 1, 5);
    EXPECT_TRUE(fake.controls[2].enabled && !fake.controls[4].enabled);

    const MenuOps ops = {
        .Enable = [](void* c, int id, int on) { (*static_cast<std::map<int, int>*>(c))[id] = on; }};
    std::map<int, int> items; // id -> enabled, as the fake menu was told
    const Menu menu = {&ops, &items};
    const std::pair<unsigned, int> flags[] = {
        {MF_GRAYED, 0}, {MF_ENABLED, 1}, {MF_DISABLED, 0}, {MF_GRAYED | MF_DISABLED, 0}};
    for (auto [f, expected] : flags) {
        items.clear();
        EnableMenuItems(&menu, ids, 2, f);
        EXPECT_EQ((std::map<int, int>{{2, expected}, {4, expected}}), items) << f;
    }
}

} // namespace
