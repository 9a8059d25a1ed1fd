#include "curve/curve.h"

#include <bit>

std::uint32_t Curve::MergeEqualX() {
    std::uint32_t m = 0;
    std::uint32_t i = 0;
    while (i < count) {
        const float x = points[i].x;
        float ySum = points[i].y;
        std::uint32_t j = i + 1;
        // Bitwise equality: repeated readings at one setting are merged, near values are not.
        while (j < count &&
               std::bit_cast<std::uint32_t>(points[j].x) == std::bit_cast<std::uint32_t>(x)) {
            ySum += points[j].y;
            ++j;
        }
        points[m++] = Point(x, ySum / float(j - i));
        i = j;
    }
    return m;
}

std::int64_t Curve::DifferentiateX() {
    std::uint32_t m = MergeEqualX();
    if (m < 2) {
        Clear();
        return 0;
    }
    for (std::uint32_t i = 0; i + 1 < m; ++i) {
        const Point a = points[i], b = points[i + 1];
        points[i].y = float((double(b.y) - a.y) / (double(b.x) - a.x));
        points[i].x = float((double(b.x) + a.x) / 2);
    }
    return ShrinkTo(m - 1);
}

std::int64_t Curve::DifferentiateY() {
    std::uint32_t m = MergeEqualX();
    if (m < 2) {
        Clear();
        return 0;
    }
    for (std::uint32_t i = 0; i + 1 < m; ++i) {
        const double slope =
            (double(points[i + 1].y) - points[i].y) / (double(points[i + 1].x) - points[i].x);
        points[i].x = float((double(points[i + 1].x) + points[i].x) / 2);
        points[i].y = float(slope);
    }
    return ShrinkTo(m - 1);
}

void Curve::Integrate() {
    if (count == 0) return;
    double xPrev = points[0].x;
    double yPrev = points[0].y;
    points[0].y = 0.0f;
    for (std::uint32_t i = 1; i < count; ++i) {
        const double x = points[i].x, y = points[i].y;
        points[i].y = float((y + yPrev) * (x - xPrev) / 2 + points[i - 1].y);
        xPrev = x;
        yPrev = y;
    }
}
