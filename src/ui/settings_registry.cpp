#include "ui/settings_registry.h"

#include "analysis/math_options.h"
#include "curve/curve_style.h"
#include "files/data_file_options.h"
#include "settings/profile.h"
#include "instrument/autozero.h"
#include "instrument/averaging.h"
#include "instrument/thermometer.h"
#include "instrument/virtual_channels.h"
#include "measure/ic_options.h"
#include "measure/ivc_options.h"
#include "measure/measure_options.h"
#include "platform/host.h"
#include "support/c_locale.h"
#include "support/debug_check.h"
#include "ui/plot_options.h"
#include "ui/print_options.h"

#include <chrono>

// Positions are fixed. Empty places belong to groups not built yet.
const SettingsGroup gSettingsGroups[kSettingsGroupCount] = {
    {.name = "axes", .load = LoadPlotOptions, .save = SavePlotOptions},
    {.name = "curve styles", .load = LoadCurveStyles, .save = SaveCurveStyles},
    {.name = "virtual currents and voltages",
     .load = LoadVirtualChannels,
     .save = SaveVirtualChannels},
    {.name = "data file options", .load = LoadDataFileOptions, .save = SaveDataFileOptions},
    {.name = "mathematics", .load = LoadMathOptions, .save = SaveMathOptions},
    {.name = "delays", .load = Delays_LoadOptions, .save = Delays_SaveOptions},
    {.name = "general measurement",
     .load = GeneralMeasure_LoadOptions,
     .save = GeneralMeasure_SaveOptions},
    // The IVC options travel with the trigger: no other place loads them at start.
    {.name = "trigger", .load = Trigger_LoadOptions, .save = Trigger_SaveOptions},
    {.name = "averaging", .load = LoadAveragingOptions, .save = SaveAveragingOptions},
    {.name = "thermometer", .load = LoadTermometerOptions, .save = SaveTermometerOptions},
    {.name = "waveform programs"},
    {.name = "Ic(H)", .load = IcH_LoadOptions, .save = IcH_SaveOptions},
    {.name = "Ic(T)"}, // after Ic(H), so that its keys win
    {.name = "V(T) and R(T)"},
    {.name = "V_dc(I_ac)"},
    {.name = "I-V family"},
    {.name = "waveform general"},
    {.name = "generator"},
    {.name = "V(time)"},
    {.name = "AutoZero", .load = LoadAutoZeroOptions, .save = SaveAutoZeroOptions},
    {.name = "printing options", .load = LoadPrintingOptions, .save = SavePrintingOptions},
    {.name = "page setup", .load = LoadPageSetup, .save = SavePageSetup},
    // The same pair again, on purpose: a load with side effects runs twice.
    {.name = "AutoZero", .load = LoadAutoZeroOptions, .save = SaveAutoZeroOptions},
    {.name = "Ic, Rn, Ie, Vc table"},
};

int WalkSettingsGroups(const SettingsGroup* groups, unsigned count, bool save,
                       const char* fileName) {
    // One read and one write of the file for the whole walk, not one per key.
    ProfileBatch batch(fileName);
    for (unsigned i = 0; i < count; ++i) {
        const SettingsGroup& g = groups[i];
        if (!g.load && !g.save) continue;
        VASSERT_MSG(g.load != g.save, "LoadOptionsFnsList[i]!=SaveOptionsFnsList[i]");
        if (OptionsFn fn = save ? g.save : g.load) fn(fileName);
    }
    return batch.End();
}

namespace {

int WalkAll(bool save, const char* fileName, const char* statusFormat) {
    Host().WaitCursor(1);
    auto start = std::chrono::steady_clock::now();
    int written = WalkSettingsGroups(gSettingsGroups, kSettingsGroupCount, save, fileName);
    auto ms = std::chrono::duration_cast<std::chrono::milliseconds>(
                  std::chrono::steady_clock::now() - start)
                  .count();
    Host().WaitCursor(0);
    // The batch has shown the one box; the time message would claim a file that is not there.
    if (!written) return 0;
    char text[128];
    SnprintfC(text, sizeof text, statusFormat, static_cast<double>(ms) / 1000.0);
    Host().SetStatusText(0, text);
    return 1;
}

} // namespace

int LoadAllSettings(const char* fileName) {
    return WalkAll(false, fileName, "Time spent to load all settings: %.1f sec");
}

int SaveAllSettings(const char* fileName) {
    return WalkAll(true, fileName, "Time spent to save all settings: %.1f sec (INI)");
}

void InstallSettingsGroups() {
    // Groups not built yet stay without functions and never travel.
    const struct {
        DataFileGroupId id;
        OptionsFn load, save;
    } kFns[] = {
        {DATA_GROUP_AVERAGING, LoadAveragingOptions, SaveAveragingOptions},
        {DATA_GROUP_DELAYS, Delays_LoadOptions, Delays_SaveOptions},
        {DATA_GROUP_ICH, IcH_LoadOptions, IcH_SaveOptions},
        {DATA_GROUP_VIRTUAL_IV, LoadVirtualChannels, SaveVirtualChannels},
        {DATA_GROUP_THERMOMETER, LoadTermometerOptions, SaveTermometerOptions},
        {DATA_GROUP_OTHER, GeneralMeasure_LoadOptions, GeneralMeasure_SaveOptions},
        {DATA_GROUP_AXES, LoadPlotOptions, SavePlotOptions},
        {DATA_GROUP_TRIGGER, Trigger_LoadOptions, Trigger_SaveOptions},
    };
    for (const auto& f : kFns) {
        gDataFileGroups[f.id].Load = f.load;
        gDataFileGroups[f.id].Save = f.save;
    }
}

int LoadWindowPosition(void* window, const char* fileName) {
    int rect[4] = {0, 0, 0, 0};
    Host().GetWindowRect(window, rect);
    int left, top, right, bottom;
    {
        ProfileBatch batch(fileName);
        left = GetPrivateProfileInt("Setup", "WindowPositionLeft", rect[0], fileName);
        top = GetPrivateProfileInt("Setup", "WindowPositionTop", rect[1], fileName);
        right = GetPrivateProfileInt("Setup", "WindowPositionRight", rect[2], fileName);
        bottom = GetPrivateProfileInt("Setup", "WindowPositionBottom", rect[3], fileName);
    }
    int desktop[4] = {0, 0, 0, 0};
    Host().GetDesktopRect(desktop);
    if (left > desktop[2]) left = 0;
    if (top > desktop[3]) top = 0;
    if (right > desktop[2]) right = desktop[2];
    if (bottom > desktop[3]) bottom = desktop[3];
    // Width and height one more than the saved rectangle: the window grows by a pixel with each
    // save and restore, as it always has.
    const int moved[4] = {left, top, left + (right - left + 1), top + (bottom - top + 1)};
    Host().MoveWindow(window, moved);
    return 1;
}

int SaveWindowPosition(void* window, const char* fileName) {
    int rect[4] = {0, 0, 0, 0};
    Host().GetWindowRect(window, rect);
    ProfileBatch batch(fileName);
    WriteProfileInt("Setup", "WindowPositionLeft", "%u", rect[0], fileName);
    WriteProfileInt("Setup", "WindowPositionTop", "%u", rect[1], fileName);
    WriteProfileInt("Setup", "WindowPositionRight", "%u", rect[2], fileName);
    WriteProfileInt("Setup", "WindowPositionBottom", "%u", rect[3], fileName);
    return batch.End();
}
