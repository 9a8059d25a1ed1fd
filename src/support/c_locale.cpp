#include "support/c_locale.h"

namespace {

locale_t CLocale() {
    // Made once and never freed: threads may still hold it while the program ends.
    static const locale_t c = newlocale(LC_ALL_MASK, "C", locale_t(0));
    return c;
}

} // namespace

CLocaleScope::CLocaleScope() : previous_(locale_t(0)) {
    if (CLocale() != locale_t(0)) previous_ = uselocale(CLocale());
}

CLocaleScope::~CLocaleScope() {
    if (previous_ != locale_t(0)) uselocale(previous_);
}
