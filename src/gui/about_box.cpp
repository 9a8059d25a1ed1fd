#include "gui/about_box.h"

#include "gui/qt_canvas.h"

#include <QDialogButtonBox>
#include <QLabel>
#include <QVBoxLayout>

AboutBox::AboutBox(QWidget* parent) : QDialog(parent) {
    setWindowTitle("About Vantrel");
    auto* layout = new QVBoxLayout(this);
    char text[512];
    auto line = [&](const QString& s) {
        auto* label = new QLabel(s, this);
        label->setTextInteractionFlags(Qt::TextSelectableByMouse);
        layout->addWidget(label);
        return label;
    };
    line("Vantrel: measurements of superconducting and Josephson devices");
    AboutVersionText(text, sizeof text);
    line(TextFromStored(text));
    AboutOsText(text, sizeof text);
    line(TextFromStored(text));
    AboutCpuText(text, sizeof text);
    line(TextFromStored(text));
    AboutCounterText(text, sizeof text);
    line(TextFromStored(text));
    line("Unregistered");
    AboutTimerHeading(text, sizeof text);
    line(TextFromStored(text));
    statistics = line("\n\n");
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok, this);
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    layout->addWidget(buttons);

    timer_.setTimerType(Qt::PreciseTimer);
    connect(&timer_, &QTimer::timeout, this, [this] { Tick(); });
    timer_.start(int(kAboutTimerMs));
    clock_.start();
}

void AboutBox::Tick() {
    uint64_t us = uint64_t(clock_.nsecsElapsed() / 1000);
    clock_.restart();
    if (!AddTimerInterval(stats_, us)) return;
    char average[128], free[128], load[64];
    AboutTimerText(stats_, average, sizeof average);
    AboutMemoryText(free, sizeof free, load, sizeof load);
    statistics->setText(QString("%1\n%2\n%3").arg(average, free, load));
    stats_ = TimerStatistics();
}

void ShowAboutBox(QWidget* parent) {
    AboutBox box(parent);
    box.exec(); // the timer stops with the box
}
