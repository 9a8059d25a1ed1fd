#include "gui/plot_widget.h"

#include "curve/undo.h"
#include "gui/qt_canvas.h"
#include "measure/measure_options.h"
#include "ui/main_state.h"
#include "ui/plot_render.h"

#include <QPainter>

PlotWidget::PlotWidget(QWidget* parent) : QWidget(parent) {
    setAttribute(Qt::WA_OpaquePaintEvent);
    setMinimumSize(200, 100);
    pending_.setSingleShot(true);
    connect(&pending_, &QTimer::timeout, this, [this] { update(); });
}

void PlotWidget::RequestRepaint() {
    qint64 wait = sincePaint_.isValid() ? qint64(InteractionTime) - sincePaint_.elapsed() : 0;
    if (wait <= 0) {
        update();
    } else if (!pending_.isActive()) {
        pending_.start(int(wait));
    }
}

void PlotWidget::paintEvent(QPaintEvent*) {
    sincePaint_.start();
    ++paints_;
    QPainter painter(this);
    painter.fillRect(rect(), palette().color(QPalette::Base));
    QtCanvasState state;
    PlotCanvas dc = MakeQtCanvas(state, painter);
    PlotWindow window;
    window.area = CanvasRect{0, 0, width(), height()};
    lastResult_ = DrawPlot(gPlotOptions, &window, dc, *gPaintedCurves.load(), gViewScale);
    if (lastResult_ == PLOT_NOTHING) DrawHardwareReport(dc, window.area, gHardwareReport);
}
