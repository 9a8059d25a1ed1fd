#pragma once
#include "curve/curve.h"
#include "curve/curve_memory.h"

#include <initializer_list>
#include <sstream>
#include <string>

// Lets n more curve allocations succeed, then makes them fail, until the scope ends.
struct AllocationBudget {
    explicit AllocationBudget(int n) { gCurveAllocationBudget = n; }
    ~AllocationBudget() { gCurveAllocationBudget = -1; }
};

inline Curve MakeCurve(std::initializer_list<Point> points, const char* name = "") {
    Curve c;
    for (const Point& p : points)
        c.AddPoint(p.x, p.y);
    c.SetName(name);
    return c;
}

// Points (i, 10 i) for i from 0 to n - 1.
inline Curve Ramp(unsigned n, const char* name = "") {
    Curve c;
    c.Resize(n);
    for (unsigned i = 0; i < n; ++i)
        c.GetPoint(i) = Point(float(i), float(10 * i));
    c.SetName(name);
    return c;
}

// The points in use as "x,y x,y ...", to compare a whole curve at once.
inline std::string Pts(const Curve& c) {
    std::ostringstream s;
    for (unsigned i = 0; i < c.count; ++i)
        s << (i ? " " : "") << c.points[i].x << "," << c.points[i].y;
    return s.str();
}
