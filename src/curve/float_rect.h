// A rectangle in data coordinates, as the selection gives it: corners in any order.
#pragma once
#include "curve/point.h"

struct FloatRect {
    float x1 = 0.0f;
    float x2 = 0.0f;
    float y1 = 0.0f;
    float y2 = 0.0f;
};

// Puts the corners in order (x1 <= x2, y1 <= y2) in the caller's own rectangle.
void NormalizeRect(FloatRect& r);
// Edges belong to the rectangle. r must be normalised.
inline bool IsInRect(const FloatRect& r, const Point& p) {
    return r.x1 <= p.x && p.x <= r.x2 && r.y1 <= p.y && p.y <= r.y2;
}
