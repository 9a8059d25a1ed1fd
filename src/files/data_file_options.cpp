#include "files/data_file_options.h"

#include "files/profile.h"
#include "instrument/thermometer.h"
#include "measure/measure_options.h"
#include "platform/host.h"
#include "support/bounded_text.h"
#include "ui/setup_texts.h"

#include <cstdlib>
#include <string>
#include <utility>
#include <strings.h>

int32_t fShowOptionsOnSave = 1;
int32_t fShowOptionsOnLoad = 1;
int32_t gDelimitterID = 1;
uint32_t gColumnWidth = 12;
int32_t fSortCurves = 1;
char gAutoDataFolder[260] = "";

// Entries with null functions are groups that do not exist yet; each joins by naming its own
// load and save functions here.
DataFileGroup gDataFileGroups[kDataFileGroupCount] = {
    {"Averaging", "SaveAveragingOptions", "LoadAveragingOptions", STEER_STRAIGHT, 0, 0, nullptr,
     nullptr},
    {"Delays", "SaveDelayOptions", "LoadDelayOptions", STEER_STRAIGHT, 0, 0, Delays_LoadOptions,
     Delays_SaveOptions},
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
    {"Thermometer", "SaveTermometerOptions", "LoadTermometerOptions", STEER_STRAIGHT, 0, 0,
     LoadTermometerOptions, SaveTermometerOptions},
    {"Other", "SaveOtherOptions", "LoadOtherOptions", STEER_STRAIGHT, 0, 0,
     GeneralMeasure_LoadOptions, GeneralMeasure_SaveOptions},
    {"Waveform general", "SaveWFMGeneralOptions", "LoadWFMGeneralOptions", STEER_STRAIGHT, 0, 0,
     nullptr, nullptr},
    {"Axes", "SaveAxisOptions", "LoadAxisOptions", STEER_STRAIGHT, 0, 0, nullptr, nullptr},
    {"Waveform programs", "SaveWFMs", "LoadWFMs", STEER_STRAIGHT, 0, 0, nullptr, nullptr},
    {"Trigger", "SaveTrigger", "LoadTrigger", STEER_STRAIGHT, 0, 0, nullptr, nullptr},
};

namespace {

const char kSection[] = "DataFile";

// Rows in the order of the "Data File Options" layout; the group flags follow, two a group.
constexpr unsigned kFixedRows = 6;
SetupRow gDataFileRows[kFixedRows + 2 * kDataFileGroupCount];

SetupRow* BuildRows() {
    SetupRow* r = gDataFileRows;
    *r++ =
        SetupCheckRow(IDC_SHOW_OPTIONS_ON_SAVE, &fShowOptionsOnSave, kSection, "ShowOptionsOnSave");
    *r++ =
        SetupCheckRow(IDC_SHOW_OPTIONS_ON_LOAD, &fShowOptionsOnLoad, kSection, "ShowOptionsOnLoad");
    *r++ = SetupRadioRow(IDC_DELIMITER_BLANK, &gDelimitterID, kSection, "DelimitterID");
    *r++ = SetupUIntRow(IDC_COLUMN_WIDTH, &gColumnWidth, kSection, "ColumnWidth", kMinColumnWidth,
                        kMaxColumnWidth);
    *r++ = SetupCheckRow(IDC_SORT_CURVES, &fSortCurves, kSection, "sort");
    *r++ = SetupTextRow(IDC_AUTO_DATA_FOLDER, gAutoDataFolder, sizeof gAutoDataFolder, kSection,
                        "AutoDataFolder");
    int id = IDC_FIRST_GROUP_FLAG;
    for (DataFileGroup& g : gDataFileGroups) {
        *r++ = SetupCheckRow(id++, &g.fSaveKey, kSection, g.saveKey);
        *r++ = SetupCheckRow(id++, &g.fLoadKey, kSection, g.loadKey);
    }
    return gDataFileRows;
}

} // namespace

SetupTable gDataFileSetupTable = {kFixedRows + 2 * kDataFileGroupCount, BuildRows(), nullptr, 0,
                                  nullptr};

void RegisterDataFileTexts() {
    static const SetupText kFixed[] = {
        {IDC_SHOW_OPTIONS_ON_SAVE, SETUP_TEXT_LABEL, "Show these options before every &save"},
        {IDC_SHOW_OPTIONS_ON_LOAD, SETUP_TEXT_LABEL, "Show these options before every &load"},
        {IDC_DELIMITER_BLANK, SETUP_TEXT_LABEL, "Delimiter|&Blank|&Tab|&Comma"},
        {IDC_COLUMN_WIDTH, SETUP_TEXT_LABEL, "Column &width (characters)"},
        {IDC_SORT_CURVES, SETUP_TEXT_LABEL, "S&ort curves, longest first, before saving"},
        {IDC_AUTO_DATA_FOLDER, SETUP_TEXT_LABEL, "&Folder of the automatic data file"},
    };
    // The group flags are labelled by what they steer, so that a crossed pair reads right and
    // the unused key of a load-only group says so.
    static std::string labels[2 * kDataFileGroupCount];
    static SetupText texts[kFixedRows + 2 * kDataFileGroupCount];
    unsigned n = 0;
    for (const SetupText& t : kFixed)
        texts[n++] = t;
    int id = IDC_FIRST_GROUP_FLAG;
    for (unsigned g = 0; g < kDataFileGroupCount; ++g) {
        const DataFileGroup& group = gDataFileGroups[g];
        const std::string name = group.name;
        const char* saveKeyRole = "Save with data: ";
        const char* loadKeyRole = "Load with data: ";
        if (group.steering == STEER_CROSSED) std::swap(saveKeyRole, loadKeyRole);
        if (group.steering == STEER_LOAD_ONLY) saveKeyRole = "Never saved with data: ";
        labels[2 * g] = saveKeyRole + name;
        labels[2 * g + 1] = loadKeyRole + name;
        texts[n++] = {id++, SETUP_TEXT_LABEL, labels[2 * g].c_str()};
        texts[n++] = {id++, SETUP_TEXT_LABEL, labels[2 * g + 1].c_str()};
    }
    RegisterSetupTexts(&gDataFileSetupTable, texts, n);
}

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
    return LoadOptionTable(&gDataFileSetupTable, fileName);
}

int SaveDataFileOptions(const char* fileName) {
    return SaveOptionTable(&gDataFileSetupTable, fileName);
}

int SetDataFileOption(const char* key, const char* value) {
    for (unsigned i = 0; i < gDataFileSetupTable.rowCount; ++i) {
        const SetupRow& row = gDataFileSetupTable.rows[i];
        if (strcasecmp(row.key, key) != 0) continue;
        if (row.kind == SETUP_TEXT) {
            BoundedCopy(static_cast<char*>(row.variable), value, row.minimum.size);
            return 1;
        }
        // As the profile reads an integer: the number at the start, else the old value.
        char* end = nullptr;
        long long v = std::strtoll(value, &end, 10);
        if (end != value) *static_cast<int32_t*>(row.variable) = static_cast<int32_t>(v);
        return 1;
    }
    return 0;
}

int ShowDataFileOptions() {
    return Host().RunSetupDialog(&gDataFileSetupTable, "Data File Options");
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
