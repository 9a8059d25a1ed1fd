#include "common/fake_rack.h"

#include "common/test_support.h"
#include "instrument/daq_cards.h"
#include "platform/headless_host.h"

#include <gtest/gtest.h>

#include <string>

namespace {

FakeCard MultifunctionCard() {
    FakeCard c;
    c.slot = 1;
    c.id = 204;
    c.adcBits = 16;
    c.adcChannels = {{0, 15}};
    c.gains = {0.5f, 1, 2, 5, 10, 20, 50, 100};
    c.dacChannels = 2;
    c.dacBits = 16;
    return c;
}

FakeCard OutputCard() {
    FakeCard c;
    c.slot = 3;
    c.id = 300;
    c.dacChannels = 8;
    c.dacSigned = false;
    return c;
}

FakeCard InputCard(i16 slot, int bits, bool isSigned) {
    FakeCard c;
    c.slot = slot;
    c.id = 400 + static_cast<u32>(slot);
    c.adcBits = bits;
    c.adcSigned = isSigned;
    c.adcChannels = {{0, 7}};
    return c;
}

class CardDetection : public ::testing::Test {
  protected:
    void SetUp() override {
        gRack = FakeRack();
        SetDaqDriver(&kFakeDriver);
        HeadlessReset();
    }
    void TearDown() override {
        SetDaqDriver(nullptr);
        ResetCards();
    }
    int Detect() { return DetectCards(report, sizeof report, dir.Path().c_str()); }

