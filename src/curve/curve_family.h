// The document: an ordered set of curves that share axes, with the plot's title, the unit names
// and the descriptive fields of a measurement.
#pragma once
#include "curve/curve.h"

#include <cstdint>
#include <type_traits>

// Curve records move between arrays by exchange, never by copying their points; the whole
// family record is exchanged the same way for undo.
class CurveFamily {
  public:
    std::uint32_t count = 0; // number of curves
    std::int32_t date = 0;   // calendar time of the measurement; 0 shows blank
    float timeSpent = -1.0f; // seconds; -1 means unknown and shows blank
    char name[64] = {};      // the plot's title
    char xUnits[16] = {};
    char yUnits[16] = {};
    char designer[64] = {}; // the user's name
    char chipName[64] = {};
    char circuitName[64] = {};
    char comment[512] = {};
    std::int16_t saved = 1;  // 1 when there is nothing to save
    Curve* curves = nullptr; // null when there are none

    CurveFamily() = default;
    CurveFamily(const CurveFamily& other) { *this = other; }
    // A shortage of memory shows as a count smaller than the source's: curves that could not be
    // copied whole are left out from the first of them on.
    CurveFamily& operator=(const CurveFamily& other);
    ~CurveFamily() { delete[] curves; }

    // Size and order. Every reference to a curve is stale after a change of size or order.
    // Keeps the first min(count, n) curves, adds empty ones. Returns the new count, which stays
    // below n when memory ran out.
    std::uint32_t SetCurveCount(std::uint32_t n);
    // An index at or past count fails the check and gives a spare empty curve.
    Curve& GetCurve(std::uint32_t i);
    const Curve& GetCurve(std::uint32_t i) const;
    // Inclusive. 1, or 0 when the arguments fail their check.
    int DeleteCurves(std::uint32_t first, std::uint32_t last);
    // Curve::Resize on every curve. Returns n, or kCurveFailure when a curve ran out of memory.
    std::int64_t ResizeCurves(std::uint32_t n);
    // Takes the curve out and inserts it at to, shifting those between.
    void MoveCurve(std::uint32_t from, std::uint32_t to);
    void SwapCurves(std::uint32_t i, std::uint32_t j);
    // Date, time spent and every text; no curves and no saved flag.
    void CopyHeader(const CurveFamily& other);
    // Frees the curves and sets saved; the header stays.
    void Clear();
    // Clear, and the header back to its first state.
    void Reset();

    // Header texts, cut to their fields: 1 when the text fit, 0 when it was cut.
    int SetPlotName(const char* text);
    int SetXUnits(const char* text);
    int SetYUnits(const char* text);
    int SetDesigner(const char* text);
    int SetChipName(const char* text);
    int SetCircuitName(const char* text);
    int SetComment(const char* text);
    int AppendToComment(const char* text);
    int SetUnits(const char* x, const char* y);
    // The OR of the four results.
    int SetHeader(const char* title, const char* x, const char* y, const char* designerName);

    // Extent over the curves that have points: 1 when at least one had, else 0. An empty
    // family leaves out alone.
    int MinX(float& out) const;
    int MinY(float& out) const;
    int MaxX(float& out) const;
    int MaxY(float& out) const;

    void MarkAll();
    void UnmarkAll();
    std::uint32_t CountMarked() const;
    // 1 when a curve was deleted, else 0.
    int DeleteMarked();
    // Index of the k-th marked curve from 0; too few marked fails the check and gives -1.
    int GetMarkedCurveIndex(std::uint32_t k) const;

    // Exchanges x and y of every point and the two unit names.
    void SwapAxes();
    // Curves with fewer than 2 points are discarded and make the result 1: the command then
    // calls ReportDiscardedCurves. Relabels units and title, with a box when a text was cut.
    int DifferentiateX();
    // Same numbers; both axes get the quotient of the unit names.
    int DifferentiateY();
    void Integrate();

  private:
    void Relabel(const char* unitsPattern, const char* titlePattern, const char* caption);
    int Extent(float start, bool (Curve::*extreme)(float&, std::uint32_t, std::uint32_t) const,
               float& out) const;
};

static_assert(sizeof(CurveFamily) % 2 == 0, "families are exchanged in 16-bit words");
static_assert(std::is_standard_layout_v<CurveFamily>, "families are moved bytewise");

// The information box a command shows when DifferentiateX or DifferentiateY returned 1.
void ReportDiscardedCurves();
