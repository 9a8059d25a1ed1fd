// Bounded text for the fixed character fields: at most size - 1 characters, always terminated.
#pragma once
#include <cstddef>

// Copies src into dst; 1 when all of it fit, 0 when it was cut.
int BoundedCopy(char* dst, const char* src, size_t size);
// Appends src to the text in dst; 1 when all of it fit, 0 when it was cut.
int BoundedAppend(char* dst, const char* src, size_t size);

template <size_t N> int BoundedCopy(char (&dst)[N], const char* src) {
    return BoundedCopy(dst, src, N);
}
template <size_t N> int BoundedAppend(char (&dst)[N], const char* src) {
    return BoundedAppend(dst, src, N);
}
