#include "common/panel_rack.h"

#include "settings/profile.h"
#include "platform/headless_host.h"
#include "ui/setup_panel.h"

#include <gtest/gtest.h>

namespace {

struct SetupPanels : ::testing::Test {
    PanelRack rack;
    SetupPanel panel;
    SetupPanels() { HeadlessReset(); }
    std::string ini = rack.Dir().File("vtl.ini");
    const std::string& Ini() const { return ini; }
};

TEST_F(SetupPanels, DacEntriesNameTheOtherCurrentsOnTheChannel) {
    CurrentChannels[3] = CurrentChannels[0];
    CurrentChannels[3].kind = CURRENT_CONSTANT;
    SetupPanelOpen(panel, 0, 0, Ini().c_str(), nullptr, nullptr);
    const std::string& entry = panel.lists[SP_DacChan][CurrentChannels[0].DACChan];
    EXPECT_NE(std::string::npos, entry.find(" i3")) << entry;
    EXPECT_EQ(std::string::npos, entry.find(" i0")) << entry; // not the record itself
    EXPECT_EQ(CurrentChannels[0].DACChan, panel.selection[SP_DacChan]);
}

TEST_F(SetupPanels, AdcEntriesNameMonitorsThenVoltages) {
    VoltageChannels[7] = VoltageChannels[0];
    std::string entry =
        AdcChannelEntry(VoltageChannels[0].ADCSlot, VoltageChannels[0].ADCChan, -1, 7);
    EXPECT_NE(std::string::npos, entry.find(" v0")) << entry;
    EXPECT_EQ(std::string::npos, entry.find(" v7")) << entry;
    std::string monitor =
        AdcChannelEntry(CurrentChannels[0].ADCSlot, CurrentChannels[0].ADCChan, -1, -1);
    EXPECT_NE(std::string::npos, monitor.find(" i0")) << monitor;
}

TEST_F(SetupPanels, SaveLeavesTheTableAndDiscardReturns) {
    SetupPanelOpen(panel, 1, 0, Ini().c_str(), nullptr, nullptr);
    SetupPanelText(panel, SP_Comment, "changed");
    SetupPanelText(panel, SP_ExtGain, "not a number");
    SetupPanelPress(panel, SB_Save);
    EXPECT_STREQ("", VoltageChannels[0].comment);
    char saved[128];
    GetPrivateProfileString("Virtual Voltages", "VirtVolt[000].comment", "", saved, sizeof saved,
                            Ini().c_str());
    EXPECT_STREQ("changed", saved);
    EXPECT_EQ(VoltageChannels[0].extGain, panel.voltage.extGain); // bad numbers are left alone
    SetupPanelPress(panel, SB_Discard);
    EXPECT_EQ("", panel.text[SP_Comment]);
    SetupPanelPress(panel, SB_Load);
    EXPECT_EQ("changed", panel.text[SP_Comment]);
    EXPECT_STREQ("", VoltageChannels[0].comment);
    SetupPanelPress(panel, SB_Apply);
    EXPECT_STREQ("changed", VoltageChannels[0].comment);
}

TEST_F(SetupPanels, MovingAppliesAndBeepsAtTheEnds) {
    SetupPanelOpen(panel, 0, 29, Ini().c_str(), nullptr, nullptr);
    SetupPanelText(panel, SP_Comment, "bias 29");
    SetupPanelPress(panel, SB_Forward5);
    EXPECT_EQ(31, panel.index);
    EXPECT_STREQ("bias 29", CurrentChannels[29].comment);
    EXPECT_EQ(1u, HeadlessBeeps().size());
    SetupPanelPress(panel, SB_Prev);
    EXPECT_EQ(30, panel.index);
    EXPECT_EQ(1u, HeadlessBeeps().size());
    SetupPanelOpen(panel, 0, 0, Ini().c_str(), nullptr, nullptr);
    SetupPanelPress(panel, SB_Prev);
    EXPECT_EQ(0, panel.index);
    EXPECT_EQ(2u, HeadlessBeeps().size());
}

TEST_F(SetupPanels, KindZeroAndUnmonitoredKeepTheirValues) {
    SetupPanelOpen(panel, 0, 0, Ini().c_str(), nullptr, nullptr);
    SetupPanelText(panel, SP_R, "2500");
    SetupPanelCheck(panel, SP_Monitored, 0);
    SetupPanelSelect(panel, SP_Kind, 0);
    SetupPanelPress(panel, SB_Apply);
    EXPECT_EQ(CURRENT_DISCONNECTED, CurrentChannels[0].kind);
    EXPECT_FLOAT_EQ(2500.0f, CurrentChannels[0].R);
    EXPECT_EQ(0, CurrentChannels[0].flag & 1);
}

TEST_F(SetupPanels, Apply2allGainFailsWhereTheCardLacksIt) {
    SetupPanelOpen(panel, 1, 0, Ini().c_str(), nullptr, nullptr);
    const AdcCard& card = AdcCards[VoltageChannels[0].ADCSlot];
    ASSERT_GE(card.gains.size(), 2u);
    SetupPanelSelect(panel, SP_AdcGain, 1);
    VoltageChannels[2].ADCGain = 1.0f;
    SetupPanelApply2all(panel, SP_GainToAll);
    EXPECT_EQ(card.gains[1], VoltageChannels[2].ADCGain);
    EXPECT_TRUE(HeadlessBoxes().empty());
    // A gain no card offers: nobody changes and the message says so.
    VoltageChannels[0].ADCGain = 12345.0f;
    panel.voltage.ADCGain = 12345.0f;
    panel.selection[SP_AdcGain] = 99; // beyond the list: the reading keeps the copy's gain
    SetupPanelApply2all(panel, SP_GainToAll);
    ASSERT_EQ(1u, HeadlessBoxes().size());
    EXPECT_EQ(kApply2allFailedCaption, HeadlessBoxes()[0].caption);
    EXPECT_EQ(card.gains[1], VoltageChannels[2].ADCGain);
}

} // namespace
