#include "curve/float_rect.h"

#include <utility>

void NormalizeRect(FloatRect& r) {
    if (r.x1 > r.x2) std::swap(r.x1, r.x2);
    if (r.y1 > r.y2) std::swap(r.y1, r.y2);
}
