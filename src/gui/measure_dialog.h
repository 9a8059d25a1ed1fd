// MeasureDlg: the modal window of a measurement over the panel logic of ui/measure_panel.h.
// The measurement thread reaches it through a MeasureDialogCalls table whose calls read the
// cards in the thread and queue what is to be shown to the interface thread.
#pragma once
#include "platform/measure_dialog.h"
#include "ui/measure_panel.h"

#include <QDialog>

#include <map>

class QLabel;
class QProgressBar;
class QScrollBar;
class QTimer;

class MeasureDlg : public QDialog {
    Q_OBJECT
  public:
    // Rows of current sliders and voltage readings the window has room for.
    static constexpr int kCurrentRowsShown = 4;
    static constexpr int kVoltageRowsShown = 6;

    MeasureDlg(const MeasureParams& params, QWidget* parent = nullptr);
    ~MeasureDlg() override;
    MeasurePanel& Panel() { return panel_; }
    // The control of a panel id, or null when the layout has none.
    QWidget* Control(int id) const;
    QProgressBar* ProgressBar() const { return progress_; }
    void CurrentRowWidgets(int row, class QPushButton** button, QScrollBar** slider,
                           QLabel** text) const {
        *button = currentRows_[row].button;
        *slider = currentRows_[row].slider;
        *text = currentRows_[row].text;
    }
    void VoltageRowWidgets(int row, class QPushButton** button, QProgressBar** bar,
                           QLabel** text) const {
        *button = voltageRows_[row].button;
        *bar = voltageRows_[row].bar;
        *text = voltageRows_[row].text;
    }
    void reject() override;

  private:
    void BuildSweep(class QGridLayout* grid, int range, bool pointsOnly);
    QWidget* Add(int id, QWidget* widget);
    static const MeasurePanelView kView;

    MeasurePanel panel_;
    std::map<int, QWidget*> controls_;
    struct CurrentRow {
        class QPushButton* button;
        QScrollBar* slider;
        QLabel* text;
        class QPushButton* reset;
    } currentRows_[kCurrentRowsShown];
    struct VoltageRow {
        class QPushButton* button;
        QProgressBar* bar;
        QLabel* text;
    } voltageRows_[kVoltageRowsShown];
    QScrollBar* currentScroll_;
    QScrollBar* voltageScroll_;
    QProgressBar* progress_;
    QLabel* progressText_;
    QTimer* timer_;
    bool pointsField_[2] = {false, false};
};

// The calls of the measurement thread for a MeasureDlg as its dialog.
const MeasureDialogCalls& QtMeasureDialogCalls();
// Runs the dialog modally; its result is the thread function's.
int RunMeasureDlg(void* window, const MeasureParams& params);
// Installs the dialog openers of the Measurements and Options menus.
void InstallMeasureDialogs();
