#include "card_calls.h"
#include "common/panel_rack.h"

#include "instrument/daq_cards.h"
#include "instrument/thermometer.h"
#include "instrument/virtual_channels.h"
#include "curve/curve_memory.h"
#include "curve/undo.h"
#include "measure/measure_run.h"
#include "platform/headless_host.h"
#include "ui/measure_panel.h"

#include <gtest/gtest.h>

#include <cstring>
#include <map>
#include <tuple>

namespace {

struct RecordedPanel {
    std::map<int, std::string> text;
    std::map<int, int> check, enabled;
    int ended = -1, timerOn = 0;
    CurrentRowView currentRows[kPanelCurrentRows] = {};
    VoltageRowView voltageRows[kPanelVoltageRows] = {};
};

RecordedPanel* Recorded(void* v) {
    return static_cast<RecordedPanel*>(v);
}

const MeasurePanelView kRecordingView = {
    .SetText = [](void* v, int id, const char* t) { Recorded(v)->text[id] = t; },
    .SetCheck = [](void* v, int id, int on) { Recorded(v)->check[id] = on; },
    .Enable = [](void* v, int id, int on) { Recorded(v)->enabled[id] = on; },
    .SetRowScroll = [](void*, int, int) {},
    .ShowCurrentRow = [](void* v, int row,
                         const CurrentRowView& d) { Recorded(v)->currentRows[row] = d; },
    .ShowVoltageRow = [](void* v, int row,
                         const VoltageRowView& d) { Recorded(v)->voltageRows[row] = d; },
    .ShowProgress = [](void*, int, const char*) {},
    .StartTimer = [](void* v, int) { return bool(Recorded(v)->timerOn = 1); },
    .StopTimer = [](void* v) { Recorded(v)->timerOn = 0; },
    .OpenChannelSetup = [](void*, int, int) {},
    .End = [](void* v, int result) { Recorded(v)->ended = result; },
};

// Records of measurements whose thread functions are elsewhere: a two-sweep and a count range.
const MeasureParams kTwoSweeps = {
    .title = "IVF", .primary = &IVC_Range, .secondary = &IVF_Range, .layout = LayoutTwoSweeps};
const MeasureParams kCount = {
    .title = "Ic(T)", .primary = &CountRangeA, .layout = LayoutPointsOnly};

struct Panel : ::testing::Test {
    PanelRack rack;
    MeasurePanel panel;
    RecordedPanel view;
    const std::tuple<SweepRange, SweepRange, SweepRange> saved{IVC_Range, IVF_Range, CountRangeA};
    ~Panel() override {
        std::tie(IVC_Range, IVF_Range, CountRangeA) = saved;
        fAbortRequested = 0;
        ResetTemperatureTable();
    }
    void Open(const MeasureParams* params = nullptr) {
        params = params ? params : FindMeasureParams("IVC");
        MeasurePanelOpen(panel, *params, &kRecordingView, &view, &panel, 4, 6);
    }
    std::string Text(int range, int control) { return view.text[SweepControlId(range, control)]; }
    int Checked(int control) { return view.check[SweepControlId(0, control)]; }
    int Enabled(int control) { return view.enabled[SweepControlId(0, control)]; }
    static std::pair<u32, u32> Limits(const SweepRange& r) { return {r.from, r.to}; }
};

TEST_F(Panel, SlidersResetsAndScrollsWhenIdle) {
    CurrentChannels[2] = CurrentChannels[0]; // a second sweep1 current moves with the first
    CurrentChannels[2].flag = 0;
    Open();
    CurrentSlider(panel, 0, 3000);
    EXPECT_EQ(BitsFromSliderPosition(0, 3000, kSliderPositions), DacState[0]);
    EXPECT_EQ(DacState[0], DacState[2]);
    EXPECT_EQ(3000u, view.currentRows[0].position);
    EXPECT_EQ(1, view.currentRows[0].group);
    EXPECT_STRNE("", view.currentRows[0].text);
    EXPECT_STREQ("", view.currentRows[3].text); // disconnected
    // A value beyond the DAC goes back to its zero, in the changed current's group only.
    const DacCard& dac = DacCards[CurrentChannels[1].DACSlot];
    DacState[1] = u32(dac.MaxReading) + 5;
    RefreshCurrentRows(panel, 0);
    EXPECT_EQ(u32(dac.MaxReading) + 5, DacState[1]);
    RefreshCurrentRows(panel, 1);
    EXPECT_EQ(dac.ZeroReading, DacState[1]);
    SetCurrentAbs(100, 1);
    PanelSweep1ToZero(panel);
    EXPECT_EQ(DacCards[CurrentChannels[0].DACSlot].ZeroReading, DacState[0]);
    EXPECT_EQ(100u, DacState[1]);
    PanelAllToZero(panel);
    EXPECT_EQ(dac.ZeroReading, DacState[1]);

    EXPECT_EQ(1, view.voltageRows[0].connected);
    EXPECT_EQ(0, view.voltageRows[3].connected);
    EXPECT_EQ(AdcCards[VoltageChannels[3].ADCSlot].ZeroReading, view.voltageRows[3].bits);
    ScrollVoltageRows(panel, 500);
    EXPECT_EQ(kPanelVoltageRows - 6, panel.voltageBase.load());
    EXPECT_EQ(kPanelVoltageRows - 1, view.voltageRows[5].voltage);
    ScrollCurrentRows(panel, -3);
    EXPECT_EQ(0, panel.currentBase.load());
}

// Every control while a run goes: none reaches the cards or the working ranges; the scroll bars
// only move the rows, Stop only asks.
TEST_F(Panel, WhileARunGoesTheWindowLeavesTheCardsToTheThread) {
    const std::pair<const char*, void (*)(MeasurePanel&)> actions[] = {
        {"slider", [](MeasurePanel& p) { CurrentSlider(p, 0, 3000); }},
        {"all", PanelAllToZero},
        {"AutoZero", [](MeasurePanel& p) { PanelAutoZero(p, 1); }},
        {"go stop", [](MeasurePanel& p) { SweepGoStop(p, 0); }},
        {"Xchange", [](MeasurePanel& p) { SweepXchange(p, 0); }},
        {"current rows", [](MeasurePanel& p) { ScrollCurrentRows(p, 2); }},
        {"voltage rows", [](MeasurePanel& p) { ScrollVoltageRows(p, 2); }},
        {"Stop", [](MeasurePanel& p) { MeasurePanelDoIt(p, 0); }},
    };
    for (const auto& [name, action] : actions) {
        Open();
        const SweepRange before = MeasureWorkingRange1;
        CountCardCallsOfThisThread();
        panel.running = 1;
        action(panel);
        EXPECT_EQ(0, gCountedCardCalls.load()) << name;
        EXPECT_EQ(0, std::memcmp(&before, &MeasureWorkingRange1, sizeof before)) << name;
        EXPECT_EQ(-1, view.ended) << name;
    }
    EXPECT_EQ(1, fAbortRequested.load());
    VoltageRowView stale[kPanelVoltageRows];
    int n = ReadVoltageRows(panel, stale);
    // Scrolled since the thread read: its rows are not shown, the new ones wait for its next.
    ScrollVoltageRows(panel, 2);
    ShowVoltageRows(panel, stale, n);
    EXPECT_EQ(2, view.voltageRows[0].voltage);
    EXPECT_STREQ("", view.voltageRows[0].text);
}

TEST(Caption, TitleIsAppendedUnlessTooLong) {
    char caption[300] = "Measure ";
    EXPECT_TRUE(MeasureCaption(caption, sizeof caption, "IVC"));
    EXPECT_FALSE(MeasureCaption(caption, sizeof caption, std::string(250, 'x').c_str()));
    EXPECT_STREQ("Measure IVC", caption);
}

TEST_F(Panel, TheTimerShowsTheThermometerOnlyWhenOneIsWired) {
    Open();
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

// The point count grows the step while the count is above the limit; the memory estimate.
TEST(PointCount, StepGrowthAndMemory) {
    struct {
        SweepRange range;
        std::uint32_t growth, limit, n, step;
    } cases[] = {
        {{0, 100, 1, 0, 0, nullptr}, 16, 10, 6, 17}, // 100 / 17 = 5
        {{0, 65535, 0, 0, 0, nullptr}, 16, 0xFFFFFFFEu, 65535 / 16 + 1, 16},
        {{10, 0, 3, 0, 0, nullptr}, 16, 0xFFFFFFFEu, 4, 3},
    };
    for (auto& c : cases) {
        EXPECT_EQ(c.n, LimitedPointCount(c.range, c.growth, c.limit)) << c.range.to;
        EXPECT_EQ(c.step, c.range.step) << c.range.to;
    }
    EXPECT_DOUBLE_EQ((100 * 8 * 2 + 146.0) * 10 * 3, MeasureMemoryBytes(100, 1, 10, 0, 3));
    EXPECT_DOUBLE_EQ((512 * 8 + 146.0) * 1 * 2 * 1, MeasureMemoryBytes(512, 0, 1, 1, 1));
    char text[64];
    MeasureMemoryText(text, sizeof text, 0);
    EXPECT_STREQ("Memory: ???", text);
    MeasureMemoryText(text, sizeof text, 52380);
    EXPECT_NE(nullptr, std::strstr(text, "kB")) << text;
}

// What an opening shows: points, step in card bits, memory; an unwired rack gives "???" twice.
TEST_F(Panel, OpeningShowsPointsStepAndMemory) {
    const struct {
        std::uint32_t step, n1;
        bool unwired;
        const char *points, *stepBits;
    } cases[] = {
        {128, 512, false, "512", "128"}, // 65535 / 128 + 1 on the 16-bit bias DAC
        {0, 65536, false, "65536", "1"}, // a zero step grows by one card bit
        {128, 1, true, "???", nullptr},  // no swept current, no signal
    };
    for (const auto& c : cases) {
        IVC_Range = SweepRange{0, 65535, c.step, 0, 0, FirstSweep1Current};
        CurrentChannels[0].kind = c.unwired ? CURRENT_DISCONNECTED : CURRENT_SWEEP1_PLUS;
        for (int v = 0; v < 3; ++v)
            VoltageChannels[v].kind = c.unwired ? VOLTAGE_NOT_CONNECTED : VOLTAGE_POSITIVE;
        Open();
        EXPECT_EQ(c.points, Text(0, SC_Points));
        if (c.stepBits) EXPECT_EQ(c.stepBits, Text(0, SC_Step));
        EXPECT_EQ(c.n1, MeasurePointsN1);
        EXPECT_EQ(c.unwired, view.text[MC_Memory] == "Memory: ???") << view.text[MC_Memory];
        SweepSetStart(panel, 0, 1); // without a swept current there is nothing to take
        EXPECT_EQ(!c.unwired, Checked(SC_SetStart)) << c.points;
    }
}

TEST_F(Panel, TwelveBitStepsAreMultiplesOfSixteen) {
    int twelve = -1;
    for (int k = 0; k < DacCardsCount; ++k)
        if (DacCards[k].MaxReading == 4095) twelve = k;
    ASSERT_GE(twelve, 0);
    CurrentChannels[1].DACSlot = static_cast<u16>(twelve);
    CurrentChannels[1].DACChan = 0;
    IVF_Range.step = 16;
    Open(&kTwoSweeps);
    EXPECT_EQ("1", Text(1, SC_Step)); // 16 on the common scale is one bit of this card
    const std::uint32_t bits[] = {1, 0, 4000}, steps[] = {16, 1, 1}; // 64000 is beyond half scale
    for (int k = 0; k < 3; ++k) {
        SweepStepBits(panel, 1, bits[k]);
        EXPECT_EQ(steps[k], MeasureWorkingRange2.step) << bits[k];
    }
}

TEST_F(Panel, SymmetricResetXchangeAndCancel) {
    Open();
    SetCurrentAbs(1000, 0);
    SweepSetStart(panel, 0, 1);
    EXPECT_EQ(1000u, MeasureWorkingRange1.from);
    SweepSymmetric(panel, 0, 1);
    EXPECT_EQ(65535u - 1000u, MeasureWorkingRange1.to);
    EXPECT_EQ(0, Enabled(SC_SetStop));
    EXPECT_EQ(1, Checked(SC_SetStop));
    SweepSetStart(panel, 0, 0); // start back to 0 takes stop back to full scale
    EXPECT_EQ(65535u, MeasureWorkingRange1.to);
    EXPECT_EQ(0, Checked(SC_SetStop));
    SweepSymmetric(panel, 0, 0);
    EXPECT_EQ(1, Enabled(SC_SetStop));

    SetCurrentAbs(2000, 0);
    SweepSetStop(panel, 0, 1);
    SweepSymmetric(panel, 0, 1);
    SweepXchange(panel, 0);
    EXPECT_EQ(std::pair(65535u, 0u), Limits(MeasureWorkingRange1));
    SweepReset(panel, 0);
    EXPECT_EQ(std::pair(0u, 65535u), Limits(MeasureWorkingRange1));
    EXPECT_EQ(0u, MeasureWorkingRange1.symmetric);
    EXPECT_EQ(0, Checked(SC_Symmetric));
    EXPECT_EQ(1, Enabled(SC_SetStop));
    // Cancel writes the limits back to the record; the next opening starts from them.
    SetCurrentAbs(30000, 0);
    SweepSetStart(panel, 0, 1);
    SweepBothDirections(panel, 0, 1);
    MeasurePanelDoIt(panel, 0);
    EXPECT_TRUE(view.ended == 0 && view.timerOn == 0) << view.ended;
    EXPECT_EQ(30000u, IVC_Range.from);
    EXPECT_EQ(1u, IVC_Range.bothDirections);
    view.check.clear();
    Open();
    EXPECT_EQ(1, Checked(SC_SetStart));
}

// A count range's N is free; Cancel writes 0 .. N - 1 with step 1 back to the record.
TEST_F(Panel, CountRangeLimitsAreWrittenAtTheEnd) {
    CountRangeA = SweepRange{0, 9999, 1, 0, 0, nullptr};
    Open(&kCount);
    EXPECT_EQ("10000", Text(0, SC_Points));
    EXPECT_EQ(0, Enabled(SC_SetStart));
    SweepPoints(panel, 0, 0);
    EXPECT_EQ("1", Text(0, SC_Points));
    SweepPoints(panel, 0, 250);
    EXPECT_EQ(9999u, CountRangeA.to);
    MeasurePanelDoIt(panel, 0);
    EXPECT_EQ(std::pair(0u, 249u), Limits(CountRangeA));
    EXPECT_EQ(1u, CountRangeA.step);
}

} // namespace

// Do It takes the undo copy once: a copy that falls short asks one question, not two.
TEST_F(Panel, DoItTakesTheUndoCopyOnce) {
    Open(FindMeasureParams("Kep")); // a run that touches no curve
    gCurves.Reset();
    gCurves.SetCurveCount(3);
    HeadlessReset();
    HeadlessScriptAnswer(IDYES);
    HeadlessScriptAnswer(IDYES);
    gCurveAllocationBudget = 0;
    MeasurePanelDoIt(panel, 1);
    WaitMeasurementEnd();
    gCurveAllocationBudget = -1;
    ASSERT_EQ(1u, HeadlessBoxes().size());
    EXPECT_EQ("Not enough memory to provide 'Undo'\nContinue Anyway?", HeadlessBoxes()[0].text);
    gCurves.Reset();
    gUndoCurves.Reset();
}
