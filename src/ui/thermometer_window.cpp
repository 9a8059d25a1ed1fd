#include "ui/thermometer_window.h"

#include "measure/measure_run.h"
#include "support/c_locale.h"
#include "support/physical_units.h"

#include <cmath>

const char kTermoWindowCaption[] = "Temperature";
const char kTermoTimerFailedText[] = "Can't set timer";
const char kTermoTimerFailedCaption[] = "Temperature--error";

bool TermoWindowTick(TemperatureReading& last, char* text, size_t size) {
    if (IsMeasurementRunning()) return false;
    last = ReadTemperature();
    FormatTemperature(static_cast<f32>(last.kelvin), text, size);
    return true;
}

void TermoSensorText(const TemperatureReading& reading, char* text, size_t size) {
    if (size) text[0] = '\0';
    if (reading.voltage < 0 || size == 0) return;
    char value[64];
    FormatPhysical(value, reading.sensorValue, TermoIsTofR ? "Ohm" : "V", sizeof value);
    SnprintfC(text, size, "%s = %s", TermoIsTofR ? "R" : "V", value);
}

const char* TermoWindowTitle(bool minimised, const char* temperatureText) {
    return minimised ? temperatureText : kTermoWindowCaption;
}

int TermoBarFill(f64 kelvin, const TermoBarLimits& limits, int height) {
    const f64 lower = limits.lower, upper = limits.upper;
    // Limits closer than this give no usable scale; the bar then just shows it is alive.
    if (upper - lower < 0.01) return height / 2;
    if (kelvin < lower) return 0;
    if (kelvin > upper) return height;
    return static_cast<int>(std::trunc((kelvin - lower) * height / (upper - lower)));
}

void TermoLimitText(f32 value, char* text, size_t size) {
    SnprintfC(text, size, "%6.2f", static_cast<double>(value));
}

void TermoScaleLabel(const TermoBarLimits& limits, int k, char* text, size_t size) {
    f64 value = limits.lower + (static_cast<f64>(limits.upper) - limits.lower) * (20.0 * k) / 100.0;
    SnprintfC(text, size, "%-8.2f", value);
}

int TermoTickLength(int i) {
    if (i % 10 == 0) return 11;
    if (i % 5 == 0) return 9;
    return 7;
}
