// The pen dialog: the six styles in a list, the width in a field, the colour on a
// ColorSelectionButton. OK keeps the dialog open while the width is bad.
#pragma once
#include "ui/gpen.h"

#include <QDialog>

class QComboBox;
class QLineEdit;
class ColorSelectionButton;

class QtPenDialog : public QDialog {
    Q_OBJECT
  public:
    QtPenDialog(GPen* pen, const QString& caption, QWidget* parent = nullptr);
    QComboBox* StyleList() const { return style_; }
    QLineEdit* WidthField() const { return width_; }
    ColorSelectionButton* ColorButton() const { return color_; }
    void accept() override;

  private:
    GPen* pen_;
    QByteArray caption_;
    QComboBox* style_;
    QLineEdit* width_;
    ColorSelectionButton* color_;
};

// Shows the dialog modally; 1 for OK (the pen changed), 0 for Cancel.
int RunQtPenDialog(GPen* pen, const char* caption, QWidget* parent);
