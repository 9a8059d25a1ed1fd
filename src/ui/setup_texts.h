// The texts of a table-driven dialog's controls, by table and control number: what a dialog
// layout holds besides the rows. A row's text is its label, taken whole; a radio group's text is
// "caption|first button|second button|..."; controls that are not rows (a browse button, a
// static label that a dependency greys out) are listed with their kind.
#pragma once
#include "ui/setup_table.h"

enum : int {
    SETUP_TEXT_LABEL = 0,  // the label of a row, or the captions of a radio group
    SETUP_TEXT_BUTTON = 1, // a push button that is not a row; its command goes to the table
    SETUP_TEXT_STATIC = 2, // a static text that is not a row
};

struct SetupText {
    int controlId;
    int kind;
    const char* text; // Windows-1252
};

// Registers count texts for a table; a later registration of the same table replaces it.
void RegisterSetupTexts(const SetupTable* table, const SetupText* texts, unsigned count);
// The text of a control, or null.
const SetupText* FindSetupText(const SetupTable* table, int controlId);
// Every registered text of the table, in order; count receives how many.
const SetupText* SetupTexts(const SetupTable* table, unsigned* count);
