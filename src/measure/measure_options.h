// The options shared by all measurements: the delays (section "Measure") and the general
// options (sections "Measure" and "Setup"). Each group is one SetupTable that is also its
// load and save.
#pragma once
#include "instrument/delays.h"
#include "settings/option_rows.h"
#include "settings/setup_table.h"

#include <cstdint>

// Delays, milliseconds; the ones the cards obey are in instrument/delays.h.
extern uint32_t DelayAfterJumpToStart;
extern uint32_t InteractionTime;
extern int32_t StopAfterEachCurve;

// General. CurrentMesureMethod: 0 reads the swept current at every point, 1 only at both
// ends and interpolates.
extern int32_t CurrentMesureMethod;
extern int32_t SwapXY_Axes;
extern int32_t RescalePlotAfterMeasurement;

extern SetupTable gDelaysSetupTable;
extern SetupTable gGeneralMeasureSetupTable;

// Control numbers of the two dialogs.
enum : int {
    IDC_DELAY_AFTER_JUMP = 1100,
    IDC_SYSTEM_DECAY_TIME,
    IDC_DELAY_AFTER_SWEEP2,
    IDC_DELAY_BEFORE_VOLTAGE,
    IDC_MAX_DAC_STEP,
    IDC_PRIMITIVE_GENERATOR_STEP,
    IDC_INTERACTION_TIME,
    IDC_STOP_AFTER_EACH_CURVE,
    IDC_MEASURE_IN_EACH_POINT = 1120, // radio group: "In each point", then "Only on the edges"
    IDC_MEASURE_ON_EDGES,
    IDC_SWAP_XY_AXES,
    IDC_RESCALE_AFTER_MEASUREMENT,
};

// The four operations of a group: load, save (both return 1), the dialog (1 for OK) and the
// printed rows.
int Delays_LoadOptions(const char* fileName);
int Delays_SaveOptions(const char* fileName);
int Delays_OptionsDialog(void* parent);
void Delays_WriteRows(OptionRows& out);

int GeneralMeasure_LoadOptions(const char* fileName);
int GeneralMeasure_SaveOptions(const char* fileName);
int GeneralMeasure_OptionsDialog(void* parent);
void GeneralMeasure_WriteRows(OptionRows& out);
