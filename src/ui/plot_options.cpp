#include "ui/plot_options.h"

#include "files/profile.h"

PlotOptions gPlotOptions;

namespace {

struct UnsignedKey {
    unsigned PlotOptions::*field;
    const char* section;
    const char* key;
};

struct SignedKey {
    int PlotOptions::*field;
    const char* section;
    const char* key;
};

const UnsignedKey kUnsignedKeys[] = {
    {&PlotOptions::gridX, "Setup", "GridX"},
    {&PlotOptions::gridY, "Setup", "GridY"},
    {&PlotOptions::smallTicksX, "Setup", "SmallTicksX"},
    {&PlotOptions::smallTicksY, "Setup", "SmallTicksY"},
};

const SignedKey kSignedKeys[] = {
    {&PlotOptions::optimizeGrid, "Graphics", "OptimizeGrid"},
    {&PlotOptions::bigTickSize, "Setup", "BigTickSize"},
    {&PlotOptions::smallTickSize, "Setup", "SmallTickSize"},
};

} // namespace

int LoadPlotOptions(const char* fileName) {
    PlotOptions& o = gPlotOptions;
    for (const UnsignedKey& k : kUnsignedKeys)
        o.*k.field = static_cast<unsigned>(
            GetPrivateProfileInt(k.section, k.key, static_cast<int>(o.*k.field), fileName));
    for (const SignedKey& k : kSignedKeys)
        o.*k.field = GetPrivateProfileInt(k.section, k.key, o.*k.field, fileName);
    o.captionFont.Load(fileName, "Setup", "AxesCaptionFont");
    o.axesPen.Load(fileName, "Setup", "AxesLines");
    o.gridPen.Load(fileName, "Setup", "GridLines");
    return 1;
}

int SavePlotOptions(const char* fileName) {
    const PlotOptions& o = gPlotOptions;
    for (const UnsignedKey& k : kUnsignedKeys)
        WriteProfileInt(k.section, k.key, "%u", static_cast<int>(o.*k.field), fileName);
    for (const SignedKey& k : kSignedKeys)
        WriteProfileInt(k.section, k.key, k.field == &PlotOptions::optimizeGrid ? "%u" : "%d",
                        o.*k.field, fileName);
    o.captionFont.Save(fileName, "Setup", "AxesCaptionFont");
    o.axesPen.Save(fileName, "Setup", "AxesLines");
    o.gridPen.Save(fileName, "Setup", "GridLines");
    return 1;
}
