// The current family, its one-level undo copy, and the family the plot paints.
#pragma once
#include "curve/curve_family.h"

extern CurveFamily gCurves;
extern CurveFamily gUndoCurves;
// &gCurves, except while a measurement writes gCurves: then &gUndoCurves.
extern CurveFamily* gPaintedCurves;
// The window enables its "Undo" item from this.
extern int fUndoEnabled;

// Copies gCurves into gUndoCurves before a command changes it; an empty gCurves leaves the undo
// copy as it was. When memory runs short the user chooses: 0 means give up the command.
int SaveUndo();
// Exchanges the two families whole, so a second call is a redo.
void RestoreUndo();
