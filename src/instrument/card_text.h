// Formatted appends for the card report and the information text.
#pragma once
#include <cstddef>

// Formats in the C locale and appends to text, cut to size; 1 when all of it fit.
int AppendFormat(char* text, size_t size, const char* format, ...)
    __attribute__((format(printf, 3, 4)));
