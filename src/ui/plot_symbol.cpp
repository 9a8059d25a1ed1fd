#include "support/debug_check.h"
#include "ui/plot_render.h"

void DrawSymbol(const PlotCanvas& dc, int x, int y, int symbolNumber, int halfSize,
                CanvasColor color) {
    if (halfSize == 0 || symbolNumber == SYMBOL_NONE) return;
    CanvasPoint kept;
    dc.GetCurrentPosition(dc.context, &kept);
    // The factors give every shape about the area of the square.
    switch (symbolNumber) {
    case SYMBOL_CIRCLE: {
        int r = halfSize * 1128 / 1000;
        dc.Ellipse(dc.context, CanvasRect{x - r, y - r, x + r, y + r});
        break;
    }
    case SYMBOL_SQUARE: {
        int s = halfSize;
        CanvasPoint p[5] = {
            {x - s, y - s}, {x + s, y - s}, {x + s, y + s}, {x - s, y + s}, {x - s, y - s}};
        dc.Polyline(dc.context, p, 5);
        break;
    }
    case SYMBOL_DIAMOND: {
        int d = halfSize * 7071 / 5000;
        CanvasPoint p[5] = {{x, y - d}, {x + d, y}, {x, y + d}, {x - d, y}, {x, y - d}};
        dc.Polyline(dc.context, p, 5);
        break;
    }
    case SYMBOL_TRIANGLE_UP:
    case SYMBOL_TRIANGLE_DOWN: {
        int h = halfSize * 8774 / 5000;
        int w = halfSize * 7598 / 5000;
        int sign = symbolNumber == SYMBOL_TRIANGLE_UP ? 1 : -1;
        CanvasPoint p[4] = {{x, y - sign * h},
                            {x + w, y + sign * (h / 2)},
                            {x - w, y + sign * (h / 2)},
                            {x, y - sign * h}};
        dc.Polyline(dc.context, p, 4);
        break;
    }
    case SYMBOL_PIXEL:
        dc.SetPixel(dc.context, x, y, color);
        break;
    default:
        VASSERT_MSG(false, "DrawSymbol() -- unknown symbol type");
        break;
    }
    dc.MoveTo(dc.context, kept.x, kept.y);
}
