#include "ui/gpen_ui.h"

#include "support/exceptions.h"
#include "support/message_box.h"
#include "ui/indicator.h"

#include <cstdio>

int AcceptPenUI(void* window, const char* caption, GPen& pen, const GPenUI& ui) {
    try {
        pen.Read(ui);
    } catch (const GPenUIException& e) {
        MessageBoxBeep(window, e.Message(), caption, MB_OK | MB_ICONWARNING);
        return 0;
    }
    return 1;
}

void DescribePen(const GPen& pen, char* text, std::size_t size) {
    char rgb[32];
    ColorSelectionText(pen.color, rgb, sizeof rgb);
    const char* name = PenStyleName(pen.style);
    std::snprintf(text, size, "%s, %d px, %s", name ? name : "?", pen.width, rgb);
}
