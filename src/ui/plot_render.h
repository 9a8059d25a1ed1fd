// DrawPlot: a curve family with frame, ticks, grid, numbers and unit labels on any canvas, on
// screen or on a printer page. It rounds the displayed range itself and leaves the
// transformation it used in the view.
#pragma once
#include "ui/plot_canvas.h"
#include "ui/plot_options.h"
#include "ui/view_scale.h"

class CurveFamily;

enum : int {
    PLOT_DRAWN = 0,
    PLOT_NOTHING = -1, // no curves, or no bound of the data
    PLOT_NO_AREA = -2, // the area has no width or no height
};

enum : int {
    PLOT_MAIN_WINDOW = 0,
    PLOT_DERIVATIVE_WINDOW = 1, // always fits its range to the data
};

// A window to paint: its kind and its client area less the status bar.
struct PlotWindow {
    int kind = PLOT_MAIN_WINDOW;
    CanvasRect area;
};

// What printing adds to a page: where the plot goes on it, and the text pages after it. Both
// may be null (the whole page, no text).
struct PlotPrintHooks {
    void (*PlacePlot)(const PlotCanvas& dc, CanvasRect& area) = nullptr;
    void (*PrintTextPages)(const PlotCanvas& dc, const CurveFamily& family) = nullptr;
};
extern PlotPrintHooks gPlotPrintHooks;

// Keeps colours on a monochrome device (the page setup's EnforceColor).
extern int fEnforceColor;

// Symbol numbers of the curve styles.
enum : int {
    SYMBOL_NONE = 0,
    SYMBOL_CIRCLE = 1,
    SYMBOL_SQUARE = 2,
    SYMBOL_DIAMOND = 3,
    SYMBOL_TRIANGLE_UP = 4,
    SYMBOL_TRIANGLE_DOWN = 5,
    SYMBOL_PIXEL = 6,
};

// A null window is a printer page. PLOT_DRAWN, PLOT_NOTHING or PLOT_NO_AREA.
int DrawPlot(const PlotOptions& options, const PlotWindow* window, const PlotCanvas& dc,
             const CurveFamily& family, ViewScale& view);

// Rounds [low, high] outward to exactly divisions steps of 1, 2 or 5 times a power of ten.
void OptimizeRange(double& low, double& high, unsigned divisions);

// One symbol in the pen already selected; SYMBOL_PIXEL uses color. halfSize 0 draws nothing.
// The current point is kept.
void DrawSymbol(const PlotCanvas& dc, int x, int y, int symbolNumber, int halfSize,
                CanvasColor color);

// The hardware report, shown in the window when there is nothing to plot.
void DrawHardwareReport(const PlotCanvas& dc, const CanvasRect& area, const char* text);
