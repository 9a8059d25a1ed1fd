#include "ui/plot_render.h"

#include "curve/curve_family.h"
#include "support/c_locale.h"
#include "support/physical_units.h"
#include "ui/plot_curves.h"

#include <cmath>
#include <cstdint>
#include <cstdlib>

PlotPrintHooks gPlotPrintHooks;
int fEnforceColor = 0;

namespace {

int AbsInt(int v) {
    return v < 0 ? -v : v;
}

// Tenths of a millimetre to pixels, keeping the sign.
int TenthsToPixels(int tenths, int res, int sizeMm) {
    if (sizeMm <= 0) return 0;
    return static_cast<int>(static_cast<long long>(tenths) * res / (10LL * sizeMm));
}

void Line(const PlotCanvas& dc, int x1, int y1, int x2, int y2) {
    dc.MoveTo(dc.context, x1, y1);
    dc.LineTo(dc.context, x2, y2);
}

// The divisor and prefix under which the larger bound reads best.
void AxisScale(float low, float high, double& divisor, const char*& prefix) {
    divisor = 1.0;
    prefix = "";
    double maxAbs = std::fabs(static_cast<double>(low));
    if (std::fabs(static_cast<double>(high)) > maxAbs)
        maxAbs = std::fabs(static_cast<double>(high));
    PrefixOf(maxAbs, divisor, prefix);
}

// The value at big division i; rounding noise near zero prints as 0.
double DivisionValue(double low, double high, unsigned i, unsigned grid) {
    double span = high - low;
    double value = span * i / grid + low;
    if (2 * std::fabs(value) < span / grid) value = 0.0;
    return value;
}

void DrawFrameAndTicks(const PlotCanvas& dc, const PlotOptions& o, const PlotBox& b, int bigTick,
                       int smallTick) {
    int right = b.left + b.width;
    int top = b.bottom - b.height;
    CanvasPoint frame[5] = {
        {b.left, b.bottom}, {right, b.bottom}, {right, top}, {b.left, top}, {b.left, b.bottom}};
    dc.Polyline(dc.context, frame, 5);

    unsigned n = o.gridX * o.smallTicksX;
    for (unsigned i = 1; i < n; ++i) {
        int x = b.left + static_cast<int>(i * std::uint64_t(b.width) / n);
        int length = i % o.smallTicksX == 0 ? bigTick : smallTick;
        Line(dc, x, b.bottom, x, b.bottom - length);
        Line(dc, x, top, x, top + length);
    }
    n = o.gridY * o.smallTicksY;
    for (unsigned i = 1; i < n; ++i) {
        int y = b.bottom - static_cast<int>(i * std::uint64_t(b.height) / n);
        int length = i % o.smallTicksY == 0 ? bigTick : smallTick;
        Line(dc, b.left, y, b.left + length, y);
        Line(dc, right, y, right - length, y);
    }
}

void DrawXNumbers(const PlotCanvas& dc, const PlotOptions& o, const PlotBox& b, int bigTick,
                  int fontH, const char* units) {
    double divisor;
    const char* prefix;
    AxisScale(b.xMin, b.xMax, divisor, prefix);
    int t = bigTick > 0 ? bigTick : 0;
    unsigned g = o.gridX;
    char text[64];
    for (unsigned i = 1; i <= g; ++i) {
        CanvasRect box;
        box.left = static_cast<int>(b.left + (i - 0.5) * b.width / g);
        box.right = static_cast<int>(b.left + (i + 0.5) * b.width / g);
        box.top = b.bottom + AbsInt(bigTick);
        box.bottom = box.top + fontH;
        if (i < g) {
            double value = DivisionValue(b.xMin, b.xMax, i, g);
            SnprintfC(text, sizeof text, "%-.8G", value / divisor);
            int x = b.left + static_cast<int>(i * std::uint64_t(b.width) / g);
            Line(dc, x, b.bottom - t, x, b.bottom - b.height + t);
        } else {
            SnprintfC(text, sizeof text, "(%s%s)", prefix, units);
        }
        dc.DrawText(dc.context, text, box, TEXT_CENTER);
    }
}

void DrawYNumbers(const PlotCanvas& dc, const PlotOptions& o, const PlotBox& b, int bigTick,
                  int fontH, const char* units) {
    double divisor;
    const char* prefix;
    AxisScale(b.yMin, b.yMax, divisor, prefix);
    int t = bigTick > 0 ? bigTick : 0;
    unsigned g = o.gridY;
    char text[64];
    for (unsigned i = 0; i <= g; ++i) {
        int y = b.bottom - static_cast<int>(i * std::uint64_t(b.height) / g);
        if (i > 0 && i < g) Line(dc, b.left + t, y, b.left + b.width - t, y);
        CanvasRect box{0, y - fontH / 2, b.left - AbsInt(bigTick), y + fontH / 2};
        if (i < g)
            SnprintfC(text, sizeof text, "%.8G", DivisionValue(b.yMin, b.yMax, i, g) / divisor);
        else
            SnprintfC(text, sizeof text, "(%s%s)", prefix, units);
        dc.DrawText(dc.context, text, box, TEXT_RIGHT);
    }
}

// The bounds to round: the view's when it is fixed, otherwise the data's.
bool TakeRange(const PlotWindow* window, const CurveFamily& family, const ViewScale& view,
               double& xMin, double& xMax, double& yMin, double& yMax) {
    bool fixed = !view.scaleAuto && (window == nullptr || window->kind == PLOT_MAIN_WINDOW);
    if (fixed) {
        xMin = view.xMin;
        xMax = view.xMax;
        yMin = view.yMin;
        yMax = view.yMax;
        return true;
    }
    float x0, x1, y0, y1;
    if (!family.MinX(x0) || !family.MaxX(x1) || !family.MinY(y0) || !family.MaxY(y1)) return false;
    xMin = x0;
    xMax = x1;
    yMin = y0;
    yMax = y1;
    return true;
}

} // namespace

