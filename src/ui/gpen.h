// A pen kept in vtl.ini and shown in a dialog by up to four controls.
#pragma once
#include "ui/plot_canvas.h"

// What the pen dialog's controls hold: the style list's index, the width field's text and the
// colour button's colour.
struct GPenUI {
    int style = PEN_SOLID;
    char width[16] = {};
    CanvasColor color = 0;
};

class GPen {
  public:
    int style = PEN_SOLID; // PEN_SOLID to PEN_INVISIBLE
    int width = 0;         // pixels; 0 the thinnest
    CanvasColor color = 0;
    // The dialog controls: style list, width field, colour button, an optional fourth (0).
    int styleListId = 0;
    int widthFieldId = 0;
    int colorButtonId = 0;
    int fourthId = 0;

    GPen() = default;
    GPen(int penStyle, int penWidth, CanvasColor penColor)
        : style(penStyle), width(penWidth), color(penColor) {}

    // Selects the pen into the device; a style above 5 fails the check and draws solid.
    void CreateFor(const PlotCanvas& dc) const;
    // The same pen in another colour, for devices that draw in black only.
    void CreateFor(const PlotCanvas& dc, CanvasColor replacement) const;

    // Keys prefix + Style, Width, Color. Loading keeps the present value for a missing key, a
    // style whose low four bits are 6 or more, and a negative width; a style is stored as its
    // low four bits.
    int Save(const char* fileName, const char* section, const char* prefix) const;
    int Load(const char* fileName, const char* section, const char* prefix);

    // The width typed into the dialog's field; throws GPenUIException when it is not a
    // non-negative integer.
    void SetWidthFromText(const char* text);

    // The dialog's controls for this pen, and back. Read throws GPenUIException on a bad width
    // and then leaves the pen as it was.
    GPenUI Show() const;
    void Read(const GPenUI& ui);
};

// "Solid", "Dash", "Dot", "DashDot", "DashDotDot", "Invisible"; null past the end.
const char* PenStyleName(int style);
