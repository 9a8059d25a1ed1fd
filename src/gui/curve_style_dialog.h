// "Curve Style": edits one of the 14 curve styles; "Choose Curve" lives beside it.
#pragma once
#include <QDialog>

#include "curve/curve_style.h"

class QComboBox;
class QPushButton;
class QSpinBox;

class CurveStyleDialog : public QDialog {
    Q_OBJECT
  public:
    CurveStyleDialog(QWidget* parent, int slot);
    CurveStyle Style() const;

  private:
    void Show(const CurveStyle& style);
    void CopyToAll(void (*copy)(CurveStyle& to, const CurveStyle& from));
    unsigned slot_;
    unsigned color_ = 0;
    QPushButton* colorButton_;
    QComboBox* line_;
    QComboBox* symbol_;
    QSpinBox* width_;
    QSpinBox* size_;
};

// OK writes the slot and gives 1.
int RunCurveStyleDialog(QWidget* parent, int slot);
// "RGB=(%03u,%03u,%03u)" of a platform colour, as the colour button shows it.
QString ColorButtonText(unsigned color);
