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
    const std::string ini = rack.Dir().File("vtl.ini");
};

// A channel's entry names the other records on it, never the record itself.
TEST_F(SetupPanels, CurrentEntriesAndApply) {
    CurrentChannels[3] = CurrentChannels[0];
    CurrentChannels[3].kind = CURRENT_CONSTANT;
    SetupPanelOpen(panel, 0, 0, ini.c_str(), nullptr, nullptr);
    EXPECT_EQ(CurrentChannels[0].DACChan, panel.selection[SP_DacChan]);
    VoltageChannels[7] = VoltageChannels[0];
    const VoltageChannel& v = VoltageChannels[0];
    const CurrentChannel& i = CurrentChannels[0];
    const std::string dac = panel.lists[SP_DacChan][i.DACChan],
                      adc = AdcChannelEntry(v.ADCSlot, v.ADCChan, -1, 7),
                      monitor = AdcChannelEntry(i.ADCSlot, i.ADCChan, -1, -1);
    EXPECT_NE(std::string::npos, dac.find(" i3")) << dac;
    EXPECT_EQ(std::string::npos, dac.find(" i0")) << dac;
    EXPECT_NE(std::string::npos, adc.find(" v0")) << adc;
    EXPECT_EQ(std::string::npos, adc.find(" v7")) << adc;
    EXPECT_NE(std::string::npos, monitor.find(" i0")) << monitor;
    // Kind 0 and an unmonitored current keep their other values.
    SetupPanelText(panel, SP_R, "2500");
    SetupPanelCheck(panel, SP_Monitored, 0);
    SetupPanelSelect(panel, SP_Kind, 0);
    SetupPanelPress(panel, SB_Apply);
    EXPECT_EQ(CURRENT_DISCONNECTED, CurrentChannels[0].kind);
    EXPECT_FLOAT_EQ(2500.0f, CurrentChannels[0].R);
    EXPECT_EQ(0, CurrentChannels[0].flag & 1);
}

// Save leaves the table, Discard and Load return, Apply applies; so does "Apply to all".
TEST_F(SetupPanels, VoltageSaveDiscardLoadApply) {
    SetupPanelOpen(panel, 1, 0, ini.c_str(), nullptr, nullptr);
    SetupPanelText(panel, SP_Comment, "changed");
    SetupPanelText(panel, SP_ExtGain, "not a number");
    SetupPanelPress(panel, SB_Save);
    EXPECT_STREQ("", VoltageChannels[0].comment);
    char saved[128];
    GetPrivateProfileString("Virtual Voltages", "VirtVolt[000].comment", "", saved, sizeof saved,
                            ini.c_str());
    EXPECT_STREQ("changed", saved);
    EXPECT_EQ(VoltageChannels[0].extGain, panel.voltage.extGain); // bad numbers are left alone
    SetupPanelPress(panel, SB_Discard);
    EXPECT_EQ("", panel.text[SP_Comment]);
    SetupPanelPress(panel, SB_Load);
    EXPECT_EQ("changed", panel.text[SP_Comment]);
    EXPECT_STREQ("", VoltageChannels[0].comment);
    SetupPanelPress(panel, SB_Apply);
    EXPECT_STREQ("changed", VoltageChannels[0].comment);
    // "Apply to all" gives the gain to every voltage, unless a card lacks it.
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

// Moving applies the record first; beyond either end of the table it stops there and beeps.
TEST_F(SetupPanels, MovingAppliesAndBeepsAtTheEnds) {
    const struct {
        int from, button, to;
        std::size_t beeps;
    } moves[] = {{29, SB_Forward5, 31, 1}, {31, SB_Prev, 30, 0}, {0, SB_Prev, 0, 1}};
    for (const auto& m : moves) {
        HeadlessReset();
        SetupPanelOpen(panel, 0, m.from, ini.c_str(), nullptr, nullptr);
        SetupPanelText(panel, SP_Comment, "moved");
        SetupPanelPress(panel, m.button);
        EXPECT_EQ(m.to, panel.index) << m.from;
        EXPECT_EQ(m.beeps, HeadlessBeeps().size()) << m.from;
        EXPECT_STREQ("moved", CurrentChannels[m.from].comment) << m.from;
    }
}

} // namespace
