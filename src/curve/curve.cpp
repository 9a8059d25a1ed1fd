#include "curve/curve.h"

#include "curve/curve_memory.h"
#include "support/block_exchange.h"
#include "support/bounded_text.h"
#include "support/debug_check.h"

#include <algorithm>
#include <iterator>

namespace {

// What an out-of-range GetPoint hands out, so that a faulty index never writes foreign memory.
Point& SparePoint() {
    thread_local Point spare;
    spare = Point();
    return spare;
}

} // namespace

Curve& Curve::operator=(const Curve& other) {
    if (this == &other) return *this;
    if (capacity == other.count && other.count > 0) {
        // Same size: reuse the array; the result equals a fresh copy of exactly this capacity.
        std::copy(other.points, other.points + other.count, points);
        count = other.count;
        tag = other.tag;
        std::copy(std::begin(other.name), std::end(other.name), name);
        marked = other.marked;
        return *this;
    }
    Clear();
    // Without memory the copy keeps its texts and mark but no points; families see the count
    // differ from the source's and report it.
    if (Resize(other.count) >= 0 && other.count > 0) {
        std::copy(other.points, other.points + other.count, points);
    }
    tag = other.tag;
    std::copy(std::begin(other.name), std::end(other.name), name);
    marked = other.marked;
    return *this;
}

std::int64_t Curve::Reserve(std::uint32_t n) {
    if (n == 0) {
        delete[] points;
        points = nullptr;
        capacity = 0;
        count = 0;
        return 0;
    }
    Point* fresh = NewCurveArray<Point>(n);
    if (!fresh) return kCurveFailure;
    if (points) {
        ExchangeBlocks(fresh, points, std::size_t(std::min(capacity, n)) * sizeof(Point));
        delete[] points;
    }
    points = fresh;
    capacity = n;
    if (count > capacity) count = capacity;
    return count;
}

std::int64_t Curve::Resize(std::uint32_t n) {
    const std::uint32_t oldCapacity = capacity;
    if (Reserve(n) < 0) return kCurveFailure;
    // A fresh array is already (0, 0); only the room between the old count and the old
    // capacity came across and may hold stale points.
    if (count < oldCapacity) std::fill(points + count, points + std::min(oldCapacity, n), Point());
    count = n;
    return n;
}

std::int64_t Curve::AddPoint(float x, float y) {
    if (count == capacity && Reserve(capacity + 8) < 0) return kCurveFailure;
    points[count] = Point(x, y);
    return ++count;
}

Point& Curve::GetPoint(std::uint32_t i) {
    VASSERT(i < count);
    return i < count ? points[i] : SparePoint();
}

const Point& Curve::GetPoint(std::uint32_t i) const {
    VASSERT(i < count);
    return i < count ? points[i] : SparePoint();
}

std::int64_t Curve::ShrinkTo(std::uint32_t n) {
    if (Resize(n) >= 0) return n;
    // The larger array still holds the right points; only its spare room stays allocated.
    count = n;
    return kCurveFailure;
}

void Curve::Clear() {
    delete[] points;
    points = nullptr;
    count = 0;
    capacity = 0;
    tag = 0;
    name[0] = '\0';
    marked = 0;
}

int Curve::SetName(const char* text) {
    return BoundedCopy(name, text);
}

int Curve::AppendToName(const char* text) {
    return BoundedAppend(name, text);
}
