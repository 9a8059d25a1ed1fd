// The sample on the bias line: J1, J2 and the series array in series with the current monitor,
// the field coil over the junctions, and the heater and thermometer on the sample stage.
#include "instrument/daq/sim_internal.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr double kPi = 3.141592653589793;
constexpr double kGapOverKTc = 1.764; // BCS: Delta(0) = 1.764 k Tc
constexpr double kLowestKelvin = 0.05;

// The thin-film resistance sensor: log R against log T through these points, monotone and
// smooth (monotone cubic), extended beyond the ends along the end slopes.
const double kSensorT[] = {4.2, 10.0, 77.35, 300.0};
const double kSensorR[] = {574.0, 332.0, 101.0, 41.4};
constexpr int kSensorPoints = 4;

double SensorSlopeAt(int k, const double* x, const double* y) {
    auto secant = [&](int j) { return (y[j + 1] - y[j]) / (x[j + 1] - x[j]); };
    if (k == 0) return secant(0);
    if (k == kSensorPoints - 1) return secant(kSensorPoints - 2);
    double a = secant(k - 1), b = secant(k);
    if (a * b <= 0) return 0;
    double wa = 2 * (x[k + 1] - x[k]) + (x[k] - x[k - 1]);
    double wb = (x[k + 1] - x[k]) + 2 * (x[k] - x[k - 1]);
    return (wa + wb) / (wa / a + wb / b);
}

double BiasCurrent() {
    const SimConfig& c = gSim.config;
    return SimOutputVolts(c.bias) / c.biasResistor;
}
double CoilCurrent() {
    const SimConfig& c = gSim.config;
    return SimOutputVolts(c.coil) / c.coilResistor;
}
double HeaterPower() {
    const SimConfig& c = gSim.config;
    double v = SimOutputVolts(c.heater);
    return v * v / c.heaterResistor;
}

struct JunctionNow {
    double ic, ir, ie, rn;
};

JunctionNow NowOf(const SimJunctionConfig& j, const SimJunctionLive& live) {
    const SimConfig& c = gSim.config;
    double h = CoilCurrent() - c.fieldOffset;
    JunctionNow n;
    n.ic = j.ic0 * SimAbRatio(gSim.temperature, c.tc) * SimFraunhofer(h, j.h0);
    n.ir = n.ic * live.branch->iRetrap;
    // The excess current follows the gap, not the phase: the field leaves it alone.
    n.ie = j.ie * SimGapRatio(gSim.temperature, c.tc);
    n.rn = j.rn;
    return n;
}

// The top current of the resonance step: largest between the nodes of Ic, gone at zero field.
double StepTop(const SimJunctionConfig& j) {
    if (j.stepIc <= 0) return 0;
    const double h = CoilCurrent() - gSim.config.fieldOffset;
    return j.stepIc * SimAbRatio(gSim.temperature, gSim.config.tc) *
           std::fabs(std::sin(kPi * h / j.h0));
}

double JunctionVoltage(const SimJunctionConfig& j, const SimJunctionLive& live) {
    if (live.fOnStep) return BiasCurrent() < 0 ? -j.stepVoltage : j.stepVoltage;
    if (!live.fRunning) return 0;
    JunctionNow n = NowOf(j, live);
    const double v = JunctionRunningVoltage(*live.branch, n.ic, n.rn, n.ie, BiasCurrent());
    // Off the top of the step the junction switches to the next step, never back below it.
    if (live.fAboveStep && std::fabs(v) < 2 * j.stepVoltage)
        return v < 0 ? -2 * j.stepVoltage : 2 * j.stepVoltage;
    return v;
}

double ArrayJunctionIc(size_t k) {
    return gSim.arrayIc0[k] * SimAbRatio(gSim.temperature, gSim.config.tc);
}

// A switched junction of the array sits at least at its gap voltage: the staircase.
double ArrayVoltage(int* switched) {
    const SimArrayConfig& a = gSim.config.array;
    if (switched) *switched = 0;
    if (gSim.array.empty()) return 0;
    const RcsjBranch& branch = *gSim.array[0].branch;
    double current = BiasCurrent();
    double gap = a.gapVoltage * SimGapRatio(gSim.temperature, gSim.config.tc);
    double sum = 0;
    int n = 0;
    for (size_t k = 0; k < gSim.array.size(); ++k) {
        if (!gSim.array[k].fRunning) continue;
        ++n;
        double v = std::fabs(JunctionRunningVoltage(branch, ArrayJunctionIc(k), a.rn, 0, current));
        sum += std::max(v, gap);
    }
    if (switched) *switched = n;
    return current < 0 ? -sum : sum;
}

