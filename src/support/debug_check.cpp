#include "support/debug_check.h"

#include <atomic>
#include <cstdio>

namespace {

void DefaultAssertHandler(const char* expression, const char* file, unsigned line) {
    std::fprintf(stderr, "Assertion failed: %s, file %s, line %u\n", expression, file, line);
}

std::atomic<AssertHandler> gAssertHandler{DefaultAssertHandler};

} // namespace

void AssertFailed(const char* expression, const char* file, unsigned line) {
    gAssertHandler.load()(expression, file, line);
}

AssertHandler SetAssertHandler(AssertHandler handler) {
    return gAssertHandler.exchange(handler ? handler : DefaultAssertHandler);
}
