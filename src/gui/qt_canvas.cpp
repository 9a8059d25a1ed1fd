#include "gui/qt_canvas.h"

#include <QColor>
#include <QFontMetrics>
#include <QPaintDevice>
#include <QPainter>
#include <QPen>
#include <QRect>

namespace {

QtCanvasState& State(void* context) {
    return *static_cast<QtCanvasState*>(context);
}

QColor ColorOf(CanvasColor c) {
    return QColor(c & 0xFF, (c >> 8) & 0xFF, (c >> 16) & 0xFF);
}

// Right and bottom lie just outside, as in QRect's width and height.
QRect RectOf(const CanvasRect& r) {
    return QRect(r.left, r.top, r.right - r.left, r.bottom - r.top);
}

int GetCaps(void* context, CanvasCaps* caps) {
    QPaintDevice* device = State(context).painter->device();
    if (device == nullptr) return 0;
    caps->horzSizeMm = device->widthMM();
    caps->vertSizeMm = device->heightMM();
    caps->horzRes = device->width();
    caps->vertRes = device->height();
    caps->bitsPixel = device->depth();
    caps->planes = 1;
    caps->numColors = device->depth() <= 8 ? 1 << device->depth() : -1;
    caps->logPixelsX = device->logicalDpiX();
    caps->logPixelsY = device->logicalDpiY();
    return 1;
}

void FillRect(void* context, const CanvasRect& rect, CanvasColor color) {
    State(context).painter->fillRect(RectOf(rect), ColorOf(color));
}

void SetPen(void* context, int style, int width, CanvasColor color) {
    static const Qt::PenStyle styles[] = {Qt::SolidLine,   Qt::DashLine,       Qt::DotLine,
                                          Qt::DashDotLine, Qt::DashDotDotLine, Qt::NoPen};
    QPen pen(ColorOf(color));
    pen.setStyle(style >= 0 && style <= PEN_INVISIBLE ? styles[style] : Qt::SolidLine);
    if (width <= 1) {
        // A thin line includes both end pixels, so a polyline paints the union of its steps.
        pen.setWidth(0);
        pen.setCosmetic(true);
        pen.setCapStyle(Qt::SquareCap);
    } else {
        pen.setWidth(width);
        pen.setCapStyle(Qt::RoundCap);
        pen.setJoinStyle(Qt::RoundJoin);
    }
    State(context).painter->setPen(pen);
}

void SetFont(void* context, const CanvasFont& font) {
    QtCanvasState& s = State(context);
    QFont f(TextFromStored(font.face));
    f.setPixelSize(font.pixelHeight > 0 ? font.pixelHeight : 1);
    if (font.weight > 0)
        f.setWeight(static_cast<QFont::Weight>(font.weight > 1000 ? 1000 : font.weight));
    f.setItalic(font.italic != 0);
    f.setUnderline(font.underline != 0);
    f.setStrikeOut(font.strikeOut != 0);
    s.painter->setFont(f);
}

void SetTextColor(void* context, CanvasColor color) {
    State(context).textColor = color;
}

int CharWidth(void* context, char c) {
    QtCanvasState& s = State(context);
    const char text[2] = {c, '\0'};
    return QFontMetrics(s.painter->font(), s.painter->device())
        .horizontalAdvance(TextFromStored(text));
}

void DrawText(void* context, const char* text, const CanvasRect& box, unsigned flags) {
    int align = Qt::TextDontClip | Qt::AlignTop;
    align |= (flags & TEXT_CENTER)  ? Qt::AlignHCenter
             : (flags & TEXT_RIGHT) ? Qt::AlignRight
                                    : Qt::AlignLeft;
    align |= (flags & TEXT_WORDBREAK) ? Qt::TextWordWrap : Qt::TextSingleLine;
    // Qt draws text with the pen, which belongs to the lines here.
    QtCanvasState& s = State(context);
    QPen lines = s.painter->pen();
    s.painter->setPen(ColorOf(s.textColor));
    s.painter->drawText(RectOf(box), align, TextFromStored(text));
    s.painter->setPen(lines);
}

void MoveTo(void* context, int x, int y) {
    State(context).current = QPoint(x, y);
}

void LineTo(void* context, int x, int y) {
    QtCanvasState& s = State(context);
    QPoint to(x, y);
    s.painter->drawLine(s.current, to);
    s.current = to;
}

void GetCurrentPosition(void* context, CanvasPoint* point) {
    QtCanvasState& s = State(context);
    point->x = s.current.x();
    point->y = s.current.y();
}

void Polyline(void* context, const CanvasPoint* points, unsigned count) {
    QtCanvasState& s = State(context);
    s.polyline.resize(static_cast<qsizetype>(count));
    for (unsigned i = 0; i < count; ++i)
        s.polyline[i] = QPoint(points[i].x, points[i].y);
    s.painter->drawPolyline(s.polyline.constData(), static_cast<int>(count));
}

void Ellipse(void* context, const CanvasRect& box) {
    QPainter* p = State(context).painter;
    p->setBrush(Qt::NoBrush);
    p->drawEllipse(RectOf(box));
}

void SetPixel(void* context, int x, int y, CanvasColor color) {
    State(context).painter->fillRect(x, y, 1, 1, ColorOf(color));
}

void SetClipRect(void* context, const CanvasRect& rect) {
    State(context).painter->setClipRect(RectOf(rect));
}

void RemoveClip(void* context) {
    State(context).painter->setClipping(false);
}

} // namespace

PlotCanvas MakeQtCanvas(QtCanvasState& state, QPainter& painter) {
    state.painter = &painter;
    PlotCanvas dc;
    dc.context = &state;
    dc.GetCaps = GetCaps;
    dc.FillRect = FillRect;
    dc.SetPen = SetPen;
    dc.SetFont = SetFont;
    dc.SetTextColor = SetTextColor;
    dc.CharWidth = CharWidth;
    dc.DrawText = DrawText;
    dc.MoveTo = MoveTo;
    dc.LineTo = LineTo;
    dc.GetCurrentPosition = GetCurrentPosition;
    dc.Polyline = Polyline;
    dc.Ellipse = Ellipse;
    dc.SetPixel = SetPixel;
    dc.SetClipRect = SetClipRect;
    dc.RemoveClip = RemoveClip;
    return dc;
}
