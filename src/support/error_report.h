// Reports of failures that are not the user's: internal errors with their source position, and
// the error codes of the common dialogs (open, save, font, colour, print).
#pragma once

enum : int {
    INTERNAL_ERROR_GENERAL = 0,
    INTERNAL_ERROR_LOAD_STRING = 1,
    INTERNAL_ERROR_STRING = 3,
    INTERNAL_ERROR_DXB = 4,
};

// Shows "Vantrel Error!" with the text of kind, the file and the line; work goes on after it.
// Kinds without a text (2, 5 and above, negative) show nothing.
void InternalError(int kind, int line, const char* sourceFile);
#define INTERNAL_ERROR(kind) InternalError((kind), __LINE__, __FILE__)

// Shows the text of a common dialog error code under "CommDlg". 0 (the user cancelled) and
// unknown codes show nothing.
void ReportCommDlgError(unsigned long code);
// The string number of a code (1 to 27), 0 for none.
int CommDlgErrorStringNumber(unsigned long code);
// Shows string number under "CommDlg", or the missing-string box when there is no such string.
void ShowCommDlgErrorString(int number);
