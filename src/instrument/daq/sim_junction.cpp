#include "instrument/daq/sim_junction.h"

#include <algorithm>
#include <cmath>
#include <map>
#include <memory>
#include <mutex>

namespace {

constexpr double kTwoPi = 6.283185307179586;
// Below this the junction is taken as overdamped: the capacitive correction is far below what a
// card resolves, and the stiff equation would cost minutes of integration.
constexpr double kOverdampedBeta = 0.05;
// The branch is tabulated up to this bias; above it the 1/i tail of the asymptote is used.
constexpr double kTopBias = 20.0;

struct Phase {
    double phi = 0;
    double u = 0; // dphi/dt, the normalised voltage
};

// betaC phi'' + phi' + sin phi = i, time in units of 1 / omega_c.
void Step(Phase& s, double i, double beta, double dt) {
    auto accel = [&](double phi, double u) { return (i - u - std::sin(phi)) / beta; };
    double k1p = s.u, k1u = accel(s.phi, s.u);
    double k2p = s.u + 0.5 * dt * k1u, k2u = accel(s.phi + 0.5 * dt * k1p, s.u + 0.5 * dt * k1u);
    double k3p = s.u + 0.5 * dt * k2u, k3u = accel(s.phi + 0.5 * dt * k2p, s.u + 0.5 * dt * k2u);
    double k4p = s.u + dt * k3u, k4u = accel(s.phi + dt * k3p, s.u + dt * k3u);
    s.phi += dt / 6 * (k1p + 2 * k2p + 2 * k3p + k4p);
    s.u += dt / 6 * (k1u + 2 * k2u + 2 * k3u + k4u);
}

double StepFor(double beta, double i) {
    return std::min({0.05, 0.1 * beta, 0.3 / (1.0 + i)});
}

// Time for the phase to gain `turns` whole turns, or -1 when it stays trapped until limit.
double TimeForTurns(Phase& s, double i, double beta, int turns, double limit) {
    double dt = StepFor(beta, i);
    double target = s.phi + kTwoPi * turns;
    double t = 0;
    while (t < limit) {
        double before = s.phi;
        Step(s, i, beta, dt);
        t += dt;
        if (s.phi >= target) return t - dt * (s.phi - target) / (s.phi - before);
    }
    return -1;
}

void Integrate(Phase& s, double i, double beta, double time) {
    double dt = StepFor(beta, i);
    for (double t = 0; t < time; t += dt)
        Step(s, i, beta, dt);
}

// Average voltage at bias i starting from a running state, or -1 when the phase gets trapped.
double SettleAndMeasure(Phase& s, double i, double beta) {
    double limit = 400 + 10 * beta;
    // The voltage relaxes with time constant betaC.
    Integrate(s, i, beta, std::min(3 * beta, 300.0));
    if (TimeForTurns(s, i, beta, 1, limit) < 0) return -1;
    int turns = 3;
    double t = TimeForTurns(s, i, beta, turns, limit * turns);
    return t > 0 ? kTwoPi * turns / t : -1;
}

std::vector<double> DescendingBiasGrid() {
    std::vector<double> grid;
    for (double i = kTopBias; i > 5.0 + 1e-9; i -= 0.25)
        grid.push_back(i);
    for (double i = 5.0; i > 2.0 + 1e-9; i -= 0.05)
        grid.push_back(i);
    for (int k = 200; k >= 2; --k)
        grid.push_back(k * 0.01);
    return grid;
}

RcsjBranch BuildOverdamped() {
    RcsjBranch b;
    for (double i : DescendingBiasGrid())
        if (i >= 1.0) {
            b.bias.push_back(i);
            b.voltage2.push_back(i * i - 1);
        }
    std::reverse(b.bias.begin(), b.bias.end());
    std::reverse(b.voltage2.begin(), b.voltage2.end());
    return b;
}

// Sweeps the bias down from the top as a slow measurement would, carrying the state along, and
// closes in on the retrapping point by bisection once the phase is caught.
RcsjBranch BuildUnderdamped(double beta) {
    RcsjBranch b;
    b.betaC = beta;
    Phase s{0, kTopBias};
    double lastI = 0, lastV = 0;
    Phase lastRunning;
    for (double i : DescendingBiasGrid()) {
        Phase trial = s;
        // Starting near the new average voltage shortens the transient.
        if (lastI > 0) trial.u += i - lastI;
        double v = SettleAndMeasure(trial, i, beta);
        if (v < 0) {
            double lo = i, hi = lastI;
            for (int k = 0; k < 8; ++k) {
                double mid = 0.5 * (lo + hi);
                Phase p = lastRunning;
                p.u += mid - hi;
                double vm = SettleAndMeasure(p, mid, beta);
                if (vm < 0) {
                    lo = mid;
                } else {
                    hi = mid;
                    lastV = vm;
                    lastRunning = p;
                }
            }
            lastI = hi;
            break;
        }
        s = trial;
        lastRunning = trial;
        lastI = i;
        lastV = v;
        b.bias.push_back(i);
        b.voltage2.push_back(v * v);
    }
    if (lastI > 0.995) {
        // The running branch ends continuously at Ic: no hysteresis.
        b.iRetrap = 1.0;
        b.bias.push_back(1.0);
        b.voltage2.push_back(0.0);
    } else {
        b.iRetrap = lastI;
        if (b.bias.empty() || b.bias.back() > lastI) {
            b.bias.push_back(lastI);
            b.voltage2.push_back(lastV * lastV);
        }
    }
    std::reverse(b.bias.begin(), b.bias.end());
    std::reverse(b.voltage2.begin(), b.voltage2.end());
    return b;
}

} // namespace

