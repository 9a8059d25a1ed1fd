#include "files/data_file_options.h"

#include "measure/measure_run.h"
#include "settings/profile.h"
#include "platform/host.h"
#include "support/bounded_text.h"
#include "support/c_locale.h"

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

// Each group keeps the flags of its two stored keys; its functions come from the registry.
DataFileGroup gDataFileGroups[kDataFileGroupCount] = {
    {"Averaging", "SaveAveragingOptions", "LoadAveragingOptions", STEER_STRAIGHT},
    {"Delays", "SaveDelayOptions", "LoadDelayOptions", STEER_STRAIGHT},
    {"Virtual currents and voltages", "SaveVirtualIV", "LoadVirtualIV", STEER_STRAIGHT},
    {"I-V family", "SaveIVFOptions", "LoadIVFOptions", STEER_CROSSED},
    {"Ic(H)", "SaveIc(H)Options", "LoadIc(H)Options", STEER_CROSSED},
    {"R(T) and V(T)", "SaveR(T)Options", "LoadR(T)Options", STEER_STRAIGHT},
    {"Ic(T)", "SaveIc(T)Options", "LoadIc(T)Options", STEER_CROSSED},
    {"V(time)", "SaveV(time)Options", "LoadV(time)Options", STEER_LOAD_ONLY},
    {"V_dc(I_ac)", "SaveV_dc(I_ac)Options", "LoadV_dc(I_ac)Options", STEER_LOAD_ONLY},
    {"Calibrator", "SaveCalibratorOptions", "LoadCalibratorOptions", STEER_STRAIGHT},
    {"Thermometer", "SaveTermometerOptions", "LoadTermometerOptions", STEER_STRAIGHT},
    {"Other", "SaveOtherOptions", "LoadOtherOptions", STEER_STRAIGHT},
    {"Waveform general", "SaveWFMGeneralOptions", "LoadWFMGeneralOptions", STEER_STRAIGHT},
    {"Axes", "SaveAxisOptions", "LoadAxisOptions", STEER_STRAIGHT},
    {"Waveform programs", "SaveWFMs", "LoadWFMs", STEER_STRAIGHT},
    {"Trigger", "SaveTrigger", "LoadTrigger", STEER_STRAIGHT},
};

namespace {

const char kSection[] = "DataFile";

// Rows in the order of the "Data File Options" layout; the group flags follow, two a group.
constexpr unsigned kFixedRows = 7;
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
    *r++ = SetupTextRow(IDC_MEASUREMENT_COMMENT, gMeasureComment, sizeof gMeasureComment, kSection,
                        "MeasurementComment");
    *r++ = SetupTextRow(IDC_AUTO_DATA_FOLDER, gAutoDataFolder, sizeof gAutoDataFolder, kSection,
                        "AutoDataFolder");
    int id = IDC_FIRST_GROUP_FLAG;
    for (DataFileGroup& g : gDataFileGroups) {
        *r++ = SetupCheckRow(id++, &g.fSaveKey, kSection, g.saveKey);
        *r++ = SetupCheckRow(id++, &g.fLoadKey, kSection, g.loadKey);
    }
    return gDataFileRows;
}

// The group flags are labelled by what they steer, so that a crossed pair reads right and
// the unused key of a load-only group says so.
char gFlagLabels[2 * kDataFileGroupCount][64];
SetupText gDataFileTexts[kFixedRows + 2 * kDataFileGroupCount] = {
    {IDC_SHOW_OPTIONS_ON_SAVE, SETUP_TEXT_LABEL, "Show these options before every &save"},
    {IDC_SHOW_OPTIONS_ON_LOAD, SETUP_TEXT_LABEL, "Show these options before every &load"},
    {IDC_DELIMITER_BLANK, SETUP_TEXT_LABEL, "Delimiter|&Blank|&Tab|&Comma"},
    {IDC_COLUMN_WIDTH, SETUP_TEXT_LABEL, "Column &width (characters)"},
    {IDC_SORT_CURVES, SETUP_TEXT_LABEL, "S&ort curves, longest first, before saving"},
    {IDC_AUTO_DATA_FOLDER, SETUP_TEXT_LABEL, "&Folder of the automatic data file"},
    {IDC_MEASUREMENT_COMMENT, SETUP_TEXT_LABEL, "Co&mment of every new measurement"},
};

const SetupText* BuildTexts() {
    SetupText* t = gDataFileTexts + kFixedRows;
    int id = IDC_FIRST_GROUP_FLAG;
    for (unsigned g = 0; g < kDataFileGroupCount; ++g) {
        const DataFileGroup& group = gDataFileGroups[g];
        const char* saveKeyRole = "Save with data: ";
        const char* loadKeyRole = "Load with data: ";
        if (group.steering == STEER_CROSSED) std::swap(saveKeyRole, loadKeyRole);
        if (group.steering == STEER_LOAD_ONLY) saveKeyRole = "Never saved with data: ";
        SnprintfC(gFlagLabels[2 * g], sizeof gFlagLabels[0], "%s%s", saveKeyRole, group.name);
        SnprintfC(gFlagLabels[2 * g + 1], sizeof gFlagLabels[0], "%s%s", loadKeyRole, group.name);
        *t++ = {id++, SETUP_TEXT_LABEL, gFlagLabels[2 * g]};
        *t++ = {id++, SETUP_TEXT_LABEL, gFlagLabels[2 * g + 1]};
    }
    return gDataFileTexts;
}

} // namespace

SetupTable gDataFileSetupTable = {
    .rowCount = CountOf(gDataFileRows),
    .rows = BuildRows(),
    .textCount = CountOf(gDataFileTexts),
    .texts = BuildTexts(),
};

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
    gMeasureComment[0] = '\0';
    for (DataFileGroup& g : gDataFileGroups)
        g.fSaveKey = g.fLoadKey = 0;
}
