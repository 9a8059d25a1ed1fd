#include "curve/point.h"

#include <cmath>

bool Point::Differs(const Point& p) const {
    return !(std::fabs(x - p.x) <= kTolerance && std::fabs(y - p.y) <= kTolerance);
}

bool Point::DiffersNotInBoth(const Point& p) const {
    return !(std::fabs(x - p.x) > kTolerance && std::fabs(y - p.y) > kTolerance);
}
