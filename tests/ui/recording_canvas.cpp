#include "recording_canvas.h"

namespace {

RecordingCanvas& R(void* context) {
    return *static_cast<RecordingCanvas*>(context);
}

void Add(void* context, const char* op, std::vector<int> args, std::string text = "") {
    R(context).calls.push_back(CanvasCall{op, std::move(args), std::move(text)});
}

std::vector<int> RectArgs(const CanvasRect& r) {
    return {r.left, r.top, r.right, r.bottom};
}

} // namespace

RecordingCanvas::RecordingCanvas() {
    // 10 pixels a millimetre both ways, 72 pixels an inch for text: a 9 point font is 9 pixels.
    caps.horzSizeMm = 100;
    caps.vertSizeMm = 60;
    caps.horzRes = 1000;
    caps.vertRes = 600;
    caps.bitsPixel = 32;
    caps.planes = 1;
    caps.numColors = -1;
    caps.logPixelsX = 72;
    caps.logPixelsY = 72;
}

PlotCanvas RecordingCanvas::Table() {
    PlotCanvas dc;
    dc.context = this;
    dc.GetCaps = [](void* c, CanvasCaps* caps) {
        *caps = R(c).caps;
        return 1;
    };
    dc.FillRect = [](void* c, const CanvasRect& r, CanvasColor color) {
        auto args = RectArgs(r);
        args.push_back(static_cast<int>(color));
        Add(c, "FillRect", args);
    };
    dc.SetPen = [](void* c, int style, int width, CanvasColor color) {
        Add(c, "SetPen", {style, width, static_cast<int>(color)});
    };
    dc.SetFont = [](void* c, const CanvasFont& f) {
        Add(c, "SetFont", {f.pixelHeight, f.weight, f.italic}, f.face);
    };
    dc.SetTextColor = [](void* c, CanvasColor color) {
        Add(c, "SetTextColor", {static_cast<int>(color)});
    };
    dc.CharWidth = [](void* c, char) { return R(c).charWidth; };
    dc.DrawText = [](void* c, const char* text, const CanvasRect& r, unsigned flags) {
        auto args = RectArgs(r);
        args.push_back(static_cast<int>(flags));
        Add(c, "DrawText", args, text);
    };
    dc.MoveTo = [](void* c, int x, int y) {
        R(c).current = CanvasPoint{x, y};
        Add(c, "MoveTo", {x, y});
    };
    dc.LineTo = [](void* c, int x, int y) {
        R(c).current = CanvasPoint{x, y};
        Add(c, "LineTo", {x, y});
    };
    dc.GetCurrentPosition = [](void* c, CanvasPoint* p) { *p = R(c).current; };
    dc.Polyline = [](void* c, const CanvasPoint* points, unsigned count) {
        std::vector<int> args;
        for (unsigned i = 0; i < count; ++i) {
            args.push_back(points[i].x);
            args.push_back(points[i].y);
        }
        Add(c, "Polyline", args);
    };
    dc.Ellipse = [](void* c, const CanvasRect& r) { Add(c, "Ellipse", RectArgs(r)); };
    dc.SetPixel = [](void* c, int x, int y, CanvasColor color) {
        Add(c, "SetPixel", {x, y, static_cast<int>(color)});
    };
    dc.SetClipRect = [](void* c, const CanvasRect& r) { Add(c, "SetClipRect", RectArgs(r)); };
    dc.RemoveClip = [](void* c) { Add(c, "RemoveClip", {}); };
    return dc;
}

std::vector<CanvasCall> RecordingCanvas::Calls(const std::string& op) const {
    std::vector<CanvasCall> out;
    for (const CanvasCall& call : calls)
        if (call.op == op) out.push_back(call);
    return out;
}

std::vector<std::string> RecordingCanvas::Texts() const {
    std::vector<std::string> out;
    for (const CanvasCall& call : calls)
        if (call.op == "DrawText") out.push_back(call.text);
    return out;
}
