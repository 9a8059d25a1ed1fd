// MeasureDlg: the modal window of a measurement over the panel logic of ui/measure_panel.h.
// The measurement thread reaches it through a MeasureDialogCalls table whose calls read the
// cards in the thread and queue what is to be shown to the interface thread.
#pragma once
#include "platform/measure_dialog.h"
#include "ui/measure_panel.h"

#include <QDialog>

#include <functional>
#include <map>
#include <mutex>
#include <vector>

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
    QScrollBar* VoltageScroll() const { return voltageScroll_; }
    // The widgets of one shown row.
    struct CurrentRow {
        class QPushButton* button;
        QScrollBar* slider;
        QLabel* text;
        class QPushButton* reset;
    };
    struct VoltageRow {
        class QPushButton* button;
        QProgressBar* bar;
        QLabel* text;
    };
    const CurrentRow& CurrentRowOf(int row) const { return currentRows_[row]; }
    const VoltageRow& VoltageRowOf(int row) const { return voltageRows_[row]; }
    void reject() override;
    // From any thread: call runs on the interface thread, after the calls posted before it.
    void Post(std::function<void()> call);
    // Runs what was posted; the interface thread's end of Post.
    Q_INVOKABLE void Drain();

  private:
    void BuildSweep(class QGridLayout* grid, int range, bool pointsOnly);
    QWidget* Add(int id, QWidget* widget);
    static const MeasurePanelView kView;

    MeasurePanel panel_;
    std::map<int, QWidget*> controls_;
    CurrentRow currentRows_[kCurrentRowsShown];
    VoltageRow voltageRows_[kVoltageRowsShown];
    QScrollBar* currentScroll_;
    QScrollBar* voltageScroll_;
    QProgressBar* progress_;
    QLabel* progressText_;
    QTimer* timer_;
    bool pointsField_[2] = {false, false};
    // The calls of the measurement thread, handed over under this lock rather than through
    // Qt's event queue alone, so that the order of its writes before the window's reads is one
    // that ThreadSanitizer sees.
    std::mutex mailLock_;
    std::vector<std::function<void()>> mail_;
};

// The calls of the measurement thread for a MeasureDlg as its dialog.
const MeasureDialogCalls& QtMeasureDialogCalls();
// Runs the dialog modally; its result is the thread function's.
int RunMeasureDlg(void* window, const MeasureParams& params);
// Installs the dialog openers of the Measurements and Options menus.
void InstallMeasureDialogs();
