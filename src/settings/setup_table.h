// Table-driven option groups: one SetupTable describes a group of settings once, and serves
// both as the group's load and save functions and as its dialog, with no code of its own.
// The rows and the file passes live here; the passes between rows and a dialog's controls are
// the interface's (ui/setup_dialog.h).
#pragma once
#include <cstddef>
#include <cstdint>

// Row kinds. 3, 4 and 6 are not in use and every pass walks over them.
enum : int {
    SETUP_INT = 1,   // edit, signed 32-bit integer, "%d"
    SETUP_UINT = 2,  // edit, unsigned 32-bit integer, "%u"
    SETUP_FLOAT = 5, // edit, 32-bit float, "%-G"
    SETUP_TEXT = 7,  // edit, character buffer
    SETUP_CHECK = 8, // check box, 0 or 1
    SETUP_RADIO = 9, // radio group, index in group order from 0
};

// One 64-bit word of a row; which member is live depends on the kind (a float limit is kept
// as a 32-bit float, a text row keeps its buffer size and working text here).
union SetupWord {
    int64_t raw;
    int32_t i;
    uint32_t u;
    float f;
    size_t size;
    char* text;
};

struct SetupRow {
    int controlId; // for a radio group, the first button of the group
    int kind;
    void* variable; // the live variable; the character buffer for SETUP_TEXT
    const char* section;
    const char* key; // null or empty: the row is in the dialog but never in the file
    const char* format;
    unsigned spare;
    SetupWord minimum; // SETUP_TEXT: the buffer size
    SetupWord maximum; // SETUP_TEXT: the block of the working text
    SetupWord value;   // working value; SETUP_TEXT: the working text
};

struct SetupDialog;

// Called first on every command; non-zero means the command is dealt with. After the dialog is
// filled it is called once with controlId 0 and the dialog itself as controlHandle.
using SetupCallback = int (*)(SetupDialog* dialog, int controlId, void* controlHandle,
                              int notification);

// ids[0] is the master check box, ids[1..slaveCount] its slaves; a master of 0 is idle.
struct Dependency {
    unsigned action;
    unsigned slaveCount;
    const int* ids;
};

// The text of a control of the group's dialog: a row's label, taken whole; a radio group's
// "caption|first button|second button|..."; controls that are not rows (a browse button, a
// static label that a dependency greys out) with their kind.
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

// A group carries its rows, its dialog behaviour and its dialog texts.
struct SetupTable {
    unsigned rowCount;
    SetupRow* rows;
    SetupCallback callback = nullptr;
    unsigned dependencyCount = 0;
    const Dependency* dependencies = nullptr;
    unsigned textCount = 0;
    const SetupText* texts = nullptr;
};

template <size_t N> constexpr unsigned CountOf(const SetupRow (&)[N]) {
    return static_cast<unsigned>(N);
}
template <size_t N> constexpr unsigned CountOf(const SetupText (&)[N]) {
    return static_cast<unsigned>(N);
}

// The text of a control, or null.
const SetupText* FindSetupText(const SetupTable* table, int controlId);

// Row builders, so that tables read as one line per setting.
SetupRow SetupIntRow(int controlId, int32_t* variable, const char* section, const char* key,
                     int32_t minimum, int32_t maximum);
SetupRow SetupUIntRow(int controlId, uint32_t* variable, const char* section, const char* key,
                      uint32_t minimum, uint32_t maximum);
SetupRow SetupFloatRow(int controlId, float* variable, const char* section, const char* key,
                       float minimum, float maximum);
SetupRow SetupTextRow(int controlId, char* buffer, size_t size, const char* section,
                      const char* key);
SetupRow SetupCheckRow(int controlId, int32_t* variable, const char* section, const char* key);
SetupRow SetupRadioRow(int controlId, int32_t* variable, const char* section, const char* key);

// The row passes. Text rows take a zero-filled block of the buffer size in VariablesToRows,
// FileToRows and ControlsToRows; RowsToVariables, RowsToControls and RowsToFile free it.
void VariablesToRows(SetupTable* table);
void RowsToVariables(SetupTable* table);
void FileToRows(SetupTable* table, const char* fileName);
void RowsToFile(SetupTable* table, const char* fileName);
// Frees whatever text blocks are still taken.
void FreeSetupTextBlocks(SetupTable* table);
// One row's share of the passes. TakeSetupTextBlock gives null when no block can be had.
void VariableToRow(SetupRow& row);
char* TakeSetupTextBlock(SetupRow& row);
void FreeSetupTextBlock(SetupRow& row);

// The group functions of the settings lists: read every row with the live value as default
// and commit; or copy every variable and write every row that has a key. Both return 1.
int LoadOptionTable(SetupTable* table, const char* fileName);
int SaveOptionTable(SetupTable* table, const char* fileName);

// What the dialog logic needs of a dialog: the Qt dialog and the tests' fake both fill it in.
// Check states: 0 unchecked, 1 checked, 2 third state.
struct SetupDialogOps {
    int (*Exists)(void* context, int id);
    int (*IsStatic)(void* context, int id);
    int (*IsEnabled)(void* context, int id);
    // Copies the control's text, cut to size; 0 when there is no such control.
    int (*GetText)(void* context, int id, char* text, size_t size);
    void (*SetText)(void* context, int id, const char* text);
    void (*LimitText)(void* context, int id, size_t characters);
    int (*GetCheck)(void* context, int id);
    void (*SetCheck)(void* context, int id, int state);
    void (*Enable)(void* context, int id, int enable);
    void (*Show)(void* context, int id, int show);
    void (*FocusAndSelectAll)(void* context, int id);
    // The next button of id's group, coming back to the first after the last; 0 when id is
    // not a control of the dialog.
    int (*NextRadio)(void* context, int id);
    void (*Beep)(void* context);
    // Ends the modal dialog with a result (1 OK, 0 Cancel).
    void (*End)(void* context, int result);
};

struct SetupDialog {
    const SetupDialogOps* ops;
    void* context;
};

// Fixed control numbers of every table-driven dialog.
enum : int { SETUP_ID_OK = 1, SETUP_ID_CANCEL = 2, SETUP_ID_SAVE = 2000, SETUP_ID_LOAD = 2001 };

// The field helpers: read a number from an edit within limits (a descending pair is legal).
// A bad or out-of-range value beeps, focuses the control, selects its text and returns 0.
int ReadIntField(SetupDialog* dialog, int id, int32_t minimum, int32_t maximum, int32_t* out);
int ReadUIntField(SetupDialog* dialog, int id, uint32_t minimum, uint32_t maximum, uint32_t* out);
int ReadFloatField(SetupDialog* dialog, int id, float minimum, float maximum, float* out);
