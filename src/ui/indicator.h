// The logic of the Indicator bar and the colour button, apart from their windows.
#pragma once
#include "ui/plot_canvas.h"

#include <cstddef>
#include <cstdint>

// The eight words of an indicator window, in their order.
struct IndicatorState {
    CanvasColor colorLow = 0x800080;
    CanvasColor colorHigh = 0xFFFFFF;
    CanvasColor textColor = 0x00FF00;
    CanvasColor frameColor = 0;
    std::uint32_t position = 0x800;
    std::uint32_t minimum = 0;
    std::uint32_t maximum = 0xFFF;
    std::uintptr_t font = 0;
};

// The low bar runs from the client's left to the split, the high bar from the split on.
struct IndicatorBars {
    CanvasRect low;
    CanvasRect high;
};

IndicatorBars IndicatorSplit(const IndicatorState& state, const CanvasRect& client);

// Sets the two bar colours and takes for the text the colour that the bars mix to when drawn
// in exclusive-or over black, so the text stays readable as the bar passes under it.
int SetIndicatorColors(IndicatorState& state, CanvasColor low, CanvasColor high);

// "RGB=(%03u,%03u,%03u)".
void ColorSelectionText(CanvasColor color, char* text, std::size_t size);
