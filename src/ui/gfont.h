// A font kept in vtl.ini: face, size in points, style and colour. The device makes the pixels.
#pragma once
#include "ui/plot_canvas.h"

#include <cstddef>

class GFont {
  public:
    char faceName[32] = {};
    unsigned height = 9; // points
    int weight = 0;      // 0 the default, 1 to 1000 otherwise
    int italic = 0;
    int underline = 0;
    int strikeOut = 0;
    int charSet = 0;
    CanvasColor color = 0;

    GFont();
    GFont(const char* name, unsigned points, CanvasColor textColor);

    // Selects the font into the device. Throws GFontException when the device can't be had.
    void CreateFor(const PlotCanvas& dc) const;
    // Pixel height on the device: points times its pixels per inch / 72.
    int Height(const PlotCanvas& dc) const;

    // The font dialog with size, style and colour preset; OK stores the choice, its height in
    // points. 1 for OK, 0 for Cancel.
    int Choose(void* window);

    // "%s, %upt\n%s%s%s": face, size, the weight name and " + italic".
    void Describe(char* text, std::size_t size) const;
    // "%s, %upt".
    void DescribeShort(char* text, std::size_t size) const;

    // Keys prefix + Name, Size, Italic, Weight, Underline, StrikeOut, CharSet, Color. Loading
    // takes the built-in defaults ("Arial", 9, 0 ...) for missing keys, not the present values.
    int Save(const char* fileName, const char* section, const char* prefix) const;
    int Load(const char* fileName, const char* section, const char* prefix);
};

// "thin" to "black" by ranges of 100 around the usual weights; empty outside 1 to 1000.
const char* FontWeightName(int weight);
