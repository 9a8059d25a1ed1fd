#include "instrument/thermometer.h"

#include "instrument/virtual_channels.h"
#include "support/bounded_text.h"
#include "support/c_locale.h"
#include "support/debug_check.h"

#include <cmath>

f32 gTermoTemperature[kTermoTableSize];
f32 gTermoValue[kTermoTableSize];
int gTermoCount = 0;

void ResetTemperatureTable() {
    for (int i = 0; i < kTermoTableSize; ++i)
        gTermoTemperature[i] = gTermoValue[i] = 0.0f;
    gTermoCount = 0;
}

bool InterpolateTemperature(f32 x, f64* kelvin) {
    const f32* v = gTermoValue;
    const f32* t = gTermoTemperature;
    for (int i = 1; i < gTermoCount; ++i) {
        if (!((v[i - 1] <= x && x <= v[i]) || (v[i - 1] >= x && x >= v[i]))) continue;
        // A flat segment holds x only when x is its value: the entry's temperature, rather
        // than the 0/0 of the slope.
        if (v[i] == v[i - 1]) {
            *kelvin = t[i - 1];
        } else {
            *kelvin = (x - v[i - 1]) * ((t[i] - t[i - 1]) / (v[i] - v[i - 1])) + t[i - 1];
        }
        return true;
    }
    return false;
}

TemperatureReading ReadTemperature() {
    TemperatureReading r;
    r.voltage = FirstTSensorVoltage();
    if (r.voltage < 0) return r;
    r.volts = GetVoltage(r.voltage).volts;
    f32 x = static_cast<f32>(r.volts) / (TermoIsTofR ? SensorCurrent : 1.0f);
    if (UseAbsV) x = std::fabs(x);
    r.sensorValue = x;
    if (!InterpolateTemperature(x, &r.kelvin)) r.kelvin = kTermoInterpError;
    return r;
}

f64 GetTemperature() {
    return ReadTemperature().kelvin;
}

bool FormatTemperature(f32 kelvin, char* text, size_t size) {
    VASSERT(size >= kTermoTextSize);
    if (kelvin >= 0.0f) {
        SnprintfC(text, size, "%9.3f K", static_cast<double>(kelvin));
        return true;
    }
    const char* failure = "err ???";
    if (kelvin == static_cast<f32>(kTermoNoSensor))
        failure = "V not def";
    else if (kelvin == static_cast<f32>(kTermoInterpError))
        failure = "InterpErr";
    BoundedCopy(text, failure, size);
    return false;
}
