// Options | Axes: the grid and tick rows of gPlotOptionsTable, with buttons that choose the
// caption font and the two pens. The font and pens are edited on copies that reach
// gPlotOptions only when the dialog ends with OK, like the rows.
#pragma once
#include "settings/setup_table.h"

// Controls of the Axes dialog besides the rows.
enum : int {
    AXES_ID_FONT = 108,      // button: the font dialog
    AXES_ID_FONT_TEXT = 109, // static: the font's description
    AXES_ID_AXES_PEN = 110,  // button: the pen dialog for frame and ticks
    AXES_ID_AXES_PEN_TEXT = 111,
    AXES_ID_GRID_PEN = 112, // button: the pen dialog for the grid
    AXES_ID_GRID_PEN_TEXT = 113,
};

// Runs the dialog through the host; 1 on OK, which stores the rows, the font and the pens.
int AxesOptionsDialog(void* window);

// The table's callback: fills the descriptions at the start, runs the choosers, and takes the
// font and pens along on Save and Load.
int AxesDialogCallback(SetupDialog* dialog, int controlId, void* controlHandle, int notification);
