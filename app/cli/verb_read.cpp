// vantrel-cli read: one look at the wired sample, as a measurement would see it.
#include "cli_startup.h"
#include "cli_verbs.h"

#include "instrument/thermometer.h"
#include "instrument/virtual_channels.h"
#include "support/cmdline.h"
#include "support/physical_units.h"

#include <cstdio>

namespace {

// Stored text is single-byte with the micro sign 0xB5; a terminal expects UTF-8.
void PrintText(const char* value) {
    for (const char* p = value; *p; ++p)
        if (static_cast<unsigned char>(*p) == 0xB5)
            std::fputs("\xC2\xB5", stdout);
        else
            std::putchar(*p);
}

void PrintValue(const char* value) {
    PrintText(value);
    std::putchar('\n');
}

// "T = 4.200 K", then what the table was entered with, so that a reading outside the table
// can be told from a sensor that is not wired.
void PrintTemperature() {
    TemperatureReading r = ReadTemperature();
    char text[kTermoTextSize];
    FormatTemperature(static_cast<f32>(r.kelvin), text, sizeof text);
    const char* t = text;
    while (*t == ' ')
        ++t;
    std::printf("T = %s", t);
    if (r.voltage >= 0) {
        char value[64];
        FormatPhysical(value, r.sensorValue, TermoIsTofR ? "Ohm" : "V", sizeof value);
        std::printf("  (V[%3d] %s, %s = ", r.voltage, VoltageChannels[r.voltage].comment,
                    TermoIsTofR ? "R" : "V");
        PrintText(value);
        std::putchar(')');
    }
    std::putchar('\n');
}

} // namespace

int RunReadVerb(int, char**) {
    if (int status = CliStartInstrument(true)) return status;
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
    PrintTemperature();
    return 0;
}
