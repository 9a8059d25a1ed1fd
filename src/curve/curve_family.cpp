#include "curve/curve_family.h"

#include "curve/curve_memory.h"
#include "support/block_exchange.h"
#include "support/bounded_text.h"
#include "support/debug_check.h"

#include <algorithm>
#include <cstddef>
#include <cstring>

namespace {

Curve& SpareCurve() {
    thread_local Curve spare;
    spare.Clear();
    return spare;
}

} // namespace

CurveFamily& CurveFamily::operator=(const CurveFamily& other) {
    if (this == &other) return *this;
    // A family of the same shape keeps its arrays: the result is the same as clearing and
    // allocating anew (every capacity equals its count), without returning the memory to the
    // system and faulting it in again on every undo copy of a long measurement.
    bool sameShape = count == other.count && count > 0;
    for (std::uint32_t i = 0; sameShape && i < count; ++i)
        sameShape = curves[i].capacity == other.curves[i].count;
    Curve* kept = sameShape ? curves : nullptr;
    std::uint32_t keptCount = sameShape ? count : 0;
    if (sameShape) {
        curves = nullptr;
        count = 0;
    }
    Clear();
    std::memcpy(static_cast<void*>(this), &other, offsetof(CurveFamily, curves));
    curves = kept;
    count = keptCount;
    if (!kept) SetCurveCount(other.count);
    for (std::uint32_t i = 0; i < count; ++i) {
        curves[i] = other.curves[i];
        // Undo compares only the number of curves, so a curve short of points ends the copy.
        if (curves[i].count != other.curves[i].count) {
            DeleteCurves(i, count - 1);
            break;
        }
    }
    return *this;
}

std::uint32_t CurveFamily::SetCurveCount(std::uint32_t n) {
    if (n < count) DeleteCurves(n, count - 1);
    if (n == 0) {
        delete[] curves;
        curves = nullptr;
        count = 0;
        return 0;
    }
    Curve* fresh = NewCurveArray<Curve>(n);
    if (!fresh) return count;
    if (curves) {
        ExchangeBlocks(fresh, curves, std::size_t(std::min(count, n)) * sizeof(Curve));
        delete[] curves;
    }
    curves = fresh;
    count = n;
    return n;
}

Curve& CurveFamily::GetCurve(std::uint32_t i) {
    VASSERT(i < count);
    return i < count ? curves[i] : SpareCurve();
}

const Curve& CurveFamily::GetCurve(std::uint32_t i) const {
    VASSERT(i < count);
    return i < count ? curves[i] : SpareCurve();
}

int CurveFamily::DeleteCurves(std::uint32_t first, std::uint32_t last) {
    VASSERT(count > 0);
    if (count == 0) return 0;
    VASSERT(first < count);
    VASSERT(last < count);
    VASSERT(last >= first);
    if (first >= count || last >= count || last < first) return 0;
    const std::uint32_t tail = count - 1 - last;
    const std::uint32_t remaining = first + tail;
    Curve* fresh = remaining > 0 ? NewCurveArray<Curve>(remaining) : nullptr;
    if (remaining > 0 && !fresh) {
        // Without a smaller array the tail moves down in place and the deleted curves, now at
        // the end, are emptied: deletion never fails, the array only keeps its spare records.
        for (std::uint32_t i = 0; i < tail; ++i)
            ExchangeObjects(curves[first + i], curves[last + 1 + i]);
        for (std::uint32_t i = remaining; i < count; ++i)
            curves[i].Clear();
        count = remaining;
        return 1;
    }
    if (fresh) {
        ExchangeBlocks(fresh, curves, std::size_t(first) * sizeof(Curve));
        ExchangeBlocks(fresh + first, curves + last + 1, std::size_t(tail) * sizeof(Curve));
    }
    delete[] curves;
    curves = fresh;
    count = remaining;
    return 1;
}

std::int64_t CurveFamily::ResizeCurves(std::uint32_t n) {
    std::int64_t result = n;
    for (std::uint32_t i = 0; i < count; ++i) {
        if (curves[i].Resize(n) < 0) result = kCurveFailure;
    }
    return result;
}

void CurveFamily::MoveCurve(std::uint32_t from, std::uint32_t to) {
    VASSERT(from < count);
    VASSERT(to < count);
    if (from >= count || to >= count) return;
    for (; from < to; ++from)
        ExchangeObjects(curves[from], curves[from + 1]);
    for (; from > to; --from)
        ExchangeObjects(curves[from], curves[from - 1]);
}

void CurveFamily::SwapCurves(std::uint32_t i, std::uint32_t j) {
    VASSERT(i < count);
    VASSERT(j < count);
    if (i >= count || j >= count) return;
    if (i != j) ExchangeObjects(curves[i], curves[j]);
}

void CurveFamily::CopyHeader(const CurveFamily& other) {
    if (this == &other) return;
    date = other.date;
    timeSpent = other.timeSpent;
    std::memcpy(name, other.name, sizeof name);
    std::memcpy(xUnits, other.xUnits, sizeof xUnits);
    std::memcpy(yUnits, other.yUnits, sizeof yUnits);
    std::memcpy(designer, other.designer, sizeof designer);
    std::memcpy(chipName, other.chipName, sizeof chipName);
    std::memcpy(circuitName, other.circuitName, sizeof circuitName);
    std::memcpy(comment, other.comment, sizeof comment);
}

void CurveFamily::Clear() {
    delete[] curves;
    curves = nullptr;
    count = 0;
    saved = 1;
}

void CurveFamily::Reset() {
    Clear();
    CopyHeader(CurveFamily());
}

int CurveFamily::SetPlotName(const char* text) {
    return BoundedCopy(name, text);
}
int CurveFamily::SetXUnits(const char* text) {
    return BoundedCopy(xUnits, text);
}
int CurveFamily::SetYUnits(const char* text) {
    return BoundedCopy(yUnits, text);
}
int CurveFamily::SetDesigner(const char* text) {
    return BoundedCopy(designer, text);
}
int CurveFamily::SetChipName(const char* text) {
    return BoundedCopy(chipName, text);
}
int CurveFamily::SetCircuitName(const char* text) {
    return BoundedCopy(circuitName, text);
}
int CurveFamily::SetComment(const char* text) {
    return BoundedCopy(comment, text);
}
int CurveFamily::AppendToComment(const char* text) {
    return BoundedAppend(comment, text);
}

int CurveFamily::SetUnits(const char* x, const char* y) {
    return SetXUnits(x) & SetYUnits(y);
}

int CurveFamily::SetHeader(const char* title, const char* x, const char* y,
                           const char* designerName) {
    return SetPlotName(title) | SetXUnits(x) | SetYUnits(y) | SetDesigner(designerName);
}
