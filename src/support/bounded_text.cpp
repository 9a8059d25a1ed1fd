#include "support/bounded_text.h"
#include "support/debug_check.h"

#include <cstring>

int BoundedCopy(char* dst, const char* src, size_t size) {
    VASSERT(dst != nullptr && src != nullptr);
    if (!dst || !src || size == 0) return 0;
    size_t len = std::strlen(src);
    if (len < size) {
        std::memmove(dst, src, len + 1);
        return 1;
    }
    std::memmove(dst, src, size - 1);
    dst[size - 1] = '\0';
    return 0;
}

int BoundedAppend(char* dst, const char* src, size_t size) {
    VASSERT(dst != nullptr && src != nullptr);
    if (!dst || !src || size == 0) return 0;
    size_t used = strnlen(dst, size);
    if (used >= size) { // an unterminated buffer: terminate it and report the cut
        dst[size - 1] = '\0';
        return 0;
    }
    return BoundedCopy(dst + used, src, size - used);
}