// A switch from the zero-voltage state below the step's top lands on the step, above it lands
// beyond the step (at least at twice its voltage until the junction retraps); the step is left
// for the running branch above its top, and for zero where the junction retraps (below Ir, and
// below half the top).
void UpdateJunction(const SimJunctionConfig& j, SimJunctionLive& live, double current) {
    const double top = StepTop(j), a = std::fabs(current);
    const JunctionNow n = NowOf(j, live);
    if (live.fOnStep) {
        if (a > top || a < std::min(0.5 * top, n.ir)) {
            live.fOnStep = false;
            live.fRunning = live.fAboveStep = a > top;
        }
        return;
    }
    const bool was = live.fRunning;
    live.fRunning = JunctionRunningAfter(live.fRunning, n.ic, n.ir, current);
    if (!was && live.fRunning) {
        // Like a jump to the gap, a switch past the step's top lands above the step.
        if (a < top) {
            live.fRunning = false;
            live.fOnStep = true;
        } else {
            live.fAboveStep = j.stepIc > 0;
        }
    }
    if (!live.fRunning) live.fAboveStep = false;
}

void UpdateJunctions() {
    const SimConfig& c = gSim.config;
    double current = BiasCurrent();
    UpdateJunction(c.j1, gSim.j1, current);
    UpdateJunction(c.j2, gSim.j2, current);
    for (size_t k = 0; k < gSim.array.size(); ++k) {
        SimJunctionLive& live = gSim.array[k];
        double ic = ArrayJunctionIc(k);
        live.fRunning = JunctionRunningAfter(live.fRunning, ic, ic * live.branch->iRetrap, current);
    }
}

// Critical currents of the array: a seeded Gaussian spread, kept within three sigma so that no
// junction ends up without a supercurrent.
void SpreadArray() {
    const SimArrayConfig& a = gSim.config.array;
    std::uint64_t state = a.seed * 0x9E3779B97F4A7C15ull + 1;
    auto uniform = [&]() {
        state += 0x9E3779B97F4A7C15ull;
        std::uint64_t z = state;
        z = (z ^ (z >> 30)) * 0xBF58476D1CE4E5B9ull;
        z = (z ^ (z >> 27)) * 0x94D049BB133111EBull;
        z ^= z >> 31;
        return (static_cast<double>(z >> 11) + 0.5) / 9007199254740992.0;
    };
    gSim.arrayIc0.clear();
    for (int k = 0; k < a.count; ++k) {
        double g = std::sqrt(-2 * std::log(uniform())) * std::cos(2 * kPi * uniform());
        g = std::clamp(g, -3.0, 3.0);
        gSim.arrayIc0.push_back(a.ic0 * std::max(0.05, 1 + a.spread * g));
    }
}

} // namespace

double SimGapRatio(double kelvin, double tc) {
    if (kelvin >= tc) return 0;
    if (kelvin <= 0) return 1;
    return std::tanh(1.74 * std::sqrt(tc / kelvin - 1));
}

double SimAbRatio(double kelvin, double tc) {
    double gap = SimGapRatio(kelvin, tc);
    if (gap <= 0) return 0;
    if (kelvin <= 0) return 1;
    return gap * std::tanh(kGapOverKTc * tc * gap / (2 * kelvin));
}

double SimFraunhofer(double h, double h0) {
    double x = kPi * h / h0;
    if (std::fabs(x) < 1e-12) return 1;
    return std::fabs(std::sin(x) / x);
}

double SimSensorResistance(double kelvin) {
    double x[kSensorPoints], y[kSensorPoints], m[kSensorPoints];
    for (int k = 0; k < kSensorPoints; ++k) {
        x[k] = std::log(kSensorT[k]);
        y[k] = std::log(kSensorR[k]);
    }
    for (int k = 0; k < kSensorPoints; ++k)
        m[k] = SensorSlopeAt(k, x, y);
    double lx = std::log(std::max(kelvin, kLowestKelvin));
    if (lx <= x[0]) return std::exp(y[0] + m[0] * (lx - x[0]));
    int last = kSensorPoints - 1;
    if (lx >= x[last]) return std::exp(y[last] + m[last] * (lx - x[last]));
    int k = 0;
    while (lx > x[k + 1])
        ++k;
    double h = x[k + 1] - x[k], t = (lx - x[k]) / h;
    double h00 = (1 + 2 * t) * (1 - t) * (1 - t), h10 = t * (1 - t) * (1 - t);
    double h01 = t * t * (3 - 2 * t), h11 = t * t * (t - 1);
    return std::exp(h00 * y[k] + h10 * h * m[k] + h01 * y[k + 1] + h11 * h * m[k + 1]);
}

