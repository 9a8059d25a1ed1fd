// What the always-updating "Temperature" window shows, apart from drawing it: the text of each
// one-second tick, the filled height of its bar, its scale and limit labels. The window itself
// stays a thin layer over these.
#pragma once
#include "instrument/daq_cards.h"

#include <cstddef>
#include <cstdint>

extern const char kTermoWindowCaption[];
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

// One tick: reads the thermometer and formats it into text (kTermoTextSize or more); returns
// the temperature, negative for the failures.
f64 TermoWindowTick(char* text, size_t size);
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
