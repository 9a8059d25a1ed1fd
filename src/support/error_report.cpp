#include "support/error_report.h"
#include "support/message_box.h"

#include <cstdio>

namespace {

struct CommDlgCode {
    unsigned long code;
    int number;
};

const CommDlgCode gCommDlgCodes[] = {
    {0xFFFF, 1},  {1, 2},       {2, 3},       {3, 4},       {4, 5},       {5, 6},
    {6, 7},       {7, 8},       {8, 9},       {9, 10},      {10, 11},     {11, 12},
    {0x1001, 13}, {0x1002, 14}, {0x1003, 15}, {0x1004, 16}, {0x1005, 17}, {0x1006, 18},
    {0x1007, 19}, {0x1008, 20}, {0x1009, 21}, {0x100A, 22}, {0x100B, 23}, {0x2001, 24},
    {0x3001, 25}, {0x3002, 26}, {0x3003, 27},
};

// The string table, indexed by string number; entry 0 is unused.
const char* const gCommDlgStrings[] = {
    nullptr,
    "Creation of CD failed on call to DialogBox()",
    "Invalid structure size passed to CD",
    "Failure initializing CD.  Possibly\n\r do to insufficient memory.",
    "Failure finding custom template for CD",
    "Instance handle not passed to CD",
    "Failure loading specified string",
    "Failure finding specified resource",
    "Failure loading specified resource",
    "Failure locking specified resource",
    "Failure allocating memory for internal CD structure",
    "Failure locking memory for internal CD structure",
    "No hook function passed to CD but ENABLEHOOK\n\r was passed as a flag",
    "Failure setting up resources for CD",
    "Failure parsing strings in [devices]\n\rsection of WIN.INI",
    "PD_RETURNDEFAULT flag was set but either the \n\rhDevMode or hDevNames field was nonzero",
    "Failure loading the printers device driver",
    "The printer driver failed to initialize a DEVMODE data structure",
    "Print CD failed during initialization",
    "No printer device drivers were found",
    "No default printer was found",
    "Data in DEVMODE contradicts data in DEVNAMES",
    "Failure creating an IC",
    "Printer not found",
    "No fonts exist",
    "Failure subclassing during initialization of CD",
    "Invalide filename passed to FileOpen or FileSave",
    "Buffer passed to CD too small to accomodate string",
};

const char* InternalErrorText(int kind) {
    switch (kind) {
    case INTERNAL_ERROR_GENERAL:
        return "Internal Error";
    case INTERNAL_ERROR_LOAD_STRING:
        return "Load String Fail";
    case INTERNAL_ERROR_STRING:
        return "String internal error";
    case INTERNAL_ERROR_DXB:
        return "Dxb error";
    default:
        return nullptr;
    }
}

} // namespace

void InternalError(int kind, int line, const char* sourceFile) {
    const char* what = InternalErrorText(kind);
    if (!what) return;
    char text[1024];
    std::snprintf(text, sizeof text,
                  "%s\n File: %s     Line: %d\nContact a developer\nYou would better close "
                  "Vantrel and start it again",
                  what, sourceFile ? sourceFile : "", line);
    MessageBoxBeep(nullptr, text, "Vantrel Error!", MB_OK | MB_ICONERROR);
}

int CommDlgErrorStringNumber(unsigned long code) {
    for (const CommDlgCode& c : gCommDlgCodes)
        if (c.code == code) return c.number;
    return 0;
}

void ShowCommDlgErrorString(int number) {
    const int count = static_cast<int>(sizeof gCommDlgStrings / sizeof gCommDlgStrings[0]);
    if (number > 0 && number < count)
        MessageBoxBeep(nullptr, gCommDlgStrings[number], "CommDlg", MB_OK | MB_ICONERROR);
    else
        MessageBoxBeep(nullptr, "Can't load error string from resource", "Process CommDlg Erorr",
                       MB_OK | MB_ICONERROR);
}

void ReportCommDlgError(unsigned long code) {
    int number = CommDlgErrorStringNumber(code);
    if (number) ShowCommDlgErrorString(number);
}
