// "Choose Curve": the curves of gCurves by number and name; its buttons work on the family at
// once. Also the chooser other commands use to pick a curve.
#pragma once
#include <QDialog>

class QLineEdit;
class QListWidget;

class ChooseCurveDialog : public QDialog {
    Q_OBJECT
  public:
    ChooseCurveDialog(QWidget* parent, int initial);
    int Chosen() const;
    QListWidget* list;
    QLineEdit* comment;

  private:
    void Fill(int select);
    void Move(int from, int to);
};

// The chosen index, or -1.
int RunChooseCurveDialog(QWidget* parent, int initial);
