// The "Temperature" tool window: the thermometer read once a second, shown as text with the
// sensor value and as a bar between two editable limits. Modeless and owned by the main
// window; as it closes it removes the check mark of its command.
#pragma once
#include "ui/command_ids.h"
#include "ui/thermometer_window.h"

#include <QPointer>
#include <QTimer>
#include <QWidget>

class QLabel;
class QLineEdit;
class TemperatureBar;

class TemperatureWindow : public QWidget {
    Q_OBJECT
  public:
    // layout is kTermoLayoutNarrow or kTermoLayoutWide.
    TemperatureWindow(QWidget* owner, int layout);
    ~TemperatureWindow() override;
    // What the timer does each second; public so that tests need not wait.
    void Tick();
    int Layout() const { return layout_; }
    QString Text() const;
    QString SensorText() const;
    QLineEdit* LowerEdit() const { return limitEdits_[0]; }
    QLineEdit* UpperEdit() const { return limitEdits_[1]; }
    // The four labels at 20, 40, 60 and 80 percent.
    QLabel* ScaleLabel(int k) const { return scaleLabels_[k - 1]; }
    TemperatureBar* Bar() const { return bar_; }
    const QTimer& Timer() const { return timer_; }

  protected:
    void changeEvent(QEvent* event) override;
    void closeEvent(QCloseEvent* event) override;

  private:
    QWidget* BuildScale();
    void LimitEdited(int which, const QString& text);
    void ShowScaleLabels();
    int layout_;
    QWidget* owner_;
    QTimer timer_;
    TemperatureReading last_;
    char text_[kTermoTextSize] = "";
    QLabel* temperature_ = nullptr;
    QLabel* sensor_ = nullptr;
    TemperatureBar* bar_ = nullptr;
    QLineEdit* limitEdits_[2] = {};
    QLabel* scaleLabels_[4] = {};
};

// Opens the window over owner in a layout; an open window is only raised.
void OpenTemperatureWindow(QWidget* owner, int layout);
// Asks the open window, if any, to close, and forgets it.
void CloseTemperatureWindow();
// The open window, or null.
TemperatureWindow* OpenedTemperatureWindow();