const RcsjBranch& RcsjBranchFor(double betaC) {
    static std::mutex lock;
    static std::map<double, std::unique_ptr<RcsjBranch>> cache;
    double beta = betaC < kOverdampedBeta ? 0.0 : betaC;
    std::lock_guard<std::mutex> guard(lock);
    auto& slot = cache[beta];
    if (!slot)
        slot =
            std::make_unique<RcsjBranch>(beta == 0.0 ? BuildOverdamped() : BuildUnderdamped(beta));
    return *slot;
}

double RcsjVoltage(const RcsjBranch& b, double i) {
    if (b.bias.empty()) return std::max(0.0, i);
    i = std::max(i, b.bias.front());
    double top = b.bias.back();
    if (i >= top) {
        // The deficit below the ohmic line falls off as 1 / i.
        double deficit = top - std::sqrt(b.voltage2.back());
        return i - deficit * top / i;
    }
    auto it = std::upper_bound(b.bias.begin(), b.bias.end(), i);
    size_t k = static_cast<size_t>(it - b.bias.begin());
    double x0 = b.bias[k - 1], x1 = b.bias[k];
    double y0 = b.voltage2[k - 1], y1 = b.voltage2[k];
    return std::sqrt(std::max(0.0, y0 + (y1 - y0) * (i - x0) / (x1 - x0)));
}

double JunctionRunningVoltage(const RcsjBranch& branch, double ic, double rn, double ie,
                              double current) {
    double a = std::fabs(current);
    double v0 = ic > 0 ? ic * rn * RcsjVoltage(branch, a / ic) : rn * a;
    double v = v0;
    if (ie > 0) {
        // The excess current shifts the branch by Rn Ie at high bias and fades in smoothly, so
        // that the voltage never turns negative nor falls with the bias.
        double x = v0 / (rn * ie);
        v = rn * ie * (x + std::expm1(-x));
    }
    return current < 0 ? -v : v;
}

bool JunctionRunningAfter(bool fRunning, double ic, double ir, double current) {
    double a = std::fabs(current);
    if (a > ic) return true;
    if (fRunning && a >= ir && ir < ic) return true;
    return false;
}
