// What every instrument verb does first: choose the driver, find the cards, load the settings.
#pragma once

// Selects -daq:NAME (default sim) with -simdaq:PATH, runs DetectCards with the program folder,
// sets the currents' last written values to their zeros and, when loadSettings is set, loads
// all settings from -i:FILE (default vtl.ini beside the program) with the -set:Section/Key=value
// overrides. Returns 0, or the exit status after printing the reason to standard error.
int CliStartInstrument(bool loadSettings);
// The hardware report DetectCards wrote.
const char* CliHardwareReport();
