// The table-driven dialog over any SetupTable: the passes between rows and a dialog's controls,
// the dependencies and the dialog procedure, written against a table of dialog operations that
// the Qt dialog and the tests' fake both fill in.
#pragma once
#include "settings/setup_table.h"

// One table-driven dialog can be open at a time.
extern SetupTable* gCurrentSetupTable;
SetupTable* GetCurrentSetupTable();
void SetCurrentSetupTable(SetupTable* table);

// Between the rows and the controls. ControlsToRows reads only controls that exist, are not
// static and are enabled; the others take the variable. It stops at the first bad row:
// 0 when all rows were read, row + 1 for a bad value, -(row + 1) when no text block could be
// had. RowsToControls returns 0, or row + 1 for a radio group whose control is missing.
int ControlsToRows(SetupTable* table, SetupDialog* dialog);
int RowsToControls(SetupTable* table, SetupDialog* dialog);
// Applies every dependency to its slaves in list order.
void ProcessDependencies(const SetupTable* table, SetupDialog* dialog);

// The dialog procedure, split into its two events. SetupDlg_Open fills the dialog; it returns
// 0 when the dialog had to end (a missing radio button). SetupDlg_Command returns -1 while the
// dialog stays open, otherwise the result it ended with. The system menu's close is Cancel.
int SetupDlg_Open(SetupTable* table, SetupDialog* dialog);
int SetupDlg_Command(SetupDialog* dialog, int controlId, void* controlHandle, int notification);
