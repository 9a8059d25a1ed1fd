// A canvas that records every call, for checking the plot's geometry without a window system.
#pragma once
#include "ui/plot_canvas.h"

#include <string>
#include <vector>

struct CanvasCall {
    std::string op;
    std::vector<int> args; // coordinates, pen style/width/colour, flags, in call order
    std::string text;      // DrawText's text, SetFont's face
};

struct RecordingCanvas {
    CanvasCaps caps;
    int charWidth = 7;
    CanvasPoint current;
    std::vector<CanvasCall> calls;

    RecordingCanvas();
    PlotCanvas Table();
    // The calls named op, in order.
    std::vector<CanvasCall> Calls(const std::string& op) const;
    // The texts of DrawText, in order.
    std::vector<std::string> Texts() const;
};
