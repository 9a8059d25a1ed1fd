#include "curve/curve_family.h"
#include "curve/curve_style.h"
#include "gui/qt_canvas.h"
#include "ui/plot_path.h"
#include "ui/plot_render.h"

#include <QGuiApplication>
#include <QImage>
#include <QPainter>
#include <gtest/gtest.h>

#include <cmath>
#include <random>

// Font configuration keeps caches for the life of the process.
extern "C" const char* __lsan_default_suppressions() {
    return "leak:libfontconfig\n";
}

namespace {

// A white image of w x h with the painting done on a Qt canvas over it.
template <class Paint> QImage Painted(int w, int h, Paint paint) {
    static int argc = 1;
    static char* argv[] = {const_cast<char*>("test_gui_plot"), nullptr};
    if (!QGuiApplication::instance()) new QGuiApplication(argc, argv);
    QImage image(w, h, QImage::Format_RGB32);
    image.fill(Qt::white);
    QPainter painter(&image);
    QtCanvasState state;
    paint(MakeQtCanvas(state, painter));
    return image;
}

QRgb Rgb(CanvasColor c) {
    return qRgb(c & 0xFF, (c >> 8) & 0xFF, (c >> 16) & 0xFF);
}

// The pixels of the colour, or of the kind when the predicate is given.
int CountPixels(const QImage& image, QRgb color, bool (*is)(QRgb) = nullptr) {
    int n = 0;
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            n += is ? is(image.pixel(x, y)) : image.pixel(x, y) == color;
    return n;
}

// A family and, below it, a report in blue (the code page of texts is checked with the file
// names).
TEST(QtCanvas, FamilyAndReportIntoImage) {
    CurveFamily family;
    family.SetCurveCount(3);
    for (unsigned c = 0; c < 3; ++c)
        for (int i = 0; i <= 200; ++i)
            family.GetCurve(c).AddPoint(i * 0.01f, std::sin(i * 0.05f + c) * 1e-3f);
    ViewScale view;
    PlotWindow window;
    window.area = CanvasRect{0, 0, 800, 500};
    QImage image = Painted(800, 600, [&](const PlotCanvas& dc) {
        dc.FillRect(dc.context, window.area, 0); // black, so that the clearing shows
        EXPECT_EQ(DrawPlot(gPlotOptions, &window, dc, family, view), PLOT_DRAWN);
        DrawHardwareReport(dc, CanvasRect{0, 500, 300, 600}, "Card 1: PCI-MIO-16XE-10");
    });
    EXPECT_EQ(image.pixel(2, 2), qRgb(255, 255, 255));
    // A curve may run along the frame where it enters the box: most of it is the axes colour.
    QImage frame = image.copy(view.plotLeft, view.plotBottom - view.plotHeight, 1, view.plotHeight);
    EXPECT_GT(CountPixels(frame, Rgb(gPlotOptions.axesPen.color)), view.plotHeight * 9 / 10);
    // The second curve in its own colour, and nothing of it right of the box.
    EXPECT_GT(CountPixels(image, Rgb(gCurveStyles[1].color)), 100);
    const int right = view.plotLeft + view.plotWidth + 3;
    EXPECT_EQ(CountPixels(image.copy(right, 0, 800 - right, 500), Rgb(gCurveStyles[1].color)), 0);
    QImage report = image.copy(0, 500, 300, 100);
    EXPECT_GT(CountPixels(report, 0, [](QRgb p) { return qBlue(p) > 128 && qRed(p) < 128; }), 10);
}

// The column reduction must paint exactly what the full polyline paints.
TEST(QtCanvas, ReducedPathPaintsTheSamePixels) {
    std::mt19937 random(7);
    std::uniform_int_distribution<int> step(-6, 6);
    std::vector<CanvasPoint> walk;
    for (int i = 0, y = 150; i < 20000; ++i) {
        y = std::clamp(y + step(random), 5, 295);
        walk.push_back(CanvasPoint{10 + i / 60, y});
    }
    QImage images[2];
    for (int reduce = 0; reduce < 2; ++reduce)
        images[reduce] = Painted(400, 300, [&](const PlotCanvas& dc) {
            dc.SetPen(dc.context, PEN_SOLID, 1, 0x0000FF);
            PlotPath path(dc, reduce != 0);
            path.MoveTo(walk[0].x, walk[0].y);
            for (const CanvasPoint& p : walk)
                path.LineTo(p.x, p.y);
        });
    EXPECT_GT(CountPixels(images[0], qRgb(255, 0, 0)), 1000);
    EXPECT_TRUE(images[0] == images[1]);
}

} // namespace
