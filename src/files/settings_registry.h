// All settings as a whole: two parallel lists of group functions walked over one file, and the
// main window's position.
#pragma once

// The settings file: the program's folder plus "vtl.ini", the -i: switch, or the file chosen
// with Load Options or Save Options As.
extern char gIniFileName[4096];

// A group's load or save: takes the file name, returns 1.
using OptionsFn = int (*)(const char* fileName);

constexpr unsigned kOptionsFnsCount = 24;
// Entry i of both lists treats the same group. A group that is not built yet has null in both
// and is passed over.
extern OptionsFn LoadOptionsFnsList[kOptionsFnsCount];
extern OptionsFn SaveOptionsFnsList[kOptionsFnsCount];

// Walk the lists in order inside one batch on the file, with the wait cursor on, and show the
// time spent in status pane 0. Both return 1.
int LoadAllSettings(const char* fileName);
int SaveAllSettings(const char* fileName);

// The window's rectangle under "Setup", clamped to the desktop on loading.
int LoadWindowPosition(void* window, const char* fileName);
int SaveWindowPosition(void* window, const char* fileName);
