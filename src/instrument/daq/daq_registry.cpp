// The drivers built into the program, chosen by name with -daq:NAME.
#include "instrument/daq/daq_driver.h"
#include "instrument/daq/sim_driver.h"

#include <cstring>

namespace {

struct NamedDriver {
    const char* name;
    const DaqDriver* driver;
};

// comedi joins this list when the build finds comedilib.
const NamedDriver kDrivers[] = {
    {"sim", &gSimDaqDriver},
};

} // namespace

bool SelectDaqDriver(const char* name) {
    if (!name) return false;
    for (const NamedDriver& d : kDrivers)
        if (std::strcmp(d.name, name) == 0) {
            SetDaqDriver(d.driver);
            return true;
        }
    return false;
}

const char* DaqDriverNames() {
    return "sim";
}
