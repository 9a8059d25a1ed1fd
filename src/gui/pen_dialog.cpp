#include "gui/pen_dialog.h"

#include "gui/color_button.h"
#include "gui/qt_canvas.h"
#include "gui/qt_host.h"
#include "support/bounded_text.h"
#include "ui/gpen_ui.h"

#include <QComboBox>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QLineEdit>

QtPenDialog::QtPenDialog(GPen* pen, const QString& caption, QWidget* parent)
    : QDialog(parent), pen_(pen), caption_(StoredFromText(caption)) {
    setWindowTitle(caption);
    GPenUI ui = pen->Show();
    auto* form = new QFormLayout(this);
    style_ = new QComboBox(this);
    for (int s = PEN_SOLID; s <= PEN_INVISIBLE; ++s)
        style_->addItem(QString::fromLatin1(PenStyleName(s)));
    style_->setCurrentIndex(ui.style);
    form->addRow("&Style", style_);
    width_ = new QLineEdit(QString::fromLatin1(ui.width), this);
    form->addRow("&Width (pixels)", width_);
    color_ = new ColorSelectionButton(ui.color, this);
    form->addRow("&Color", color_);
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);
    form->addRow(buttons);
    connect(buttons, &QDialogButtonBox::accepted, this, &QtPenDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QtPenDialog::reject);
}

void QtPenDialog::accept() {
    GPenUI ui;
    ui.style = style_->currentIndex();
    BoundedCopy(ui.width, StoredFromText(width_->text()).constData());
    ui.color = color_->Color();
    if (!AcceptPenUI(this, caption_.constData(), *pen_, ui)) {
        width_->setFocus(Qt::OtherFocusReason);
        width_->selectAll();
        return;
    }
    QDialog::accept();
}

int RunQtPenDialog(GPen* pen, const char* caption, QWidget* parent) {
    QtPenDialog dialog(pen, TextFromStored(caption ? caption : ""), parent);
    return dialog.exec() == QDialog::Accepted ? 1 : 0;
}
