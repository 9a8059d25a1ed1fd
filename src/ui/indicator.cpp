#include "ui/indicator.h"

#include <cstdio>

IndicatorBars IndicatorSplit(const IndicatorState& s, const CanvasRect& client) {
    int split;
    if (s.position < s.minimum)
        split = client.left;
    else if (s.position > s.maximum || s.maximum == s.minimum)
        split = client.right;
    else
        split =
            client.left + static_cast<int>(static_cast<std::int64_t>(client.right - client.left) *
                                           (s.position - s.minimum) / (s.maximum - s.minimum));
    IndicatorBars bars;
    bars.low = CanvasRect{client.left, client.top, split, client.bottom};
    bars.high = CanvasRect{split, client.top, client.right, client.bottom};
    return bars;
}

int SetIndicatorColors(IndicatorState& state, CanvasColor low, CanvasColor high) {
    state.colorLow = low;
    state.colorHigh = high;
    state.textColor = (low ^ high) & 0xFFFFFF;
    return 1;
}

void ColorSelectionText(CanvasColor color, char* text, std::size_t size) {
    std::snprintf(text, size, "RGB=(%03u,%03u,%03u)", color & 0xFF, (color >> 8) & 0xFF,
                  (color >> 16) & 0xFF);
}
