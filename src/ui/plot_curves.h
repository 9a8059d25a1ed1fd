// The curve pass of DrawPlot, apart from the frame and the texts.
#pragma once
#include "ui/plot_canvas.h"

class CurveFamily;

// The plot box and the range of one paint.
struct PlotBox {
    int left = 0;
    int bottom = 0;
    int width = 0;
    int height = 0;
    double xMin = 0, xMax = 0, yMin = 0, yMax = 0; // the rounded range
    double xPerPixel = 1e-32;
    double yPerPixel = 1e-32;
};

// Every curve in family order with its style slot (curve c takes slot c mod 14); blackOnly
// replaces the colours on a two-colour device.
void DrawPlotCurves(const PlotCanvas& dc, const CanvasCaps& caps, const PlotBox& box,
                    const CurveFamily& family, bool blackOnly);
