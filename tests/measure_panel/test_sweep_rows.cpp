#include "common/panel_rack.h"
#include "panel_view.h"

#include "instrument/daq_cards.h"
#include "instrument/virtual_channels.h"
#include "measure/sweep_range.h"

#include <gtest/gtest.h>

#include <cstring>

namespace {

struct SweepRows : ::testing::Test {
    PanelRack rack;
    MeasurePanel panel;
    RecordedPanel view;
    SweepRange savedIvc = IVC_Range, savedIvf = IVF_Range, savedCount = CountRangeA;
    ~SweepRows() override {
        IVC_Range = savedIvc;
        IVF_Range = savedIvf;
        CountRangeA = savedCount;
    }
    std::string Text(int range, int control) { return view.text[SweepControlId(range, control)]; }
};

TEST(PointCount, StepGrowsWhileTheCountIsAboveTheLimit) {
    SweepRange r{0, 100, 1, 0, 0, nullptr};
    EXPECT_EQ(6u, LimitedPointCount(r, 16, 10)); // 100 / 17 = 5
    EXPECT_EQ(17u, r.step);
    SweepRange zero{0, 65535, 0, 0, 0, nullptr};
    EXPECT_EQ(65535u / 16 + 1, LimitedPointCount(zero, 16, 0xFFFFFFFEu));
    EXPECT_EQ(16u, zero.step);
    SweepRange fits{10, 0, 3, 0, 0, nullptr};
    EXPECT_EQ(4u, LimitedPointCount(fits, 16, 0xFFFFFFFEu));
    EXPECT_EQ(3u, fits.step);
}

TEST_F(SweepRows, OpenShowsPointsStepAndMemory) {
    IVC_Range = SweepRange{0, 65535, 128, 0, 0, FirstSweep1Current};
    OpenRecorded(panel, view, "IVC");
    EXPECT_EQ("512", Text(0, SC_Points)); // 65535 / 128 + 1
    EXPECT_EQ("128", Text(0, SC_Step));   // the bias DAC has 16 bits
    EXPECT_EQ(0, view.check[SweepControlId(0, SC_SetStart)]);
    EXPECT_EQ(1, view.timerOn);
    EXPECT_EQ(0, view.enabled[MC_Generator]);
    EXPECT_EQ(1, view.enabled[MC_XAxis]);
    EXPECT_EQ(0u, view.text[MC_Memory].find("Memory: "));
}

TEST_F(SweepRows, ZeroStepGrowsByOneCardBitAndTheFieldFollows) {
    IVC_Range = SweepRange{0, 65535, 0, 0, 0, FirstSweep1Current};
    OpenRecorded(panel, view, "IVC");
    EXPECT_EQ(1u, MeasureWorkingRange1.step);
    EXPECT_EQ(65536u, MeasurePointsN1);
    EXPECT_EQ("1", Text(0, SC_Step));
}

TEST_F(SweepRows, TwelveBitStepsAreMultiplesOfSixteen) {
    int twelve = -1;
    for (int k = 0; k < DacCardsCount; ++k)
        if (DacCards[k].MaxReading == 4095) twelve = k;
    ASSERT_GE(twelve, 0);
    CurrentChannels[1].DACSlot = static_cast<u16>(twelve);
    CurrentChannels[1].DACChan = 0;
    IVF_Range.step = 16;
    OpenRecorded(panel, view, kTwoSweepParams);
    EXPECT_EQ("1", Text(1, SC_Step)); // 16 on the common scale is one bit of this card
    SweepStepBits(panel, 1, 1);
    EXPECT_EQ(16u, MeasureWorkingRange2.step);
    SweepStepBits(panel, 1, 0);
    EXPECT_EQ(1u, MeasureWorkingRange2.step);
    SweepStepBits(panel, 1, 4000); // 64000 is beyond half scale
    EXPECT_EQ(1u, MeasureWorkingRange2.step);
}

TEST_F(SweepRows, SymmetricTiesStopToStart) {
    OpenRecorded(panel, view, "IVC");
    SetCurrentAbs(1000, 0);
    SweepSetStart(panel, 0, 1);
    EXPECT_EQ(1000u, MeasureWorkingRange1.from);
    SweepSymmetric(panel, 0, 1);
    EXPECT_EQ(65535u - 1000u, MeasureWorkingRange1.to);
    EXPECT_EQ(0, view.enabled[SweepControlId(0, SC_SetStop)]);
    EXPECT_EQ(1, view.check[SweepControlId(0, SC_SetStop)]);
    SweepSetStart(panel, 0, 0); // start back to 0 takes stop back to full scale
    EXPECT_EQ(65535u, MeasureWorkingRange1.to);
    EXPECT_EQ(0, view.check[SweepControlId(0, SC_SetStop)]);
    SweepSymmetric(panel, 0, 0);
    EXPECT_EQ(1, view.enabled[SweepControlId(0, SC_SetStop)]);
}

TEST_F(SweepRows, ResetAndXchange) {
    OpenRecorded(panel, view, "IVC");
    SetCurrentAbs(2000, 0);
    SweepSetStop(panel, 0, 1);
    SweepSymmetric(panel, 0, 1);
    SweepXchange(panel, 0);
    EXPECT_EQ(65535u, MeasureWorkingRange1.from);
    EXPECT_EQ(0u, MeasureWorkingRange1.to);
    SweepReset(panel, 0);
    EXPECT_EQ(0u, MeasureWorkingRange1.from);
    EXPECT_EQ(65535u, MeasureWorkingRange1.to);
    EXPECT_EQ(0u, MeasureWorkingRange1.symmetric);
    EXPECT_EQ(0, view.check[SweepControlId(0, SC_Symmetric)]);
    EXPECT_EQ(1, view.enabled[SweepControlId(0, SC_SetStop)]);
}

TEST_F(SweepRows, MissingCurrentShowsQuestionMarks) {
    CurrentChannels[0].kind = CURRENT_DISCONNECTED;
    OpenRecorded(panel, view, "IVC");
    EXPECT_EQ("???", Text(0, SC_Points));
    EXPECT_EQ(1u, MeasurePointsN1);
    SweepSetStart(panel, 0, 1); // nothing to take the value from
    EXPECT_EQ(0, view.check[SweepControlId(0, SC_SetStart)]);
}

TEST_F(SweepRows, CountRangePointsAreWrittenOnlyAtTheEnd) {
    CountRangeA = SweepRange{0, 9999, 1, 0, 0, nullptr};
    OpenRecorded(panel, view, kCountParams);
    EXPECT_EQ("10000", Text(0, SC_Points));
    EXPECT_EQ(0, view.enabled[SweepControlId(0, SC_SetStart)]);
    SweepPoints(panel, 0, 0);
    EXPECT_EQ("1", Text(0, SC_Points));
    SweepPoints(panel, 0, 250);
    EXPECT_EQ(9999u, CountRangeA.to);
    MeasurePanelDoIt(panel, 0);
    EXPECT_EQ(0u, CountRangeA.from);
    EXPECT_EQ(249u, CountRangeA.to);
    EXPECT_EQ(1u, CountRangeA.step);
}

TEST_F(SweepRows, CancelKeepsTheLimitsInTheRecord) {
    IVC_Range = SweepRange{0, 65535, 128, 0, 0, FirstSweep1Current};
    OpenRecorded(panel, view, "IVC");
    SetCurrentAbs(30000, 0);
    SweepSetStart(panel, 0, 1);
    SweepBothDirections(panel, 0, 1);
    MeasurePanelDoIt(panel, 0);
    EXPECT_EQ(0, view.ended);
    EXPECT_EQ(0, view.timerOn);
    EXPECT_EQ(30000u, IVC_Range.from);
    EXPECT_EQ(1u, IVC_Range.bothDirections);
    // The next opening starts from them.
    MeasurePanel again;
    RecordedPanel view2;
    OpenRecorded(again, view2, "IVC");
    EXPECT_EQ(1, view2.check[SweepControlId(0, SC_SetStart)]);
}

TEST(Memory, EstimateAndText) {
    EXPECT_DOUBLE_EQ((100 * 8 * 2 + 146.0) * 10 * 3, MeasureMemoryBytes(100, 1, 10, 0, 3));
    EXPECT_DOUBLE_EQ((512 * 8 + 146.0) * 1 * 2 * 1, MeasureMemoryBytes(512, 0, 1, 1, 1));
    char text[64];
    MeasureMemoryText(text, sizeof text, 0);
    EXPECT_STREQ("Memory: ???", text);
    MeasureMemoryText(text, sizeof text, 52380);
    EXPECT_NE(nullptr, std::strstr(text, "kB")) << text;
}

TEST_F(SweepRows, NoSignalVoltageGivesNoMemory) {
    for (auto& v : VoltageChannels)
        v.kind = VOLTAGE_NOT_CONNECTED;
    OpenRecorded(panel, view, "IVC");
    EXPECT_EQ("Memory: ???", view.text[MC_Memory]);
}

} // namespace
