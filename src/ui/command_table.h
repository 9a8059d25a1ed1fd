// The program's vocabulary: every menu command by number, with its menu text, its keys and the
// rules that enable it. The Qt window builds its menus from this table; CommandDispatch runs
// any number over whichever host is installed, so every command can run without a window.
#pragma once
#include "ui/command_ids.h"

enum : unsigned {
    CMD_BUILT = 0x1,          // CommandDispatch implements it
    CMD_NOT_HANDLED = 0x2,    // in the menu, selecting it does nothing
    CMD_DISABLED = 0x4,       // starts disabled in the menu (Undo, Cut, ...)
    CMD_SEPARATOR = 0x8,      // a separator line stands before it
    CMD_CHECKABLE = 0x10,     // a tool window: the check mark is its state
    CMD_IN_SELECTION = 0x20,  // enabled only while a selection stands
    CMD_OUT_SELECTION = 0x40, // enabled only while none stands
    CMD_HIDDEN = 0x80,        // posted by the program or the context menu, not in the menu bar
};

struct CommandRow {
    int number;
    const char* menu;    // top-level menu text
    const char* submenu; // null, or the submenu the item stands in
    const char* text;    // exactly as shown, with & and the tab before the key name
    // Accelerators in Qt's portable key syntax, several separated by "|"; null for none.
    const char* keys;
    unsigned flags;
};

extern const CommandRow* const gCommandTable;
extern const unsigned gCommandCount;
// The top-level menus in order.
extern const char* const gMenuTitles[];
extern const unsigned gMenuCount;

// The row of a number, or null.
const CommandRow* FindCommand(int number);
// Whether the menu shows it enabled now: built, and allowed by Undo, the selection state and
// the zoom history.
bool IsCommandEnabled(int number);
// The state of a tool window item (1 checked).
int IsCommandChecked(int number);
void SetCommandChecked(int number, int checked);

// Runs one command over the installed host and main window table. 1 when the command is built
// and ran, 0 for unknown numbers and for commands that are not handled or not built.
int CommandDispatch(void* window, int command);
// When data are unsaved, asks Yes/No/Cancel; Yes saves through the Save As dialog. False when
// the user cancelled or the save failed.
bool AskSaveIfNeeded(void* window);
// True (after a box) inside a selection; otherwise marks all curves and gives false.
bool RefuseInSelection(void* window);
// Dropped files: the first replaces the family, the others are added. False when the user
// cancelled the question about unsaved data; fDataSaved is not changed.
bool DropFiles(void* window, const char* const* paths, int count);

// The texts of the file dialogs, "Text|pattern|..." as the host's FileDialog takes them.
extern const char kOpenDataFilter[];
extern const char kSaveDataFilter[];
extern const char kOptionsFilter[];
