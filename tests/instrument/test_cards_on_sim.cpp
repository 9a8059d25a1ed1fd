// The hardware report of vantrel-cli cards on hand-made racks of the simulated instrument: the
// detection probes and the simulated cards must agree on what real cards would answer. With a
// kind missing the report goes to err behind the start-up message (whose texts the detection
// tests check).
#include "common/test_support.h"

#include <gtest/gtest.h>

#include <tuple>

TEST(CardsOnSim, ReportsAndStartUpResults) {
    TempDir dir;
    auto cards = [&](const char* rack) {
        WriteWholeFile(dir.File("simdaq.ini"), rack);
        return RunCli({"cards", "-simdaq:" + dir.File("simdaq.ini")});
    };
    ProcessResult r = cards("[Rack]\nCards=1\n[Card1]\nBits=12\nInputs=0-3,8-11\n");
    EXPECT_EQ(std::tuple(r.exitCode, r.err), std::tuple(0, "")) << r.err;
    for (const char* line :
         {"  ADC:   8 channels, Reading=[0, 2048, 4095], ADC Voltage=[-10.000000, "
          "9.995117]",
          "  DAC:   2 channels, Reading=[0,2048,4095], DAC "
          "Voltage=[-10.000000,9.995117]\n"})
        EXPECT_NE(r.out.find(line), std::string::npos) << line << "\n" << r.out;
    EXPECT_EQ(cards("[Rack]\nCards=1\n[Card1]\nOutputs=0\n").exitCode, 1);
    r = cards("[Rack]\nCards=1\n[Card1]\nInputs=none\n");
    EXPECT_EQ(std::tuple(r.exitCode, r.out), std::tuple(2, ""));
    EXPECT_EQ(r.err.rfind("DAC/ADC Initialization Error:\nAt least one DAC", 0), 0u) << r.err;
    EXPECT_NE(r.err.find("[x] no ADCs\nvantrel-cli will show detailed info in the next window and "
                         "exit.\n\nDetected NIDAQ Cards:\nNI-DAQ version "),
              std::string::npos)
        << r.err;
    r = RunCli({"cards", "-daq:nothing"});
    EXPECT_EQ(r.exitCode, 2);
    EXPECT_NE(r.err.find("no driver 'nothing'"), std::string::npos) << r.err;
}
