// AutoZero: a Josephson sample at zero current has exactly zero voltage, so the offsets of
// amplifiers and cards can be learned from the experiment itself. All currents go to their
// zero, every voltage (and optionally every current monitor) is measured, and the results
// become the shifts that GetVoltage and GetCurrent subtract.
#pragma once
#include <cstddef>
#include <cstdint>

struct SetupTable;

// Section "Setup".
extern std::uint32_t AutoZeroExtraAveraging; // reads of each voltage on top of the averaging
extern std::int32_t ShowAutoZeroWarning;     // ask before accepting the result
extern std::int32_t AutoZero_IgnoreTSensor;  // leave "T-sensor" voltages out
extern std::int32_t AutoZero_Do4CurrentMon;  // include the current monitors
extern std::int32_t AutoZero_RedoOnDoIt;     // repeat AutoZero when a measurement starts

extern const char kAutoZeroWarningCaption[];
extern const char kAutoZeroWarningText[];
// The note of the options dialog beside AutoZero_RedoOnDoIt.
extern const char kAutoZeroRedoNote[];

// Runs AutoZero with the box on, clears the shifts with it off. Returns the state the box
// should show afterwards: Abort in the warning clears it.
int DoAutoZero(int boxOn, void* window = nullptr);
// At the start of a measurement when AutoZero_RedoOnDoIt is set: a run without the warning
// and without the T-sensor voltages.
void RedoAutoZero(void* window = nullptr);
// Inside the Ic scans: sweep1 alone goes to zero, the voltages are measured, sweep1 returns.
void AutoZeroAtSweepZero();

// The texts and captions of "Show &V" and "Show &I-Mon".
void AutoZeroVoltageShiftsText(char* text, std::size_t size);
void AutoZeroMonitorShiftsText(char* text, std::size_t size);
extern const char kAutoZeroVoltageShiftsCaption[];
extern const char kAutoZeroMonitorShiftsCaption[];
void ShowAutoZeroVoltageShifts(void* window);
void ShowAutoZeroMonitorShifts(void* window);

// The option group, at two places of the settings lists.
int LoadAutoZeroOptions(const char* fileName);
int SaveAutoZeroOptions(const char* fileName);
SetupTable* AutoZeroSetupTable();
// The dialog "AutoZero Options"; 1 for OK.
int AutoZeroOptionsDialog();
