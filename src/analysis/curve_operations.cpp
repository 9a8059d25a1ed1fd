#include "analysis/curve_operations.h"

#include "curve/curve_family.h"
#include "support/message_box.h"

#include <algorithm>
#include <cfloat>
#include <cstdio>
#include <cmath>
#include <vector>

void SmoothCurve(Curve& curve, unsigned p) {
    const std::uint32_t n = curve.count;
    if (n == 0) return;
    const Point* pt = curve.points;
    std::vector<float> t(n);
    for (std::uint32_t i = 0; i < n; ++i) {
        float sum = pt[i].y;
        for (unsigned j = 1; j <= p; ++j) {
            sum += j >= i ? pt[0].y : pt[i - j].y;
            sum += (i < n - j && n > j) ? pt[i + j].y : pt[n - 1].y;
        }
        t[i] = sum;
    }
    for (std::uint32_t i = 0; i < n; ++i)
        curve.points[i].y = t[i] / static_cast<float>(2 * p + 1);
}

unsigned FilterSpikes(Curve& curve, float a) {
    if (curve.count < 3) return 0;
    Point* pt = curve.points;
    unsigned changed = 0;
    float yp = pt[0].y;
    for (std::uint32_t i = 1; i + 1 < curve.count; ++i) {
        const float yc = pt[i].y, yn = pt[i + 1].y;
        if (std::fabs(yc - yn) > a && std::fabs(yc - yp) > a) {
            const float d = pt[i + 1].x - pt[i - 1].x;
            if (d == 0)
                pt[i].y = (yn - yp) / 2;
            else
                pt[i].y = ((yn - yp) * pt[i].x + yn * pt[i - 1].x - yp * pt[i + 1].x) / d;
            ++changed;
        }
        yp = yc;
    }
    return changed;
}

std::uint32_t SkipExtraPoints(Curve& curve, float criticalAngle) {
    const std::uint32_t before = curve.count;
    if (before == 0) return 0;
    float xMin, xMax, yMin, yMax;
    curve.MinX(xMin);
    curve.MaxX(xMax);
    curve.MinY(yMin);
    curve.MaxY(yMax);
    const double dx = xMax - xMin, dy = yMax - yMin;
    // A curve flat in x or in y has no angles to measure: it stays as it is.
    if (dx == 0 || dy == 0) return before;
    const double limit = std::cos(criticalAngle * 3.1415926 / 180);
    for (bool dropped = true; dropped && curve.count > 2;) {
        const Point* p = curve.points;
        const std::uint32_t n = curve.count;
        std::vector<Point> kept;
        kept.reserve(n);
        kept.push_back(p[0]);
        for (std::uint32_t i = 1; i + 1 < n; ++i) {
            const double ax = p[i - 1].x / dx, ay = p[i - 1].y / dy;
            const double cx = p[i].x / dx, cy = p[i].y / dy;
            const double ex = p[i + 1].x / dx, ey = p[i + 1].y / dy;
            if ((cx == ax && cy == ay) || (cx == ex && cy == ey)) continue;
            const double l2 = (ax - ex) * (ax - ex) + (ay - ey) * (ay - ey);
            const double a2 = (ax - cx) * (ax - cx) + (ay - cy) * (ay - cy);
            const double b2 = (ex - cx) * (ex - cx) + (ey - cy) * (ey - cy);
            const float v =
                static_cast<float>((l2 - a2 - b2) / (2 * std::sqrt(a2) * std::sqrt(b2)));
            if (v > limit) ++i; // point i goes, the next one is kept
            if (i + 1 < n) kept.push_back(p[i]);
        }
        kept.push_back(p[n - 1]);
        dropped = kept.size() < n;
        curve.Resize(static_cast<std::uint32_t>(kept.size()));
        for (std::uint32_t k = 0; k < kept.size(); ++k)
            curve.points[k] = kept[k];
    }
    return before;
}

void ShiftCurve(Curve& curve, double dx, double dy) {
    for (std::uint32_t i = 0; i < curve.count; ++i) {
        curve.points[i].x = static_cast<float>(curve.points[i].x + dx);
        curve.points[i].y = static_cast<float>(curve.points[i].y + dy);
    }
}

void ScaleCurve(Curve& curve, double xm, double xd, double ym, double yd) {
    for (std::uint32_t i = 0; i < curve.count; ++i) {
        curve.points[i].x = static_cast<float>(curve.points[i].x * xm / xd);
        curve.points[i].y = static_cast<float>(curve.points[i].y * ym / yd);
    }
}

void AbsCurve(Curve& curve, bool x, bool y) {
    for (std::uint32_t i = 0; i < curve.count; ++i) {
        if (x) curve.points[i].x = std::fabs(curve.points[i].x);
        if (y) curve.points[i].y = std::fabs(curve.points[i].y);
    }
}

void ReverseCurve(Curve& curve) {
    for (std::uint32_t i = 0, j = curve.count; i + 1 < j; ++i, --j)
        std::swap(curve.points[i], curve.points[j - 1]);
}

const char* YAsNewXRefusal(const CurveFamily& family) {
    if (family.count < 2) return "Not applicable to 0 or 1 curve";
    const Curve& first = family.GetCurve(0);
    for (std::uint32_t c = 1; c < family.count; ++c)
        if (family.GetCurve(c).count != first.count)
            return "Curves have a different number of points";
    for (std::uint32_t c = 1; c < family.count; ++c)
        for (std::uint32_t k = 0; k < first.count; ++k)
            if (family.GetCurve(c).points[k].x != first.points[k].x)
                return "Curves have a different X coords";
    return nullptr;
}

void YAsNewX(CurveFamily& family, std::uint32_t source) {
    const Curve& s = family.GetCurve(source);
    for (std::uint32_t c = 0; c < family.count; ++c) {
        if (c == source) continue;
        Curve& curve = family.GetCurve(c);
        for (std::uint32_t k = 0; k < curve.count && k < s.count; ++k)
            curve.points[k].x = s.points[k].y;
    }
    char units[sizeof family.yUnits];
    std::snprintf(units, sizeof units, "%s", family.yUnits);
    family.SetXUnits(units);
    family.DeleteCurves(source, source);
}

namespace {

bool Relative(CurveFamily& family, bool toMax) {
    for (std::uint32_t c = 0; c < family.count; ++c) {
        Curve& curve = family.GetCurve(c);
        float ymin = FLT_MAX, ymax = FLT_MIN;
        for (std::uint32_t k = 0; k < curve.count; ++k) {
            ymin = std::min(ymin, curve.points[k].y);
            ymax = std::max(ymax, curve.points[k].y);
        }
        const float divisor = toMax ? ymax : ymin;
        if (divisor == 0) {
            MessageBoxBeep(nullptr,
                           toMax ? "Can not calculate DeltaY/Ymin\nsince Ymax=0"
                                 : "Can not calculate DeltaY/Ymin\nsince Ymin=0",
                           toMax ? "Error in DeltaY/Ymax" : "Error in DeltaY/Ymin",
                           MB_OK | MB_ICONSTOP);
            return false;
        }
        for (std::uint32_t k = 0; k < curve.count; ++k)
            curve.points[k].y = (curve.points[k].y - ymin) / divisor * 100;
    }
    family.SetYUnits("%");
    return true;
}

} // namespace

bool RelativeToMin(CurveFamily& family) {
    return Relative(family, false);
}

bool RelativeToMax(CurveFamily& family) {
    return Relative(family, true);
}