void SimResetSample() {
    const SimConfig& c = gSim.config;
    gSim.sampleTime = 0;
    gSim.temperature = c.t0;
    gSim.j1 = {&RcsjBranchFor(c.j1.betaC), false};
    gSim.j2 = {&RcsjBranchFor(c.j2.betaC), false};
    SpreadArray();
    const RcsjBranch* arrayBranch = &RcsjBranchFor(c.array.betaC);
    gSim.array.assign(gSim.arrayIc0.size(), SimJunctionLive{arrayBranch, false});
    UpdateJunctions();
}

void SimEvolveTo(double t) {
    const SimConfig& c = gSim.config;
    t = std::max(t, gSim.sampleTime);
    double dt = t - gSim.sampleTime;
    // First-order lag behind a target that drifts linearly: exact for a constant heater power.
    double target = c.t0 + c.driftRate * t + c.heaterKPerW * HeaterPower();
    if (c.timeConstant <= 0) {
        gSim.temperature = target;
    } else if (dt > 0) {
        double lag = c.driftRate * c.timeConstant;
        double before = target - c.driftRate * dt;
        gSim.temperature =
            target - lag + (gSim.temperature - before + lag) * std::exp(-dt / c.timeConstant);
    }
    gSim.temperature = std::max(gSim.temperature, kLowestKelvin);
    gSim.sampleTime = t;
    UpdateJunctions();
}

double SimSignalVolts(int signal) {
    const SimConfig& c = gSim.config;
    switch (signal) {
    case kSigJ1:
        return JunctionVoltage(c.j1, gSim.j1);
    case kSigJ2:
        return JunctionVoltage(c.j2, gSim.j2);
    case kSigArray:
        return ArrayVoltage(nullptr);
    case kSigThermometer:
        return SimSensorResistance(gSim.temperature) * c.sensorCurrent;
    case kSigMonitor:
        return BiasCurrent() * c.monitorShunt;
    case kSigTrigger:
        return SimOutputVolts(c.trigger);
    default:
        return 0;
    }
}

SimSampleState SimComputeState() {
    const SimConfig& c = gSim.config;
    SimSampleState s;
    s.time = gSim.sampleTime;
    s.temperature = gSim.temperature;
    s.biasCurrent = BiasCurrent();
    s.coilCurrent = CoilCurrent();
    s.heaterPower = HeaterPower();
    s.sensorResistance = SimSensorResistance(gSim.temperature);
    auto view = [&](const SimJunctionConfig& j, const SimJunctionLive& live) {
        JunctionNow n = NowOf(j, live);
        return SimJunctionState{n.ic, n.ir, n.ie, n.rn, live.fRunning, JunctionVoltage(j, live)};
    };
    s.j1 = view(c.j1, gSim.j1);
    s.j2 = view(c.j2, gSim.j2);
    s.arrayCount = static_cast<int>(gSim.array.size());
    s.arrayVoltage = ArrayVoltage(&s.arraySwitched);
    return s;
}

SimSampleState SimDaqSampleState() {
    std::lock_guard<std::mutex> guard(gSimLock);
    SimEnsureLoaded();
    SimEvolveTo(SimClockNow());
    return SimComputeState();
}

double SimDaqArrayJunctionIc0(int k) {
    std::lock_guard<std::mutex> guard(gSimLock);
    SimEnsureLoaded();
    if (k < 0 || static_cast<size_t>(k) >= gSim.arrayIc0.size()) return 0;
    return gSim.arrayIc0[static_cast<size_t>(k)];
}

double SimDaqRetrapRatio(double betaC) {
    return RcsjBranchFor(betaC).iRetrap;
}

double SimDaqRunningVoltage(double betaC, double i) {
    return RcsjVoltage(RcsjBranchFor(betaC), i);
}

double SimDaqSensorResistance(double kelvin) {
    return SimSensorResistance(kelvin);
}
