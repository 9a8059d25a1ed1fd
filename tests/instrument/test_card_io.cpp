#include "common/fake_rack.h"

#include "common/test_support.h"
#include "instrument/daq_cards.h"
#include "platform/headless_host.h"

#include <gtest/gtest.h>

#include <tuple>

namespace {

class CardIo : public ::testing::Test {
  protected:
    void SetUp() override {
        ResetInstrumentDefaults();
        gRack = FakeRack();
        gRack.cards = {{.slot = 1,
                        .id = 204,
                        .adcBits = 16,
                        .adcChannels = {{0, 15}},
                        .dacChannels = 2,
                        .dacBits = 16},
                       {.chassis = 1, .slot = 2, .id = 42, .dacChannels = 4}};
        gRack.scxiChassis = 1;
        SetDaqDriver(&kFakeDriver);
        char report[kCardsReportSize];
        ASSERT_EQ(DetectCards(report, sizeof report, dir.Path().c_str()), 0);
        HeadlessReset();
    }
    void TearDown() override { ResetInstrumentDefaults(); }
    TempDir dir;
};

TEST_F(CardIo, ReadsAddTheZeroShiftAndFallBack) {
    gRack.nextReading = -5;
    EXPECT_EQ(std::tuple(ReadAdcBits(0, 3, 1.0f), ReadMonitorBits(0, 3, 1.0f)),
              std::tuple(32763, 32763));
    EXPECT_EQ(gRack.daqOpCalls, 0);
    EXPECT_TRUE(HeadlessBeeps().empty());
    // An unsupported AI_Read falls back on DAQ_Op; the monitor read has no fallback.
    gRack.aiReadStatus = kDaqNotSupported;
    gRack.nextReading = 100;
    EXPECT_EQ(ReadAdcBits(0, 0, 1.0f), 32868);
    EXPECT_EQ(gRack.daqOpCalls, 1);
    EXPECT_TRUE(HeadlessBeeps().empty());
    EXPECT_EQ(ReadMonitorBits(0, 0, 1.0f), 32768);
    EXPECT_EQ(gRack.daqOpCalls, 1);
    EXPECT_EQ(HeadlessBeeps(), std::vector<unsigned>{BEEP_SIMPLE});
    // A failed read beeps and gives the zero.
    gRack.daqOpStatus = -1;
    EXPECT_EQ(ReadAdcBits(0, 0, 1.0f), 32768);
    gRack.aiReadStatus = -1;
    gRack.nextReading = 1234;
    EXPECT_EQ(ReadAdcBits(0, 0, 1.0f), AdcCards[0].ZeroReading);
    EXPECT_EQ(HeadlessBeeps(), (std::vector<unsigned>{BEEP_SIMPLE, BEEP_SIMPLE, BEEP_SIMPLE}));
}

TEST_F(CardIo, WritesGoToTheRightCall) {
    WriteDacBits(0, 1, 32768 + 7);
    WriteDacBits(1, 3, 4095);
    ASSERT_EQ(gRack.writes.size(), 2u);
    const FakeRack::Write &pc = gRack.writes[0], &scxi = gRack.writes[1];
    EXPECT_EQ(std::tuple(pc.slot, pc.channel, pc.reading), std::tuple(1, 1, 7));
    EXPECT_EQ(std::tuple(scxi.chassis, scxi.opCode, scxi.rangeCode, scxi.reading),
              std::tuple(1, 1, 5, 4095));
    EXPECT_TRUE(HeadlessBeeps().empty());
    gRack.writeStatus = -1;
    WriteDacBits(0, 0, 0);
    EXPECT_EQ(HeadlessBeeps(), std::vector<unsigned>{BEEP_SIMPLE});
}

TEST_F(CardIo, ConversionsWrapIn16Bits) {
    EXPECT_EQ(AdcBitsFromReading(-32768, 0), 0);
    EXPECT_EQ(AdcBitsFromReading(32767, 0), 65535);
    EXPECT_EQ(DacReadingFromBits(0, 0), -32768);
    EXPECT_EQ(DacBitsFromReading(-32768, 0), 0);
    EXPECT_EQ(DacReadingFromBits(4095, 1), 4095);
    AssertCapture capture;
    EXPECT_EQ(AdcBitsFromReading(0, 1), 0);
    EXPECT_EQ(capture.Count(), 1);
}

} // namespace
