#include "support/c_locale.h"

#include <clocale>
#include <cstdio>
#include <cstdlib>
#include <locale.h>

namespace {
locale_t CLocale() {
    static locale_t c = newlocale(LC_ALL_MASK, "C", static_cast<locale_t>(0));
    return c;
}
} // namespace

CLocaleScope::CLocaleScope() : previous_(uselocale(CLocale())) {}

CLocaleScope::~CLocaleScope() {
    uselocale(static_cast<locale_t>(previous_));
}

int VsnprintfC(char* buffer, size_t size, const char* format, va_list args) {
    CLocaleScope c;
    return std::vsnprintf(buffer, size, format, args);
}

int SnprintfC(char* buffer, size_t size, const char* format, ...) {
    va_list args;
    va_start(args, format);
    int n = VsnprintfC(buffer, size, format, args);
    va_end(args);
    return n;
}

double StrToDoubleC(const char* text, char** end) {
    return strtod_l(text, end, CLocale());
}
