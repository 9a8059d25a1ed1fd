// The automatic data pair written after every measurement, so that no run is lost even when
// the user never saves.
#pragma once
#include <cstddef>
#include <ctime>

// The folder of the automatic pairs: gAutoDataFolder, or "data" beside settingsFile.
void AutoDataFolder(const char* settingsFile, char* folder, size_t size);
// "title_YYYY-MM-DD_HH-MM-SS" with the characters a file name can't hold replaced by "_".
void AutoDataBaseName(const char* title, std::time_t when, char* name, size_t size);
// Writes gCurves as a pair into the automatic folder (made when missing), never over an earlier
// pair: a counter "_2", "_3", ... follows the time when the name is taken. The time is the
// family's date, or now when it has none. Returns the WriteDataPair result, or -3 when the
// folder can't be made; every failure has shown its box. path receives the name of the .dat,
// whether or not it could be written.
int WriteAutomaticDataPair(const char* title, const char* settingsFile, char* path, size_t size);
