#include "gui/window_menu.h"

#include "gui/main_window.h"

#include <QAction>

namespace {

void EnableItem(void* context, int id, int enable) {
    if (QAction* action = static_cast<VantrelMainWindow*>(context)->Action(id))
        action->setEnabled(enable != 0);
}

const MenuOps kWindowMenuOps = {.Enable = EnableItem};

} // namespace

Menu QtWindowMenu(VantrelMainWindow* window) {
    return {&kWindowMenuOps, window};
}
