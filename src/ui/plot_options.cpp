#include "ui/plot_options.h"

#include "ui/setup_table.h"

PlotOptions gPlotOptions;

namespace {

// Control numbers of the Axes dialog.
enum : int {
    ID_GRID_X = 101,
    ID_GRID_Y = 102,
    ID_SMALL_TICKS_X = 103,
    ID_SMALL_TICKS_Y = 104,
    ID_OPTIMIZE_GRID = 105,
    ID_BIG_TICK_SIZE = 106,
    ID_SMALL_TICK_SIZE = 107,
};

SetupRow gPlotOptionRows[] = {
    SetupUIntRow(ID_GRID_X, &gPlotOptions.gridX, "Setup", "GridX", PLOT_GRID_MIN, PLOT_GRID_MAX),
    SetupUIntRow(ID_GRID_Y, &gPlotOptions.gridY, "Setup", "GridY", PLOT_GRID_MIN, PLOT_GRID_MAX),
    SetupUIntRow(ID_SMALL_TICKS_X, &gPlotOptions.smallTicksX, "Setup", "SmallTicksX",
                 PLOT_SMALL_TICKS_MIN, PLOT_SMALL_TICKS_MAX),
    SetupUIntRow(ID_SMALL_TICKS_Y, &gPlotOptions.smallTicksY, "Setup", "SmallTicksY",
                 PLOT_SMALL_TICKS_MIN, PLOT_SMALL_TICKS_MAX),
    SetupCheckRow(ID_OPTIMIZE_GRID, &gPlotOptions.optimizeGrid, "Graphics", "OptimizeGrid"),
    SetupIntRow(ID_BIG_TICK_SIZE, &gPlotOptions.bigTickSize, "Setup", "BigTickSize",
                PLOT_TICK_SIZE_MIN, PLOT_TICK_SIZE_MAX),
    SetupIntRow(ID_SMALL_TICK_SIZE, &gPlotOptions.smallTickSize, "Setup", "SmallTickSize",
                PLOT_TICK_SIZE_MIN, PLOT_TICK_SIZE_MAX),
};

} // namespace

SetupTable gPlotOptionsTable = {sizeof gPlotOptionRows / sizeof gPlotOptionRows[0], gPlotOptionRows,
                                nullptr, 0, nullptr};

int LoadPlotOptions(const char* fileName) {
    LoadOptionTable(&gPlotOptionsTable, fileName);
    gPlotOptions.captionFont.Load(fileName, "Setup", "AxesCaptionFont");
    gPlotOptions.axesPen.Load(fileName, "Setup", "AxesLines");
    gPlotOptions.gridPen.Load(fileName, "Setup", "GridLines");
    return 1;
}

int SavePlotOptions(const char* fileName) {
    SaveOptionTable(&gPlotOptionsTable, fileName);
    gPlotOptions.captionFont.Save(fileName, "Setup", "AxesCaptionFont");
    gPlotOptions.axesPen.Save(fileName, "Setup", "AxesLines");
    gPlotOptions.gridPen.Save(fileName, "Setup", "GridLines");
    return 1;
}
