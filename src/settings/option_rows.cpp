#include "settings/option_rows.h"

#include "support/c_locale.h"

#include <cstdarg>

void AddOptionRow(OptionRows& out, const char* label, const char* format, ...) {
    char value[512];
    va_list args;
    va_start(args, format);
    VsnprintfC(value, sizeof value, format, args);
    va_end(args);
    out.rows.push_back({label, value});
}

std::string OptionRowsText(const OptionRows& rows) {
    std::string text = rows.title + "\n";
    for (const OptionRow& r : rows.rows)
        text += r.label + "\t" + r.value + "\n";
    return text;
}
