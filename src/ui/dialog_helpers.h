// Field helpers for dialogs and menus: enabling a list of controls or menu items at once.
#pragma once
#include "settings/setup_table.h"

// Enables (enable non-zero) or greys every control of ids.
void EnableControls(SetupDialog* dialog, const int* ids, unsigned count, int enable);

// Item states of EnableMenuItems, with the values of the original platform; items are known
// by their command number.
enum : unsigned { MF_ENABLED = 0x0, MF_GRAYED = 0x1, MF_DISABLED = 0x2 };

// What the helpers need of a menu: the Qt window fills it in over its actions, tests with a
// fake. An id that is not an item of the menu is ignored.
struct MenuOps {
    void (*Enable)(void* context, int id, int enable);
};

struct Menu {
    const MenuOps* ops;
    void* context;
};

// Sets every item of ids to flags: enabled for MF_ENABLED, greyed when MF_GRAYED or
// MF_DISABLED is set.
void EnableMenuItems(const Menu* menu, const int* ids, unsigned count, unsigned flags);
