#include "common/panel_rack.h"
#include "panel_view.h"

#include "instrument/daq_cards.h"
#include "instrument/thermometer.h"
#include "instrument/virtual_channels.h"

#include <gtest/gtest.h>

namespace {

struct Rows : ::testing::Test {
    PanelRack rack;
    MeasurePanel panel;
    RecordedPanel view;
};

TEST_F(Rows, SliderMovesTheCurrentAndItsGroup) {
    CurrentChannels[2] = CurrentChannels[0]; // a second sweep1 current moves with the first
    CurrentChannels[2].flag = 0;
    OpenRecorded(panel, view, "IVC");
    CurrentSlider(panel, 0, 3000);
    u32 bits = BitsFromSliderPosition(0, 3000, kSliderPositions);
    EXPECT_EQ(bits, DacState[0]);
    EXPECT_EQ(DacState[0], DacState[2]);
    EXPECT_EQ(3000u, view.currentRows[0].position);
    EXPECT_EQ(1, view.currentRows[0].group);
    EXPECT_NE("", std::string(view.currentRows[0].text));
    EXPECT_EQ("", std::string(view.currentRows[3].text)); // disconnected
}

TEST_F(Rows, ValueBeyondTheDacGoesToItsZero) {
    OpenRecorded(panel, view, "IVC");
    const DacCard& dac = DacCards[CurrentChannels[1].DACSlot];
    DacState[1] = u32(dac.MaxReading) + 5;
    RefreshCurrentRows(panel, 0); // another group: left alone
    EXPECT_EQ(u32(dac.MaxReading) + 5, DacState[1]);
    RefreshCurrentRows(panel, 1);
    EXPECT_EQ(dac.ZeroReading, DacState[1]);
}

TEST_F(Rows, VoltageRowsScrollOverTheTable) {
    OpenRecorded(panel, view, "IVC", 4, 6);
    EXPECT_EQ(0, view.voltageRows[0].voltage);
    EXPECT_EQ(1, view.voltageRows[0].connected);
    const AdcCard& adc = AdcCards[VoltageChannels[3].ADCSlot];
    EXPECT_EQ(0, view.voltageRows[3].connected);
    EXPECT_EQ(adc.ZeroReading, view.voltageRows[3].bits);
    ScrollVoltageRows(panel, 500);
    EXPECT_EQ(kPanelVoltageRows - 6, panel.voltageBase.load());
    EXPECT_EQ(kPanelVoltageRows - 1, view.voltageRows[5].voltage);
    ScrollCurrentRows(panel, -3);
    EXPECT_EQ(0, panel.currentBase.load());
}

TEST_F(Rows, AllAndSweep1GoToZero) {
    OpenRecorded(panel, view, "IVC");
    SetCurrentAbs(100, 0);
    SetCurrentAbs(100, 1);
    PanelSweep1ToZero(panel);
    EXPECT_EQ(DacCards[CurrentChannels[0].DACSlot].ZeroReading, DacState[0]);
    EXPECT_EQ(100u, DacState[1]);
    PanelAllToZero(panel);
    EXPECT_EQ(DacCards[CurrentChannels[1].DACSlot].ZeroReading, DacState[1]);
}

TEST_F(Rows, StopDuringARunOnlyAsks) {
    OpenRecorded(panel, view, "IVC");
    panel.running = 1;
    fAbortRequested = 0;
    MeasurePanelDoIt(panel, 0);
    EXPECT_EQ(1, fAbortRequested.load());
    EXPECT_EQ(-1, view.ended);
    fAbortRequested = 0;
    panel.running = 0;
}

TEST(Caption, TitleIsAppendedUnlessTooLong) {
    char caption[300] = "Measure ";
    EXPECT_TRUE(MeasureCaption(caption, sizeof caption, "IVC"));
    EXPECT_STREQ("Measure IVC", caption);
    std::string longTitle(250, 'x');
    EXPECT_FALSE(MeasureCaption(caption, sizeof caption, longTitle.c_str()));
    EXPECT_STREQ("Measure IVC", caption);
}

} // namespace

namespace {

struct Temperature : ::testing::Test {
    PanelRack rack;
    MeasurePanel panel;
    RecordedPanel view;
    void TearDown() override { ResetTemperatureTable(); }
};

TEST_F(Temperature, TheTimerShowsTheThermometerOnlyWhenOneIsWired) {
    OpenRecorded(panel, view, "IVC");
    view.text.erase(MC_Temperature);
    TimerTick(panel);
    EXPECT_EQ(0u, view.text.count(MC_Temperature));

    VoltageChannel& sensor = VoltageChannels[3];
    sensor.kind = VOLTAGE_TSENSOR;
    sensor.ADCSlot = VoltageChannels[0].ADCSlot;
    sensor.ADCChan = 3;
    sensor.extGain = 100;
    TimerTick(panel);
    EXPECT_EQ("InterpErr", view.text[MC_Temperature]); // no table loaded

    TermoIsTofR = 1;
    SensorCurrent = 1e-5f;
    ASSERT_GT(LoadTemperatureCurve(SourcePath("data/thinfilm.R(T)").c_str()), 100);
    TimerTick(panel);
    const std::string& shown = view.text[MC_Temperature];
    ASSERT_NE(std::string::npos, shown.find(" K")) << shown;
    EXPECT_NEAR(4.2, std::stod(shown), 0.05) << shown;
}

} // namespace
