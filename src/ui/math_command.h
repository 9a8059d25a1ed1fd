// The Math menu's curve operations as commands: the selection check, the marks, the dialog,
// the undo copy, the work and the redraw.
#pragma once

// 1 when command is one of these operations (run or refused), 0 when it is not.
int MathCommand(void* window, int command);
