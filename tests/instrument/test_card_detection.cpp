#include "common/fake_rack.h"

#include "common/test_support.h"
#include "instrument/daq_cards.h"
#include "platform/headless_host.h"

#include <gtest/gtest.h>

#include <cstdio>
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
    return FakeCard{.slot = slot,
                    .id = 400 + static_cast<u32>(slot),
                    .adcBits = bits,
                    .adcSigned = isSigned,
                    .adcChannels = {{0, 7}}};
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
    EXPECT_EQ(std::tuple(AdcCards[0].ZeroShift, AdcCards[0].name, DacCards[0].ZeroShift),
              std::tuple(32768, "PCI-MIO-16XE-10", 32768));
    EXPECT_EQ(Limits(DacCards[1]), std::tuple(0, 2048, 4095, 0, -10.0, k12BitTop));
    char text[256];
    DescribeDacs(text, sizeof text);
    EXPECT_STREQ(text,
                 "DAC_00:id=204(PCI-MIO-16XE-10), 2 chanels\nDAC_01:id=300(300), 8 chanels\n");
    DescribeAdcs(text, sizeof text);
    EXPECT_STREQ(text, "ADC_00:id=204(PCI-MIO-16XE-10), 16 chanels\n");
    EXPECT_EQ(DescribeAdcs(text, 20), 0);
    EXPECT_STREQ(text, "ADC_00:id=204(PCI-M");
}

TEST_F(CardDetection, ReadingLimitsFollowTheProbes) {
    FakeCard noAiVScale = Inputs(5, 12, false); // DAQ_VScale stands in for AI_VScale
    noAiVScale.aiVScaleMissing = true;
    gRack.cards = {Inputs(1, 12), Inputs(2, 12, false), Inputs(4, 16, false), noAiVScale, kOutputs};
    EXPECT_EQ(Detect(), 0);
    ASSERT_EQ(AdcCardsCount, 4);
    EXPECT_EQ(Limits(AdcCards[0]), std::tuple(0, 2048, 4095, 2048, -10.0, k12BitTop));
    EXPECT_EQ(Limits(AdcCards[1]), std::tuple(0, 2048, 4095, 0, -10.0, k12BitTop));
    EXPECT_EQ(std::tuple(AdcCards[2].MaxReading, AdcCards[2].ZeroShift), std::tuple(65535, 0));
    EXPECT_EQ(Limits(AdcCards[3]), Limits(AdcCards[1]));
    EXPECT_EQ(ChannelCount(AdcCards[3]), 8);
    EXPECT_GT(gRack.daqVScaleCalls, 0);
    EXPECT_EQ(DacCards[0].slot, 3);
}

TEST_F(CardDetection, ChannelRangesGapsAndWrap) {
    FakeCard card = Inputs(1), wraps = Inputs(2);
    card.adcChannels = {{0, 3}, {8, 11}, {250, 255}};
    wraps.adcChannels = {{2, 3}, {6, 6}};
    gRack.cards = {card, wraps, kOutputs};
    EXPECT_EQ(Detect(), 0);
    AdcCard& adc = AdcCards[0];
    ASSERT_EQ(adc.channels.ranges.size(), 3u);
    EXPECT_EQ(std::tuple(adc.channels.ranges[1].first, adc.channels.ranges[2].last),
              std::tuple(8, 254));
    EXPECT_EQ(ChannelCount(adc), 13); // channel 255 never counts
    EXPECT_FALSE(HasChannel(adc, 255));
    u16 physical = 0, logical = 0;
    EXPECT_TRUE(PhysicalFromLogical(adc, 4, &physical));
    EXPECT_TRUE(LogicalFromPhysical(adc, 9, &logical));
    EXPECT_EQ(std::tuple(physical, logical), std::tuple(8, 5));
    EXPECT_FALSE(PhysicalFromLogical(adc, 13, &physical));
    EXPECT_FALSE(LogicalFromPhysical(adc, 5, &logical));
    for (u16 i = 0; i < ChannelCount(adc); ++i) {
        ASSERT_TRUE(PhysicalFromLogical(adc, i, &physical));
        ASSERT_TRUE(LogicalFromPhysical(adc, physical, &logical));
        EXPECT_EQ(logical, i);
    }
    // The next channel wraps to the first range; the first channel starts over.
    std::vector<int> order{FirstChannel(AdcCards[1])};
    for (int k = 0; k < 4; ++k)
        order.push_back(NextChannel(AdcCards[1]));
    order.push_back(FirstChannel(AdcCards[1]));
    EXPECT_EQ(order, (std::vector<int>{2, 3, 6, 2, 3, 2}));
}

