// The current family, its one-level undo copy, and the family the plot paints.
#pragma once
#include "curve/curve_family.h"

#include <atomic>

extern CurveFamily gCurves;
extern CurveFamily gUndoCurves;
// &gCurves, except while a measurement writes gCurves: then &gUndoCurves. Written by the
// interface thread when a run starts and by the measurement thread when it ends; read by the
// plot on the interface thread, which, seeing &gCurves again, also sees every point the run
// wrote before.
extern std::atomic<CurveFamily*> gPaintedCurves;
// The window enables its "Undo" item from this: off until the first good snapshot, then on.
extern int fUndoEnabled;

// Copies gCurves into gUndoCurves before a command changes it; an empty gCurves leaves the undo
// copy as it was. When memory runs short the user chooses: 0 means give up the command.
int SaveUndo();
// Exchanges the two families whole, so a second call is a redo.
void RestoreUndo();
