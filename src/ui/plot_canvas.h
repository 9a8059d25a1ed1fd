// What the plot asks of a drawing surface (a window, an image, a printer page): a table of plain
// functions over one context pointer, so the geometry can be drawn and checked on any surface.
// Coordinates are device pixels, y growing downward. Colours are 0x00BBGGRR words.
#pragma once
#include <cstdint>

using CanvasColor = std::uint32_t;

// Left and top inside, right and bottom just outside.
struct CanvasRect {
    int left = 0;
    int top = 0;
    int right = 0;
    int bottom = 0;
};

struct CanvasPoint {
    int x = 0;
    int y = 0;
};

struct CanvasCaps {
    int horzSizeMm = 0; // physical size of the surface
    int vertSizeMm = 0;
    int horzRes = 0; // pixels across the surface
    int vertRes = 0;
    int bitsPixel = 0;
    int planes = 0;
    int numColors = 0; // -1 above 256 colours
    int logPixelsX = 0;
    int logPixelsY = 0;
};

// Pen styles, the order of the pen dialogs.
enum : int {
    PEN_SOLID = 0,
    PEN_DASH = 1,
    PEN_DOT = 2,
    PEN_DASHDOT = 3,
    PEN_DASHDOTDOT = 4,
    PEN_INVISIBLE = 5,
};

// DrawText placement; text is always drawn on a transparent background.
enum : unsigned {
    TEXT_LEFT = 0,
    TEXT_CENTER = 1,
    TEXT_RIGHT = 2,
    TEXT_WORDBREAK = 4, // wrap at blanks inside the box; otherwise a single line
};

struct CanvasFont {
    const char* face = "";
    int pixelHeight = 0; // em height in device pixels
    int weight = 0;      // 0 the default, 400 normal, 700 bold
    int italic = 0;
    int underline = 0;
    int strikeOut = 0;
};

struct PlotCanvas {
    void* context = nullptr;
    // 0 when the surface can't be had.
    int (*GetCaps)(void* context, CanvasCaps* caps) = nullptr;
    void (*FillRect)(void* context, const CanvasRect& rect, CanvasColor color) = nullptr;
    // Replaces the pen of every line, outline and symbol. A width of 0 is the thinnest line.
    void (*SetPen)(void* context, int style, int width, CanvasColor color) = nullptr;
    void (*SetFont)(void* context, const CanvasFont& font) = nullptr;
    void (*SetTextColor)(void* context, CanvasColor color) = nullptr;
    // Advance of one character of the current font.
    int (*CharWidth)(void* context, char c) = nullptr;
    // text is single-byte Windows-1252.
    void (*DrawText)(void* context, const char* text, const CanvasRect& box,
                     unsigned flags) = nullptr;
    void (*MoveTo)(void* context, int x, int y) = nullptr;
    // From the current point to (x, y), which becomes the current point.
    void (*LineTo)(void* context, int x, int y) = nullptr;
    void (*GetCurrentPosition)(void* context, CanvasPoint* point) = nullptr;
    // Connected segments through all points; the current point is left alone.
    void (*Polyline)(void* context, const CanvasPoint* points, unsigned count) = nullptr;
    // Outline of the ellipse inside the box, not filled.
    void (*Ellipse)(void* context, const CanvasRect& box) = nullptr;
    void (*SetPixel)(void* context, int x, int y, CanvasColor color) = nullptr;
    void (*SetClipRect)(void* context, const CanvasRect& rect) = nullptr;
    void (*RemoveClip)(void* context) = nullptr;
};

constexpr CanvasColor CANVAS_BLACK = 0x000000;
constexpr CanvasColor CANVAS_WHITE = 0xFFFFFF;