TEST_F(CardDetection, GainsFromTheProbesAndFromNidaqIni) {
    // Card 5 misses channel 0: every gain probe fails, the channel probe still finds it.
    FakeCard decibels = Inputs(1), noGains = Inputs(5);
    decibels.gains = {0, 20, 40};
    noGains.adcChannels = {{1, 7}};
    gRack.cards = {decibels, Inputs(2), Inputs(4), noGains, Inputs(6), kOutputs};
    WriteWholeFile(dir.File("nidaq.ini"), "[402]\ngains=1, 10;100\n"
                                          "[404]\ngains=20 0:40\nlogGains=0\n"
                                          "[406]\ngains=1,2,abc,5\n");
    EXPECT_EQ(Detect(), 0);
    ASSERT_EQ(AdcCardsCount, 5);
    EXPECT_EQ(std::tuple(AdcCards[0].logGains, AdcCards[0].gains),
              std::tuple(1, std::vector<f32>{0, 20, 40}));
    EXPECT_TRUE(HasGain(AdcCards[0], 20));
    EXPECT_FALSE(HasGain(AdcCards[0], 10));
    EXPECT_EQ((std::vector<int>{GainCode(0.5f), GainCode(0.01f), GainCode(-20.0f)}),
              (std::vector<int>{-1, -10, -20}));
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
}

TEST_F(CardDetection, ReadingsFromNidaqIniOnlyAsAConsistentSet) {
    gRack.cards = {Inputs(1), Inputs(2), kOutputs};
    WriteWholeFile(dir.File("nidaq.ini"),
                   "[401]\nADC.MinReading=100\nADC.ZeroReading=100\nADC.MaxReading=200\n"
                   "ADC.ZeroShift=7\n"
                   "[402]\nADC.MinReading=16\nADC.ZeroReading=32768\nADC.MaxReading=65519\n");
    EXPECT_EQ(Detect(), 0);
    EXPECT_EQ(std::tuple(AdcCards[0].MinReading, AdcCards[0].ZeroReading, AdcCards[0].MaxReading,
                         AdcCards[0].ZeroShift),
              std::tuple(0, 32768, 65535, 32768));
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
    EXPECT_EQ(std::tuple(DacCards[0].chassis, DacCards[0].channelCount, DacCards[1].name),
              std::tuple(1, 6, "???"));
    EXPECT_EQ(Limits(DacCards[0]), std::tuple(0, 2048, 4095, 0, -10.0, k12BitTop));
    EXPECT_TRUE(ReportHas("SCXI_Chassis #01: addr= 5, contains 4 slots\n"
                          "  module in slot # 2: name=SCXI-1124 [ID=42]\n"
                          "  DAC:   6 channels, Reading=[0,2048,4095], DAC "
                          "Voltage=[-10.000000,9.995117]\n"
                          "  module in slot # 3: name=??? [ID=43]\n"));
}

TEST_F(CardDetection, MissingKindsGiveResultAndStartupMessage) {
    char text[512];
    gRack.cards = {kOutputs};
    EXPECT_EQ(Detect(), 2);
    CardsStartupMessage(2, "vantrel", text, sizeof text);
    EXPECT_STREQ(text, "At least one DAC and one ADC card are required\nto run Vantrel. In your "
                       "system you have:\n[ ] no DACs\n[x] no ADCs\nvantrel will show detailed "
                       "info in the next window and exit.");
    gRack.cards = {Inputs(1, 12)};
    EXPECT_EQ(Detect(), 1);
    EXPECT_EQ(AdcCardsCount, 1);
    gRack.cards = {};
    EXPECT_EQ(Detect(), 1);
    CardsStartupMessage(1, "vantrel", text, sizeof text);
    EXPECT_NE(std::string(text).find("[x] no DACs\n[ ] no ADCs\n"), std::string::npos);
    // The none driver finds nothing.
    SetDaqDriver(nullptr);
    EXPECT_STREQ(Daq().name, "none");
    EXPECT_EQ(Detect(), 1);
    EXPECT_STREQ(report, "Get_NI_DAQ_Version() failed\n\n");
}

TEST_F(CardDetection, PrintedReportGoesToOutOrWithTheMessageToErr) {
    auto print = [this](int expected) {
        std::FILE* files[2] = {std::tmpfile(), std::tmpfile()};
        EXPECT_EQ(PrintCardsReport(dir.Path().c_str(), "vantrel-cli", files[0], files[1]),
                  expected);
        std::string text[2];
        for (int k = 0; k < 2; ++k) {
            std::rewind(files[k]);
            for (int c; (c = std::fgetc(files[k])) != EOF;)
                text[k] += static_cast<char>(c);
            std::fclose(files[k]);
        }
        return std::pair(text[0], text[1]);
    };
    gRack.cards = {kMultifunction};
    auto [out, err] = print(0);
    EXPECT_EQ(out.rfind("NI-DAQ version 0612 detected.\nSlot #01: Card-ID:204", 0), 0u);
    EXPECT_EQ(err, "");
    gRack.cards = {kOutputs};
    std::tie(out, err) = print(2);
    EXPECT_EQ(out, "");
    EXPECT_EQ(err.rfind("DAC/ADC Initialization Error:\nAt least one DAC", 0), 0u);
    EXPECT_NE(err.find("[x] no ADCs\nvantrel-cli will show detailed info in the next window and "
                       "exit.\n\nDetected NIDAQ Cards:\nNI-DAQ version 0612 detected.\n"),
              std::string::npos);
}

} // namespace
