// The hardware report of vantrel-cli cards on hand-made racks of the simulated instrument: the
// detection probes and the simulated cards must agree on what real cards would answer.
#include "common/test_support.h"

#include <gtest/gtest.h>

namespace {

ProcessResult Cards(const TempDir& dir, const std::string& rack) {
    WriteWholeFile(dir.File("simdaq.ini"), rack);
    return RunCli({"cards", "-simdaq:" + dir.File("simdaq.ini")});
}

bool Has(const std::string& text, const std::string& line) {
    return text.find(line) != std::string::npos;
}

} // namespace

TEST(CardsOnSim, TwelveBitCardWithAGapAndDecibelGains) {
    TempDir dir;
    ProcessResult r = Cards(dir, "[Rack]\nCards=1\n[Card1]\nBits=12\nInputs=0-3,8-11\n");
    ASSERT_EQ(r.exitCode, 0) << r.err;
    EXPECT_TRUE(Has(r.out, "  ADC:   8 channels, Reading=[0, 2048, 4095], ADC "
                           "Voltage=[-10.000000, 9.995117]"))
        << r.out;
    EXPECT_TRUE(Has(r.out, "  DAC:   2 channels, Reading=[0,2048,4095], DAC "
                           "Voltage=[-10.000000,9.995117]\n"))
        << r.out;

    r = Cards(dir, "[Rack]\nCards=1\n[Card1]\nGains=0,10,20,40\nLogGains=1\n");
    ASSERT_EQ(r.exitCode, 0) << r.err;
    EXPECT_TRUE(Has(r.out, "  Number of gains:4 (0,10,20,40) Scale:Log (Source:autodetection, "
                           "nidaq.ini is wrong/incomplete)\n"))
        << r.out;
    EXPECT_TRUE(Has(r.out, "Reading=[0, 32768, 65535]")) << r.out;
}

TEST(CardsOnSim, ScxiChassisWithAModuleGivesADacWithFixedLimits) {
    TempDir dir;
    ProcessResult r = Cards(dir, "[SCXI]\nChassis=1\nModules=1\n[SCXIModule1]\nSlot=2\n");
    ASSERT_EQ(r.exitCode, 0) << r.err;
    EXPECT_TRUE(Has(r.out, "SCXI_Chassis #01: addr= 1, contains 4 slots\n"
                           "  module in slot # 2: name=??? [ID=1124]\n"
                           "  DAC:   6 channels, Reading=[0,2048,4095], DAC "
                           "Voltage=[-10.000000,9.995117]\n"))
        << r.out;
}

TEST(CardsOnSim, RacksWithoutDacOrAdcEndWithTheStartUpMessage) {
    TempDir dir;
    ProcessResult r = Cards(dir, "[Rack]\nCards=1\n[Card1]\nOutputs=0\n");
    EXPECT_EQ(r.exitCode, 1);
    EXPECT_TRUE(Has(r.err, "At least one DAC and one ADC card are required\nto run Vantrel. In "
                           "your system you have:\n[x] no DACs\n[ ] no ADCs\n"))
        << r.err;
    EXPECT_TRUE(Has(r.err, "Detected NIDAQ Cards")) << r.err;

    r = Cards(dir, "[Rack]\nCards=1\n[Card1]\nInputs=none\n");
    EXPECT_EQ(r.exitCode, 2);
    EXPECT_TRUE(Has(r.err, "[ ] no DACs\n[x] no ADCs\n")) << r.err;

    // Neither kind ticks only "no DACs".
    r = Cards(dir, "[Rack]\nCards=0\n");
    EXPECT_EQ(r.exitCode, 1);
    EXPECT_TRUE(Has(r.err, "[x] no DACs\n[ ] no ADCs\n")) << r.err;

    r = RunCli({"cards", "-daq:nothing"});
    EXPECT_EQ(r.exitCode, 2);
    EXPECT_TRUE(Has(r.err, "no driver 'nothing'")) << r.err;
}
