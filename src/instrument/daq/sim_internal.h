// State and helpers shared by the units of the simulated instrument. Every driver call holds
// gSimLock while it touches gSim, as a real driver serialises access to its cards.
#pragma once
#include "instrument/daq/daq_driver.h"
#include "instrument/daq/sim_config.h"
#include "instrument/daq/sim_driver.h"
#include "instrument/daq/sim_junction.h"

#include <chrono>
#include <cstdint>
#include <mutex>
#include <string>
#include <vector>

struct SimJunctionLive {
    const RcsjBranch* branch = nullptr;
    bool fRunning = false;
    bool fOnStep = false;    // on the resonance step, not on the running branch
    bool fAboveStep = false; // ran off the top of the step: at least at the next step
};

struct SimState {
    bool fLoaded = false;
    std::string path = "simdaq.ini";
    SimConfig config;

    std::vector<std::vector<i16>> outputs;        // per card, the last reading of each channel
    std::vector<std::vector<double>> moduleVolts; // per SCXI module, volts of each channel
    std::vector<double> timeout;                  // per card, seconds; negative: none

    std::chrono::steady_clock::time_point start;
    double manualTime = 0; // step clock, or what SimDaqAdvance added to the real clock

    double sampleTime = 0; // the sample has been evolved up to here
    double temperature = 0;
    SimJunctionLive j1, j2;
    std::vector<SimJunctionLive> array;
    std::vector<double> arrayIc0;

    std::uint64_t rng = 1;
    bool fSpareNormal = false;
    double spareNormal = 0;
    i16 lastError = 0;
};

extern SimState gSim;
extern std::mutex gSimLock;

// Loads from gSim.path unless loaded; call with the lock held.
void SimEnsureLoaded();
void SimLoadLocked(const char* path, bool* fFileFound);

// Cards (sim_rack.cpp).
int SimCardIndex(int slot);
bool SimCardHasInput(const SimCardConfig& card, int channel);
bool SimGainOfCode(const SimCardConfig& card, int gainCode, double* factor);
bool SimReadingValid(const SimCardConfig& card, int reading);
double SimVoltsOfReading(const SimCardConfig& card, int reading);
i16 SimReadingOfVolts(const SimCardConfig& card, double volts);
double SimOutputVolts(const SimPort& port);

// Sample (sim_sample.cpp).
void SimResetSample();
void SimEvolveTo(double t);
double SimSignalVolts(int signal);
SimSampleState SimComputeState();
double SimGapRatio(double kelvin, double tc);
double SimAbRatio(double kelvin, double tc);
double SimFraunhofer(double h, double h0);
double SimSensorResistance(double kelvin);

// Time, noise, hum and acquisitions (sim_acquire.cpp).
double SimClockNow();
void SimTick(double seconds);
double SimGaussian();
// Volts at a card input at time t: the wired signal through its amplifier, offset, noise, hum.
double SimInputVolts(int cardIndex, int channel, double t);
// The reading of one conversion, in the card's sample layout (one or two words).
void SimConvert(const SimCardConfig& card, double volts, i16* words);
