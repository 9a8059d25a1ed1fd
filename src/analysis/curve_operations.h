// The Math menu's point-by-point operations on one curve or on the family: smoothing, spike
// filter, thinning, shift, scale, absolute value, y as new x, y relative to its minimum or
// maximum, and the reversal of the points.
#pragma once
#include <cstdint>

class Curve;
class CurveFamily;

// Moving average over 2P + 1 points, the end points repeated at the edges; x stays.
void SmoothCurve(Curve& curve, unsigned p);
// Single-point spikes of more than A against both neighbours are replaced; the number changed.
unsigned FilterSpikes(Curve& curve, float a);
// Drops points where the curve turns by less than the critical angle (degrees), in coordinates
// normalised by the curve's extent, pass after pass while a pass drops something. The count of
// points before; the curve keeps the survivors.
std::uint32_t SkipExtraPoints(Curve& curve, float criticalAngle);
void ShiftCurve(Curve& curve, double dx, double dy);
void ScaleCurve(Curve& curve, double xm, double xd, double ym, double yd);
void AbsCurve(Curve& curve, bool x, bool y);
void ReverseCurve(Curve& curve);

// The first failed precondition of YAsNewX as its message, or null.
const char* YAsNewXRefusal(const CurveFamily& family);
// Every other curve's x becomes the source curve's y; the x units take the y units; the
// source curve goes.
void YAsNewX(CurveFamily& family, std::uint32_t source);
// y = (y - ymin) / ymin * 100 (or / ymax) on every curve, y units "%". False at a zero ymin (or
// ymax) after the box; the family may then be changed and the caller restores it.
bool RelativeToMin(CurveFamily& family);
bool RelativeToMax(CurveFamily& family);
