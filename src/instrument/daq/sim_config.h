// The description of the simulated rack and sample, as read from simdaq.ini and repaired.
// Every field holds a usable value after SimDaqLoad, whatever the file said.
#pragma once
#include <cstdint>
#include <string>
#include <vector>

struct SimChannelRange {
    int first = 0;
    int last = 0;
};

struct SimCardConfig {
    int slot = 1;
    std::uint32_t id = 0;
    std::string name;
    int bits = 16;              // 12 or 16
    double span = 10.0;         // inputs and outputs are bipolar, -span to +span volts
    bool fOffsetBinary = false; // readings 0..2^bits-1 rather than two's complement
    std::vector<SimChannelRange> inputs;
    std::vector<float> gains;
    bool fLogGains = false;
    int outputs = 0;
    int sampleWords = 1; // 16-bit words per sample in DAQ_Op, SCAN_Op and DAQ_VScale
};

struct SimModuleConfig {
    int slot = 1;
    int id = 0;
    std::string name;
    int channels = 0;
};

struct SimScxiConfig {
    int chassis = 0; // 0: no chassis
    int address = 1;
    int slots = 4;
    int commMode = 1;
    std::vector<SimModuleConfig> modules;
};

// An output or input terminal: chassis 0 is a PC card in slot, else an SCXI module slot.
struct SimPort {
    int chassis = 0;
    int slot = 0;
    int channel = -1; // -1: not wired
};

struct SimJunctionConfig {
    double ic0 = 0;   // A, at T = 0 and zero field
    double rn = 0;    // ohm
    double betaC = 0; // Stewart-McCumber parameter
    double ie = 0;    // A, excess current at T = 0
    double h0 = 0;    // A of coil current per flux quantum
    // A resonance step at a finite voltage: reached from the zero-voltage state when the bias
    // passes Ic below the step's top, stepIc x |sin(pi h / H0)|. 0 for none.
    double stepVoltage = 0; // V
    double stepIc = 0;      // A
};

struct SimArrayConfig {
    int count = 20;
    double ic0 = 5e-5;
    double spread = 0.1; // relative sigma of the critical currents
    double rn = 40.0;
    double betaC = 20.0;
    double gapVoltage = 0.0027; // V per junction at T = 0; 0 for a plain RCSJ branch
    unsigned seed = 7;
};

enum SimSignal { kSigJ1, kSigJ2, kSigArray, kSigThermometer, kSigMonitor, kSigTrigger, kSigCount };

struct SimInputConfig {
    SimPort port;
    double gain = 1.0;      // amplifier gain
    double offset = 0.0;    // V at the card input
    double thermoEmf = 0.0; // V at the sample, before the amplifier
};

struct SimConfig {
    unsigned version = 0x0620;
    std::vector<SimCardConfig> cards;
    SimScxiConfig scxi;

    SimPort bias, coil, heater, trigger;
    double biasResistor = 1e4;
    double coilResistor = 1e3;
    double heaterResistor = 1e3;
    double monitorShunt = 1e3;
    SimInputConfig inputs[kSigCount];

    SimJunctionConfig j1, j2;
    SimArrayConfig array;
    double fieldOffset = 1e-4; // coil amperes at which the field in the junctions is zero

    double tc = 9.2;
    double t0 = 4.2;
    double driftRate = 0.0;    // K/s
    double timeConstant = 5.0; // s
    double heaterKPerW = 100.0;
    double sensorCurrent = 1e-5;

    double noiseSigma = 3e-4; // V at the card input
    std::uint64_t noiseSeed = 1;
    double humFrequency = 50.0;
    double humAmplitude = 0.0; // V at the card input

    bool fStepClock = false;
    double stepSeconds = 1e-3;
};

// The configuration in force (built-in defaults until a load).
const SimConfig& SimDaqConfig();
// Fills config from fileName, defaults for what is missing, repairs the rest.
void ReadSimConfig(const char* fileName, SimConfig& config);
// The built-in rack, wiring and sample.
SimConfig DefaultSimConfig();
