#include "instrument/autozero.h"

#include "platform/host.h"
#include "settings/setup_table.h"

#include <cstdint>

std::uint32_t AutoZeroExtraAveraging = 10;
std::int32_t ShowAutoZeroWarning = 0;
std::int32_t AutoZero_IgnoreTSensor = 0;
std::int32_t AutoZero_Do4CurrentMon = 0;
std::int32_t AutoZero_RedoOnDoIt = 0;

const char kAutoZeroRedoNote[] =
    "1. Except for T-sensor voltage.\n2. Does not show AutoZero warning.";

namespace {

// Controls of the "AutoZero Options" layout.
enum : int {
    ID_EXTRA_AVERAGING = 101,
    ID_SHOW_WARNING = 102,
    ID_IGNORE_TSENSOR = 103,
    ID_CURRENT_MONITORS = 104,
    ID_REDO_ON_DOIT = 105,
    ID_REDO_NOTE = 106,
};

const char kSetup[] = "Setup";

SetupRow gRows[] = {
    SetupUIntRow(ID_EXTRA_AVERAGING, &AutoZeroExtraAveraging, kSetup, "AutoZeroExtraAveraging", 1,
                 UINT32_MAX),
    SetupCheckRow(ID_SHOW_WARNING, &ShowAutoZeroWarning, kSetup, "ShowAutoZeroWarning"),
    SetupCheckRow(ID_IGNORE_TSENSOR, &AutoZero_IgnoreTSensor, kSetup, "AutoZero_IgnoreTSensor"),
    SetupCheckRow(ID_CURRENT_MONITORS, &AutoZero_Do4CurrentMon, kSetup, "AutoZero_Do4CurrentMon"),
    SetupCheckRow(ID_REDO_ON_DOIT, &AutoZero_RedoOnDoIt, kSetup, "AutoZero_RedoOnDoIt"),
};

const SetupText kTexts[] = {
    {ID_EXTRA_AVERAGING, SETUP_TEXT_LABEL, "&Extra averaging (reads of each voltage)"},
    {ID_SHOW_WARNING, SETUP_TEXT_LABEL, "&Show AutoZero warning"},
    {ID_IGNORE_TSENSOR, SETUP_TEXT_LABEL, "&Ignore T-sensor voltages"},
    {ID_CURRENT_MONITORS, SETUP_TEXT_LABEL, "AutoZero current &monitors too"},
    {ID_REDO_ON_DOIT, SETUP_TEXT_LABEL, "&Redo AutoZero when a measurement starts"},
    {ID_REDO_NOTE, SETUP_TEXT_STATIC, kAutoZeroRedoNote},
};

SetupTable gTable = {
    .rowCount = CountOf(gRows),
    .rows = gRows,
    .textCount = CountOf(kTexts),
    .texts = kTexts,
};

} // namespace

SetupTable* AutoZeroSetupTable() {
    return &gTable;
}
int LoadAutoZeroOptions(const char* fileName) {
    return LoadOptionTable(&gTable, fileName);
}
int SaveAutoZeroOptions(const char* fileName) {
    return SaveOptionTable(&gTable, fileName);
}
int AutoZeroOptionsDialog() {
    return Host().RunSetupDialog(&gTable, "AutoZero Options");
}
