#include "ui/plot_curves.h"

#include "curve/curve_family.h"
#include "curve/curve_style.h"
#include "ui/plot_path.h"
#include "ui/plot_render.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <vector>

namespace {

// Pixels further out than this are cut to the box before they become integers; nearer ones go
// to the canvas as they are and its clip cuts them.
constexpr double kFarPixel = 1 << 20;
constexpr double kClipMargin = 2.0;

struct PixelD {
    double x;
    double y;
};

// Only a non-finite point can reach the limits; it must not make the conversion undefined.
int Truncate(double v) {
    if (!(v > -kFarPixel * 4)) return v != v ? 0 : static_cast<int>(-kFarPixel * 4);
    if (v > kFarPixel * 4) return static_cast<int>(kFarPixel * 4);
    return static_cast<int>(v);
}

// Liang-Barsky against the box grown by a margin. False when nothing of the segment is left.
bool ClipSegment(PixelD& a, PixelD& b, const PlotBox& box) {
    double xMin = box.left - kClipMargin;
    double xMax = box.left + box.width + kClipMargin;
    double yMin = box.bottom - box.height - kClipMargin;
    double yMax = box.bottom + kClipMargin;
    double dx = b.x - a.x;
    double dy = b.y - a.y;
    double t0 = 0.0;
    double t1 = 1.0;
    const double p[4] = {-dx, dx, -dy, dy};
    const double q[4] = {a.x - xMin, xMax - a.x, a.y - yMin, yMax - a.y};
    for (int k = 0; k < 4; ++k) {
        if (p[k] == 0.0) {
            if (q[k] < 0.0) return false;
            continue;
        }
        double r = q[k] / p[k];
        if (p[k] < 0.0)
            t0 = std::max(t0, r);
        else
            t1 = std::min(t1, r);
        if (t0 > t1) return false;
    }
    PixelD start{a.x + t0 * dx, a.y + t0 * dy};
    PixelD end{a.x + t1 * dx, a.y + t1 * dy};
    a = start;
    b = end;
    return true;
}

bool Far(const PixelD& p) {
    return !(std::fabs(p.x) < kFarPixel && std::fabs(p.y) < kFarPixel);
}

void Segment(PlotPath& path, PixelD a, PixelD b, const PlotBox& box) {
    if (std::isnan(a.x) || std::isnan(a.y) || std::isnan(b.x) || std::isnan(b.y)) return;
    if (Far(a) || Far(b)) {
        if (!ClipSegment(a, b, box)) return;
    }
    path.MoveTo(Truncate(a.x), Truncate(a.y));
    path.LineTo(Truncate(b.x), Truncate(b.y));
}

// Symbols already drawn in this curve: one more at the same pixel changes nothing.
class SymbolMask {
  public:
    SymbolMask(const PlotBox& box)
        : left_(box.left), top_(box.bottom - box.height), columns_(box.width + 1),
          bits_((static_cast<std::size_t>(box.width + 1) * (box.height + 1) + 63) / 64) {}
    void Clear() { std::fill(bits_.begin(), bits_.end(), 0); }
    // True the first time (x, y) is asked for; points inside the box only.
    bool First(int x, int y) {
        std::size_t i = static_cast<std::size_t>(y - top_) * columns_ + (x - left_);
        std::uint64_t bit = std::uint64_t(1) << (i % 64);
        if (i / 64 >= bits_.size() || (bits_[i / 64] & bit)) return false;
        bits_[i / 64] |= bit;
        return true;
    }

  private:
    int left_;
    int top_;
    std::size_t columns_;
    std::vector<std::uint64_t> bits_;
};

} // namespace

void DrawPlotCurves(const PlotCanvas& dc, const CanvasCaps& caps, const PlotBox& box,
                    const CurveFamily& family, bool blackOnly) {
    // The inside test compares in the precision of the points.
    float xMin = static_cast<float>(box.xMin), xMax = static_cast<float>(box.xMax);
    float yMin = static_cast<float>(box.yMin), yMax = static_cast<float>(box.yMax);
    SymbolMask mask(box);
    std::vector<CanvasPoint> symbols;
    for (std::uint32_t c = 0; c < family.count; ++c) {
        const CurveStyle& style = gCurveStyles[c % kCurveStyleCount];
        const Curve& curve = family.GetCurve(c);
        bool noLine = style.lineStyle == PEN_INVISIBLE;
        CanvasColor color = blackOnly ? CANVAS_BLACK : style.color;
        int width = 1;
        if (caps.horzSizeMm > 0)
            width = std::max(1, static_cast<int>(static_cast<long long>(style.lineWidth) *
                                                 caps.horzRes / (10LL * caps.horzSizeMm)));
        int halfSize = caps.horzSizeMm > 0
                           ? static_cast<int>(static_cast<long long>(style.symbolSize) *
                                              caps.horzRes / (10LL * caps.horzSizeMm))
                           : 0;
        bool withSymbols = halfSize != 0 && style.symbol != SYMBOL_NONE;
        if (withSymbols) mask.Clear();
        symbols.clear();

        // The lines and symbols of one curve share its colour, so lines go first and symbols
        // after without changing the picture.
        dc.SetPen(dc.context, noLine ? PEN_INVISIBLE : style.lineStyle, width, color);
        {
            PlotPath path(dc, style.lineStyle == PEN_SOLID && width == 1);
            bool previousInside = false;
            PixelD previous{0, 0};
            for (std::uint32_t i = 0; i < curve.count; ++i) {
                const Point& p = curve.points[i];
                PixelD pixel{box.left + (p.x - box.xMin) / box.xPerPixel,
                             box.bottom - (p.y - box.yMin) / box.yPerPixel};
                bool inside = xMin < p.x && p.x < xMax && yMin < p.y && p.y < yMax;
                if (inside && withSymbols) {
                    int x = Truncate(pixel.x);
                    int y = Truncate(pixel.y);
                    if (mask.First(x, y)) symbols.push_back(CanvasPoint{x, y});
                }
                if (i > 0 && !noLine && (inside || previousInside))
                    Segment(path, previous, pixel, box);
                previousInside = inside;
                previous = pixel;
            }
        }
        if (!symbols.empty()) {
            dc.SetPen(dc.context, PEN_SOLID, 0, color);
            for (const CanvasPoint& s : symbols)
                DrawSymbol(dc, s.x, s.y, style.symbol, halfSize, color);
        }
    }
}
