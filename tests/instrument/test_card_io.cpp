#include "common/fake_rack.h"

#include "common/test_support.h"
#include "instrument/daq_cards.h"
#include "platform/headless_host.h"

#include <gtest/gtest.h>

namespace {

class CardIo : public ::testing::Test {
  protected:
    void SetUp() override {
        gRack = FakeRack();
        FakeCard multi;
        multi.slot = 1;
        multi.id = 204;
        multi.adcBits = 16;
        multi.adcChannels = {{0, 15}};
        multi.dacChannels = 2;
        multi.dacBits = 16;
        FakeCard module;
        module.chassis = 1;
        module.slot = 2;
        module.id = 42;
        module.dacChannels = 4;
        gRack.cards = {multi, module};
        gRack.scxiChassis = 1;
        SetDaqDriver(&kFakeDriver);
        char report[kCardsReportSize];
        ASSERT_EQ(DetectCards(report, sizeof report, dir.Path().c_str()), 0);
        HeadlessReset();
    }
    void TearDown() override {
        SetDaqDriver(nullptr);
        ResetCards();
    }
    TempDir dir;
};

TEST_F(CardIo, ReadAddsZeroShift) {
    gRack.nextReading = -5;
    EXPECT_EQ(ReadAdcBits(0, 3, 1.0f), 32763);
    EXPECT_EQ(ReadMonitorBits(0, 3, 1.0f), 32763);
    EXPECT_EQ(gRack.daqOpCalls, 0);
    EXPECT_TRUE(HeadlessBeeps().empty());
}

TEST_F(CardIo, UnsupportedAiReadFallsBackToDaqOp) {
    gRack.aiReadStatus = kDaqNotSupported;
    gRack.nextReading = 100;
    EXPECT_EQ(ReadAdcBits(0, 0, 1.0f), 32868);
    EXPECT_EQ(gRack.daqOpCalls, 1);
    EXPECT_TRUE(HeadlessBeeps().empty());
    // The monitor read has no fallback.
    EXPECT_EQ(ReadMonitorBits(0, 0, 1.0f), 32768);
    EXPECT_EQ(gRack.daqOpCalls, 1);
    EXPECT_EQ(HeadlessBeeps(), std::vector<unsigned>{BEEP_SIMPLE});
}

TEST_F(CardIo, FailedReadBeepsAndGivesTheZero) {
    gRack.aiReadStatus = -1;
    gRack.nextReading = 1234;
    EXPECT_EQ(ReadAdcBits(0, 0, 1.0f), AdcCards[0].ZeroReading);
    gRack.aiReadStatus = kDaqNotSupported;
    gRack.daqOpStatus = -1;
    EXPECT_EQ(ReadAdcBits(0, 0, 1.0f), 32768);
    EXPECT_EQ(HeadlessBeeps(), (std::vector<unsigned>{BEEP_SIMPLE, BEEP_SIMPLE}));
}

TEST_F(CardIo, WritesGoToTheRightCall) {
    WriteDacBits(0, 1, 32768 + 7);
    WriteDacBits(1, 3, 4095);
    ASSERT_EQ(gRack.writes.size(), 2u);
    EXPECT_EQ(gRack.writes[0].slot, 1);
    EXPECT_EQ(gRack.writes[0].channel, 1);
    EXPECT_EQ(gRack.writes[0].reading, 7);
    EXPECT_EQ(gRack.writes[1].chassis, 1);
    EXPECT_EQ(gRack.writes[1].opCode, 1);
    EXPECT_EQ(gRack.writes[1].rangeCode, 5);
    EXPECT_EQ(gRack.writes[1].reading, 4095);
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
