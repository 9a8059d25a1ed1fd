// The plot of the main window: paints the painted family (the undo family while a measurement
// writes the live one), or the hardware report when there is nothing to plot.
#pragma once
#include <QElapsedTimer>
#include <QTimer>
#include <QWidget>

class PlotWidget : public QWidget {
    Q_OBJECT
  public:
    explicit PlotWidget(QWidget* parent = nullptr);
    // Repaints at once, or when InteractionTime has passed since the last paint: a stream of
    // refreshes from a running measurement never floods the interface thread.
    void RequestRepaint();
    // The result of the last DrawPlot (PLOT_DRAWN, PLOT_NOTHING, ...).
    int LastResult() const { return lastResult_; }
    int Paints() const { return paints_; }

  protected:
    void paintEvent(QPaintEvent*) override;

  private:
    QTimer pending_;
    QElapsedTimer sincePaint_;
    int lastResult_ = 0;
    int paints_ = 0;
};
