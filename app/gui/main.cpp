// vantrel: the desktop program. Starts in the program's order: command line and driver, the
// window's creation (cards, settings, position), then the About box or the files named.
#include "support/user_folders.h"
#include "ui/settings_registry.h"
#include "gui/main_window.h"
#include "gui/measure_dialog.h"
#include "gui/qt_text.h"
#include "instrument/daq/sim_driver.h"
#include "support/cmdline.h"
#include "ui/memory_handler.h"
#include "ui/startup.h"

#include <QApplication>
#include <QPixmap>
#include <QScreen>
#include <QTimer>

#include <cstdio>
#include <new>

int main(int argc, char** argv) {
    QApplication app(argc, argv);
    InstallSettingsGroups();
    ParseArgv(argc, argv);
    if (!SelectDriverFromCommandLine()) return 2;
    char simPath[4096];
    // The simulated rack is described beside the settings unless -simdaq: says otherwise.
    std::snprintf(simPath, sizeof simPath, "%ssimdaq.ini", SettingsDirectory());
    SwitchString("simdaq:", simPath, simPath, sizeof simPath);
    SimDaqSetPath(simPath);

    VantrelMainWindow window;
    window.Install();
    InstallMeasureDialogs();
    // No DAC or no ADC: the two boxes have been shown, and the program ends unshown.
    if (StartupCreate(&window) != STARTUP_RUNNING) return 0;
    NewHandler previous = InstallOutOfMemoryHandler();
    window.show();
    StartupFinish(&window, PostCommandToMainWindow);
    // -grab:FILE saves the window as the screen shows it once the start is done, then ends:
    // how the pictures of the documentation are made.
    char grab[4096];
    if (FindSwitch("grab:", grab, sizeof grab)) {
        QTimer::singleShot(1500, &window, [&window, &grab] {
            QScreen* screen = window.screen();
            QPixmap shot = screen->grabWindow(window.winId());
            if (shot.isNull()) shot = window.grab();
            shot.save(PathToQt(grab));
            window.closing = true;
            QApplication::quit();
        });
    }
    int result = app.exec();
    FreeCommandLine();
    std::set_new_handler(previous);
    return result;
}
