#include "support/least_square_fit.h"

#include <cfloat>
#include <cmath>

void LeastSquareFit::Add(double x, double y, double w) {
    S += w;
    Sx += w * x;
    Sy += w * y;
    Sxx += x * w * x;
    Sxy += x * w * y;
}

double LeastSquareFit::A() const {
    if (S == 0) throw LeastSquareFitException(-1);
    const double d = S * Sxx - Sx * Sx;
    if (d == 0) return DBL_MAX;
    return (S * Sxy - Sx * Sy) / d;
}

double LeastSquareFit::B() const {
    if (S == 0) throw LeastSquareFitException(-1);
    const double d = S * Sxx - Sx * Sx;
    if (d == 0) return DBL_MAX;
    return (Sy * Sxx - Sxy * Sx) / d;
}

void Statistic::Add(double v) {
    sum += v;
    sumOfSquares += v * v;
    if (n == 0 || v < min) min = v;
    if (n == 0 || v > max) max = v;
    ++n;
}

double Statistic::Average() const {
    if (n == 0) throw StatisticException(-1);
    return sum / n;
}

double Statistic::StdDev() const {
    return std::sqrt(n * sumOfSquares - sum * sum) / n;
}
