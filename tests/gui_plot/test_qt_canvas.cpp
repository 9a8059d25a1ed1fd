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
    static char name[] = "test_gui_plot";
    static char* argv[] = {name, nullptr};
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

int CountPixels(const QImage& image, QRgb color) {
    int n = 0;
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            n += image.pixel(x, y) == color;
    return n;
}

TEST(QtCanvas, FamilyIntoImage) {
    CurveFamily family;
    family.SetUnits("A", "V");
    family.SetCurveCount(3);
    for (unsigned c = 0; c < 3; ++c)
        for (int i = 0; i <= 200; ++i)
            family.GetCurve(c).AddPoint(i * 0.01f, std::sin(i * 0.05f + c) * 1e-3f);
    ViewScale view;
    PlotWindow window;
    window.area = CanvasRect{0, 0, 800, 500};
    QImage image = Painted(800, 500, [&](const PlotCanvas& dc) {
        dc.FillRect(dc.context, window.area, 0); // black, so that the clearing shows
        EXPECT_EQ(DrawPlot(gPlotOptions, &window, dc, family, view), PLOT_DRAWN);
    });
    EXPECT_EQ(image.pixel(2, 2), qRgb(255, 255, 255));
    // A curve may run along the frame where it enters the box: most of it is the axes colour.
    QRgb axes = Rgb(gPlotOptions.axesPen.color);
    int frame = 0;
    for (int y = view.plotBottom - view.plotHeight; y <= view.plotBottom; ++y)
        frame += image.pixel(view.plotLeft, y) == axes;
    EXPECT_GT(frame, view.plotHeight * 9 / 10);
    EXPECT_EQ(image.pixel(view.plotLeft + view.plotWidth / 2, view.plotBottom), axes);
    for (unsigned c = 1; c < 3; ++c)
        EXPECT_GT(CountPixels(image, Rgb(gCurveStyles[c].color)), 100) << c;
    // Nothing of the curves outside the box.
    for (int y = 0; y < image.height(); ++y)
        EXPECT_NE(image.pixel(view.plotLeft + view.plotWidth + 3, y), Rgb(gCurveStyles[1].color));
}

// The column reduction must paint exactly what the full polyline paints.
TEST(QtCanvas, ReducedPathPaintsTheSamePixels) {
    std::mt19937 random(7);
    std::uniform_int_distribution<int> step(-6, 6);
    std::vector<CanvasPoint> walk;
    int y = 150;
    for (int i = 0; i < 20000; ++i) {
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

TEST(QtCanvas, StoredTextIsWindows1252AndReportsAreBlue) {
    EXPECT_EQ(TextFromStored("\xB5V"), QString::fromUtf8("\xC2\xB5V"));
    EXPECT_EQ(TextFromStored("\x80"), QString::fromUtf8("\xE2\x82\xAC"));
    EXPECT_EQ(TextFromStored("\xE9"), QString::fromUtf8("\xC3\xA9"));
    QImage image = Painted(300, 100, [](const PlotCanvas& dc) {
        DrawHardwareReport(dc, CanvasRect{0, 0, 300, 100},
                           "Card 1: PCI-MIO-16XE-10, 16 inputs, 2 outputs");
    });
    int blue = 0;
    for (int y = 0; y < 100; ++y)
        for (int x = 0; x < 300; ++x)
            blue += qBlue(image.pixel(x, y)) > 128 && qRed(image.pixel(x, y)) < 128;
    EXPECT_GT(blue, 10);
}

} // namespace
