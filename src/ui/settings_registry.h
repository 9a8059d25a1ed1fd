// All settings as a whole: one table of every option group, walked over one file, and the
// main window's position. The table names every module, so it stands at the top of the core.
#pragma once
#include "settings/settings_file.h"

// One option group of vtl.ini. A group that is not built yet has no functions and is passed
// over.
struct SettingsGroup {
    const char* name;
    OptionsFn load;
    OptionsFn save;
};

constexpr unsigned kSettingsGroupCount = 24;
// In walking order: a later group can rely on what an earlier one loaded.
extern const SettingsGroup gSettingsGroups[kSettingsGroupCount];

// Walks groups in order inside one batch on the file, loading or saving each. A group whose
// load and save are the same function fails the debug check. Returns 1, or 0 when the file
// could not be written (the batch has told the user).
int WalkSettingsGroups(const SettingsGroup* groups, unsigned count, bool save,
                       const char* fileName);

// Walk gSettingsGroups with the wait cursor on, and show the time spent in status pane 0.
// Both return 1; SaveAllSettings returns 0 instead, with one box and no time message, when the
// file could not be written.
int LoadAllSettings(const char* fileName);
int SaveAllSettings(const char* fileName);

// Gives the option groups that travel inside a data .ini their load and save functions, from
// the groups of this table and the ones that only data files carry. Every program runs it once
// before it reads or writes a data pair.
void InstallSettingsGroups();

// The window's rectangle under "Setup", clamped to the desktop on loading. Saving returns 0,
// after the box, when the file could not be written.
int LoadWindowPosition(void* window, const char* fileName);
int SaveWindowPosition(void* window, const char* fileName);
