#include "curve/curve_family.h"

#include "support/block_exchange.h"
#include "support/bounded_text.h"
#include "support/debug_check.h"
#include "support/message_box.h"

#include <cfloat>
#include <cstdio>
#include <utility>

int CurveFamily::Extent(float start,
                        bool (Curve::*extreme)(float&, std::uint32_t, std::uint32_t) const,
                        float& out) const {
    if (count == 0) return 0;
    const bool isMax = start < 0;
    out = start;
    int found = 0;
    for (std::uint32_t i = 0; i < count; ++i) {
        float v;
        if (!(curves[i].*extreme)(v, 0, UINT_MAX)) continue;
        if (isMax ? v > out : v < out) out = v;
        found = 1;
    }
    return found;
}

int CurveFamily::MinX(float& out) const {
    return Extent(FLT_MAX, &Curve::MinX, out);
}
int CurveFamily::MinY(float& out) const {
    return Extent(FLT_MAX, &Curve::MinY, out);
}
int CurveFamily::MaxX(float& out) const {
    return Extent(-FLT_MAX, &Curve::MaxX, out);
}
int CurveFamily::MaxY(float& out) const {
    return Extent(-FLT_MAX, &Curve::MaxY, out);
}

void CurveFamily::MarkAll() {
    for (std::uint32_t i = 0; i < count; ++i)
        curves[i].Mark();
}

void CurveFamily::UnmarkAll() {
    for (std::uint32_t i = 0; i < count; ++i)
        curves[i].Unmark();
}

std::uint32_t CurveFamily::CountMarked() const {
    std::uint32_t n = 0;
    for (std::uint32_t i = 0; i < count; ++i)
        n += curves[i].IsMarked() ? 1 : 0;
    return n;
}

int CurveFamily::DeleteMarked() {
    int result = 0;
    std::uint32_t i = 0;
    while (i < count) {
        if (curves[i].IsMarked()) {
            result |= DeleteCurves(i, i);
        } else {
            ++i;
        }
    }
    return result;
}

int CurveFamily::GetMarkedCurveIndex(std::uint32_t k) const {
    for (std::uint32_t i = 0; i < count; ++i) {
        if (curves[i].IsMarked() && k-- == 0) return int(i);
    }
    VASSERT_MSG(false, "CurveFamily::GetMarkedCurveIndex - MarkedCurveNumber is wrong");
    return -1;
}

void CurveFamily::SwapAxes() {
    for (std::uint32_t i = 0; i < count; ++i) {
        Curve& c = curves[i];
        for (std::uint32_t k = 0; k < c.count; ++k)
            std::swap(c.points[k].x, c.points[k].y);
    }
    ExchangeObjects(xUnits, yUnits);
}

namespace {

template <class Differentiate> int DifferentiateAll(CurveFamily& family, Differentiate step) {
    int result = 0;
    std::uint32_t i = 0;
    while (i < family.count) {
        Curve& c = family.curves[i];
        if (c.count < 2) {
            family.DeleteCurves(i, i);
            result = 1;
            continue;
        }
        // A curve whose points all share one x is left empty; it goes without comment.
        step(c);
        if (c.count == 0) {
            family.DeleteCurves(i, i);
        } else {
            ++i;
        }
    }
    return result;
}

} // namespace

int CurveFamily::DifferentiateX() {
    int result = DifferentiateAll(*this, [](Curve& c) { c.DifferentiateX(); });
    Relabel("%s/%s", "D[%s,x]", "CurveFamily::DifferentiateX()");
    return result;
}

int CurveFamily::DifferentiateY() {
    int result = DifferentiateAll(*this, [](Curve& c) { c.DifferentiateY(); });
    Relabel("%s/%s", "D[%s,x](y)", "CurveFamily::DifferentiateY()");
    BoundedCopy(xUnits, yUnits);
    return result;
}

void CurveFamily::Integrate() {
    for (std::uint32_t i = 0; i < count; ++i)
        curves[i].Integrate();
    Relabel("%s*%s", "Int[%s,x]", "CurveFamily::Integrate()");
}

void CurveFamily::Relabel(const char* unitsPattern, const char* titlePattern, const char* caption) {
    // Formatted aside first: the old texts are arguments of their own replacements.
    char text[sizeof name + sizeof xUnits + sizeof yUnits + 16];
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wformat-nonliteral"
    std::snprintf(text, sizeof text, unitsPattern, yUnits, xUnits);
    if (!BoundedCopy(yUnits, text)) {
        MessageBoxBeep(nullptr, "The name of Y-units is too long.\nTruncated.", caption,
                       MB_OK | MB_ICONINFORMATION);
    }
    std::snprintf(text, sizeof text, titlePattern, name);
#pragma GCC diagnostic pop
    if (!BoundedCopy(name, text)) {
        MessageBoxBeep(nullptr, "The name of plot is too long.\nTruncated.", caption,
                       MB_OK | MB_ICONINFORMATION);
    }
}

void ReportDiscardedCurves() {
    MessageBoxBeep(nullptr,
                   "Some curves consisted of 0 or 1 point only.\nThey have been discarded.",
                   nullptr, MB_OK | MB_ICONINFORMATION);
}
