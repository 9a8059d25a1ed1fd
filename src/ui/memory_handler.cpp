#include "ui/memory_handler.h"

#include "support/c_locale.h"
#include "support/message_box.h"
#include "ui/main_state.h"

#include <atomic>
#include <new>
#include <unistd.h>

namespace {
std::atomic<size_t> gNotedSize{0};
}

void NoteAllocationSize(size_t bytes) {
    gNotedSize = bytes;
}

bool AskRetryAllocation(size_t bytes) {
    char text[400];
    SnprintfC(text, sizeof text,
              "Not enough memory (RAM) for normal operation.\nAt this point it is nessesary to "
              "allocate %lu bytes.\nTry to close other applications and choose \"retry\" "
              "below.\nIf you choose \"cancel\" Vantrel will exit,\nall unsaved data will be lost.",
              static_cast<unsigned long>(bytes));
    return MessageBoxBeep(nullptr, text, gProgramName, MB_RETRYCANCEL | MB_ICONSTOP) == IDRETRY;
}

void OutOfMemoryHandler() {
    if (!AskRetryAllocation(gNotedSize)) _exit(-1);
}

NewHandler InstallOutOfMemoryHandler() {
    return std::set_new_handler(OutOfMemoryHandler);
}
