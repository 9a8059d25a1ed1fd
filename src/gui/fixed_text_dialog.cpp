#include "gui/fixed_text_dialog.h"

#include "gui/qt_text.h"

#include <QFont>
#include <QFontDatabase>
#include <QGuiApplication>
#include <QPlainTextEdit>
#include <QScreen>
#include <QVBoxLayout>

namespace {

QFont* gFont = nullptr;
int gFontUsers = 0;

const QFont& AcquireFont() {
    if (gFontUsers++ == 0) {
        if (QFontDatabase::hasFamily("Courier New")) {
            gFont = new QFont("Courier New", 8);
        } else {
            gFont = new QFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
            gFont->setPointSize(8);
        }
        gFont->setStyleHint(QFont::Monospace);
    }
    return *gFont;
}

void ReleaseFont() {
    if (gFontUsers > 0 && --gFontUsers == 0) {
        delete gFont;
        gFont = nullptr;
    }
}

constexpr int kMargin = 8;

} // namespace

FixedTextDialog::FixedTextDialog(QWidget* owner, const QString& caption, const QString& text)
    : QDialog(owner), edit_(new QPlainTextEdit(this)) {
    setAttribute(Qt::WA_DeleteOnClose);
    setWindowTitle(caption);
    const QFont& font = AcquireFont();
    setProperty("PROP_FONT", font);
    edit_->setFont(font);
    edit_->setReadOnly(true);
    edit_->setLineWrapMode(QPlainTextEdit::NoWrap);
    QString plain = text;
    edit_->setPlainText(plain.replace("\r\n", "\n"));
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(kMargin, kMargin, kMargin, kMargin);
    layout->addWidget(edit_);

    // About 80 columns by 25 lines, kept on the owner's screen.
    QFontMetrics metrics(font);
    QSize size(metrics.horizontalAdvance(QString(80, 'M')) + 4 * kMargin,
               metrics.lineSpacing() * 25 + 4 * kMargin);
    QScreen* screen = owner ? owner->screen() : QGuiApplication::primaryScreen();
    if (screen) size = size.boundedTo(screen->availableGeometry().size());
    resize(size);
}

void FixedTextDialog::CentreOnOwner() {
    QWidget* owner = parentWidget();
    QScreen* screen = owner ? owner->screen() : QGuiApplication::primaryScreen();
    QRect frame = frameGeometry();
    if (owner)
        frame.moveCenter(owner->window()->frameGeometry().center());
    else if (screen)
        frame.moveCenter(screen->availableGeometry().center());
    move(frame.topLeft());
}

// Closing deletes the dialog, and so does its owner's end: either way the font is let go once.
FixedTextDialog::~FixedTextDialog() {
    ReleaseFont();
}

QPlainTextEdit* FixedTextDialog::Control(int id) const {
    return id == kFixedTextControl ? edit_ : nullptr;
}

FixedTextDialog* ShowFixedTextDialog(QWidget* owner, const char* caption, const char* text) {
    auto* dialog = new FixedTextDialog(owner, TextFromStored(caption ? caption : ""),
                                       TextFromStored(text ? text : ""));
    dialog->show();
    // Once shown the frame is known, and the whole window centres on the owner.
    dialog->CentreOnOwner();
    return dialog;
}

const QFont* FixedTextFont() {
    return gFont;
}

int FixedTextFontUsers() {
    return gFontUsers;
}
