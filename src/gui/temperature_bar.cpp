#include "gui/temperature_bar.h"

#include <QPainter>

namespace {

constexpr int kBarWidth = 24;
constexpr int kScaleWidth = 12; // the longest tick and a pixel to spare
constexpr int kTicks = 50;      // one every 2 percent

QColor Rgb(std::uint32_t rgb) {
    return QColor(int(rgb >> 16) & 0xFF, int(rgb >> 8) & 0xFF, int(rgb) & 0xFF);
}

} // namespace

TemperatureBar::TemperatureBar(QWidget* parent) : QWidget(parent) {
    setMinimumSize(kBarWidth + kScaleWidth, 60);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Expanding);
}

QSize TemperatureBar::sizeHint() const {
    return QSize(kBarWidth + kScaleWidth, 200);
}

void TemperatureBar::SetTemperature(f64 kelvin) {
    kelvin_ = kelvin;
    update();
}

void TemperatureBar::SetLimits(const TermoBarLimits& limits) {
    limits_ = limits;
    update();
}

int TemperatureBar::BarHeight() const {
    return height() - 1; // the last row carries the scale's bottom tick
}

int TemperatureBar::Fill() const {
    return TermoBarFill(kelvin_, limits_, BarHeight());
}

void TemperatureBar::paintEvent(QPaintEvent*) {
    QPainter p(this);
    const int h = BarHeight();
    const int fill = Fill();
    p.fillRect(0, 0, kBarWidth, h - fill, Rgb(kTermoBarEmptyColor));
    p.fillRect(0, h - fill, kBarWidth, fill, Rgb(kTermoBarFillColor));
    p.setPen(Rgb(kTermoScaleColor));
    for (int i = 0; i <= kTicks; ++i) {
        int y = h - i * h / kTicks;
        p.drawLine(kBarWidth, y, kBarWidth + TermoTickLength(i) - 1, y);
    }
}
