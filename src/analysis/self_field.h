// Removal of the self field from Ic(H) curves: the current through the junction makes a field
// of its own, so the field axis is corrected by x -= k y.
#pragma once
#include <cstdint>

class Curve;

// The peak of the curve and the field where it lies: 0 for a curve of one sign (the maximum,
// or the minimum when every y is at or below zero), 1 for mixed signs (peak = the larger
// magnitude, field 0): not an Ic(H) curve.
int FindCurrentPeak(const Curve& curve, float& peak, float& field);
void RemoveSelfField(Curve& curve, double k);

// Two curves, Ic(H) and -Ic(H), taken together.
struct TwoCurveSelfField {
    double k = 0, currentShift = 0, fieldShift = 0;
};
// From the peaks (I1, H1) and (I2, H2): k = (H1 - H2) / (I1 - I2) (0 for equal currents) and
// the shifts to the middle of the two.
TwoCurveSelfField TwoCurveParameters(float i1, float h1, float i2, float h2);
// y -= current shift, then x -= field shift + k y with the new y.
void ApplyTwoCurve(Curve& curve, const TwoCurveSelfField& p);

// The coefficient the dialogs show next: the last one used, 0 at start.
extern double gSelfFieldCoefficient;
extern std::int32_t gSelfFieldMode; // 0 each curve, 1 two curves, 2 manual