int DrawPlot(const PlotOptions& options, const PlotWindow* window, const PlotCanvas& dc,
             const CurveFamily& family, ViewScale& view) {
    CanvasCaps caps;
    dc.GetCaps(dc.context, &caps);
    int depth = caps.bitsPixel * caps.planes;
    bool monochrome = depth == 1 && !fEnforceColor;
    int bigTick = TenthsToPixels(options.bigTickSize, caps.vertRes, caps.vertSizeMm);
    int smallTick = TenthsToPixels(options.smallTickSize, caps.vertRes, caps.vertSizeMm);

    CanvasRect area;
    if (window != nullptr) {
        area = window->area;
        dc.FillRect(dc.context, area, CANVAS_WHITE);
    } else {
        area = CanvasRect{0, 0, caps.horzRes, caps.vertRes};
    }
    if (family.count == 0) return PLOT_NOTHING;
    if (area.right <= area.left || area.bottom <= area.top) return PLOT_NO_AREA;
    if (window == nullptr && gPlotPrintHooks.PlacePlot != nullptr)
        gPlotPrintHooks.PlacePlot(dc, area);

    double xMin, xMax, yMin, yMax;
    if (!TakeRange(window, family, view, xMin, xMax, yMin, yMax)) return PLOT_NOTHING;
    OptimizeRange(xMin, xMax, options.gridX);
    OptimizeRange(yMin, yMax, options.gridY);
    view.xMin = static_cast<float>(xMin);
    view.xMax = static_cast<float>(xMax);
    view.yMin = static_cast<float>(yMin);
    view.yMax = static_cast<float>(yMax);

    options.captionFont.CreateFor(dc);
    int fontH = options.captionFont.Height(dc);
    dc.SetTextColor(dc.context, monochrome ? CANVAS_BLACK : options.captionFont.color);

    int charW = dc.CharWidth(dc.context, '0');
    int areaWidth = area.right - area.left;
    int areaHeight = area.bottom - area.top;
    PlotBox b;
    b.left = area.left + 6 * charW;
    b.bottom = area.bottom - (fontH + 2 * AbsInt(bigTick));
    b.width = areaWidth - 8 * charW;
    b.height = areaHeight - 2 * AbsInt(bigTick) - fontH - fontH / 2;
    b.xMin = xMin;
    b.xMax = xMax;
    b.yMin = yMin;
    b.yMax = yMax;
    // Too small for the numbers around it: no box to draw in.
    if (b.width < 1 || b.height < 1) return PLOT_NO_AREA;
    b.xPerPixel = (xMax - xMin) / b.width;
    b.yPerPixel = (yMax - yMin) / b.height;
    if (!(b.xPerPixel >= 1e-32)) b.xPerPixel = 1e-32;
    if (!(b.yPerPixel >= 1e-32)) b.yPerPixel = 1e-32;

    if (monochrome)
        options.axesPen.CreateFor(dc, CANVAS_BLACK);
    else
        options.axesPen.CreateFor(dc);
    DrawFrameAndTicks(dc, options, b, bigTick, smallTick);

    if (monochrome)
        options.gridPen.CreateFor(dc, CANVAS_BLACK);
    else
        options.gridPen.CreateFor(dc);
    DrawXNumbers(dc, options, b, bigTick, fontH, family.xUnits);
    DrawYNumbers(dc, options, b, bigTick, fontH, family.yUnits);

    dc.SetClipRect(dc.context, CanvasRect{b.left, b.bottom - b.height, b.left + b.width, b.bottom});
    DrawPlotCurves(dc, caps, b, family, caps.numColors == 2 && !fEnforceColor);
    dc.RemoveClip(dc.context);
    if (window == nullptr && gPlotPrintHooks.PrintTextPages != nullptr)
        gPlotPrintHooks.PrintTextPages(dc, family);

    view.plotLeft = b.left;
    view.plotBottom = b.bottom;
    view.plotWidth = b.width;
    view.plotHeight = b.height;
    view.xPerPixel = b.xPerPixel;
    view.yPerPixel = b.yPerPixel;
    return PLOT_DRAWN;
}

void DrawHardwareReport(const PlotCanvas& dc, const CanvasRect& area, const char* text) {
    CanvasFont font;
    font.face = "MS Sans Serif";
    font.pixelHeight = 8;
    font.weight = 100;
    dc.SetFont(dc.context, font);
    dc.SetTextColor(dc.context, 0xFF0000);
    dc.DrawText(dc.context, text, area, TEXT_LEFT | TEXT_WORDBREAK);
}
