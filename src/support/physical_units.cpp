#include "support/physical_units.h"
#include "support/bounded_text.h"
#include "support/c_locale.h"
#include "support/debug_check.h"

#include <cmath>
#include <cstdio>
#include <cstring>

const char* const gPhysPrefixes[PHYS_PREFIX_COUNT] = {"p", "n", "\xB5", "m", " ",
                                                      "k", "M", "G",    "T"};

namespace {

struct Scaled {
    int flags = 0;
    float mantissa = 0;
    const char* prefix = nullptr;
};

Scaled ScaleValue(float value) {
    Scaled s;
    float magnitude = std::fabs(value);
    int e = PHYS_MIN_EXP;
    // In float, as the values are: 1e15f lies just below 1e15, yet its logarithm rounds to 15
    // and it overflows as 1e15 should; 1e-12f likewise stays at -12.
    if (!(magnitude < PHYS_MIN_MAGNITUDE))
        e = 3 * static_cast<int>(std::floor(std::log10(magnitude) / 3.0f));
    if (e < PHYS_MIN_EXP) {
        e = PHYS_MIN_EXP;
        s.flags |= PHYS_BELOW_RANGE;
    }
    if (e > PHYS_MAX_EXP) {
        e = PHYS_OVERFLOW_EXP;
        s.flags |= PHYS_ABOVE_RANGE;
    }
    s.mantissa = static_cast<float>(value / std::pow(10.0, e));
    int slot = (e - PHYS_MIN_EXP) / 3;
    s.prefix = slot < PHYS_PREFIX_COUNT ? gPhysPrefixes[slot] : PHYS_OVERFLOW_PREFIX;
    return s;
}

bool UnitTooLong(const char* unit) {
    return std::strlen(unit) > PHYS_MAX_UNIT;
}

int Emit(char* destination, std::size_t size, const char* format, const Scaled& s,
         const char* unit) {
    char text[128];
    int length;
    {
        CLocaleScope c;
        length = std::snprintf(text, sizeof text, format, s.mantissa, s.prefix, unit);
    }
    int flags = s.flags;
    if (!BoundedCopy(destination, text, size) || length < 0 || std::size_t(length) >= size)
        flags |= PHYS_TEXT_CUT;
    return flags;
}

} // namespace

int FormatPhysical(char* destination, float value, const char* unit, std::size_t size) {
    VASSERT(destination != nullptr && unit != nullptr);
    if (!destination || !unit) return 0;
    Scaled s = ScaleValue(value);
    if (UnitTooLong(unit)) return s.flags | PHYS_UNIT_TOO_LONG;
    float m = std::fabs(s.mantissa);
    const char* format = m > 100 ? "%+6.1f %s%s" : m > 10 ? "%+6.2f %s%s" : "%+6.3f %s%s";
    return Emit(destination, size, format, s, unit);
}

int FormatPhysicalDigits(char* destination, std::size_t size, float value, unsigned digits,
                         const char* unit) {
    VASSERT_MSG(digits > 1, "SigDig>1");
    VASSERT(destination != nullptr && unit != nullptr);
    if (!destination || !unit) return 0;
    Scaled s = ScaleValue(value);
    if (UnitTooLong(unit)) return s.flags | PHYS_UNIT_TOO_LONG;
    float m = std::fabs(s.mantissa);
    int decimals = static_cast<int>(digits) - (m > 100 ? 3 : m > 10 ? 2 : 1);
    // Too few digits for the integer part would wrap to a huge precision; show none instead.
    if (decimals < 0) decimals = 0;
    char format[32];
    std::snprintf(format, sizeof format, "%%+6.%uf %%s%%s", static_cast<unsigned>(decimals));
    return Emit(destination, size, format, s, unit);
}

float TakePrefix(char* text) {
    VASSERT(text != nullptr);
    if (!text) return 1.0f;
    float factor = PHYS_MIN_MAGNITUDE;
    for (const char* prefix : gPhysPrefixes) {
        std::size_t n = std::strlen(prefix);
        if (std::strncmp(text, prefix, n) == 0) {
            std::memmove(text, text + n, std::strlen(text + n) + 1);
            return factor;
        }
        factor *= 1000.0f;
    }
    return 1.0f;
}

int PrefixOf(double value, double& scale, const char*& prefix) {
    scale = 1e-12;
    int found = -1;
    for (int i = 0; i < PHYS_PREFIX_COUNT; ++i) {
        scale *= 1000;
        if (value < scale) {
            prefix = gPhysPrefixes[i];
            scale /= 1000;
            found = i;
            break;
        }
    }
    if (found < 0) return 1;
    if (found == 0 && value < 1e-12) return -1;
    return 0;
}
