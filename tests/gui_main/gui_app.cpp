#include "gui_app.h"

#include <QApplication>

#include <gtest/gtest.h>

namespace {

// The application goes before the exit handlers: Qt's devices must not outlive it.
int gArgc = 1;
char gName[] = "test_gui_main";
char* gArgv[] = {gName, nullptr};
QApplication* gApp = nullptr;

class QtEnvironment : public ::testing::Environment {
  public:
    void TearDown() override {
        delete gApp;
        gApp = nullptr;
    }
};
::testing::Environment* const kQtEnvironment =
    ::testing::AddGlobalTestEnvironment(new QtEnvironment);

} // namespace

void App() {
    if (!gApp) gApp = new QApplication(gArgc, gArgv);
}
