#include "gui/temperature_window.h"

#include "gui/qt_canvas.h"
#include "gui/temperature_bar.h"
#include "platform/host.h"
#include "support/message_box.h"
#include "ui/command_table.h"
#include "ui/main_window_calls.h"

#include <QBoxLayout>
#include <QCloseEvent>
#include <QEvent>
#include <QLabel>
#include <QLineEdit>

namespace {

QPointer<TemperatureWindow> gWindow;

QLabel* BigLabel(int points) {
    auto* label = new QLabel;
    QFont font = label->font();
    font.setPointSize(points);
    font.setBold(true);
    // The formats keep their width; a fixed-pitch font keeps the digits from moving.
    font.setFamily("monospace");
    font.setStyleHint(QFont::TypeWriter);
    label->setFont(font);
    return label;
}

} // namespace

TemperatureWindow::TemperatureWindow(QWidget* owner, int layout)
    : QWidget(owner, Qt::Window), layout_(layout), owner_(owner) {
    setAttribute(Qt::WA_DeleteOnClose);
    setWindowTitle(kTermoWindowCaption);
    const bool wide = layout == kTermoLayoutWide;
    temperature_ = BigLabel(wide ? 22 : 14);
    sensor_ = new QLabel;
    bar_ = new TemperatureBar;

    auto* barAndScale = new QHBoxLayout;
    barAndScale->addWidget(bar_);
    barAndScale->addWidget(BuildScale());
    if (wide) {
        // Bar on the left, the readings large beside it.
        auto* readings = new QVBoxLayout;
        readings->addStretch(1);
        readings->addWidget(temperature_);
        readings->addWidget(sensor_);
        readings->addStretch(1);
        auto* top = new QHBoxLayout(this);
        top->addLayout(barAndScale);
        top->addSpacing(16);
        top->addLayout(readings, 1);
        resize(360, 260);
    } else {
        auto* top = new QVBoxLayout(this);
        top->addWidget(temperature_);
        top->addWidget(sensor_);
        top->addLayout(barAndScale, 1);
        resize(180, 320);
    }

    connect(&timer_, &QTimer::timeout, this, &TemperatureWindow::Tick);
    timer_.start(int(kTermoWindowTimerMs));
    if (!timer_.isActive())
        MessageBoxBeep(this, kTermoTimerFailedText, kTermoTimerFailedCaption, MB_OK | MB_ICONERROR);
}

TemperatureWindow::~TemperatureWindow() {
    // Also when the owner goes first and no close came.
    SetCommandChecked(IDM_TEMPERATURE, 0);
}

// The upper limit on top, the lower at the bottom and the four labels between them.
QWidget* TemperatureWindow::BuildScale() {
    auto* scale = new QWidget;
    auto* column = new QVBoxLayout(scale);
    column->setContentsMargins(0, 0, 0, 0);
    TermoBarLimits limits = bar_->Limits();
    for (int which = 0; which < 2; ++which) {
        char text[32];
        TermoLimitText(which ? limits.upper : limits.lower, text, sizeof text);
        limitEdits_[which] = new QLineEdit(text);
        limitEdits_[which]->setMaximumWidth(70);
        connect(limitEdits_[which], &QLineEdit::textEdited, this,
                [this, which](const QString& t) { LimitEdited(which, t); });
    }
    column->addWidget(limitEdits_[1]);
    for (int k = 4; k >= 1; --k) {
        column->addStretch(1);
        scaleLabels_[k - 1] = new QLabel;
        column->addWidget(scaleLabels_[k - 1]);
    }
    column->addStretch(1);
    column->addWidget(limitEdits_[0]);
    ShowScaleLabels();
    return scale;
}

void TemperatureWindow::ShowScaleLabels() {
    for (int k = 1; k <= 4; ++k) {
        char text[32];
        TermoScaleLabel(bar_->Limits(), k, text, sizeof text);
        scaleLabels_[k - 1]->setText(text);
    }
}

// A text that is not a number leaves its limit as it was.
void TemperatureWindow::LimitEdited(int which, const QString& text) {
    bool ok = false;
    float value = text.trimmed().toFloat(&ok);
    if (!ok) return;
    TermoBarLimits limits = bar_->Limits();
    (which ? limits.upper : limits.lower) = value;
    bar_->SetLimits(limits);
    ShowScaleLabels();
}

void TemperatureWindow::Tick() {
    if (!TermoWindowTick(last_, text_, sizeof text_)) return;
    char sensor[96];
    TermoSensorText(last_, sensor, sizeof sensor);
    temperature_->setText(TextFromStored(text_));
    sensor_->setText(TextFromStored(sensor));
    if (isMinimized())
        setWindowTitle(TextFromStored(TermoWindowTitle(true, text_)));
    else
        bar_->SetTemperature(last_.kelvin);
}

QString TemperatureWindow::Text() const {
    return temperature_->text();
}

QString TemperatureWindow::SensorText() const {
    return sensor_->text();
}

void TemperatureWindow::changeEvent(QEvent* event) {
    if (event->type() == QEvent::WindowStateChange) {
        setWindowTitle(TextFromStored(TermoWindowTitle(isMinimized(), text_)));
        if (!isMinimized()) bar_->SetTemperature(last_.kelvin);
    }
    QWidget::changeEvent(event);
}

void TemperatureWindow::closeEvent(QCloseEvent* event) {
    timer_.stop();
    // The deletion comes later; a command in between must make a new window.
    if (gWindow == this) gWindow = nullptr;
    SetCommandChecked(IDM_TEMPERATURE, 0);
    MainWindow().UpdateMenus(owner_);
    event->accept();
}

void OpenTemperatureWindow(QWidget* owner, int layout) {
    if (!gWindow) gWindow = new TemperatureWindow(owner, layout);
    gWindow->show();
    gWindow->raise();
}

void CloseTemperatureWindow() {
    if (gWindow) gWindow->close();
    gWindow = nullptr;
}

TemperatureWindow* OpenedTemperatureWindow() {
    return gWindow;
}
