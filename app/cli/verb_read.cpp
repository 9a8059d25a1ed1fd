// vantrel-cli read: one look at the wired sample, as a measurement would see it.
#include "cli_startup.h"
#include "cli_verbs.h"

#include "instrument/virtual_channels.h"
#include "support/cmdline.h"
#include "support/physical_units.h"

#include <cstdio>

int CliRead(int argc, char** argv) {
    ParseArgv(argc, argv);
    if (int status = CliStartInstrument(true)) return status;
    char value[64];
    for (int v = 0; v < kVoltageChannelCount; ++v) {
        if (!IsVoltageConnected(v)) continue;
        FormatPhysical(value, static_cast<float>(GetVoltage(v).volts), "V", sizeof value);
        std::printf("V[%3d] %-13s %-30s %s\n", v, gVoltageKindNames[VoltageChannels[v].kind],
                    VoltageChannels[v].comment, value);
    }
    for (int i = 0; i < kCurrentChannelCount; ++i) {
        if (!IsCurrentConnected(i)) continue;
        FormatPhysical(value, static_cast<float>(GetCurrent(i)), "A", sizeof value);
        std::printf("I[%3d] %-13s %-30s %s\n", i, gCurrentKindNames[CurrentChannels[i].kind],
                    CurrentChannels[i].comment, value);
    }
    return 0;
}
