#include "common/fake_rack.h"

#include "common/test_support.h"
#include "instrument/daq_cards.h"
#include "platform/headless_host.h"

#include <gtest/gtest.h>

#include <string>
#include <tuple>

namespace {

const FakeCard kMultifunction{.slot = 1,
                              .id = 204,
                              .adcBits = 16,
                              .adcChannels = {{0, 15}},
                              .gains = {0.5f, 1, 2, 5, 10, 20, 50, 100},
                              .dacChannels = 2,
                              .dacBits = 16};
const FakeCard kOutputs{.slot = 3, .id = 300, .dacChannels = 8, .dacSigned = false};

FakeCard Inputs(i16 slot, int bits = 16, bool isSigned = true) {
    FakeCard c{.slot = slot, .id = 400 + static_cast<u32>(slot), .adcBits = bits};
    c.adcSigned = isSigned, c.adcChannels = {{0, 7}};
    return c;
}

// Readings min, zero and max, the zero shift, volts min and max.
template <class Card> auto Limits(const Card& c) {
    return std::tuple(c.MinReading, c.ZeroReading, c.MaxReading, c.ZeroShift, c.MinVoltage,
                      c.MaxVoltage);
}

constexpr double k12BitTop = 9.9951171875;

class CardDetection : public ::testing::Test {
  protected:
    void SetUp() override {
        ResetInstrumentDefaults();
        gRack = FakeRack();
        SetDaqDriver(&kFakeDriver);
    }
    void TearDown() override { ResetInstrumentDefaults(); }
    int Detect() { return DetectCards(report, sizeof report, dir.Path().c_str()); }
    bool ReportHas(const std::string& text) const {
        return std::string(report).find(text) != std::string::npos;
    }

