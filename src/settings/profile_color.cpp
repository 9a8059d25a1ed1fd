#include "settings/profile_color.h"

#include "settings/profile.h"
#include "support/c_locale.h"

#include <cstdlib>

unsigned long ReadProfileColor(const char* section, const char* key, unsigned long defaultValue,
                               const char* fileName) {
    char text[64];
    GetPrivateProfileString(section, key, "", text, sizeof text, fileName);
    char* end = nullptr;
    unsigned long value = std::strtoul(text, &end, 0);
    return end == text ? defaultValue : value;
}

int WriteProfileColor(const char* section, const char* key, unsigned long color,
                      const char* fileName) {
    char text[32];
    SnprintfC(text, sizeof text, "0x%06lX", color);
    return WritePrivateProfileString(section, key, text, fileName);
}
