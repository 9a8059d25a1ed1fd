// The data file pair: name.dat, a text table of all points, with name.ini, the picture's
// description and the shape of the table. Reader, writer and the dispatch on the extension.
#pragma once
#include <cstddef>
#include <cstdint>

// Results of ReadDataPair and WriteDataPair.
enum : int {
    DATA_PAIR_DONE = 0,
    DATA_PAIR_REFUSED = -1, // the user would not go on without the .ini
    DATA_PAIR_NO_DAT = -3,  // the .dat could not be opened, created or written whole
    DATA_PAIR_SHORT = -4,   // a read ended early, or the old .ini is read-only or can't be written
};

extern char gLastDataFolder[260];
extern char gCurrentFileName[260];

// What the pair reads and writes of the view and of the window. The owners point these at
// their variables; a null pointer leaves its keys out of the file and unread.
struct DataFileLink {
    int* scaleAuto;
    float* xMin;
    float* xMax;
    float* yMin;
    float* yMax;
    int32_t* fSwapXY_Axes;
    int32_t* fRescalePlotAfterMeasurement;
    // After a file was opened or saved: title is the new window title, or null when adding.
    // The window repaints with erasing and tells its tool windows.
    void (*Shown)(void* window, const char* title);
    // The DXB reader, when there is one: same arguments and results as ReadDataPair.
    int (*ReadDxb)(const char* path, int addMode);
};
extern DataFileLink gDataFileLink;

// Opens any data file by its extension into gCurves, adding its curves when addMode is set.
// The result of the reader, or -1 for an extension that no reader takes.
int OpenDataFile(void* window, const char* path, int addMode);
// Saves gCurves; only ".dat" is written. The writer's result, or -1.
int SaveDataFile(void* window, const char* path);

int ReadDataPair(const char* path, int addMode);
// Every failure of the writer has shown its box; a failed write shows no time message.
int WriteDataPair(const char* path);
// WriteDataPair without the options dialog, for saves the user did not ask for.
int WriteDataPairQuiet(const char* path);

// The .ini beside a data path: its extension (after the last slash) replaced by ".ini".
// 1 when it fit in size, 0 when it was cut.
int DataIniName(const char* path, char* ini, size_t size);
// The text after the last "." of path, or an empty text.
const char* DataFileExtension(const char* path);
