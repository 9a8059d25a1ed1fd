#include "ui/command_ids.h"
#include "commands_fixture.h"

#include "ui/thermometer_window.h"

namespace {

class ToolWindows : public Commands {
  protected:
    void SetUp() override {
        Commands::SetUp();
        SetCommandChecked(IDM_TEMPERATURE, 0);
    }
    void TearDown() override {
        SetCommandChecked(IDM_TEMPERATURE, 0);
        Commands::TearDown();
    }
};

TEST_F(ToolWindows, TemperatureTogglesTheWindowAndTheCheckIsItsState) {
    EXPECT_TRUE(IsCommandEnabled(IDM_TEMPERATURE));
    EXPECT_EQ(CommandDispatch(nullptr, IDM_TEMPERATURE), 1);
    EXPECT_EQ(IsCommandChecked(IDM_TEMPERATURE), 1);
    EXPECT_EQ(HeadlessWindow().toolOpens, 1);
    EXPECT_EQ(HeadlessWindow().lastToolCommand, 134);
    EXPECT_EQ(HeadlessWindow().lastToolLayout, kTermoLayoutNarrow);
    CommandDispatch(nullptr, IDM_TEMPERATURE);
    EXPECT_EQ(HeadlessWindow().toolCloses, 1);
    EXPECT_EQ(HeadlessWindow().toolOpens, 1);
    EXPECT_EQ(IsCommandChecked(IDM_TEMPERATURE), 0);
}

// Shift picks the wide layout; a window that closed by itself took its check along, so the
// next command opens again.
TEST_F(ToolWindows, ShiftOpensTheWideLayoutAndAClosedWindowOpensAgain) {
    HeadlessWindow().shiftDown = 1;
    CommandDispatch(nullptr, IDM_TEMPERATURE);
    EXPECT_EQ(HeadlessWindow().lastToolLayout, kTermoLayoutWide);
    SetCommandChecked(IDM_TEMPERATURE, 0);
    CommandDispatch(nullptr, IDM_TEMPERATURE);
    EXPECT_EQ(HeadlessWindow().toolOpens, 2);
    EXPECT_EQ(HeadlessWindow().toolCloses, 0);
}

} // namespace