    TempDir dir;
    char report[kCardsReportSize] = {};
};

TEST_F(CardDetection, ReportOfOneRackWordForWord) {
    gRack.cards = {MultifunctionCard(), OutputCard()};
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
    ASSERT_EQ(AdcCardsCount, 1);
    ASSERT_EQ(DacCardsCount, 2);
    EXPECT_EQ(AdcCards[0].ZeroShift, 32768);
    EXPECT_EQ(AdcCards[0].name, "PCI-MIO-16XE-10");
    EXPECT_EQ(DacCards[0].ZeroShift, 32768);
    EXPECT_EQ(DacCards[1].ZeroShift, 0);
    EXPECT_EQ(DacCards[1].ZeroReading, 2048);
    EXPECT_DOUBLE_EQ(DacCards[1].MaxVoltage, 9.9951171875);

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
    gRack.cards = {InputCard(1, 12, true), InputCard(2, 12, false), InputCard(4, 16, false),
                   OutputCard()};
    EXPECT_EQ(Detect(), 0);
    ASSERT_EQ(AdcCardsCount, 3);
    EXPECT_EQ(AdcCards[0].MaxReading, 4095);
    EXPECT_EQ(AdcCards[0].ZeroReading, 2048);
    EXPECT_EQ(AdcCards[0].ZeroShift, 2048);
    EXPECT_DOUBLE_EQ(AdcCards[0].MinVoltage, -10.0);
    EXPECT_DOUBLE_EQ(AdcCards[0].MaxVoltage, 9.9951171875);
    EXPECT_EQ(AdcCards[1].ZeroShift, 0);
    EXPECT_DOUBLE_EQ(AdcCards[1].MinVoltage, -10.0);
    EXPECT_EQ(AdcCards[2].MaxReading, 65535);
    EXPECT_EQ(AdcCards[2].ZeroShift, 0);
    EXPECT_EQ(DacCards[0].slot, 3);
}

TEST_F(CardDetection, DaqVScaleStandsInForMissingAiVScale) {
    FakeCard card = InputCard(1, 12, false);
    card.aiVScaleMissing = true;
    gRack.cards = {card, OutputCard()};
    EXPECT_EQ(Detect(), 0);
    EXPECT_GT(gRack.daqVScaleCalls, 0);
    ASSERT_EQ(AdcCardsCount, 1);
    EXPECT_EQ(ChannelCount(AdcCards[0]), 8);
    EXPECT_EQ(AdcCards[0].ZeroShift, 0);
    EXPECT_DOUBLE_EQ(AdcCards[0].MaxVoltage, 9.9951171875);
}

TEST_F(CardDetection, ChannelGapGivesTwoRangesAndChannel255NeverCounts) {
    FakeCard card = InputCard(1, 16, true);
    card.adcChannels = {{0, 3}, {8, 11}, {250, 255}};
    gRack.cards = {card, OutputCard()};
    EXPECT_EQ(Detect(), 0);
    AdcCard& adc = AdcCards[0];
    ASSERT_EQ(adc.channels.ranges.size(), 3u);
    EXPECT_EQ(adc.channels.ranges[1].first, 8);
    EXPECT_EQ(adc.channels.ranges[2].last, 254);
    EXPECT_EQ(ChannelCount(adc), 13);
    u16 physical = 0, logical = 0;
    EXPECT_TRUE(PhysicalFromLogical(adc, 4, &physical));
    EXPECT_EQ(physical, 8);
    EXPECT_TRUE(LogicalFromPhysical(adc, 9, &logical));
    EXPECT_EQ(logical, 5);
    EXPECT_FALSE(PhysicalFromLogical(adc, 13, &physical));
    EXPECT_FALSE(LogicalFromPhysical(adc, 5, &logical));
    EXPECT_FALSE(HasChannel(adc, 255));
    for (u16 i = 0; i < ChannelCount(adc); ++i) {
        ASSERT_TRUE(PhysicalFromLogical(adc, i, &physical));
        ASSERT_TRUE(LogicalFromPhysical(adc, physical, &logical));
        EXPECT_EQ(logical, i);
    }
}

TEST_F(CardDetection, DecibelCard) {
    FakeCard card = InputCard(1, 16, true);
    card.gains = {0, 20, 40};
    gRack.cards = {card, OutputCard()};
    EXPECT_EQ(Detect(), 0);
    EXPECT_EQ(AdcCards[0].logGains, 1);
    EXPECT_EQ(AdcCards[0].gains, (std::vector<f32>{0, 20, 40}));
    EXPECT_NE(std::string(report).find(
                  "  Number of gains:3 (0,20,40) Scale:Log (Source:autodetection, nidaq.ini is "
                  "wrong/incomplete)\n"),
              std::string::npos);
    EXPECT_TRUE(HasGain(AdcCards[0], 20));
    EXPECT_FALSE(HasGain(AdcCards[0], 10));
    EXPECT_EQ(GainCode(0.5f), -1);
    EXPECT_EQ(GainCode(0.01f), -10);
    EXPECT_EQ(GainCode(-20.0f), -20);
}

TEST_F(CardDetection, GainsFromNidaqIni) {
    // Channel 0 missing: every gain probe fails, the channel probe still finds a card.
    FakeCard noGains = InputCard(5, 16, true);
    noGains.adcChannels = {{1, 7}};
    gRack.cards = {InputCard(1, 16, true), InputCard(2, 16, true), noGains, OutputCard()};
    WriteWholeFile(dir.File("nidaq.ini"), "[401]\ngains=1, 10;100\n"
                                          "[402]\ngains=20 0:40\nlogGains=0\n");
    EXPECT_EQ(Detect(), 0);
    ASSERT_EQ(AdcCardsCount, 3);
    EXPECT_EQ(AdcCards[0].gains, (std::vector<f32>{1, 10, 100}));
    EXPECT_EQ(AdcCards[1].gains, (std::vector<f32>{20, 0, 40}));
    EXPECT_EQ(AdcCards[1].logGains, 1);
    EXPECT_EQ(AdcCards[2].gains, (std::vector<f32>{1}));
    std::string text = report;
    EXPECT_NE(text.find("(Source:autodetection, nidaq.ini has the same data or nothing)"),
              std::string::npos);
    EXPECT_NE(text.find("(20,0,40) Scale:Log (Source:nidaq.ini)"), std::string::npos);
    EXPECT_NE(text.find("(1) Scale:Lin (Source:nidaq.ini is wrong/incomplete, autodetection "
                        "n/a)"),
              std::string::npos);
}

TEST_F(CardDetection, GainListStopsAtTheFirstPieceThatIsNoNumber) {
    gRack.cards = {InputCard(1, 16, true), OutputCard()};
    WriteWholeFile(dir.File("nidaq.ini"), "[401]\ngains=1,2,abc,5\n");
    EXPECT_EQ(Detect(), 0);
    EXPECT_EQ(AdcCards[0].gains, (std::vector<f32>{1, 2}));
}

TEST_F(CardDetection, ReadingsFromNidaqIniOnlyAsAConsistentSet) {
    gRack.cards = {InputCard(1, 16, true), InputCard(2, 16, true), OutputCard()};
    WriteWholeFile(dir.File("nidaq.ini"),
                   "[401]\nADC.MinReading=100\nADC.ZeroReading=100\nADC.MaxReading=200\n"
                   "ADC.ZeroShift=7\n"
                   "[402]\nADC.MinReading=16\nADC.ZeroReading=32768\nADC.MaxReading=65519\n");
    EXPECT_EQ(Detect(), 0);
    EXPECT_EQ(AdcCards[0].MinReading, 0);
    EXPECT_EQ(AdcCards[0].ZeroReading, 32768);
    EXPECT_EQ(AdcCards[0].MaxReading, 65535);
    EXPECT_EQ(AdcCards[0].ZeroShift, 32768);
    EXPECT_EQ(AdcCards[1].MinReading, 16);
    EXPECT_EQ(AdcCards[1].MaxReading, 65519);
    EXPECT_DOUBLE_EQ(AdcCards[1].MinVoltage, (16 - 32768) * 10.0 / 32768);
}

TEST_F(CardDetection, ScxiModuleIsAnOutputWithFixedLimits) {
    FakeCard module;
    module.chassis = 1;
    module.slot = 2;
    module.id = 42;
    module.dacChannels = 6;
    FakeCard unknown = module;
    unknown.slot = 3;
    unknown.id = 43;
    gRack.cards = {InputCard(1, 16, true), module, unknown};
    gRack.scxiChassis = 1;
    WriteWholeFile(dir.File("SCXI.ini"), "[42]\nname=SCXI-1124\n");
    EXPECT_EQ(Detect(), 0);
    ASSERT_EQ(DacCardsCount, 2);
    EXPECT_EQ(AdcCardsCount, 1);
    const DacCard& dac = DacCards[0];
    EXPECT_EQ(dac.chassis, 1);
    EXPECT_EQ(dac.channelCount, 6);
    EXPECT_DOUBLE_EQ(dac.MaxVoltage, 9.9951171875);
    EXPECT_EQ(dac.ZeroReading, 2048);
    EXPECT_EQ(dac.MaxReading, 4095);
    EXPECT_EQ(DacCards[1].name, "???");
    EXPECT_NE(std::string(report).find("SCXI_Chassis #01: addr= 5, contains 4 slots\n"
                                       "  module in slot # 2: name=SCXI-1124 [ID=42]\n"
                                       "  DAC:   6 channels, Reading=[0,2048,4095], DAC "
                                       "Voltage=[-10.000000,9.995117]\n"
                                       "  module in slot # 3: name=??? [ID=43]\n"),
              std::string::npos);
}

TEST_F(CardDetection, MissingKindsGiveResultAndStartupMessage) {
    char text[512];
    gRack.cards = {OutputCard()};
    EXPECT_EQ(Detect(), 2);
    CardsStartupMessage(2, "vantrel", text, sizeof text);
    EXPECT_STREQ(text, "At least one DAC and one ADC card are required\nto run Vantrel. In your "
                       "system you have:\n[ ] no DACs\n[x] no ADCs\nvantrel will show detailed "
                       "info in the next window and exit.");
    gRack.cards = {InputCard(1, 12, true)};
    EXPECT_EQ(Detect(), 1);
    EXPECT_EQ(AdcCardsCount, 1);
    gRack.cards = {};
    EXPECT_EQ(Detect(), 1);
    CardsStartupMessage(1, "vantrel", text, sizeof text);
    EXPECT_NE(std::string(text).find("[x] no DACs\n[ ] no ADCs\n"), std::string::npos);

    ShowCardsStartupFailure(nullptr, 1, "vantrel", report);
    auto boxes = HeadlessBoxes();
    ASSERT_EQ(boxes.size(), 2u);
    EXPECT_EQ(boxes[0].caption, "DAC/ADC Initialization Error");
    EXPECT_EQ(boxes[1].caption, "Detected NIDAQ Cards");
    EXPECT_EQ(boxes[1].text, report);
}

TEST_F(CardDetection, NoneDriverFindsNothing) {
    SetDaqDriver(nullptr);
    EXPECT_STREQ(Daq().name, "none");
    EXPECT_EQ(Detect(), 1);
    EXPECT_STREQ(report, "Get_NI_DAQ_Version() failed\n\n");
}

TEST_F(CardDetection, NextChannelWrapsToTheFirstRange) {
    FakeCard card = InputCard(1, 16, true);
    card.adcChannels = {{2, 3}, {6, 6}};
    gRack.cards = {card, OutputCard()};
    ASSERT_EQ(Detect(), 0);
    AdcCard& adc = AdcCards[0];
    EXPECT_EQ(FirstChannel(adc), 2);
    EXPECT_EQ(NextChannel(adc), 3);
    EXPECT_EQ(NextChannel(adc), 6);
    EXPECT_EQ(NextChannel(adc), 2);
    EXPECT_EQ(NextChannel(adc), 3);
    EXPECT_EQ(FirstChannel(adc), 2);
}

} // namespace

