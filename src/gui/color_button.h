// ColorSelectionButton: a button that shows a colour and, when released, lets the user pick
// another in the colour dialog. The custom colours of that dialog are shared by all buttons.
#pragma once
#include "ui/plot_canvas.h"

#include <QAbstractButton>
#include <QColor>

// Platform colours keep red in the low byte.
QColor QColorOf(CanvasColor color);
CanvasColor CanvasColorOf(const QColor& color);

class ColorSelectionButton : public QAbstractButton {
    Q_OBJECT
  public:
    explicit ColorSelectionButton(CanvasColor color, QWidget* parent = nullptr);
    CanvasColor Color() const { return color_; }
    void SetColor(CanvasColor color);
    QSize sizeHint() const override;

  protected:
    void paintEvent(QPaintEvent* event) override;

  private:
    void Pick();
    CanvasColor color_;
};
