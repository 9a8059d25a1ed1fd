// The options of the Axes dialog: grid, ticks, the caption font and the two pens.
#pragma once
#include "ui/gfont.h"
#include "ui/gpen.h"

#include <cstdint>

struct PlotOptions {
    uint32_t gridX = 10; // big divisions, 2 to 1000
    uint32_t gridY = 10;
    uint32_t smallTicksX = 10; // sub-divisions of a big division, 1 to 1000
    uint32_t smallTicksY = 10;
    int32_t optimizeGrid = 0; // stored only: the range is always rounded
    int32_t bigTickSize = 30; // tenths of a millimetre, -100 to 100; negative points outward
    int32_t smallTickSize = 15;
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
// The grid and tick rows of the Axes dialog, bound to gPlotOptions.
struct SetupTable;
extern SetupTable gPlotOptionsTable;

// The "axes" group of the settings: the grid and tick keys, then AxesCaptionFont, AxesLines and
// GridLines. A key missing from the file leaves its variable as it is. Both return 1.
int LoadPlotOptions(const char* fileName);
int SavePlotOptions(const char* fileName);
