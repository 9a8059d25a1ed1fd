// The name of the settings file that every group loads from and saves to.
#pragma once

// The program's folder plus "vtl.ini", the -i: switch, or the file chosen with Load Options or
// Save Options As. Written by the interface thread only, never during a measurement.
extern char gIniFileName[4096];

// A group's load or save: takes the file name (vtl.ini or the .ini of a data pair), returns 1.
using OptionsFn = int (*)(const char* fileName);
