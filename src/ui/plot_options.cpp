#include "ui/plot_options.h"

#include "ui/axes_dialog.h"
#include "settings/setup_table.h"

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

const SetupText kPlotOptionTexts[] = {
    {ID_GRID_X, SETUP_TEXT_LABEL, "Big divisions of the &X axis"},
    {ID_GRID_Y, SETUP_TEXT_LABEL, "Big divisions of the &Y axis"},
    {ID_SMALL_TICKS_X, SETUP_TEXT_LABEL, "Small ticks in a division of X"},
    {ID_SMALL_TICKS_Y, SETUP_TEXT_LABEL, "Small ticks in a division of Y"},
    {ID_OPTIMIZE_GRID, SETUP_TEXT_LABEL, "&Optimize grid"},
    {ID_BIG_TICK_SIZE, SETUP_TEXT_LABEL, "&Big tick size (0.1 mm, negative: outward)"},
    {ID_SMALL_TICK_SIZE, SETUP_TEXT_LABEL, "&Small tick size (0.1 mm, negative: outward)"},
    {AXES_ID_FONT, SETUP_TEXT_BUTTON, "Caption &font..."},
    {AXES_ID_FONT_TEXT, SETUP_TEXT_STATIC, ""},
    {AXES_ID_AXES_PEN, SETUP_TEXT_BUTTON, "&Axes pen..."},
    {AXES_ID_AXES_PEN_TEXT, SETUP_TEXT_STATIC, ""},
    {AXES_ID_GRID_PEN, SETUP_TEXT_BUTTON, "&Grid pen..."},
    {AXES_ID_GRID_PEN_TEXT, SETUP_TEXT_STATIC, ""},
};

} // namespace

SetupTable gPlotOptionsTable = {
    .rowCount = CountOf(gPlotOptionRows),
    .rows = gPlotOptionRows,
    .callback = AxesDialogCallback,
    .textCount = CountOf(kPlotOptionTexts),
    .texts = kPlotOptionTexts,
};

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
