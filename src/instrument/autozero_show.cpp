#include "instrument/autozero.h"

#include "instrument/virtual_channels.h"
#include "support/bounded_text.h"
#include "support/message_box.h"
#include "support/physical_units.h"

#include <cstdio>

const char kAutoZeroVoltageShiftsCaption[] = "AutoZero Shifts of Voltages";
const char kAutoZeroMonitorShiftsCaption[] = "AutoZero Shifts of Current Monitors";

namespace {
// A box shows no more lines than these.
constexpr int kMaxShownShifts = 8;
} // namespace

void AutoZeroVoltageShiftsText(char* text, size_t size) {
    if (size) text[0] = 0;
    int shown = 0;
    for (int v = 0; v < kVoltageChannelCount && shown < kMaxShownShifts; ++v) {
        if (!IsVoltageConnected(v)) continue;
        const VoltageReading& shift = VoltageChannels[v].zeroShift;
        char value[64], line[128];
        FormatPhysical(value, static_cast<float>(shift.volts), "V", sizeof value);
        std::snprintf(line, sizeof line, "Shift of V[%2u]\t=\t%s (%d bits)\n", unsigned(v), value,
                      shift.bits);
        BoundedAppend(text, line, size);
        ++shown;
    }
    if (!shown) BoundedCopy(text, "All voltages are disconnected", size);
}

void AutoZeroMonitorShiftsText(char* text, size_t size) {
    if (size) text[0] = 0;
    int shown = 0;
    for (int i = 0; i < kCurrentChannelCount && shown < kMaxShownShifts; ++i) {
        if (!IsCurrentConnected(i) || !IsCurrentMonitored(i)) continue;
        char value[64], line[128];
        FormatPhysical(value, CurrentChannels[i].zeroShift, "A", sizeof value);
        std::snprintf(line, sizeof line, "Shift of I-Mon[%2u]\t=\t%s\n", unsigned(i), value);
        BoundedAppend(text, line, size);
        ++shown;
    }
    if (!shown) BoundedCopy(text, "No currents are monitored.", size);
}

void ShowAutoZeroVoltageShifts(void* window) {
    char text[1024];
    AutoZeroVoltageShiftsText(text, sizeof text);
    MessageBoxBeep(window, text, kAutoZeroVoltageShiftsCaption, MB_OK | MB_ICONINFORMATION);
}

void ShowAutoZeroMonitorShifts(void* window) {
    char text[1024];
    AutoZeroMonitorShiftsText(text, sizeof text);
    MessageBoxBeep(window, text, kAutoZeroMonitorShiftsCaption, MB_OK | MB_ICONINFORMATION);
}
