// vantrel-cli read: one look at the wired sample, as a measurement would see it.
#include "cli_startup.h"
#include "cli_verbs.h"

#include "instrument/virtual_channels.h"
#include "support/cmdline.h"
#include "support/physical_units.h"

#include <cstdio>

namespace {

// Stored text is single-byte with the micro sign 0xB5; a terminal expects UTF-8.
void PrintValue(const char* value) {
    for (const char* p = value; *p; ++p)
        if (static_cast<unsigned char>(*p) == 0xB5)
            std::fputs("\xC2\xB5", stdout);
        else
            std::putchar(*p);
    std::putchar('\n');
}

} // namespace

int CliRead(int argc, char** argv) {
    ParseArgv(argc, argv);
    if (int status = CliStartInstrument(true)) return status;
    // Nothing has been written yet: the start-up zeros are those of the first DAC, which on
    // another card's scale would read back as nonsense.
    InitDacState();
    char value[64];
    for (int v = 0; v < kVoltageChannelCount; ++v) {
        if (!IsVoltageConnected(v)) continue;
        FormatPhysical(value, static_cast<float>(GetVoltage(v).volts), "V", sizeof value);
        std::printf("V[%3d] %-13s %-30s ", v, gVoltageKindNames[VoltageChannels[v].kind],
                    VoltageChannels[v].comment);
        PrintValue(value);
    }
    for (int i = 0; i < kCurrentChannelCount; ++i) {
        if (!IsCurrentConnected(i)) continue;
        FormatPhysical(value, static_cast<float>(GetCurrent(i)), "A", sizeof value);
        std::printf("I[%3d] %-13s %-30s ", i, gCurrentKindNames[CurrentChannels[i].kind],
                    CurrentChannels[i].comment);
        PrintValue(value);
    }
    return 0;
}
