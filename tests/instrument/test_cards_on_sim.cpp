// The hardware report of vantrel-cli cards on hand-made racks of the simulated instrument: the
// detection probes and the simulated cards must agree on what real cards would answer.
#include "common/test_support.h"

#include <gtest/gtest.h>

TEST(CardsOnSim, ReportsAndStartUpMessages) {
    const struct {
        const char* rack;
        int exitCode;
        const char* text; // in the report, or in the message without cards
    } cases[] = {
        {"[Rack]\nCards=1\n[Card1]\nBits=12\nInputs=0-3,8-11\n", 0,
         "  ADC:   8 channels, Reading=[0, 2048, 4095], ADC Voltage=[-10.000000, 9.995117]"},
        {"[Rack]\nCards=1\n[Card1]\nBits=12\nInputs=0-3,8-11\n", 0,
         "  DAC:   2 channels, Reading=[0,2048,4095], DAC Voltage=[-10.000000,9.995117]\n"},
        {"[Rack]\nCards=1\n[Card1]\nOutputs=0\n", 1,
         "At least one DAC and one ADC card are required\nto run Vantrel. In your system you "
         "have:\n[x] no DACs\n[ ] no ADCs\nvantrel-cli will show detailed info in the next "
         "window and exit.\n\nDetected NIDAQ Cards:\n"},
        {"[Rack]\nCards=1\n[Card1]\nInputs=none\n", 2, "[ ] no DACs\n[x] no ADCs\n"},
        {"[Rack]\nCards=0\n", 1, "[x] no DACs\n[ ] no ADCs\n"}, // neither: only "no DACs"
    };
    TempDir dir;
    for (const auto& c : cases) {
        WriteWholeFile(dir.File("simdaq.ini"), c.rack);
        ProcessResult r = RunCli({"cards", "-simdaq:" + dir.File("simdaq.ini")});
        EXPECT_EQ(r.exitCode, c.exitCode) << c.rack << r.err;
        EXPECT_NE((c.exitCode ? r.err : r.out).find(c.text), std::string::npos)
            << c.rack << r.out << r.err;
    }
    ProcessResult r = RunCli({"cards", "-daq:nothing"});
    EXPECT_EQ(r.exitCode, 2);
    EXPECT_NE(r.err.find("no driver 'nothing'"), std::string::npos) << r.err;
}
