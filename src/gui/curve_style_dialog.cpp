#include "gui/curve_style_dialog.h"

#include "ui/settings_registry.h"

#include <QColorDialog>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QPushButton>
#include <QSpinBox>
#include <QVBoxLayout>

namespace {

QColor ToQColor(unsigned c) {
    return QColor(c & 0xFF, (c >> 8) & 0xFF, (c >> 16) & 0xFF);
}

// One colour table of custom colours for every colour button, as the platform dialog kept it.
void ChooseColor(QWidget* parent, unsigned& color) {
    QColor chosen = QColorDialog::getColor(ToQColor(color), parent);
    if (chosen.isValid()) color = MakeRGB(chosen.red(), chosen.green(), chosen.blue());
}

} // namespace

QString ColorButtonText(unsigned c) {
    return QString::asprintf("RGB=(%03u,%03u,%03u)", c & 0xFF, (c >> 8) & 0xFF, (c >> 16) & 0xFF);
}

CurveStyleDialog::CurveStyleDialog(QWidget* parent, int slot)
    : QDialog(parent), slot_(unsigned(slot < 0 ? -slot : slot) % kCurveStyleCount) {
    setWindowTitle(QString::asprintf("Style of curve %d", int(slot_)));
    auto* layout = new QVBoxLayout(this);
    auto* form = new QFormLayout;
    layout->addLayout(form);
    colorButton_ = new QPushButton(this);
    line_ = new QComboBox(this);
    line_->addItems({"solid", "dashed", "dotted", "dash-dot", "dash-dot-dot", "invisible"});
    symbol_ = new QComboBox(this);
    symbol_->addItems(
        {"none", "circle", "square", "diamond", "up triangle", "down triangle", "dot"});
    width_ = new QSpinBox(this);
    width_->setRange(0, 100);
    size_ = new QSpinBox(this);
    size_->setRange(0, 100);
    form->addRow("Colour", colorButton_);
    form->addRow("Line style", line_);
    form->addRow("Symbol", symbol_);
    form->addRow("Line width (0.1 mm)", width_);
    form->addRow("Symbol size (0.1 mm)", size_);
    connect(colorButton_, &QPushButton::clicked, this, [this] {
        ChooseColor(this, color_);
        colorButton_->setText(ColorButtonText(color_));
    });

    // The copy buttons give one property of the shown slot to all 14.
    auto* copies = new QHBoxLayout;
    layout->addLayout(copies);
    const struct {
        const char* text;
        void (*copy)(CurveStyle&, const CurveStyle&);
    } kCopies[] = {
        {"Colour to all", [](CurveStyle& t, const CurveStyle& f) { t.color = f.color; }},
        {"Line to all", [](CurveStyle& t, const CurveStyle& f) { t.lineStyle = f.lineStyle; }},
        {"Symbol to all", [](CurveStyle& t, const CurveStyle& f) { t.symbol = f.symbol; }},
        {"Width to all", [](CurveStyle& t, const CurveStyle& f) { t.lineWidth = f.lineWidth; }},
        {"Size to all", [](CurveStyle& t, const CurveStyle& f) { t.symbolSize = f.symbolSize; }},
    };
    for (const auto& c : kCopies) {
        auto* b = new QPushButton(c.text, this);
        copies->addWidget(b);
        auto copy = c.copy;
        connect(b, &QPushButton::clicked, this, [this, copy] { CopyToAll(copy); });
    }
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);
    QPushButton* save = buttons->addButton("&Save", QDialogButtonBox::ActionRole);
    QPushButton* load = buttons->addButton("&Load All", QDialogButtonBox::ActionRole);
    connect(save, &QPushButton::clicked, this, [this] {
        gCurveStyles[slot_] = Style();
        SaveCurveStyles(gIniFileName);
    });
    connect(load, &QPushButton::clicked, this, [this] {
        LoadCurveStyles(gIniFileName);
        Show(gCurveStyles[slot_]);
    });
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    layout->addWidget(buttons);
    Show(gCurveStyles[slot_]);
}

void CurveStyleDialog::Show(const CurveStyle& s) {
    color_ = s.color;
    colorButton_->setText(ColorButtonText(color_));
    line_->setCurrentIndex(s.lineStyle);
    symbol_->setCurrentIndex(s.symbol);
    width_->setValue(s.lineWidth);
    size_->setValue(s.symbolSize);
}

CurveStyle CurveStyleDialog::Style() const {
    return CurveStyle{color_, line_->currentIndex(), symbol_->currentIndex(), width_->value(),
                      size_->value()};
}

void CurveStyleDialog::CopyToAll(void (*copy)(CurveStyle&, const CurveStyle&)) {
    CurveStyle shown = Style();
    for (CurveStyle& s : gCurveStyles)
        copy(s, shown);
}

int RunCurveStyleDialog(QWidget* parent, int slot) {
    CurveStyleDialog dialog(parent, slot);
    if (dialog.exec() != QDialog::Accepted) return 0;
    gCurveStyles[unsigned(slot < 0 ? -slot : slot) % kCurveStyleCount] = dialog.Style();
    return 1;
}
