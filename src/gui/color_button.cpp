#include "gui/color_button.h"

#include "ui/indicator.h"

#include <QColorDialog>
#include <QPainter>

QColor QColorOf(CanvasColor c) {
    return QColor(c & 0xFF, (c >> 8) & 0xFF, (c >> 16) & 0xFF);
}

CanvasColor CanvasColorOf(const QColor& c) {
    return CanvasColor(c.red()) | CanvasColor(c.green()) << 8 | CanvasColor(c.blue()) << 16;
}

ColorSelectionButton::ColorSelectionButton(CanvasColor color, QWidget* parent)
    : QAbstractButton(parent), color_(color) {
    setFocusPolicy(Qt::StrongFocus);
    connect(this, &QAbstractButton::clicked, this, &ColorSelectionButton::Pick);
    SetColor(color);
}

void ColorSelectionButton::SetColor(CanvasColor color) {
    color_ = color;
    char text[32];
    ColorSelectionText(color, text, sizeof text);
    setToolTip(QString::fromLatin1(text));
    update();
}

QSize ColorSelectionButton::sizeHint() const {
    return {48, 22};
}

void ColorSelectionButton::Pick() {
    // QColorDialog keeps one table of custom colours for the whole program.
    QColor chosen = QColorDialog::getColor(QColorOf(color_), this, "Color");
    if (chosen.isValid()) SetColor(CanvasColorOf(chosen));
}

void ColorSelectionButton::paintEvent(QPaintEvent*) {
    QPainter p(this);
    QRect r = rect().adjusted(0, 0, -1, -1);
    // Two shifted rectangles make the 3-D frame; pressed, light and shadow change places.
    QColor light = palette().color(QPalette::Light), dark = palette().color(QPalette::Dark);
    if (isDown()) std::swap(light, dark);
    p.setPen(dark);
    p.drawRect(r.adjusted(1, 1, 0, 0));
    p.setPen(light);
    p.drawRect(r.adjusted(0, 0, -1, -1));
    p.fillRect(r.adjusted(3, 3, -2, -2), QColorOf(color_));
    if (hasFocus()) {
        p.setPen(QPen(palette().color(QPalette::WindowText), 1, Qt::DotLine));
        p.drawRect(r.adjusted(2, 2, -2, -2));
    }
}
