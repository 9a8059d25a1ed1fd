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

    // The tolerance hides the rounding of values that went through text or float arithmetic.
    static constexpr float kTolerance = 0.0001f;

    // False only when both coordinates agree within the tolerance.
    bool Differs(const Point& p) const;
    // False only when both coordinates differ by more than the tolerance.
    bool DiffersNotInBoth(const Point& p) const;
};

static_assert(sizeof(Point) == 8, "points are stored contiguously, 8 bytes each");
