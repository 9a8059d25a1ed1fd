// The options of the Axes dialog: grid, ticks, the caption font and the two pens.
#pragma once
#include "ui/gfont.h"
#include "ui/gpen.h"

struct PlotOptions {
    unsigned gridX = 10; // big divisions, 2 to 1000
    unsigned gridY = 10;
    unsigned smallTicksX = 10; // sub-divisions of a big division, 1 to 1000
    unsigned smallTicksY = 10;
    int optimizeGrid = 0; // stored only: the range is always rounded
    int bigTickSize = 30; // tenths of a millimetre, -100 to 100; negative points outward
    int smallTickSize = 15;
    GFont captionFont{"Arial", 9, 0x008000};
    GPen axesPen{PEN_SOLID, 1, 0x800000};
    GPen gridPen{PEN_DOT, 0, 0xC0C0C0};
};

// Limits that the dialog enforces; loading takes what the file holds.
constexpr unsigned PLOT_GRID_MIN = 2;
constexpr unsigned PLOT_GRID_MAX = 1000;
constexpr unsigned PLOT_SMALL_TICKS_MIN = 1;
constexpr unsigned PLOT_SMALL_TICKS_MAX = 1000;
constexpr int PLOT_TICK_SIZE_MIN = -100;
constexpr int PLOT_TICK_SIZE_MAX = 100;

extern PlotOptions gPlotOptions;

// The "axes" group of the settings: the grid and tick keys, then AxesCaptionFont, AxesLines and
// GridLines. A key missing from the file leaves its variable as it is. Both return 1.
int LoadPlotOptions(const char* fileName);
int SavePlotOptions(const char* fileName);
