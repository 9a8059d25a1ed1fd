#include "analysis/self_field.h"

#include "curve/curve.h"

double gSelfFieldCoefficient = 0;
std::int32_t gSelfFieldMode = 0;

int FindCurrentPeak(const Curve& curve, float& peak, float& field) {
    float ymax = 0, ymin = 0;
    std::uint32_t imax = 0, imin = 0;
    for (std::uint32_t i = 0; i < curve.count; ++i) {
        const float y = curve.points[i].y;
        if (y > ymax) ymax = y, imax = i;
        if (y < ymin) ymin = y, imin = i;
    }
    if (ymin >= 0) {
        peak = ymax;
        field = curve.count ? curve.points[imax].x : 0;
        return 0;
    }
    if (ymax <= 0) {
        peak = ymin;
        field = curve.points[imin].x;
        return 0;
    }
    peak = ymax > -ymin ? ymax : -ymin;
    field = 0;
    return 1;
}

void RemoveSelfField(Curve& curve, double k) {
    for (std::uint32_t i = 0; i < curve.count; ++i)
        curve.points[i].x = static_cast<float>(curve.points[i].x - k * curve.points[i].y);
}

TwoCurveSelfField TwoCurveParameters(float i1, float h1, float i2, float h2) {
    TwoCurveSelfField p;
    p.k = i1 == i2 ? 0.0 : (static_cast<double>(h1) - h2) / (static_cast<double>(i1) - i2);
    p.currentShift = (static_cast<double>(i1) + i2) / 2;
    p.fieldShift = (static_cast<double>(h1) + h2) / 2;
    return p;
}

void ApplyTwoCurve(Curve& curve, const TwoCurveSelfField& p) {
    for (std::uint32_t i = 0; i < curve.count; ++i) {
        Point& pt = curve.points[i];
        pt.y = static_cast<float>(pt.y - p.currentShift);
        pt.x = static_cast<float>(pt.x - p.fieldShift - p.k * pt.y);
    }
}
