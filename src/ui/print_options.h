// The page setup and the printing options, both in section "Print", and the job counter.
#pragma once
#include <cstdint>

// EnforceColor is fEnforceColor of the drawing, which reads it on every page.
struct PageSetup {
    std::int32_t marginLeft = 20; // millimetres
    std::int32_t marginTop = 20;
    std::int32_t marginRight = 10;
    std::int32_t marginBottom = 20;
    std::int32_t ratioXY = 0;    // 0 keeps the plot at 16 to 10
    std::int32_t pageLayout = 0; // PAGE_LAYOUT_*
};
extern PageSetup gPageSetup;

// Where the plot goes on the page; the rest of the page (or a new one) takes the text.
enum : int {
    PAGE_LAYOUT_WHOLE = 0,
    PAGE_LAYOUT_UPPER = 1,
    PAGE_LAYOUT_LOWER = 2,
    PAGE_LAYOUT_LEFT = 3,
    PAGE_LAYOUT_RIGHT = 4,
    PAGE_LAYOUT_UPPER_TEXT_BELOW = 5, // upper half, the text on the same page below
    PAGE_LAYOUT_UPPER_LEFT = 6,
    PAGE_LAYOUT_UPPER_RIGHT = 7,
    PAGE_LAYOUT_LOWER_LEFT = 8,
    PAGE_LAYOUT_LOWER_RIGHT = 9,
};

// The check boxes of the printing options, in the order of their table. ParamsOnSeparatePage,
// WFMs and Trigger are stored and steer nothing.
enum : int {
    PRINT_SHOW_OPTIONS_EVERY_TIME,
    PRINT_PARAMS_ON_SEPARATE_PAGE,
    PRINT_INFO,
    PRINT_LEGEND,
    PRINT_AVERAGING,
    PRINT_DELAYS,
    PRINT_VIRTUAL_IV,
    PRINT_IVF_OPTIONS,
    PRINT_ICH_OPTIONS,
    PRINT_VT_OPTIONS,
    PRINT_ICT_OPTIONS,
    PRINT_VTIME_OPTIONS,
    PRINT_CALIBRATOR_OPTIONS,
    PRINT_TERMOMETER_SETUP,
    PRINT_OTHER_OPTIONS,
    PRINT_GENERAL_WFM_SETUP,
    PRINT_WFMS,
    PRINT_TRIGGER,
    kPrintFlagCount
};
extern std::int32_t gPrintFlags[kPrintFlagCount];

// Printed jobs so far; the next document is number gPrintJobCounter + 1.
extern int gPrintJobCounter;

int LoadPageSetup(const char* fileName);
int SavePageSetup(const char* fileName);
int PageSetupDialog(void* window);
int LoadPrintingOptions(const char* fileName);
int SavePrintingOptions(const char* fileName);
int PrintingOptionsDialog(void* window);
// The built-in values of both groups.
void ResetPrintOptions();
