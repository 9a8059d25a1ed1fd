// What the always-updating "Temperature" window shows, apart from drawing it: the text of each
// one-second tick, the filled height of its bar, its scale and limit labels. The window itself
// stays a thin layer over these.
#pragma once
#include "instrument/daq_cards.h"
#include "instrument/thermometer.h"

#include <cstddef>
#include <cstdint>

extern const char kTermoWindowCaption[];
// The two layouts of the window; the wide one is chosen with Shift.
constexpr int kTermoLayoutNarrow = 1568;
constexpr int kTermoLayoutWide = 173;
constexpr unsigned kTermoWindowTimerMs = 1000;
extern const char kTermoTimerFailedText[];
extern const char kTermoTimerFailedCaption[];
// Bar colours as 0xRRGGBB.
constexpr std::uint32_t kTermoBarFillColor = 0x0080FF;
constexpr std::uint32_t kTermoBarEmptyColor = 0xC0C0C0;
constexpr std::uint32_t kTermoScaleColor = 0xFF0000;

// The two limits of the bar: editable, not saved; a new window starts with 0 and 300.
struct TermoBarLimits {
    f32 lower = 0.0f;
    f32 upper = 300.0f;
};

// One tick: reads the thermometer into last and formats its temperature into text
// (kTermoTextSize or more). While a measurement runs only its thread may read the cards, so
// last and text stay as they were; false then.
bool TermoWindowTick(TemperatureReading& last, char* text, size_t size);
// The sensor beside the temperature, "R = ... Ohm" or "V = ... V"; empty without a T-sensor.
void TermoSensorText(const TemperatureReading& reading, char* text, size_t size);
// The title: the temperature text while the window is an icon, else the caption.
const char* TermoWindowTitle(bool minimised, const char* temperatureText);
// Filled pixels of a bar height pixels tall, from the bottom.
int TermoBarFill(f64 kelvin, const TermoBarLimits& limits, int height);
// The limit fields' text, "%6.2f".
void TermoLimitText(f32 value, char* text, size_t size);
// Label k of 1..4: the value at 20 k percent between the limits, "%-8.2f".
void TermoScaleLabel(const TermoBarLimits& limits, int k, char* text, size_t size);
// Scale tick i of 0..50 (every 2 percent): its length in pixels from the bar's edge.
int TermoTickLength(int i);
