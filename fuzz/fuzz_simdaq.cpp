// simdaq.ini: the simulated rack and sample, read and repaired, then one write and read.
#include "fuzz_input_file.h"
#include "instrument/daq/sim_driver.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    const std::string path = FuzzInputFile("simdaq.ini", data, size);
    SimDaqLoad(path.c_str());
    i16 reading = 0;
    gSimDaqDriver.AO_Write(1, 0, 1000);
    gSimDaqDriver.AI_Read(1, 0, 1, &reading);
    return 0;
}
