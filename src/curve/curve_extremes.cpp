#include "curve/curve.h"

#include "support/debug_check.h"

#include <cfloat>

namespace {

float Coord(const Point& p, Coordinate c) {
    return c == CoordinateX ? p.x : p.y;
}

// The range is checked but deliberately not applied: callers rely on the whole-curve extreme.
template <class Better>
bool Extreme(const Curve& curve, Coordinate c, float start, Better better, float& out,
             std::uint32_t first) {
    if (curve.count == 0) return false;
    VASSERT(first < curve.count);
    float value = start;
    for (std::uint32_t i = 0; i < curve.count; ++i) {
        float v = Coord(curve.points[i], c);
        if (better(v, value)) value = v;
    }
    out = value;
    return true;
}

bool Greater(float a, float b) {
    return a > b;
}
bool Less(float a, float b) {
    return a < b;
}

} // namespace

bool Curve::MaxX(float& out, std::uint32_t first, std::uint32_t) const {
    return Extreme(*this, CoordinateX, -FLT_MAX, Greater, out, first);
}

bool Curve::MaxY(float& out, std::uint32_t first, std::uint32_t) const {
    return Extreme(*this, CoordinateY, -FLT_MAX, Greater, out, first);
}

bool Curve::MinX(float& out, std::uint32_t first, std::uint32_t) const {
    return Extreme(*this, CoordinateX, FLT_MAX, Less, out, first);
}

bool Curve::MinY(float& out, std::uint32_t first, std::uint32_t) const {
    return Extreme(*this, CoordinateY, FLT_MAX, Less, out, first);
}
