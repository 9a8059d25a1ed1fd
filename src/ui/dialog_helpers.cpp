#include "ui/dialog_helpers.h"

void EnableControls(SetupDialog* dialog, const int* ids, unsigned count, int enable) {
    for (unsigned k = 0; k < count; ++k)
        dialog->ops->Enable(dialog->context, ids[k], enable != 0);
}

void EnableMenuItems(const Menu* menu, const int* ids, unsigned count, unsigned flags) {
    int enable = (flags & (MF_GRAYED | MF_DISABLED)) == 0;
    for (unsigned k = 0; k < count; ++k)
        menu->ops->Enable(menu->context, ids[k], enable);
}
