// The two accumulators the measurements and the analysis share: a weighted straight-line fit
// and a running statistic. They throw LeastSquareFitException and StatisticException.
#pragma once
#include "support/exceptions.h"

#include <cstdint>

class LeastSquareFit {
  public:
    void Add(double x, double y, double weight);
    void Clear() { *this = LeastSquareFit(); }
    // Slope and intercept. No points throws code -1; a zero denominator (all x equal) gives the
    // largest double and no exception.
    double A() const;
    double B() const;

  private:
    double S = 0, Sx = 0, Sy = 0, Sxx = 0, Sxy = 0;
};

class Statistic {
  public:
    void Add(double v);
    void Clear() { *this = Statistic(); }
    // Throws code -1 when empty.
    double Average() const;
    // sqrt(n sum2 - sum^2) / n, with no guard for an empty statistic.
    double StdDev() const;
    double Min() const { return min; }
    double Max() const { return max; }
    std::uint32_t Count() const { return n; }

  private:
    double sum = 0, sumOfSquares = 0, min = 0, max = 0;
    std::uint32_t n = 0;
};
