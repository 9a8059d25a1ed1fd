#include "ui/print_options.h"

#include "platform/host.h"
#include "settings/setup_table.h"
#include "ui/plot_render.h"

#include <algorithm>

PageSetup gPageSetup;
std::int32_t gPrintFlags[kPrintFlagCount];
int gPrintJobCounter = 0;

namespace {

const char kPrint[] = "Print";

// Controls of the "Page Setup" layout.
enum : int {
    ID_MARGIN_LEFT = 101,
    ID_MARGIN_TOP = 102,
    ID_MARGIN_RIGHT = 103,
    ID_MARGIN_BOTTOM = 104,
    ID_RATIO = 105,
    ID_LAYOUT = 110,
    ID_ENFORCE_COLOR = 130,
    ID_FIRST_FLAG = 201,
};

SetupRow gPageRows[] = {
    SetupIntRow(ID_MARGIN_LEFT, &gPageSetup.marginLeft, kPrint, "MarginLeft", 0, 1000),
    SetupIntRow(ID_MARGIN_TOP, &gPageSetup.marginTop, kPrint, "MarginTop", 0, 1000),
    SetupIntRow(ID_MARGIN_RIGHT, &gPageSetup.marginRight, kPrint, "MarginRight", 0, 1000),
    SetupIntRow(ID_MARGIN_BOTTOM, &gPageSetup.marginBottom, kPrint, "MarginBottom", 0, 1000),
    SetupRadioRow(ID_RATIO, &gPageSetup.ratioXY, kPrint, "RatioXY"),
    SetupRadioRow(ID_LAYOUT, &gPageSetup.pageLayout, kPrint, "PageLayout"),
    SetupCheckRow(ID_ENFORCE_COLOR, &fEnforceColor, kPrint, "EnforceColor"),
};

const SetupText kPageTexts[] = {
    {ID_MARGIN_LEFT, SETUP_TEXT_LABEL, "&Left margin (mm)"},
    {ID_MARGIN_TOP, SETUP_TEXT_LABEL, "&Top margin (mm)"},
    {ID_MARGIN_RIGHT, SETUP_TEXT_LABEL, "&Right margin (mm)"},
    {ID_MARGIN_BOTTOM, SETUP_TEXT_LABEL, "&Bottom margin (mm)"},
    {ID_RATIO, SETUP_TEXT_LABEL, "Plot proportions|16 : 10|Fill the area"},
    {ID_LAYOUT, SETUP_TEXT_LABEL,
     "Plot on the page|Whole page|Upper half|Lower half|Left half|Right half|"
     "Upper half, text below|Upper left quarter|Upper right quarter|Lower left quarter|"
     "Lower right quarter"},
    {ID_ENFORCE_COLOR, SETUP_TEXT_LABEL, "Keep &colours on a monochrome printer"},
};

SetupTable gPageTable = {
    .rowCount = CountOf(gPageRows),
    .rows = gPageRows,
    .textCount = CountOf(kPageTexts),
    .texts = kPageTexts,
};

struct FlagRow {
    const char* key;
    const char* label;
};
const FlagRow kFlagRows[kPrintFlagCount] = {
    {"ShowPrintingOptionsEveryTime", "&Show these options every time"},
    {"PrintParamsOnSeparatePage", "Parameters on a separate page"},
    {"PrintInfo", "Picture &info"},
    {"PrintLegend", "&Legend"},
    {"PrintAveraging", "&Averaging"},
    {"PrintDelays", "&Delays"},
    {"PrintVirtualIV", "&Virtual currents and voltages"},
    {"PrintIVFOptions", "I-V family options"},
    {"PrintIcHOptions", "Ic(H) options"},
    {"PrintV(T)_Options", "V(T) options"},
    {"PrintIcTOptions", "Ic(T) options"},
    {"PrintV(time)_Options", "V(time) options"},
    {"PrintCalibratorOptions", "Calibrator options"},
    {"PrintTermometerSetup", "&Thermometer setup"},
    {"PrintOtherOptions", "&Other options"},
    {"PrintGeneralWFMSetup", "General waveform setup"},
    {"PrintWFMs", "Waveforms"},
    {"PrintTrigger", "Trigger"},
};

SetupRow gFlagRows[kPrintFlagCount];
SetupText gFlagTexts[kPrintFlagCount];

SetupTable gFlagTable = {
    .rowCount = kPrintFlagCount,
    .rows = gFlagRows,
    .textCount = kPrintFlagCount,
    .texts = gFlagTexts,
};

bool BuildTables() {
    for (int i = 0; i < kPrintFlagCount; ++i) {
        gFlagRows[i] = SetupCheckRow(ID_FIRST_FLAG + i, &gPrintFlags[i], kPrint, kFlagRows[i].key);
        gFlagTexts[i] = {ID_FIRST_FLAG + i, SETUP_TEXT_LABEL, kFlagRows[i].label};
    }
    ResetPrintOptions();
    return true;
}
const bool kTablesBuilt = BuildTables();

} // namespace

void ResetPrintOptions() {
    gPageSetup = PageSetup{};
    fEnforceColor = 0;
    for (int i = 0; i < kPrintFlagCount; ++i)
        gPrintFlags[i] = i < 7 ? 1 : 0;
}

int LoadPageSetup(const char* fileName) {
    LoadOptionTable(&gPageTable, fileName);
    gPageSetup.pageLayout = std::clamp(gPageSetup.pageLayout, 0, 9);
    return 1;
}

int SavePageSetup(const char* fileName) {
    return SaveOptionTable(&gPageTable, fileName);
}

int PageSetupDialog(void*) {
    return Host().RunSetupDialog(&gPageTable, "Page Setup");
}

int LoadPrintingOptions(const char* fileName) {
    return LoadOptionTable(&gFlagTable, fileName);
}

int SavePrintingOptions(const char* fileName) {
    return SaveOptionTable(&gFlagTable, fileName);
}

int PrintingOptionsDialog(void*) {
    return Host().RunSetupDialog(&gFlagTable, "Printing Options");
}
