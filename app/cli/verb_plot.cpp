// vantrel-cli plot: a data file drawn as the main window draws it, into a PNG (or any image
// format Qt writes, by the extension).
#ifdef VANTREL_HAVE_GUI
#include "cli_verbs.h"
#include "curve/curve_style.h"
#include "curve/undo.h"
#include "files/data_file.h"
#include "gui/qt_canvas.h"
#include "support/cmdline.h"
#include "ui/plot_options.h"
#include "ui/plot_render.h"

#include <QGuiApplication>
#include <QImage>
#include <QPainter>

#include <cstdio>

int RunPlotVerb(int argc, char** argv) {
    const char* in = Positional(2);
    char out[4096] = "";
    if (!in || !FindSwitch("o:", out, sizeof out) || !out[0]) {
        std::fprintf(stderr, "usage: vantrel-cli plot FILE.dat -o:FILE.png [-w:W] [-h:H] "
                             "[-i:vtl.ini]\n");
        return 2;
    }
    int width = SwitchInt("w:", 800), height = SwitchInt("h:", 600);
    if (width < 16 || height < 16 || width > 16384 || height > 16384) {
        std::fprintf(stderr, "vantrel-cli plot: size %dx%d is out of range\n", width, height);
        return 2;
    }
    // The image needs fonts, not a display.
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QGuiApplication app(argc, argv);

    char settings[4096];
    if (FindSwitch("i:", settings, sizeof settings)) {
        LoadPlotOptions(settings);
        LoadCurveStyles(settings);
    }
    ViewScale view;
    DataFileLink link = gDataFileLink;
    gDataFileLink.scaleAuto = &view.scaleAuto;
    gDataFileLink.xMin = &view.xMin;
    gDataFileLink.xMax = &view.xMax;
    gDataFileLink.yMin = &view.yMin;
    gDataFileLink.yMax = &view.yMax;
    int read = OpenDataFile(nullptr, in, 0);
    gDataFileLink = link;
    if (read < 0) {
        std::fprintf(stderr, "vantrel-cli plot: can't read %s\n", in);
        return 1;
    }

    QImage image(width, height, QImage::Format_RGB32);
    image.fill(Qt::white);
    QPainter painter(&image);
    QtCanvasState state;
    PlotCanvas dc = MakeQtCanvas(state, painter);
    PlotWindow window;
    window.area = CanvasRect{0, 0, width, height};
    int drawn = DrawPlot(gPlotOptions, &window, dc, gCurves, view);
    painter.end();
    if (drawn != PLOT_DRAWN) {
        std::fprintf(stderr, "vantrel-cli plot: %s has nothing to plot\n", in);
        return 1;
    }
    if (!image.save(PathToQt(out))) {
        std::fprintf(stderr, "vantrel-cli plot: can't write %s\n", out);
        return 1;
    }
    std::printf("%s -> %s: %u curves, %dx%d\n", in, out, gCurves.count, width, height);
    return 0;
}
#endif