namespace {

std::string Drain(std::FILE* file) {
    std::rewind(file);
    std::string text;
    for (int c; (c = std::fgetc(file)) != EOF;)
        text += static_cast<char>(c);
    std::fclose(file);
    return text;
}

TEST_F(CardDetection, PrintedReportGoesToOutOrWithTheMessageToErr) {
    gRack.cards = {MultifunctionCard()};
    std::FILE* out = std::tmpfile();
    std::FILE* err = std::tmpfile();
    EXPECT_EQ(PrintCardsReport(dir.Path().c_str(), "vantrel-cli", out, err), 0);
    EXPECT_EQ(Drain(out).rfind("NI-DAQ version 0612 detected.\nSlot #01: Card-ID:204", 0), 0u);
    EXPECT_EQ(Drain(err), "");
    gRack.cards = {OutputCard()};
    out = std::tmpfile();
    err = std::tmpfile();
    EXPECT_EQ(PrintCardsReport(dir.Path().c_str(), "vantrel-cli", out, err), 2);
    EXPECT_EQ(Drain(out), "");
    std::string text = Drain(err);
    EXPECT_EQ(text.rfind("DAC/ADC Initialization Error:\nAt least one DAC", 0), 0u);
    EXPECT_NE(text.find("[x] no ADCs\nvantrel-cli will show detailed info in the next window and "
                        "exit.\n\nDetected NIDAQ Cards:\nNI-DAQ version 0612 detected.\n"),
              std::string::npos);
}

} // namespace
