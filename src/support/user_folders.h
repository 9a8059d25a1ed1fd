// Where the settings, the card descriptions and the automatic data live. A program run from its
// build folder keeps everything beside itself. An installed program (its folder not writable,
// or the shipped defaults in ../share/vantrel beside it) keeps them in the user's folders:
// $XDG_CONFIG_HOME/vantrel (default ~/.config/vantrel) for vtl.ini, nidaq.ini, simdaq.ini and
// the thermometer tables, and $XDG_DATA_HOME/vantrel/data (default ~/.local/share/vantrel/data)
// for the automatic data pairs. The shipped defaults are copied there on first use, never
// over a file that is already there.
#pragma once
#include <string>

// True when the settings live in the user's folders.
bool UsesUserFolders();
// The folder of vtl.ini, nidaq.ini and simdaq.ini, with a trailing "/".
const char* SettingsDirectory();
// The automatic data folder of an installed program (no trailing "/"); empty when the program
// keeps its data beside its settings.
std::string UserDataFolder();
// The folder the shipped defaults come from, with a trailing "/".
std::string ShippedDefaultsDirectory();
// Forgets what was found, for tests that change the environment.
void ResetUserFolders();
