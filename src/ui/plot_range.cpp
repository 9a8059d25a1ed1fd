#include "ui/plot_render.h"

#include <cmath>

namespace {

double PowerOfTenBelow(double step) {
    return std::pow(10.0, static_cast<int>(std::floor(std::log10(step))));
}

} // namespace

void OptimizeRange(double& low, double& high, unsigned n) {
    // The slight shrink keeps data that ends on a round value from taking a whole extra step.
    double mid = (high + low) / 2;
    double half = (high - low) * 0.99999 / 2;
    low = mid - half;
    high = mid + half;

    double step = 2 * half / n;
    if (step < 1e-32) step = 1e-32;
    double p = PowerOfTenBelow(step);
    double r = step / p;
    step = r > 5 ? 10 * p : r > 2 ? 5 * p : 2 * p;

    if ((n + std::floor(low / step)) * step < high) {
        p = PowerOfTenBelow(step);
        r = step / p;
        step = r > 4 ? 10 * p : r > 1.5 ? 5 * p : 2 * p;
    }

    double centre = std::floor((low + high) / (2 * step) + 0.5) * step;
    unsigned m = static_cast<unsigned>(std::ceil((high - low) / step));
    if (m + 2 <= n) {
        low = centre - (n / 2) * step;
        high = centre + (n - n / 2) * step;
    } else {
        low = std::floor(low / step) * step;
        high = low + n * step;
    }
}
