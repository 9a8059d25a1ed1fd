// A named, growable array of points: the unit of all measured and computed data.
#pragma once
#include "curve/point.h"

#include <climits>
#include <cstddef>
#include <cstdint>
#include <type_traits>

// Results that carry a count or an index use this value for a shortage of memory or an
// argument that failed its check.
constexpr std::int64_t kCurveFailure = -1;

// The record holds no pointer to itself, so families move it bytewise between arrays
// (ExchangeObjects) instead of copying its points.
class Curve {
  public:
    std::uint32_t count = 0;    // points in use
    std::uint32_t tag = 0;      // kept through assignment; not interpreted here
    char name[128] = {};        // also the curve's comment in the management dialog
    std::uint32_t capacity = 0; // points allocated
    Point* points = nullptr;    // null exactly when capacity is 0
    std::int16_t marked = 0;    // selected for the commands on marked curves

    Curve() = default;
    Curve(const Curve& other) { *this = other; }
    Curve& operator=(const Curve& other);
    ~Curve() { delete[] points; }

    // Storage. Capacity is always exact: each call reallocates. Without memory the curve stays
    // as it was and the result is kCurveFailure.
    // Sets capacity to n, keeping the first points (count is cut to n). Returns count.
    std::int64_t Reserve(std::uint32_t n);
    // Reserve(n), then count = n; new points are (0, 0). Returns n.
    std::int64_t Resize(std::uint32_t n);
    // Grows by a fixed 8 points when full. Returns the new count.
    std::int64_t AddPoint(float x, float y);
    // An index at or past count fails the check and gives a spare point, never foreign memory.
    Point& GetPoint(std::uint32_t i);
    const Point& GetPoint(std::uint32_t i) const;
    // Frees the points and returns every field, name, tag and mark included, to its first state.
    void Clear();

    // 1 when the text fit, 0 when it was cut to 127 characters.
    int SetName(const char* text);
    int AppendToName(const char* text);
    const char* GetName() const { return name; }

    void Mark() { marked = 1; }
    void Unmark() { marked = 0; }
    bool IsMarked() const { return marked != 0; }

    // Extremes of the whole curve. first is only checked (first >= count fails) and last is
    // ignored: the scan always covers every point. An empty curve gives false and leaves out
    // alone.
    bool MaxX(float& out, std::uint32_t first = 0, std::uint32_t last = UINT_MAX) const;
    bool MaxY(float& out, std::uint32_t first = 0, std::uint32_t last = UINT_MAX) const;
    bool MinX(float& out, std::uint32_t first = 0, std::uint32_t last = UINT_MAX) const;
    bool MinY(float& out, std::uint32_t first = 0, std::uint32_t last = UINT_MAX) const;

    // First derivative. Points with bitwise-equal x are first merged into their mean; with
    // fewer than 2 merged points the curve is cleared, name and mark included. Returns the new
    // count, or kCurveFailure when the shorter array could not be had (the result is in place).
    std::int64_t DifferentiateX();
    // The same numbers, x first: the family labels the two differently.
    std::int64_t DifferentiateY();
    // Cumulative trapezoid from the first point, in place; an empty curve stays as it is.
    void Integrate();

  private:
    std::int64_t ShrinkTo(std::uint32_t n);
    std::uint32_t MergeEqualX();
};

static_assert(sizeof(Curve) % 2 == 0, "curve records are exchanged in 16-bit words");
static_assert(std::is_standard_layout_v<Curve>, "curve records are moved bytewise");

enum Coordinate { CoordinateX = 0, CoordinateY = 1 };
