// Shared between the units of the parameter parser; not for callers.
#pragma once
#include <cstddef>

// Prints the message to standard error and ends the process with code. On Linux standard error
// is there even without a terminal (the desktop session or journal keeps it).
[[noreturn]] void CmdLineFail(int code, const char* format, ...)
    __attribute__((format(printf, 2, 3)));

bool IsCmdLineSpace(char c);
// Splits text in place into a vector allocated with malloc whose entry 0 is "prog.exe"; null
// without memory.
char** SplitCommandLine(char* text, int* count);
// The value of the first switch called name among the arguments after index after, pointing
// into the argument; null when there is none. index gets the argument's index.
const char* ArgSwitchValue(int after, const char* name, int* index);
// The value of the first switch called name among the words of list: its start and length.
bool ListSwitchValue(const char* list, const char* name, const char** value, std::size_t* length);
// Room for any value of the options file.
constexpr std::size_t CMDLINE_VALUE_SIZE = 4097;
