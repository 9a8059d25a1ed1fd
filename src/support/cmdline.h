// The parameter parser: the command line as an argument vector, switches looked up by name.
// A switch starts with "-" and its value follows in the same word: -i:myfile.ini is found under
// the name "i:". Every failure prints its message to standard error and ends the process.
#pragma once
#include <cstddef>

extern int gCaseInsensitive; // names compare without case when set (0: with case)
extern int gEscapes;         // escape sequences inside quoted text when set
extern char gOptionsFileText[4097];
// Called with the exit code before a failure ends the process; a hook that throws keeps the
// process (the fuzz target of the parser). Null in the programs.
extern void (*gCmdLineFailHook)(int code);

// Splits text in place into the vector (entry 0 is "prog.exe"), then reads the options file.
bool ParseCommandLine(char* text);
// Takes a vector from main(), then reads the options file.
bool ParseArgv(int count, char** vector);
void FreeCommandLine();

// Index of the first argument from 1 that is a switch named name; its rest goes to text.
// 0 when there is none.
int FindSwitch(const char* name, char* text, size_t size);
// The same, starting after index after: walks repeated switches (-set:... -set:...).
int FindSwitchAfter(int after, const char* name, char* text, size_t size);
// The same over white-space separated words, as in the options file.
bool FindSwitchIn(const char* list, const char* name, char* text, size_t size);

int SwitchInt(const char* name, int defaultValue);
int SwitchBool(const char* name, int defaultValue);
void SwitchString(const char* name, const char* defaultValue, char* text, size_t size);

// One plus the number of arguments that are not switches.
int PositionalCount();
// The n-th such argument from 1, or null; 0 gives entry 0, the program.
const char* Positional(int n);

// "st", "nd", "rd" for a last digit 1, 2, 3 (also in 11, 12, 13), "th" for all others.
const char* OrdinalSuffix(int n);
