#include "support/message_box.h"

int MessageBoxBeep(void* window, const char* text, const char* title, unsigned flags) {
    const HostTable& host = Host();
    host.Beep(flags & MB_ICONMASK);
    return host.MessageBox(window, text, title, flags);
}
