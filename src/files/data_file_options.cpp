#include "files/data_file_options.h"

#include "files/profile.h"
#include "platform/host.h"
#include "support/bounded_text.h"
#include "support/c_locale.h"

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <strings.h>

int fShowOptionsOnSave = 1;
int fShowOptionsOnLoad = 1;
int gDelimitterID = 1;
unsigned gColumnWidth = 12;
int fSortCurves = 1;
char gAutoDataFolder[260] = "";

// Entries with null functions are groups that do not exist yet; each joins by naming its own
// load and save functions here.
DataFileGroup gDataFileGroups[kDataFileGroupCount] = {
    {"Averaging", "SaveAveragingOptions", "LoadAveragingOptions", STEER_STRAIGHT, 0, 0, nullptr,
     nullptr},
    {"Delays", "SaveDelayOptions", "LoadDelayOptions", STEER_STRAIGHT, 0, 0, nullptr, nullptr},
    {"Virtual currents and voltages", "SaveVirtualIV", "LoadVirtualIV", STEER_STRAIGHT, 0, 0,
     nullptr, nullptr},
    {"I-V family", "SaveIVFOptions", "LoadIVFOptions", STEER_CROSSED, 0, 0, nullptr, nullptr},
    {"Ic(H)", "SaveIc(H)Options", "LoadIc(H)Options", STEER_CROSSED, 0, 0, nullptr, nullptr},
    {"R(T) and V(T)", "SaveR(T)Options", "LoadR(T)Options", STEER_STRAIGHT, 0, 0, nullptr, nullptr},
    {"Ic(T)", "SaveIc(T)Options", "LoadIc(T)Options", STEER_CROSSED, 0, 0, nullptr, nullptr},
    {"V(time)", "SaveV(time)Options", "LoadV(time)Options", STEER_LOAD_ONLY, 0, 0, nullptr,
     nullptr},
    {"V_dc(I_ac)", "SaveV_dc(I_ac)Options", "LoadV_dc(I_ac)Options", STEER_LOAD_ONLY, 0, 0, nullptr,
     nullptr},
    {"Calibrator", "SaveCalibratorOptions", "LoadCalibratorOptions", STEER_STRAIGHT, 0, 0, nullptr,
     nullptr},
    {"Thermometer", "SaveTermometerOptions", "LoadTermometerOptions", STEER_STRAIGHT, 0, 0, nullptr,
     nullptr},
    {"Other", "SaveOtherOptions", "LoadOtherOptions", STEER_STRAIGHT, 0, 0, nullptr, nullptr},
    {"Waveform general", "SaveWFMGeneralOptions", "LoadWFMGeneralOptions", STEER_STRAIGHT, 0, 0,
     nullptr, nullptr},
    {"Axes", "SaveAxisOptions", "LoadAxisOptions", STEER_STRAIGHT, 0, 0, nullptr, nullptr},
    {"Waveform programs", "SaveWFMs", "LoadWFMs", STEER_STRAIGHT, 0, 0, nullptr, nullptr},
    {"Trigger", "SaveTrigger", "LoadTrigger", STEER_STRAIGHT, 0, 0, nullptr, nullptr},
};

namespace {

const char kSection[] = "DataFile";

enum OptionKind { KIND_INT, KIND_UNSIGNED, KIND_TEXT };
struct OptionKey {
    const char* key;
    OptionKind kind;
    void* variable;
    size_t size; // of a text
};

const OptionKey kOptionKeys[] = {
    {"ShowOptionsOnSave", KIND_INT, &fShowOptionsOnSave, 0},
    {"ShowOptionsOnLoad", KIND_INT, &fShowOptionsOnLoad, 0},
    {"DelimitterID", KIND_INT, &gDelimitterID, 0},
    {"ColumnWidth", KIND_UNSIGNED, &gColumnWidth, 0},
    {"sort", KIND_INT, &fSortCurves, 0},
    {"AutoDataFolder", KIND_TEXT, gAutoDataFolder, sizeof gAutoDataFolder},
};

// Integers as the profile reads them: the number at the start, else the old value.
void SetFromText(const OptionKey& k, const char* text) {
    if (k.kind == KIND_TEXT) {
        BoundedCopy(static_cast<char*>(k.variable), text, k.size);
        return;
    }
    char* end = nullptr;
    long long v = std::strtoll(text, &end, 10);
    if (end == text) return;
    if (k.kind == KIND_UNSIGNED)
        *static_cast<unsigned*>(k.variable) = static_cast<unsigned>(v);
    else
        *static_cast<int*>(k.variable) = static_cast<int>(v);
}

void ValueText(const OptionKey& k, char* text, size_t size) {
    if (k.kind == KIND_TEXT)
        BoundedCopy(text, static_cast<const char*>(k.variable), size);
    else if (k.kind == KIND_UNSIGNED)
        SnprintfC(text, size, "%u", *static_cast<const unsigned*>(k.variable));
    else
        SnprintfC(text, size, "%u", static_cast<unsigned>(*static_cast<const int*>(k.variable)));
}

int* GroupFlag(const char* key) {
    for (DataFileGroup& g : gDataFileGroups) {
        if (strcasecmp(g.saveKey, key) == 0) return &g.fSaveKey;
        if (strcasecmp(g.loadKey, key) == 0) return &g.fLoadKey;
    }
    return nullptr;
}

} // namespace

