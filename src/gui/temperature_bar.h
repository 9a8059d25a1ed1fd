// The bar of the "Temperature" window: the temperature between the two limits, filled from the
// bottom, with the red scale beside it.
#pragma once
#include "ui/thermometer_window.h"

#include <QWidget>

class TemperatureBar : public QWidget {
    Q_OBJECT
  public:
    explicit TemperatureBar(QWidget* parent = nullptr);
    void SetTemperature(f64 kelvin);
    void SetLimits(const TermoBarLimits& limits);
    const TermoBarLimits& Limits() const { return limits_; }
    // The filled pixels at the present size.
    int Fill() const;
    QSize sizeHint() const override;

  protected:
    void paintEvent(QPaintEvent* event) override;

  private:
    int BarHeight() const;
    f64 kelvin_ = kTermoNoSensor;
    TermoBarLimits limits_;
};
