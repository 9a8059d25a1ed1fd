// Switch and positional values as numbers, booleans, texts and lists.
#include "support/bounded_text.h"
#include "support/c_locale.h"
#include "support/cmdline.h"
#include "support/cmdline_internal.h"

#include <cerrno>
#include <climits>
#include <cmath>
#include <cstdlib>
#include <cstring>

namespace {

bool ToInt(const char* text, const char** end, int* value) {
    char* stop;
    errno = 0;
    long v = std::strtol(text, &stop, 10);
    *end = stop;
    if (stop == text || errno == ERANGE || v < INT_MIN || v > INT_MAX) return false;
    *value = static_cast<int>(v);
    return true;
}

// Overflow is refused; a value too small for a double reads as what strtod makes of it.
bool ToDouble(const char* text, const char** end, double* value) {
    char* stop;
    double v;
    {
        CLocaleScope c;
        errno = 0;
        v = std::strtod(text, &stop);
    }
    *end = stop;
    if (stop == text || (errno == ERANGE && std::fabs(v) == HUGE_VAL)) return false;
    *value = v;
    return true;
}

bool WholeInt(const char* text, int* value) {
    const char* end;
    return ToInt(text, &end, value) && *end == '\0';
}

bool WholeDouble(const char* text, double* value) {
    const char* end;
    return ToDouble(text, &end, value) && *end == '\0';
}

// Calls use with the value from the options file, then with the one of the command line.
template <class Use> void EachValue(const char* name, Use use) {
    char text[CMDLINE_VALUE_SIZE];
    if (gOptionsFileText[0] && FindSwitchIn(gOptionsFileText, name, text, sizeof text)) use(text);
    if (FindSwitch(name, text, sizeof text)) use(text);
}

[[noreturn]] void StringMissing(const char* name) {
    CmdLineFail(4, "Invalid -%s parameter -- string missing\n", name);
}

bool IsListSeparator(char c) {
    return c == ',' || c == ';' || c == ' ' || c == '\t';
}

// Reads the list of name into list with parse(text, &end, &value); the same words for both
// kinds of list.
template <class T, class Parse>
unsigned ReadList(const char* name, T* list, unsigned capacity, Parse parse) {
    char text[CMDLINE_VALUE_SIZE];
    SwitchString(name, "", text, sizeof text);
    if (!text[0]) return 0;
    unsigned count = 0;
    const char* at = text;
    for (;;) {
        while (IsListSeparator(*at))
            ++at;
        // The last slot is never filled: a full list is taken as one that went on.
        if (count >= capacity)
            CmdLineFail(4, "Too long list of values in -%s. Maximum %u items allowed.", name,
                        capacity);
        if (!*at) break;
        const char* end;
        T value;
        if (!parse(at, &end, &value) || (*end && !IsListSeparator(*end)))
            CmdLineFail(4, "Bad formed list of doubles in -%s", name);
        list[count++] = value;
        at = end;
    }
    return count;
}

} // namespace

const char* OrdinalSuffix(int n) {
    switch (n % 10) {
    case 1:
        return "st";
    case 2:
        return "nd";
    case 3:
        return "rd";
    default:
        return "th";
    }
}

int SwitchInt(const char* name, int defaultValue) {
    int value = defaultValue;
    EachValue(name, [&](const char* text) {
        if (!WholeInt(text, &value))
            CmdLineFail(4, "Invalid -%s parameter -- not an integer number\n", name);
    });
    return value;
}

int SwitchBool(const char* name, int defaultValue) {
    int value = defaultValue;
    EachValue(name, [&](const char* text) {
        if (std::strcmp(text, "+") == 0)
            value = 1;
        else if (std::strcmp(text, "-") == 0)
            value = 0;
        else if (!text[0])
            value = !defaultValue;
        else
            CmdLineFail(4, "Invalid -%s parameter -- not +,- or space\n", name);
    });
    return value;
}

void SwitchString(const char* name, const char* defaultValue, char* text, size_t size) {
    if (text && size) BoundedCopy(text, defaultValue ? defaultValue : "", size);
    const char* value;
    std::size_t length;
    if (gOptionsFileText[0] && ListSwitchValue(gOptionsFileText, name, &value, &length)) {
        if (!length) StringMissing(name);
        FindSwitchIn(gOptionsFileText, name, text, size);
    }
    if (const char* rest = ArgSwitchValue(0, name, nullptr)) {
        if (!*rest) StringMissing(name);
        if (text && size) BoundedCopy(text, rest, size);
    }
}
