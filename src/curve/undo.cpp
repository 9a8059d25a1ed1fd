#include "curve/undo.h"

#include "support/block_exchange.h"
#include "support/message_box.h"

CurveFamily gCurves;
CurveFamily gUndoCurves;
std::atomic<CurveFamily*> gPaintedCurves{&gCurves};
int fUndoEnabled = 0;

int SaveUndo() {
    if (gCurves.count == 0) return 1;
    gUndoCurves = gCurves;
    if (gUndoCurves.count == gCurves.count) {
        fUndoEnabled = 1;
        return 1;
    }
    // The copy fell short. Undo stays as it was: once a good snapshot enabled it, it stays on.
    int answer = MessageBoxBeep(nullptr, "Not enough memory to provide 'Undo'\nContinue Anyway?",
                                "Undo", MB_YESNO | MB_ICONQUESTION);
    return answer == IDNO ? 0 : 1;
}

void RestoreUndo() {
    ExchangeObjects(gCurves, gUndoCurves);
}