    TempDir dir;
    char report[kCardsReportSize] = {};
};

TEST_F(CardDetection, ReportOfOneRackWordForWord) {
    gRack.cards = {kMultifunction, kOutputs};
    WriteWholeFile(dir.File("nidaq.ini"), "[204]\nname=PCI-MIO-16XE-10\n");
    EXPECT_EQ(Detect(), 0);
    EXPECT_STREQ(report,
                 "NI-DAQ version 0612 detected.\n"
                 "Slot #01: Card-ID:204, Name:PCI-MIO-16XE-10\n"
                 "  Number of gains:8 (0.5,1,2,5,10,20,50,100) Scale:Lin (Source:autodetection, "
                 "nidaq.ini is wrong/incomplete)\n"
                 "  ADC:  16 channels, Reading=[0, 32768, 65535], ADC Voltage=[-10.000000, "
                 "9.999695] (Source: autodetection, nidaq.ini is wrong/incomplete)\n"
                 "  DAC:   2 channels, Reading=[0,32768,65535], DAC Voltage=[-10.000000,9.999695]\n"
                 "Slot #03: Card-ID:300, Name:300\n"
                 "  DAC:   8 channels, Reading=[0,2048,4095], DAC Voltage=[-10.000000,9.995117]\n");
    ASSERT_EQ(std::tuple(AdcCardsCount, DacCardsCount), std::tuple(1, 2));
    // The report shows the limits; the zero shifts it doesn't.
    EXPECT_EQ(std::tuple(AdcCards[0].ZeroShift, AdcCards[0].name, DacCards[0].ZeroShift,
                         DacCards[1].ZeroShift),
              std::tuple(32768, "PCI-MIO-16XE-10", 32768, 0));
    char dacs[256], adcs[20];
    DescribeDacs(dacs, sizeof dacs);
    EXPECT_EQ(DescribeAdcs(adcs, sizeof adcs), 0); // cut
    EXPECT_EQ(std::string(dacs) + adcs, "DAC_00:id=204(PCI-MIO-16XE-10), 2 chanels\n"
                                        "DAC_01:id=300(300), 8 chanels\nADC_00:id=204(PCI-M");
}

TEST_F(CardDetection, ReadingLimitsAndChannelRangesFollowTheProbes) {
    FakeCard gaps = Inputs(1, 12), noAiVScale = Inputs(5, 12, false), wraps = Inputs(6);
    gaps.adcChannels = {{0, 3}, {8, 11}, {250, 255}};
    noAiVScale.aiVScaleMissing = true; // DAQ_VScale stands in for AI_VScale
    wraps.adcChannels = {{2, 3}, {6, 6}};
    gRack.cards = {gaps, Inputs(2, 12, false), Inputs(4, 16, false), noAiVScale, wraps, kOutputs};
    EXPECT_EQ(Detect(), 0);
    ASSERT_EQ(std::tuple(AdcCardsCount, DacCardsCount), std::tuple(5, 1));
    EXPECT_EQ(Limits(AdcCards[0]), std::tuple(0, 2048, 4095, 2048, -10.0, k12BitTop));
    EXPECT_EQ(Limits(AdcCards[1]), std::tuple(0, 2048, 4095, 0, -10.0, k12BitTop));
    EXPECT_EQ(std::tuple(AdcCards[2].MaxReading, AdcCards[2].ZeroShift), std::tuple(65535, 0));
    EXPECT_EQ(Limits(AdcCards[3]), Limits(AdcCards[1]));
    EXPECT_EQ(ChannelCount(AdcCards[3]), 8);
    // Logical channels count over the ranges, 255 never among them; physical and logical
    // convert both ways.
    AdcCard& adc = AdcCards[0];
    std::vector<int> physicals;
    u16 physical = 0, logical = 0;
    for (u16 i = 0; PhysicalFromLogical(adc, i, &physical); ++i) {
        physicals.push_back(physical);
        EXPECT_TRUE(LogicalFromPhysical(adc, physical, &logical) && logical == i) << i;
    }
    EXPECT_EQ(physicals, (std::vector<int>{0, 1, 2, 3, 8, 9, 10, 11, 250, 251, 252, 253, 254}));
    EXPECT_EQ(ChannelCount(adc), 13);
    EXPECT_FALSE(LogicalFromPhysical(adc, 5, &logical) || HasChannel(adc, 255));
    // The next channel wraps to the first range; the first channel starts over.
    std::vector<int> order{FirstChannel(AdcCards[4])};
    for (int k = 0; k < 4; ++k)
        order.push_back(NextChannel(AdcCards[4]));
    order.push_back(FirstChannel(AdcCards[4]));
    EXPECT_EQ(order, (std::vector<int>{2, 3, 6, 2, 3, 2}));
}

// Gains and readings from nidaq.ini; the readings only as a consistent set.
TEST_F(CardDetection, GainsAndReadingsFromTheProbesAndFromNidaqIni) {
    // Card 5 misses channel 0: every gain probe fails, the channel probe still finds it.
    FakeCard decibels = Inputs(1), noGains = Inputs(5);
    decibels.gains = {0, 20, 40};
    noGains.adcChannels = {{1, 7}};
    gRack.cards = {decibels, Inputs(2), Inputs(4), noGains, Inputs(6), kOutputs};
    WriteWholeFile(dir.File("nidaq.ini"),
                   "[401]\nADC.MinReading=100\nADC.ZeroReading=100\nADC.MaxReading=200\n"
                   "ADC.ZeroShift=7\n"
                   "[402]\ngains=1, 10;100\nADC.MinReading=16\nADC.ZeroReading=32768\n"
                   "ADC.MaxReading=65519\n"
                   "[404]\ngains=20 0:40\nlogGains=0\n"
                   "[406]\ngains=1,2,abc,5\n");
    EXPECT_EQ(Detect(), 0);
    ASSERT_EQ(AdcCardsCount, 5);
    EXPECT_EQ(std::tuple(AdcCards[0].logGains, AdcCards[0].gains),
              std::tuple(1, std::vector<f32>{0, 20, 40}));
    EXPECT_EQ(AdcCards[1].gains, (std::vector<f32>{1, 10, 100}));
    EXPECT_EQ(std::tuple(AdcCards[2].logGains, AdcCards[2].gains),
              std::tuple(1, std::vector<f32>{20, 0, 40}));
    EXPECT_EQ(AdcCards[3].gains, (std::vector<f32>{1}));
    EXPECT_EQ(AdcCards[4].gains, (std::vector<f32>{1, 2})); // the list stops at "abc"
    EXPECT_TRUE(ReportHas("  Number of gains:3 (0,20,40) Scale:Log (Source:autodetection, "
                          "nidaq.ini is wrong/incomplete)\n"));
    EXPECT_TRUE(ReportHas("(Source:autodetection, nidaq.ini has the same data or nothing)"));
    EXPECT_TRUE(ReportHas("(20,0,40) Scale:Log (Source:nidaq.ini)"));
    EXPECT_TRUE(ReportHas("(1) Scale:Lin (Source:nidaq.ini is wrong/incomplete, autodetection "
                          "n/a)"));
    EXPECT_EQ(Limits(AdcCards[0]), std::tuple(0, 32768, 65535, 32768, -10.0, 10.0 * 32767 / 32768));
    EXPECT_EQ(std::tuple(AdcCards[1].MinReading, AdcCards[1].MaxReading, AdcCards[1].MinVoltage),
              std::tuple(16, 65519, (16 - 32768) * 10.0 / 32768));
}

TEST_F(CardDetection, ScxiModuleIsAnOutputWithFixedLimits) {
    FakeCard module{.chassis = 1, .slot = 2, .id = 42, .dacChannels = 6};
    FakeCard unknown = module;
    unknown.slot = 3;
    unknown.id = 43;
    gRack.cards = {Inputs(1), module, unknown};
    gRack.scxiChassis = 1;
    WriteWholeFile(dir.File("SCXI.ini"), "[42]\nname=SCXI-1124\n");
    EXPECT_EQ(Detect(), 0);
    ASSERT_EQ(std::tuple(DacCardsCount, AdcCardsCount), std::tuple(2, 1));
    EXPECT_TRUE(ReportHas("SCXI_Chassis #01: addr= 5, contains 4 slots\n"
                          "  module in slot # 2: name=SCXI-1124 [ID=42]\n"
                          "  DAC:   6 channels, Reading=[0,2048,4095], DAC "
                          "Voltage=[-10.000000,9.995117]\n"
                          "  module in slot # 3: name=??? [ID=43]\n"));
}

// Single reads and writes on a multifunction card and an SCXI output module: readings and
// bits differ by the zero shift, in 16 bits.
TEST_F(CardDetection, SingleReadsAndWritesFallBackOrBeep) {
    gRack.cards = {kMultifunction, {.chassis = 1, .slot = 2, .id = 42, .dacChannels = 4}};
    gRack.scxiChassis = 1;
    ASSERT_EQ(Detect(), 0);
    HeadlessReset();
    gRack.nextReading = -5;
    EXPECT_EQ(std::tuple(ReadAdcBits(0, 3, 1.0f), ReadMonitorBits(0, 3, 1.0f)),
              std::tuple(32763, 32763));
    // An unsupported AI_Read falls back on DAQ_Op (the reading in the second word); the monitor
    // read has no fallback. A failed read beeps and gives the zero.
    gRack.aiReadStatus = kDaqNotSupported;
    gRack.nextReading = 100;
    EXPECT_EQ(ReadAdcBits(0, 0, 1.0f), 32868);
    EXPECT_EQ(ReadMonitorBits(0, 0, 1.0f), 32768);
    gRack.daqOpStatus = -1;
    EXPECT_EQ(ReadAdcBits(0, 0, 1.0f), 32768);
    gRack.aiReadStatus = -1;
    EXPECT_EQ(ReadAdcBits(0, 0, 1.0f), AdcCards[0].ZeroReading);
    EXPECT_EQ(HeadlessBeeps(), std::vector<unsigned>(3, BEEP_SIMPLE));
    WriteDacBits(0, 1, 32768 + 7);
    WriteDacBits(1, 3, 4095);
    ASSERT_EQ(gRack.writes.size(), 2u);
    const FakeRack::Write &pc = gRack.writes[0], &scxi = gRack.writes[1];
    EXPECT_EQ(std::tuple(pc.slot, pc.channel, pc.reading), std::tuple(1, 1, 7));
    EXPECT_EQ(std::tuple(scxi.chassis, scxi.opCode, scxi.rangeCode, scxi.reading),
              std::tuple(1, 1, 5, 4095));
    gRack.writeStatus = -1;
    WriteDacBits(0, 0, 0);
    EXPECT_EQ(HeadlessBeeps(), std::vector<unsigned>(4, BEEP_SIMPLE));
    EXPECT_EQ(std::tuple(AdcBitsFromReading(-32768, 0), AdcBitsFromReading(32767, 0),
                         DacReadingFromBits(0, 0), DacBitsFromReading(-32768, 0),
                         DacReadingFromBits(4095, 1)),
              std::tuple(0, 65535, -32768, 0, 4095));
    AssertCapture capture;
    EXPECT_EQ(AdcBitsFromReading(0, 1), 0);
    EXPECT_EQ(capture.Count(), 1);
}

TEST_F(CardDetection, MissingKindsGiveResultAndStartupMessage) {
    char text[512];
    gRack.cards = {kOutputs};
    EXPECT_EQ(Detect(), 2);
    CardsStartupMessage(2, "vantrel", text, sizeof text);
    EXPECT_STREQ(text, "At least one DAC and one ADC card are required\nto run Vantrel. In your "
                       "system you have:\n[ ] no DACs\n[x] no ADCs\nvantrel will show detailed "
                       "info in the next window and exit.");
    // Without DACs the result is 1 whether there are ADCs or not; only "no DACs" is marked.
    for (auto cards : {std::vector<FakeCard>{Inputs(1, 12)}, std::vector<FakeCard>{}}) {
        gRack.cards = cards;
        EXPECT_EQ(Detect(), 1);
        EXPECT_EQ(AdcCardsCount, cards.size());
    }
    CardsStartupMessage(1, "vantrel", text, sizeof text);
    EXPECT_NE(std::string(text).find("[x] no DACs\n[ ] no ADCs\n"), std::string::npos);
    // The none driver finds nothing.
    SetDaqDriver(nullptr);
    EXPECT_EQ(Detect(), 1);
    EXPECT_STREQ(report, "Get_NI_DAQ_Version() failed\n\n");
}

} // namespace
