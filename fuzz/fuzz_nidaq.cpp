// nidaq.ini: the card descriptions that card detection compares with what it finds.
#include "fuzz_input_file.h"
#include "instrument/daq/daq_driver.h"
#include "instrument/daq/sim_driver.h"
#include "instrument/daq_cards.h"
#include "platform/headless_host.h"

extern "C" int LLVMFuzzerInitialize(int*, char***) {
    SelectDaqDriver("sim");
    SimDaqSetPath("/nonexistent/simdaq.ini"); // the built-in rack
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    HeadlessReset();
    const std::string path = FuzzInputFile("nidaq.ini", data, size);
    char report[kCardsReportSize];
    DetectCards(report, sizeof report, (path.substr(0, path.rfind('/') + 1)).c_str());
    return 0;
}
