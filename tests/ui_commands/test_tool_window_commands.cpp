#include "ui/command_ids.h"
#include "commands_fixture.h"

#include "ui/thermometer_window.h"

namespace {

// Temperature toggles the window and the check is its state; Shift picks the wide layout; a
// window that closed by itself took its check along, so the next command opens again.
TEST_F(Commands, TemperatureTogglesTheWindowAndTheCheckIsItsState) {
    SetCommandChecked(IDM_TEMPERATURE, 0);
    EXPECT_TRUE(IsCommandEnabled(IDM_TEMPERATURE));
    EXPECT_EQ(CommandDispatch(nullptr, IDM_TEMPERATURE), 1);
    const HeadlessWindowRecord& w = HeadlessWindow();
    EXPECT_EQ(std::tuple(IsCommandChecked(IDM_TEMPERATURE), w.toolOpens, w.lastToolCommand,
                         w.lastToolLayout),
              std::tuple(1, 1, 134, kTermoLayoutNarrow));
    CommandDispatch(nullptr, IDM_TEMPERATURE);
    EXPECT_EQ(std::tuple(IsCommandChecked(IDM_TEMPERATURE), w.toolOpens, w.toolCloses),
              std::tuple(0, 1, 1));
    HeadlessWindow().shiftDown = 1;
    CommandDispatch(nullptr, IDM_TEMPERATURE);
    EXPECT_EQ(w.lastToolLayout, kTermoLayoutWide);
    SetCommandChecked(IDM_TEMPERATURE, 0);
    CommandDispatch(nullptr, IDM_TEMPERATURE);
    EXPECT_EQ(std::tuple(w.toolOpens, w.toolCloses), std::tuple(3, 1));
    SetCommandChecked(IDM_TEMPERATURE, 0);
}

} // namespace
