#include "files/settings_registry.h"

#include "curve/curve_style.h"
#include "files/data_file_options.h"
#include "files/profile.h"
#include "instrument/autozero.h"
#include "instrument/averaging.h"
#include "instrument/thermometer.h"
#include "instrument/virtual_channels.h"
#include "measure/ivc_options.h"
#include "measure/measure_options.h"
#include "platform/host.h"
#include "support/c_locale.h"
#include "support/debug_check.h"
#include "ui/plot_options.h"

#include <chrono>

char gIniFileName[4096] = "vtl.ini";

// Positions are fixed, so that entry i of both lists is the same group and a later group can
// rely on what an earlier one loaded. Empty places belong to groups not built yet.
OptionsFn LoadOptionsFnsList[kOptionsFnsCount] = {
    LoadPlotOptions,            // 0 axes
    LoadCurveStyles,            // 1 curve styles
    LoadVirtualChannels,        // 2 virtual currents and voltages
    LoadDataFileOptions,        // 3 data file options
    nullptr,                    // 4 mathematics
    Delays_LoadOptions,         // 5 delays
    GeneralMeasure_LoadOptions, // 6 general measurement
    Trigger_LoadOptions,        // 7 trigger, with the IVC options
    LoadAveragingOptions,       // 8 averaging
    LoadTermometerOptions,      // 9 thermometer
    nullptr,                    // 10 waveform programs
    nullptr,                    // 11 Ic(H)
    nullptr,                    // 12 Ic(T), after Ic(H) so that its keys win
    nullptr,                    // 13 V(T) and R(T)
    nullptr,                    // 14 V_dc(I_ac)
    nullptr,                    // 15 I-V family
    nullptr,                    // 16 waveform general
    nullptr,                    // 17 generator
    nullptr,                    // 18 V(time)
    LoadAutoZeroOptions,        // 19 AutoZero
    nullptr,                    // 20 printing options
    nullptr,                    // 21 page setup
    LoadAutoZeroOptions,        // 22 AutoZero again, on purpose
    nullptr,                    // 23 Ic, Rn, Ie, Vc table
};

OptionsFn SaveOptionsFnsList[kOptionsFnsCount] = {
    SavePlotOptions,            // 0 axes
    SaveCurveStyles,            // 1 curve styles
    SaveVirtualChannels,        // 2 virtual currents and voltages
    SaveDataFileOptions,        // 3 data file options
    nullptr,                    // 4 mathematics
    Delays_SaveOptions,         // 5 delays
    GeneralMeasure_SaveOptions, // 6 general measurement
    Trigger_SaveOptions,        // 7 trigger, with the IVC options
    SaveAveragingOptions,       // 8 averaging
    SaveTermometerOptions,      // 9 thermometer
    nullptr,                    // 10 waveform programs
    nullptr,                    // 11 Ic(H)
    nullptr,                    // 12 Ic(T)
    nullptr,                    // 13 V(T) and R(T)
    nullptr,                    // 14 V_dc(I_ac)
    nullptr,                    // 15 I-V family
    nullptr,                    // 16 waveform general
    nullptr,                    // 17 generator
    nullptr,                    // 18 V(time)
    SaveAutoZeroOptions,        // 19 AutoZero
    nullptr,                    // 20 printing options
    nullptr,                    // 21 page setup
    SaveAutoZeroOptions,        // 22 AutoZero again
    nullptr,                    // 23 Ic, Rn, Ie, Vc table
};

namespace {

int WalkOptionsList(OptionsFn* list, const char* fileName, const char* statusFormat) {
    Host().WaitCursor(1);
    auto start = std::chrono::steady_clock::now();
    {
        // One read and one write of the file for the whole walk, not one per key.
        ProfileBatch batch(fileName);
        for (unsigned i = 0; i < kOptionsFnsCount; ++i) {
            if (!LoadOptionsFnsList[i] && !SaveOptionsFnsList[i]) continue;
            VASSERT_MSG(LoadOptionsFnsList[i] != SaveOptionsFnsList[i],
                        "LoadOptionsFnsList[i]!=SaveOptionsFnsList[i]");
            if (list[i]) list[i](fileName);
        }
    }
    auto ms = std::chrono::duration_cast<std::chrono::milliseconds>(
                  std::chrono::steady_clock::now() - start)
                  .count();
    Host().WaitCursor(0);
    char text[128];
    SnprintfC(text, sizeof text, statusFormat, static_cast<double>(ms) / 1000.0);
    Host().SetStatusText(0, text);
    return 1;
}

} // namespace

int LoadAllSettings(const char* fileName) {
    return WalkOptionsList(LoadOptionsFnsList, fileName,
                           "Time spent to load all settings: %.1f sec");
}

int SaveAllSettings(const char* fileName) {
    return WalkOptionsList(SaveOptionsFnsList, fileName,
                           "Time spent to save all settings: %.1f sec (INI)");
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
    return 1;
}
