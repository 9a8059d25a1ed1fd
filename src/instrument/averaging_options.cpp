#include "instrument/averaging.h"

#include "platform/host.h"
#include "settings/setup_table.h"

namespace {

// Controls of the "Averaging Setup" layout.
enum : int {
    ID_CURRENT_TIMES = 101,
    ID_CURRENT_START = 102,
    ID_VOLTAGE_TIMES = 103,
    ID_VOLTAGE_START = 104,
    ID_TURBO = 105,
    ID_RATE = 106,
    ID_RATE_LABEL = 107,
    ID_ISTATUS = 108,
    ID_VSTATUS = 109,
    ID_NOTE = 110,
};

const char kMath[] = "Math";

SetupRow gRows[] = {
    SetupUIntRow(ID_CURRENT_TIMES, &GetCurrentAveragingTimes, kMath, "GetCurrentAveragingTimes", 1,
                 65535),
    SetupUIntRow(ID_CURRENT_START, &GetCurrentAveragingStart, kMath, "GetCurrentAveragingStart", 0,
                 32767),
    SetupUIntRow(ID_VOLTAGE_TIMES, &GetVoltageAveragingTimes, kMath, "GetVoltageAveragingTimes", 1,
                 65535),
    SetupUIntRow(ID_VOLTAGE_START, &GetVoltageAveragingStart, kMath, "GetVoltageAveragingStart", 0,
                 32767),
    SetupCheckRow(ID_TURBO, &TurboAveraging, kMath, "TurboAveraging"),
    SetupFloatRow(ID_RATE, &TA_SampleRate, kMath, "TA_SampleRate", 0.00153f, 500000.0f),
    // Shown, never saved.
    SetupIntRow(ID_ISTATUS, &TA_IStatus, kMath, nullptr, INT32_MIN, INT32_MAX),
    SetupIntRow(ID_VSTATUS, &TA_VStatus, kMath, nullptr, INT32_MIN, INT32_MAX),
};

// The rate and its label follow the Turbo check box.
const int kTurboSlaves[] = {ID_TURBO, ID_RATE, ID_RATE_LABEL};
const Dependency kDependencies[] = {{0, 2, kTurboSlaves}};

// OK and Save check the counts against each other before the table takes them.
int AveragingCallback(SetupDialog* dialog, int id, void*, int) {
    if (id != SETUP_ID_OK && id != SETUP_ID_SAVE) return 0;
    u32 values[4];
    const int ids[4] = {ID_CURRENT_TIMES, ID_CURRENT_START, ID_VOLTAGE_TIMES, ID_VOLTAGE_START};
    for (int pair = 0; pair < 2; ++pair) {
        u32& times = values[2 * pair];
        if (!ReadUIntField(dialog, ids[2 * pair], 1, 2147483646u, &times)) return 1;
        if (!ReadUIntField(dialog, ids[2 * pair + 1], 0, (times - 1) / 2, &values[2 * pair + 1]))
            return 1;
    }
    return 0;
}

// The rate's row label stands for the layout's separate rate label.
const SetupText kTexts[] = {
    {ID_CURRENT_TIMES, SETUP_TEXT_LABEL, "&Number of samples"},
    {ID_CURRENT_START, SETUP_TEXT_LABEL, "S&tart averaging from"},
    {ID_VOLTAGE_TIMES, SETUP_TEXT_LABEL, "N&umber of samples"},
    {ID_VOLTAGE_START, SETUP_TEXT_LABEL, "St&art avearging from"},
    {ID_TURBO, SETUP_TEXT_LABEL, "Use Turbo (if possible)"},
    {ID_RATE, SETUP_TEXT_LABEL, "Rate (samples/sec): . . . . "},
    {ID_ISTATUS, SETUP_TEXT_LABEL, "I-Status:"},
    {ID_VSTATUS, SETUP_TEXT_LABEL, "V-Status:"},
    {ID_NOTE, SETUP_TEXT_STATIC,
     "Remember that Start point should be at least two times less than number of points"},
};

SetupTable gTable = {
    .rowCount = CountOf(gRows),
    .rows = gRows,
    .callback = AveragingCallback,
    .dependencyCount = sizeof kDependencies / sizeof kDependencies[0],
    .dependencies = kDependencies,
    .textCount = CountOf(kTexts),
    .texts = kTexts,
};

} // namespace

SetupTable* AveragingSetupTable() {
    return &gTable;
}

int LoadAveragingOptions(const char* fileName) {
    LoadOptionTable(&gTable, fileName);
    ResizeAveragingArray();
    return 1;
}

int SaveAveragingOptions(const char* fileName) {
    return SaveOptionTable(&gTable, fileName);
}

int AveragingSetupDialog() {
    int result = Host().RunSetupDialog(&gTable, "Averaging Setup");
    ResizeAveragingArray();
    return result;
}

int CheckAveragingCounts(u32 currentTimes, u32 currentStart, u32 voltageTimes, u32 voltageStart,
                         int* badField) {
    const u32 v[4] = {currentTimes, currentStart, voltageTimes, voltageStart};
    for (int pair = 0; pair < 2; ++pair) {
        u32 times = v[2 * pair], start = v[2 * pair + 1];
        int bad = -1;
        if (times < 1 || times > 2147483646u)
            bad = 2 * pair;
        else if (start > (times - 1) / 2)
            bad = 2 * pair + 1;
        if (bad >= 0) {
            if (badField) *badField = bad;
            return 0;
        }
    }
    return 1;
}