char DataFileDelimiter() {
    static const char kDelimiters[3] = {' ', '\t', ','};
    return gDelimitterID >= 0 && gDelimitterID < 3 ? kDelimiters[gDelimitterID] : '\t';
}

unsigned DataFileColumnWidth() {
    if (gColumnWidth < kMinColumnWidth) return kMinColumnWidth;
    return gColumnWidth > kMaxColumnWidth ? kMaxColumnWidth : gColumnWidth;
}

bool DataFileGroupSaves(const DataFileGroup& g) {
    switch (g.steering) {
    case STEER_STRAIGHT:
        return g.fSaveKey != 0;
    case STEER_CROSSED:
        return g.fLoadKey != 0;
    case STEER_LOAD_ONLY:
        return false;
    }
    return false;
}

bool DataFileGroupLoads(const DataFileGroup& g) {
    return (g.steering == STEER_CROSSED ? g.fSaveKey : g.fLoadKey) != 0;
}

unsigned LoadDataFileGroups(const char* iniFileName) {
    unsigned run = 0;
    for (const DataFileGroup& g : gDataFileGroups)
        if (g.Load && DataFileGroupLoads(g)) run += g.Load(iniFileName) ? 1 : 0;
    return run;
}

unsigned SaveDataFileGroups(const char* iniFileName) {
    // The save order is the load order with the load-only groups left out.
    unsigned run = 0;
    for (const DataFileGroup& g : gDataFileGroups)
        if (g.Save && DataFileGroupSaves(g)) run += g.Save(iniFileName) ? 1 : 0;
    return run;
}

int LoadDataFileOptions(const char* fileName) {
    ProfileBatch batch(fileName);
    char text[512];
    for (const OptionKey& k : kOptionKeys) {
        char current[512];
        ValueText(k, current, sizeof current);
        GetPrivateProfileString(kSection, k.key, current, text, sizeof text, fileName);
        SetFromText(k, text);
    }
    for (DataFileGroup& g : gDataFileGroups) {
        g.fSaveKey = GetPrivateProfileInt(kSection, g.saveKey, g.fSaveKey, fileName);
        g.fLoadKey = GetPrivateProfileInt(kSection, g.loadKey, g.fLoadKey, fileName);
    }
    return 1;
}

int SaveDataFileOptions(const char* fileName) {
    ProfileBatch batch(fileName);
    char text[512];
    for (const OptionKey& k : kOptionKeys) {
        ValueText(k, text, sizeof text);
        WritePrivateProfileString(kSection, k.key, text, fileName);
    }
    for (const DataFileGroup& g : gDataFileGroups) {
        WriteProfileInt(kSection, g.saveKey, "%u", g.fSaveKey, fileName);
        WriteProfileInt(kSection, g.loadKey, "%u", g.fLoadKey, fileName);
    }
    return 1;
}

int SetDataFileOption(const char* key, const char* value) {
    for (const OptionKey& k : kOptionKeys)
        if (strcasecmp(k.key, key) == 0) {
            SetFromText(k, value);
            return 1;
        }
    if (int* flag = GroupFlag(key)) {
        *flag = std::atoi(value);
        return 1;
    }
    return 0;
}

int ShowDataFileOptions() {
    // The table-driven dialog needs the option table engine; until it is here the options
    // are used as they stand.
    return 1;
}

void ResetDataFileOptions() {
    fShowOptionsOnSave = 1;
    fShowOptionsOnLoad = 1;
    gDelimitterID = 1;
    gColumnWidth = 12;
    fSortCurves = 1;
    gAutoDataFolder[0] = '\0';
    for (DataFileGroup& g : gDataFileGroups)
        g.fSaveKey = g.fLoadKey = 0;
}
