#include "support/exceptions.h"
#include "support/debug_check.h"

namespace {

// Texts by negated code, entry 0 being the "Unknown" text.
template <int N> const char* TextOf(const char* const (&texts)[N], int code) {
    VASSERT(code > -N);
    if (code >= 0 || code <= -N) return texts[0];
    return texts[-code];
}

} // namespace

const char* MeasureIcException::Message() const {
    static const char* const texts[] = {"Unknown exception", "Abort requested"};
    return TextOf(texts, code);
}

const char* LeastSquareFitException::Message() const {
    static const char* const texts[] = {
        "Unknown LeastSquareFitException",
        "LeastSquareFitException -- the number of elements is zero",
        "LeastSquareFitException -- the denominator is zero (A&B are infinite)",
    };
    return TextOf(texts, code);
}

const char* StatisticException::Message() const {
    static const char* const texts[] = {
        "Unknown StatisticException",
        "Can't compute average value - the number of elements is zero",
        "Can not compute relative standard deviation -- average is zero",
        "Can not compute relative delta -- average is zero",
    };
    return TextOf(texts, code);
}

const char* GFontException::Message() const {
    static const char* const texts[] = {
        "Unknown GFontException",
        "GFontException -- can't get a device context",
        "GFontException -- can't release the device context",
    };
    return TextOf(texts, code);
}

const char* GPenUIException::Message() const {
    static const char* const texts[] = {
        "Unknown GPenUIException",
        "GPenUIException -- the pen width is invalid",
    };
    return TextOf(texts, code);
}
