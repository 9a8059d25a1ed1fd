// The field readers of a table-driven dialog: a number from an edit, within limits.
#include "settings/setup_table.h"

#include "support/c_locale.h"

#include <cerrno>
#include <cmath>
#include <cstdlib>
#include <cstring>

namespace {

int RejectField(SetupDialog* d, int id) {
    d->ops->Beep(d->context);
    d->ops->FocusAndSelectAll(d->context, id);
    return 0;
}

// The field's text without surrounding blanks; false when it holds nothing.
bool FieldText(SetupDialog* d, int id, char* text, size_t size) {
    if (!d->ops->GetText(d->context, id, text, size)) return false;
    size_t n = std::strlen(text);
    while (n && (text[n - 1] == ' ' || text[n - 1] == '\t'))
        text[--n] = '\0';
    size_t lead = std::strspn(text, " \t");
    std::memmove(text, text + lead, n - lead + 1);
    return text[0] != '\0';
}

template <typename T> void Order(T& low, T& high) {
    if (low > high) {
        T t = low;
        low = high;
        high = t;
    }
}

} // namespace

int ReadIntField(SetupDialog* dialog, int id, int32_t minimum, int32_t maximum, int32_t* out) {
    char text[64];
    if (!FieldText(dialog, id, text, sizeof text)) return RejectField(dialog, id);
    char* end = nullptr;
    errno = 0;
    long v = std::strtol(text, &end, 10);
    Order(minimum, maximum);
    if (*end || errno == ERANGE || v < minimum || v > maximum) return RejectField(dialog, id);
    *out = static_cast<int32_t>(v);
    return 1;
}

int ReadUIntField(SetupDialog* dialog, int id, uint32_t minimum, uint32_t maximum, uint32_t* out) {
    char text[64];
    if (!FieldText(dialog, id, text, sizeof text) || text[0] == '-') return RejectField(dialog, id);
    char* end = nullptr;
    errno = 0;
    unsigned long v = std::strtoul(text, &end, 10);
    Order(minimum, maximum);
    if (*end || errno == ERANGE || v < minimum || v > maximum) return RejectField(dialog, id);
    *out = static_cast<uint32_t>(v);
    return 1;
}

int ReadFloatField(SetupDialog* dialog, int id, float minimum, float maximum, float* out) {
    char text[128];
    if (!FieldText(dialog, id, text, sizeof text)) return RejectField(dialog, id);
    char* end = nullptr;
    double v = StrToDoubleC(text, &end);
    float f = static_cast<float>(v);
    Order(minimum, maximum);
    if (*end || !std::isfinite(f) || f < minimum || f > maximum) return RejectField(dialog, id);
    *out = f;
    return 1;
}
