#include "analysis/multi_point_derivative.h"

#include "analysis/math_options.h"
#include "curve/curve_family.h"
#include "support/c_locale.h"

#include <algorithm>

void MultiPointDerivative(const CurveFamily& source, bool againstY, CurveFamily& out) {
    out.Reset();
    out.CopyHeader(source);
    out.SetCurveCount(source.count);
    const long N = DerivePoints;
    const double norm = static_cast<double>(N * (N + 1) * (2 * N + 1)) / 3;
    for (std::uint32_t c = 0; c < source.count && c < out.count; ++c) {
        const Curve& in = source.GetCurve(c);
        Curve& d = out.GetCurve(c);
        d.SetName(in.GetName());
        const long n = in.count;
        if (n == 0) continue;
        long m = n;
        if (DeriveDiscardEdge) m = std::max(n - 2 * N, 8L);
        m = std::min(m, n); // a curve of fewer than 8 points keeps its length
        const Point* p = in.points;
        const long half = n / 2;
        float dx = half ? (p[half].x - p[0].x) / static_cast<float>(half) : 0.0f;
        long s = (n - m) / 2;
        d.Resize(static_cast<std::uint32_t>(m));
        for (long k = 0; k < m; ++k, ++s) {
            d.points[k].x = againstY ? p[s].y : p[s].x;
            double acc = 0;
            for (long j = 1; j <= N; ++j) {
                const long l = j < s ? s - j : 0;
                const long r = (s < n - j && n >= j) ? s + j : n - 1;
                acc -= j * p[l].y;
                acc += j * p[r].y;
            }
            d.points[k].y = dx == 0 ? 0.0f : static_cast<float>(acc / (norm * dx));
            if (s == half && DeriveDiscardDir && half)
                dx = (p[n - 1].x - p[half].x) / static_cast<float>(half);
        }
    }
    char text[64];
    SnprintfC(text, sizeof text, "%s/%s", source.yUnits, source.xUnits);
    out.SetYUnits(text);
    if (againstY) out.SetXUnits(source.yUnits);
    SnprintfC(text, sizeof text, againstY ? "dY/dX(Y) %s" : "dY/dX(X) %s", source.name);
    out.SetPlotName(text);
}
