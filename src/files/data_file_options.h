// The options of the data file pair, section "DataFile" of vtl.ini: the table format, the
// folder of the automatic pair, and the flags that carry other option groups into and out of
// the .ini of a data pair.
#pragma once
#include "settings/settings_file.h"
#include "settings/setup_table.h"

#include <cstddef>
#include <cstdint>

extern int32_t fShowOptionsOnSave; // open the options dialog before every save
extern int32_t fShowOptionsOnLoad; // open the options dialog before every load
extern int32_t gDelimitterID;      // 0 blank, 1 tab, 2 comma
extern uint32_t gColumnWidth;      // characters of one number; significant digits are 4 fewer
extern int32_t fSortCurves;        // key "sort": longest curve first before saving
// Folder of the automatic data pair; empty means "data" beside the settings file.
extern char gAutoDataFolder[260];

constexpr unsigned kMinColumnWidth = 6;
constexpr unsigned kMaxColumnWidth = 32;

// The delimiter of gDelimitterID; a value outside the table gives the default, tab.
char DataFileDelimiter();
// gColumnWidth held to its range, so that a hand-edited vtl.ini can't ask for huge cells.
unsigned DataFileColumnWidth();

// How the two stored flags of a group steer it. In three groups the names are crossed: the
// key named Load steers saving. Two groups are never saved; their Save key is kept and unused.
enum DataFileSteering { STEER_STRAIGHT, STEER_CROSSED, STEER_LOAD_ONLY };

// The option groups that can travel inside the .ini of a data pair, in load order.
enum DataFileGroupId : unsigned {
    DATA_GROUP_AVERAGING,
    DATA_GROUP_DELAYS,
    DATA_GROUP_VIRTUAL_IV,
    DATA_GROUP_IVF,
    DATA_GROUP_ICH,
    DATA_GROUP_RT,
    DATA_GROUP_ICT,
    DATA_GROUP_VTIME,
    DATA_GROUP_VDC_IAC,
    DATA_GROUP_CALIBRATOR,
    DATA_GROUP_THERMOMETER,
    DATA_GROUP_OTHER,
    DATA_GROUP_WFM_GENERAL,
    DATA_GROUP_AXES,
    DATA_GROUP_WFMS,
    DATA_GROUP_TRIGGER,
    kDataFileGroupCount
};

// Load and Save are the group's own functions, the same that serve vtl.ini; the settings
// registry gives them (InstallSettingsGroups), and a group without them is passed over.
struct DataFileGroup {
    const char* name;
    const char* saveKey; // the stored key named Save...
    const char* loadKey; // the stored key named Load...
    DataFileSteering steering;
    int32_t fSaveKey;
    int32_t fLoadKey;
    OptionsFn Load;
    OptionsFn Save;
};
extern DataFileGroup gDataFileGroups[kDataFileGroupCount];

// Whether a group goes into a data .ini on save, or comes out of one on load, by its flags.
bool DataFileGroupSaves(const DataFileGroup& group);
bool DataFileGroupLoads(const DataFileGroup& group);
// Walk the groups whose flags are on, in load order or in save order; returns the number run.
unsigned LoadDataFileGroups(const char* iniFileName);
unsigned SaveDataFileGroups(const char* iniFileName);

// Controls of the dialog layout 1569.
enum : int {
    IDC_SHOW_OPTIONS_ON_SAVE = 1570,
    IDC_SHOW_OPTIONS_ON_LOAD,
    IDC_DELIMITER_BLANK, // radio group: blank, tab, comma
    IDC_DELIMITER_TAB,
    IDC_DELIMITER_COMMA,
    IDC_COLUMN_WIDTH,
    IDC_SORT_CURVES,
    IDC_AUTO_DATA_FOLDER,
    IDC_MEASUREMENT_COMMENT,
    IDC_FIRST_GROUP_FLAG = 1600, // then the Save and the Load key of each group in turn
};

// The group as one table: its dialog, and its load and save in vtl.ini.
extern SetupTable gDataFileSetupTable;

// The group functions of the settings lists (entry 3); both return 1.
int LoadDataFileOptions(const char* fileName);
int SaveDataFileOptions(const char* fileName);
// Sets one "DataFile" key from its text, as loading it would; 0 for an unknown key.
int SetDataFileOption(const char* key, const char* value);
// The "Data File Options" dialog over the installed host; 1 for OK.
int ShowDataFileOptions();
// Built-in defaults for every option of the group.
void ResetDataFileOptions();
