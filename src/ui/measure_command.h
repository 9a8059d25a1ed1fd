// The Measurements menu and the virtual setup panels of the Options menu. The dialogs
// themselves belong to the window layer, which installs its openers; without them a measurement
// runs straight through, as "&Do It" at once, so the commands run headless.
#pragma once
#include "measure/measure_run.h"

// Runs the modal measurement dialog; its result is the thread function's.
using MeasureDialogOpener = int (*)(void* window, const MeasureParams& params);
// Runs the modal panel of virtual currents (voltages 0) or voltages (1) on record index.
using ChannelPanelOpener = void (*)(void* window, int voltages, int index);

void SetMeasureDialogOpener(MeasureDialogOpener opener);
void SetChannelPanelOpener(ChannelPanelOpener opener);

// Opens the dialog of a measurement; after a run that changed the family: rescale when asked,
// the swap rule when swapRule (IVC and IVF), fDataSaved 0 and the automatic data pair. The
// dialog's result.
int MeasureCommand(void* window, const char* title, bool swapRule);
void ChannelPanelCommand(void* window, int voltages);

// Before a run: the journal's folder (the automatic data folder) and the "RunJournal" key of
// section "Measure" (1 when missing).
void PrepareRunJournal();
