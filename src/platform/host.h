// The host table: everything the logic needs of the window system, as plain functions.
// The Qt interface installs its own table; tests and vantrel-cli install the headless one.
#pragma once
#include <cstddef>

// Message box flags and answers keep the values of the original platform, so that the icon
// bits (flags & 0x70) select the beep exactly as described.
enum : unsigned {
    MB_OK = 0x0,
    MB_OKCANCEL = 0x1,
    MB_ABORTRETRYIGNORE = 0x2,
    MB_YESNOCANCEL = 0x3,
    MB_YESNO = 0x4,
    MB_RETRYCANCEL = 0x5,
    MB_TYPEMASK = 0xF,
    MB_ICONHAND = 0x10,
    MB_ICONERROR = 0x10,
    MB_ICONSTOP = 0x10,
    MB_ICONQUESTION = 0x20,
    MB_ICONEXCLAMATION = 0x30,
    MB_ICONWARNING = 0x30,
    MB_ICONASTERISK = 0x40,
    MB_ICONINFORMATION = 0x40,
    MB_ICONMASK = 0x70,
    MB_DEFBUTTON1 = 0x0,
    MB_DEFBUTTON2 = 0x100,
    MB_DEFBUTTON3 = 0x200,
    MB_DEFMASK = 0xF00,
};
enum { IDOK = 1, IDCANCEL = 2, IDABORT = 3, IDRETRY = 4, IDIGNORE = 5, IDYES = 6, IDNO = 7 };

// Beep kinds for HostTable::Beep: the icon bits above, or BEEP_SIMPLE for the plain beep.
enum : unsigned { BEEP_SIMPLE = 0xFFFFFFFFu };

struct SetupTable;
class GFont;
class GPen;

struct HostTable {
    // A modal box; returns the ID of the button pressed. window may be null.
    int (*MessageBox)(void* window, const char* text, const char* caption, unsigned flags);
    void (*Beep)(unsigned kind);
    // Plays a sound file asynchronously; a missing file is ignored.
    void (*PlaySound)(const char* path);
    void (*SetStatusText)(int pane, const char* text);
    void (*WaitCursor)(int on);
    // Shows the option dialog for a table; 1 for OK, 0 for Cancel.
    int (*RunSetupDialog)(SetupTable* table, const char* caption);
    // Asks for a file name; 1 when chosen (path filled), 0 when cancelled. filter is
    // "Text|*.ext|...". save selects the save dialog.
    int (*FileDialog)(int save, const char* title, const char* filter, char* path, size_t size);
    // Progress and text lines of long work (a measurement, a batch); percent < 0 clears.
    void (*Progress)(int percent, const char* text);
    // Rectangles are left, top, right, bottom in screen pixels. MoveWindow moves, sizes and
    // shows the window to exactly the rectangle given.
    void (*GetWindowRect)(void* window, int rect[4]);
    void (*MoveWindow)(void* window, const int rect[4]);
    void (*GetDesktopRect)(int rect[4]);
    // The font dialog, preset with the font's face, size, style and colour; OK stores the
    // choice with its height in points. 1 for OK, 0 for Cancel. window may be null.
    int (*ChooseFont)(void* window, GFont* font);
    // The pen dialog: style list, width field and colour button. OK stores them in the pen
    // once the width reads (AcceptPenUI). 1 for OK, 0 for Cancel.
    int (*ChoosePen)(void* window, const char* caption, GPen* pen);
    // The fixed text dialog: shows text (Windows-1252, lines ending in CR LF or LF) read-only
    // in a fixed-pitch font, centred on owner (null: the main window). Modeless: it returns at
    // once, the text is copied, and several can be open.
    void (*ShowFixedText)(void* owner, const char* caption, const char* text);
};

// The installed host; never null (the headless host until another is installed).
const HostTable& Host();
void SetHost(const HostTable* host);
