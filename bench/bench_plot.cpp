#include "curve/curve_family.h"
#include "gui/qt_canvas.h"
#include "ui/plot_render.h"

#include <QGuiApplication>
#include <QImage>
#include <QPainter>
#include <benchmark/benchmark.h>

#include <cmath>

namespace {

constexpr unsigned kCurves = 10;
constexpr unsigned kPoints = 100000;

void EnsureApplication() {
    static int argc = 1;
    static char name[] = "vantrel_bench";
    static char* argv[] = {name, nullptr};
    if (QGuiApplication::instance() != nullptr) return;
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
    new QGuiApplication(argc, argv);
}

// Ten I-V-like curves with a little noise, as a family measurement leaves them.
void FillFamily(CurveFamily& family) {
    family.SetUnits("A", "V");
    family.SetCurveCount(kCurves);
    family.ResizeCurves(kPoints);
    unsigned noise = 12345;
    for (unsigned c = 0; c < kCurves; ++c) {
        Curve& curve = family.GetCurve(c);
        for (unsigned k = 0; k < kPoints; ++k) {
            double x = -1e-3 + 2e-3 * k / kPoints;
            noise = noise * 1103515245u + 12345u;
            double jitter = ((noise >> 16) & 0x3FF) / 1024.0 - 0.5;
            double v = std::sin(6e3 * x + c) * 1e-4 + c * 2e-5 + jitter * 2e-6;
            curve.points[k] = Point(static_cast<float>(x), static_cast<float>(v));
        }
    }
}

void BM_DrawPlotQImage(benchmark::State& state) {
    EnsureApplication();
    CurveFamily family;
    FillFamily(family);
    QImage image(1600, 1000, QImage::Format_RGB32);
    PlotWindow window;
    window.area = CanvasRect{0, 0, 1600, 1000};
    for (auto _ : state) {
        ViewScale view;
        QPainter painter(&image);
        QtCanvasState canvas;
        int result = DrawPlot(gPlotOptions, &window, MakeQtCanvas(canvas, painter), family, view);
        benchmark::DoNotOptimize(result);
    }
    state.SetItemsProcessed(state.iterations() * kCurves * kPoints);
}
BENCHMARK(BM_DrawPlotQImage)->Unit(benchmark::kMillisecond);

} // namespace
