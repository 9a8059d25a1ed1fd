// The plot canvas over a QPainter: a widget, a QImage or a printer page. Stored text is
// single-byte Windows-1252 and becomes a QString through TextFromStored (gui/qt_text.h).
#pragma once
#include "gui/qt_text.h"
#include "ui/plot_canvas.h"

#include <QPoint>
#include <QString>
#include <QVector>

class QPainter;

// Lives as long as the canvas made from it is in use.
struct QtCanvasState {
    QPainter* painter = nullptr;
    QPoint current;           // the current point of MoveTo and LineTo
    QVector<QPoint> polyline; // reused between Polyline calls
    CanvasColor textColor = 0;
};

// The painter must be active on its device.
PlotCanvas MakeQtCanvas(QtCanvasState& state, QPainter& painter);
