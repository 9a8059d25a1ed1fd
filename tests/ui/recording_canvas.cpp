#include "recording_canvas.h"

namespace {

RecordingCanvas& R(void* context) {
    return *static_cast<RecordingCanvas*>(context);
}

void Add(void* context, const char* op, std::vector<int> args, std::string text = "") {
    R(context).calls.push_back(CanvasCall{op, std::move(args), std::move(text)});
}

std::vector<int> Args(const CanvasRect& r, std::vector<int> more = {}) {
    more.insert(more.begin(), {r.left, r.top, r.right, r.bottom});
    return more;
}

int Int(CanvasColor color) {
    return static_cast<int>(color);
}

} // namespace

// 10 pixels a millimetre both ways, 72 pixels an inch for text: a 9 point font is 9 pixels.
RecordingCanvas::RecordingCanvas() : caps{100, 60, 1000, 600, 32, 1, -1, 72, 72} {}

PlotCanvas RecordingCanvas::Table() {
    PlotCanvas dc;
    dc.context = this;
    dc.GetCaps = [](void* c, CanvasCaps* caps) { return *caps = R(c).caps, 1; };
    dc.FillRect = [](void* c, const CanvasRect& r, CanvasColor k) {
        Add(c, "FillRect", Args(r, {Int(k)}));
    };
    dc.SetPen = [](void* c, int style, int w, CanvasColor k) {
        Add(c, "SetPen", {style, w, Int(k)});
    };
    dc.SetFont = [](void* c, const CanvasFont& f) {
        Add(c, "SetFont", {f.pixelHeight, f.weight, f.italic}, f.face);
    };
    dc.SetTextColor = [](void* c, CanvasColor k) { Add(c, "SetTextColor", {Int(k)}); };
    dc.CharWidth = [](void* c, char) { return R(c).charWidth; };
    dc.DrawText = [](void* c, const char* text, const CanvasRect& r, unsigned flags) {
        Add(c, "DrawText", Args(r, {static_cast<int>(flags)}), text);
    };
    dc.MoveTo = [](void* c, int x, int y) { R(c).current = {x, y}, Add(c, "MoveTo", {x, y}); };
    dc.LineTo = [](void* c, int x, int y) { R(c).current = {x, y}, Add(c, "LineTo", {x, y}); };
    dc.GetCurrentPosition = [](void* c, CanvasPoint* p) { *p = R(c).current; };
    dc.Polyline = [](void* c, const CanvasPoint* points, unsigned count) {
        std::vector<int> args;
        for (unsigned i = 0; i < count; ++i)
            args.insert(args.end(), {points[i].x, points[i].y});
        Add(c, "Polyline", args);
    };
    dc.Ellipse = [](void* c, const CanvasRect& r) { Add(c, "Ellipse", Args(r)); };
    dc.SetPixel = [](void* c, int x, int y, CanvasColor k) { Add(c, "SetPixel", {x, y, Int(k)}); };
    dc.SetClipRect = [](void* c, const CanvasRect& r) { Add(c, "SetClipRect", Args(r)); };
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
    for (const CanvasCall& call : Calls("DrawText"))
        out.push_back(call.text);
    return out;
}
