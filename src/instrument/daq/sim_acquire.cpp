// Time, noise and hum, and the timed acquisitions: a record is taken as if the card's clock
// ticked at the requested rate, each sample seeing the sample at its own instant.
#include "instrument/daq/sim_acquire.h"
#include "instrument/daq/sim_internal.h"

#include <cmath>
#include <thread>
#include <vector>

namespace {

constexpr double kTwoPi = 6.283185307179586;
constexpr double kTickSeconds = 0.055; // Timeout_Config counts in ticks of 55 ms

std::uint64_t NextRandom() {
    std::uint64_t z = (gSim.rng += 0x9E3779B97F4A7C15ull);
    z = (z ^ (z >> 30)) * 0xBF58476D1CE4E5B9ull;
    z = (z ^ (z >> 27)) * 0x94D049BB133111EBull;
    return z ^ (z >> 31);
}

double Uniform() {
    return (static_cast<double>(NextRandom() >> 11) + 0.5) / 9007199254740992.0;
}

// How a record ends: in step time it takes no wall time; in real time the call lasts as long as
// the record would, outside the lock so that other callers are not held up.
i16 FinishRecord(std::unique_lock<std::mutex>& guard, double start, double duration,
                 bool fTimedOut) {
    i16 status = fTimedOut ? kSimErrTimeout : 0;
    if (gSim.config.fStepClock) {
        SimTick(duration);
        return status;
    }
    auto wall = std::chrono::duration<double>(start - gSim.manualTime + duration);
    auto end = gSim.start + std::chrono::duration_cast<std::chrono::steady_clock::duration>(wall);
    guard.unlock();
    std::this_thread::sleep_until(end);
    return status;
}

int WordsOf(const SimCardConfig& card) {
    return card.sampleWords;
}

} // namespace

double SimClockNow() {
    if (gSim.config.fStepClock) return gSim.manualTime;
    auto elapsed = std::chrono::steady_clock::now() - gSim.start;
    return std::chrono::duration<double>(elapsed).count() + gSim.manualTime;
}

void SimTick(double seconds) {
    if (gSim.config.fStepClock) gSim.manualTime += seconds;
}

void SimDaqAdvance(double seconds) {
    std::lock_guard<std::mutex> guard(gSimLock);
    SimEnsureLoaded();
    if (seconds > 0 && std::isfinite(seconds)) gSim.manualTime += seconds;
}

double SimDaqTime() {
    std::lock_guard<std::mutex> guard(gSimLock);
    SimEnsureLoaded();
    return SimClockNow();
}

// Box-Muller on a splitmix sequence: the same seed gives the same noise on every platform.
double SimGaussian() {
    if (gSim.fSpareNormal) {
        gSim.fSpareNormal = false;
        return gSim.spareNormal;
    }
    double r = std::sqrt(-2 * std::log(Uniform()));
    double a = kTwoPi * Uniform();
    gSim.spareNormal = r * std::sin(a);
    gSim.fSpareNormal = true;
    return r * std::cos(a);
}

double SimInputVolts(int cardIndex, int channel, double t) {
    const SimConfig& c = gSim.config;
    const SimCardConfig& card = c.cards[static_cast<size_t>(cardIndex)];
    SimEvolveTo(t);
    double v = 0;
    for (int s = 0; s < kSigCount; ++s) {
        const SimInputConfig& in = c.inputs[s];
        if (in.port.channel == channel && in.port.chassis == 0 && in.port.slot == card.slot) {
            // The thermo-EMF sits in the leads at the sample, so it doesn't turn with the
            // current; the amplifier offset comes after the gain.
            v = in.gain * (SimSignalVolts(s) + in.thermoEmf) + in.offset;
            break;
        }
    }
    if (c.noiseSigma > 0) v += c.noiseSigma * SimGaussian();
    if (c.humAmplitude > 0) v += c.humAmplitude * std::sin(kTwoPi * c.humFrequency * t);
    return v;
}

void SimConvert(const SimCardConfig& card, double volts, i16* words) {
    if (card.sampleWords < 2) {
        words[0] = SimReadingOfVolts(card, volts);
        return;
    }
    // A 32-bit sample: the reading in the upper word, the finer bits below it.
    i16 reading = SimReadingOfVolts(card, volts);
    double lsb = 2 * card.span / std::ldexp(1.0, card.bits);
    double code = SimVoltsOfReading(card, reading) / lsb;
    double fraction = volts / lsb - code + 0.5;
    fraction = fraction < 0 ? 0 : (fraction >= 1 ? 0.9999847 : fraction);
    words[0] = static_cast<i16>(static_cast<u16>(fraction * 65536));
    words[1] = reading;
}

i16 SimTimeout_Config(i16 slot, i32 ticks) {
    std::lock_guard<std::mutex> guard(gSimLock);
    SimEnsureLoaded();
    int k = SimCardIndex(slot);
    if (k < 0) return kSimErrUnknownDevice;
    if (ticks < -1) return kSimErrBadValue;
    gSim.timeout[static_cast<size_t>(k)] = ticks == -1 ? -1.0 : ticks * kTickSeconds;
    return 0;
}

i16 SimDAQ_Op(i16 slot, i16 channel, i16 gainCode, i16* buffer, u32 count, f64 rate) {
    i16 one[1] = {channel};
    i16 gains[1] = {gainCode};
    return SimSCAN_Op(slot, 1, one, gains, buffer, count, rate, rate);
}

i16 SimSCAN_Op(i16 slot, i16 channelCount, const i16* channels, const i16* gainCodes, i16* buffer,
               u32 count, f64 sampleRate, f64 scanRate) {
    std::unique_lock<std::mutex> guard(gSimLock);
    SimEnsureLoaded();
    int k = SimCardIndex(slot);
    if (k < 0) return kSimErrUnknownDevice;
    const SimCardConfig& card = gSim.config.cards[static_cast<size_t>(k)];
    if (channelCount < 1 || !channels || !gainCodes || !buffer) return kSimErrBadValue;
    if (count == 0 || count % static_cast<u32>(channelCount) != 0) return kSimErrBadValue;
    if (!(sampleRate > 0) || !(scanRate > 0) || !std::isfinite(sampleRate) ||
        !std::isfinite(scanRate))
        return kSimErrBadValue;
    // The channels of one scan are converted one sample interval apart within the scan.
    if (channelCount / sampleRate > (1.0 + 1e-9) / scanRate) return kSimErrBadInterval;
    std::vector<double> factors(static_cast<size_t>(channelCount));
    for (int c = 0; c < channelCount; ++c) {
        if (!SimCardHasInput(card, channels[c])) return kSimErrBadChannel;
        if (!SimGainOfCode(card, gainCodes[c], &factors[static_cast<size_t>(c)]))
            return kSimErrBadGain;
    }
    u32 scans = count / static_cast<u32>(channelCount);
    double duration = scans / scanRate;
    double timeout = gSim.timeout[static_cast<size_t>(k)];
    double start = SimClockNow();
    if (timeout >= 0 && duration > timeout) return FinishRecord(guard, start, timeout, true);
    int words = WordsOf(card);
    i16* out = buffer;
    for (u32 s = 0; s < scans; ++s)
        for (int c = 0; c < channelCount; ++c) {
            double t = start + s / scanRate + c / sampleRate;
            double v = SimInputVolts(k, channels[c], t) * factors[static_cast<size_t>(c)];
            SimConvert(card, v, out);
            out += words;
        }
    return FinishRecord(guard, start, duration, false);
}
