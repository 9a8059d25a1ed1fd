// The multi-point derivative: the least-squares slope over 2N + 1 equally spaced points, for
// every curve of a family, against x (or against y, the (Y) variant).
#pragma once

class CurveFamily;

// Rebuilds out from source with DerivePoints, DeriveDiscardEdge and DeriveDiscardDir.
void MultiPointDerivative(const CurveFamily& source, bool againstY, CurveFamily& out);
