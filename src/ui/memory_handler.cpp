#include "ui/memory_handler.h"

#include "support/c_locale.h"
#include "support/message_box.h"
#include "ui/main_state.h"

#include <cstdlib>
#include <new>
#include <unistd.h>

namespace {

// The size of the allocation that failed on this thread: the handler runs on the thread that
// asked for the memory.
thread_local size_t tWantedSize = 0;

// Loops as the standard operator new does: while the memory is not there, the installed
// handler runs (it may free memory, throw, or end the program). Null when there is none.
void* Allocate(size_t bytes, size_t alignment) {
    if (bytes == 0) bytes = 1;
    for (;;) {
        void* p = nullptr;
        if (alignment <= alignof(std::max_align_t))
            p = std::malloc(bytes);
        else if (posix_memalign(&p, alignment, bytes) != 0)
            p = nullptr;
        if (p) return p;
        std::new_handler handler = std::get_new_handler();
        if (!handler) return nullptr;
        tWantedSize = bytes;
        handler();
    }
}

void* AllocateOrThrow(size_t bytes, size_t alignment) {
    if (void* p = Allocate(bytes, alignment)) return p;
    throw std::bad_alloc();
}

// The nothrow forms give null where the others throw, also when the handler throws.
void* AllocateOrNull(size_t bytes, size_t alignment) noexcept {
    try {
        return Allocate(bytes, alignment);
    } catch (const std::bad_alloc&) {
        return nullptr;
    }
}

size_t Align(std::align_val_t a) {
    return static_cast<size_t>(a);
}

} // namespace

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
    if (!AskRetryAllocation(tWantedSize)) _exit(-1);
}

NewHandler InstallOutOfMemoryHandler() {
    return std::set_new_handler(OutOfMemoryHandler);
}

// The replaceable global allocation functions, all of them, so that every allocation notes its
// size and every block goes back to free.
void* operator new(size_t n) {
    return AllocateOrThrow(n, 0);
}
void* operator new[](size_t n) {
    return AllocateOrThrow(n, 0);
}
void* operator new(size_t n, std::align_val_t a) {
    return AllocateOrThrow(n, Align(a));
}
void* operator new[](size_t n, std::align_val_t a) {
    return AllocateOrThrow(n, Align(a));
}
void* operator new(size_t n, const std::nothrow_t&) noexcept {
    return AllocateOrNull(n, 0);
}
void* operator new[](size_t n, const std::nothrow_t&) noexcept {
    return AllocateOrNull(n, 0);
}
void* operator new(size_t n, std::align_val_t a, const std::nothrow_t&) noexcept {
    return AllocateOrNull(n, Align(a));
}
void* operator new[](size_t n, std::align_val_t a, const std::nothrow_t&) noexcept {
    return AllocateOrNull(n, Align(a));
}
void operator delete(void* p) noexcept {
    std::free(p);
}
void operator delete[](void* p) noexcept {
    std::free(p);
}
void operator delete(void* p, size_t) noexcept {
    std::free(p);
}
void operator delete[](void* p, size_t) noexcept {
    std::free(p);
}
void operator delete(void* p, std::align_val_t) noexcept {
    std::free(p);
}
void operator delete[](void* p, std::align_val_t) noexcept {
    std::free(p);
}
void operator delete(void* p, size_t, std::align_val_t) noexcept {
    std::free(p);
}
void operator delete[](void* p, size_t, std::align_val_t) noexcept {
    std::free(p);
}
void operator delete(void* p, const std::nothrow_t&) noexcept {
    std::free(p);
}
void operator delete[](void* p, const std::nothrow_t&) noexcept {
    std::free(p);
}
void operator delete(void* p, std::align_val_t, const std::nothrow_t&) noexcept {
    std::free(p);
}
void operator delete[](void* p, std::align_val_t, const std::nothrow_t&) noexcept {
    std::free(p);
}
