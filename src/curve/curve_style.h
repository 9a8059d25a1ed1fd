// The 14 curve styles: curve i is drawn with slot i mod 14. Kept in section "Graphics".
#pragma once
#include <cstdint>

// Colours are platform values with blue in the high byte: 0x800000 is dark blue.
struct CurveStyle {
    uint32_t color;
    int lineStyle;  // "solid", "dashed", "dotted", "dash-dot", "dash-dot-dot", "invisible"
    int symbol;     // none, circle, square, diamond, up triangle, down triangle, dot
    int lineWidth;  // tenths of a millimetre
    int symbolSize; // tenths of a millimetre
};

constexpr unsigned kCurveStyleCount = 14;
extern CurveStyle gCurveStyles[kCurveStyleCount];

constexpr uint32_t MakeRGB(unsigned red, unsigned green, unsigned blue) {
    return (red & 0xFF) | ((green & 0xFF) << 8) | ((blue & 0xFF) << 16);
}

// The colour of curve index of count, along seven edges of the colour cube from black to
// black. index must be below count, and count at most 0x1FFFFF.
uint32_t RGB_Spectrum7(unsigned index, unsigned count);

// Group functions of the settings lists; both return 1.
int LoadCurveStyles(const char* fileName);
int SaveCurveStyles(const char* fileName);
