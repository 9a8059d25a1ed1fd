// The About box: version, system, processors, counter, owner, and while it is open the
// statistics of a 10 ms timer with the memory figures.
#pragma once
#include <QDialog>
#include <QElapsedTimer>
#include <QTimer>

#include "ui/about_info.h"

class QLabel;

class AboutBox : public QDialog {
    Q_OBJECT
  public:
    explicit AboutBox(QWidget* parent = nullptr);
    QLabel* statistics = nullptr; // the average, memory and load lines

  private:
    void Tick();
    QTimer timer_;
    QElapsedTimer clock_;
    TimerStatistics stats_;
};

void ShowAboutBox(QWidget* parent);
