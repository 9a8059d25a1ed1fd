// A measured or computed point: two 32-bit floats, computed in double elsewhere and stored here.
#pragma once

struct Point {
    float x = 0.0f;
    float y = 0.0f;

    Point() = default;
    Point(float xValue, float yValue) : x(xValue), y(yValue) {}

    // Componentwise: x by x, y by y. Returns the result by value, not a reference.
    Point operator*=(const Point& p) {
        x *= p.x;
        y *= p.y;
        return *this;
    }
};

static_assert(sizeof(Point) == 8, "points are stored contiguously, 8 bytes each");
