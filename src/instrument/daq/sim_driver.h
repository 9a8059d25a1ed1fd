// The simulated instrument: a rack of DAQ cards wired to a cryogenic sample (two junctions and a
// series array on one bias line, a field coil, a heater and a resistance thermometer). It answers
// the driver table as real cards do, so that everything above it runs without hardware.
//
// Time: by default the sample lives in real monotonic time since the load; with
// [Clock] Mode=step it only moves by StepSeconds per single-point call, by count / rate per timed
// acquisition, and by SimDaqAdvance, so that tests are deterministic.
#pragma once
#include "instrument/daq/daq_driver.h"

extern const DaqDriver gSimDaqDriver;

// Status codes of the simulated cards besides kDaqNotSupported.
constexpr i16 kSimErrBadValue = -10003;      // a count, rate, reading or voltage out of range
constexpr i16 kSimErrBadChannel = -10007;    // no such channel on the card
constexpr i16 kSimErrBadGain = -10012;       // the card does not accept the gain code
constexpr i16 kSimErrBadInterval = -10011;   // scan too fast for the sample rate
constexpr i16 kSimErrUnknownDevice = -10401; // empty slot or absent chassis
constexpr i16 kSimErrTimeout = -10800;       // the acquisition outlasted Timeout_Config

// Reads simdaq.ini from path (null: the path of SimDaqSetPath, default "simdaq.ini") and
// restarts the sample. Missing file or keys give the built-in defaults; unusable values are
// repaired. Returns true when the file existed.
bool SimDaqLoad(const char* path);
// The file the driver loads on its first call after this.
void SimDaqSetPath(const char* path);

// Moves sample time on (both clock modes), as a wait would.
void SimDaqAdvance(double seconds);
// Seconds of sample time since the load.
double SimDaqTime();

struct SimJunctionState {
    double ic = 0; // A, at the present field and temperature
    double ir = 0; // A, retrapping current
    double ie = 0; // A, excess current at the present temperature
    double rn = 0; // ohm
    bool fRunning = false;
    double voltage = 0; // V across the junction, without thermo-EMF
};

struct SimSampleState {
    double time = 0;             // s
    double temperature = 0;      // K
    double biasCurrent = 0;      // A
    double coilCurrent = 0;      // A
    double heaterPower = 0;      // W
    double sensorResistance = 0; // ohm
    SimJunctionState j1, j2;
    int arrayCount = 0;
    int arraySwitched = 0;
    double arrayVoltage = 0; // V
};

// The sample as it stands now; reading it moves no time and draws no noise.
SimSampleState SimDaqSampleState();
// Critical current of array junction k at T = 0, in amperes (0 past the end).
double SimDaqArrayJunctionIc0(int k);
// Retrapping current over critical current of the RCSJ model for betaC (1 when not hysteretic).
double SimDaqRetrapRatio(double betaC);
// Time-averaged normalised voltage V / (Ic Rn) on the running branch at bias I / Ic.
double SimDaqRunningVoltage(double betaC, double normalisedCurrent);
// The thermometer's resistance at a temperature.
double SimDaqSensorResistance(double kelvin);
// The last status reported through the error handler, 0 when none.
i16 SimDaqLastReportedError();
