#include "gui/setup_dialog.h"

#include "gui/qt_canvas.h"
#include "gui/qt_host.h"
#include "ui/setup_dialog.h"

#include <QApplication>
#include <QButtonGroup>
#include <QCheckBox>
#include <QFormLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QScrollArea>
#include <QVBoxLayout>

#include <cstring>

namespace {

QtSetupDialog& Self(void* context) {
    return *static_cast<QtSetupDialog*>(context);
}

// The registered text of the control; else the key, which names the setting in vtl.ini. Only
// a radio group's text is split: a label may hold a "|" of its own, as in "|V|".
QStringList TextsOf(const SetupTable* table, const SetupRow& row) {
    if (const SetupText* t = FindSetupText(table, row.controlId)) {
        QString text = TextFromStored(t->text);
        return row.kind == SETUP_RADIO ? text.split('|') : QStringList{text};
    }
    if (row.key && row.key[0]) return {TextFromStored(row.key)};
    return {QString("Value %1").arg(row.controlId)};
}

// A radio group has its registered buttons; without texts as many as its value needs, at
// least two, numbered.
QStringList RadioTexts(const QStringList& texts, const SetupRow& row) {
    if (texts.size() > 1) return texts.mid(1);
    int value = row.variable ? *static_cast<const int32_t*>(row.variable) : 0;
    QStringList numbers;
    for (int k = 0; k < std::max(2, value + 1); ++k)
        numbers << QString::number(k);
    return numbers;
}

int Exists(void* c, int id) {
    return Self(c).Control(id) != nullptr;
}
int IsStatic(void* c, int id) {
    return qobject_cast<QLabel*>(Self(c).Control(id)) != nullptr;
}
int IsEnabled(void* c, int id) {
    QWidget* w = Self(c).Control(id);
    return w && w->isEnabled();
}
int GetText(void* c, int id, char* text, size_t size) {
    auto* edit = qobject_cast<QLineEdit*>(Self(c).Control(id));
    if (!edit || !size) return 0;
    QByteArray bytes = StoredFromText(edit->text());
    size_t n = std::min(size - 1, size_t(bytes.size()));
    std::memcpy(text, bytes.constData(), n);
    text[n] = '\0';
    return 1;
}
void SetText(void* c, int id, const char* text) {
    QWidget* w = Self(c).Control(id);
    if (auto* edit = qobject_cast<QLineEdit*>(w)) edit->setText(TextFromStored(text));
    if (auto* label = qobject_cast<QLabel*>(w)) label->setText(TextFromStored(text));
}
void LimitText(void* c, int id, size_t characters) {
    if (auto* edit = qobject_cast<QLineEdit*>(Self(c).Control(id)))
        edit->setMaxLength(int(characters));
}
int GetCheck(void* c, int id) {
    QWidget* w = Self(c).Control(id);
    if (auto* box = qobject_cast<QCheckBox*>(w))
        return box->checkState() == Qt::PartiallyChecked ? 2 : box->isChecked() ? 1 : 0;
    if (auto* radio = qobject_cast<QRadioButton*>(w)) return radio->isChecked() ? 1 : 0;
    return 0;
}
void SetCheck(void* c, int id, int state) {
    QWidget* w = Self(c).Control(id);
    if (auto* box = qobject_cast<QCheckBox*>(w))
        box->setCheckState(state == 2 ? Qt::PartiallyChecked : state ? Qt::Checked : Qt::Unchecked);
    if (auto* radio = qobject_cast<QRadioButton*>(w)) radio->setChecked(state != 0);
}
void Enable(void* c, int id, int enable) {
    if (QWidget* w = Self(c).Control(id)) w->setEnabled(enable != 0);
}
void Show(void* c, int id, int show) {
    if (QWidget* w = Self(c).Control(id)) w->setVisible(show != 0);
}
void FocusAndSelectAll(void* c, int id) {
    QWidget* w = Self(c).Control(id);
    if (!w) return;
    w->setFocus(Qt::OtherFocusReason);
    if (auto* edit = qobject_cast<QLineEdit*>(w)) edit->selectAll();
}
void Beep(void*) {
    QApplication::beep();
}
void End(void* c, int result) {
    Self(c).done(result);
}

} // namespace

const SetupDialogOps QtSetupDialog::kOps = {
    .Exists = Exists,
    .IsStatic = IsStatic,
    .IsEnabled = IsEnabled,
    .GetText = GetText,
    .SetText = SetText,
    .LimitText = LimitText,
    .GetCheck = GetCheck,
    .SetCheck = SetCheck,
    .Enable = Enable,
    .Show = Show,
    .FocusAndSelectAll = FocusAndSelectAll,
    .NextRadio = [](void* c, int id) { return static_cast<QtSetupDialog*>(c)->NextRadio(id); },
    .Beep = Beep,
    .End = End,
};

QtSetupDialog::QtSetupDialog(SetupTable* table, const QString& caption, QWidget* parent)
    : QDialog(parent), table_(table), engine_{&kOps, this} {
    setWindowTitle(caption);
    auto* outer = new QVBoxLayout(this);
    // Long tables scroll rather than run off the screen.
    auto* scroll = new QScrollArea(this);
    auto* page = new QWidget(scroll);
    auto* form = new QFormLayout(page);
    scroll->setWidget(page);
    scroll->setWidgetResizable(true);
    scroll->setFrameShape(QFrame::NoFrame);
    outer->addWidget(scroll);
    for (unsigned i = 0; i < table->rowCount; ++i)
        AddRow(form, table->rows[i]);
    // Controls of the layout that are not rows: browse buttons and labels.
    for (unsigned i = 0; i < table->textCount; ++i) {
        const SetupText& t = table->texts[i];
        if (t.kind == SETUP_TEXT_STATIC) {
            auto* label = new QLabel(TextFromStored(t.text), page);
            controls_[t.controlId] = label;
            form->addRow(label);
        } else if (t.kind == SETUP_TEXT_BUTTON) {
            auto* button = new QPushButton(TextFromStored(t.text), page);
            button->setAutoDefault(false);
            controls_[t.controlId] = button;
            form->addRow(button);
            connect(button, &QPushButton::clicked, this,
                    [this, id = t.controlId, button] { Command(id, button, 0); });
        }
    }

    auto* buttons = new QHBoxLayout;
    outer->addLayout(buttons);
    const struct {
        int id;
        const char* text;
    } kButtons[] = {{SETUP_ID_OK, "OK"},
                    {SETUP_ID_CANCEL, "Cancel"},
                    {SETUP_ID_SAVE, "&Save"},
                    {SETUP_ID_LOAD, "&Load"}};
    for (const auto& b : kButtons) {
        auto* button = new QPushButton(b.text, this);
        button->setAutoDefault(false);
        if (b.id == SETUP_ID_OK) button->setDefault(true);
        controls_[b.id] = button;
        buttons->addWidget(button);
        connect(button, &QPushButton::clicked, this,
                [this, b, button] { Command(b.id, button, 0); });
    }
}

void QtSetupDialog::AddRow(QFormLayout* form, const SetupRow& row) {
    switch (row.kind) {
    case SETUP_INT:
    case SETUP_UINT:
    case SETUP_FLOAT:
    case SETUP_TEXT: {
        auto* edit = new QLineEdit(this);
        controls_[row.controlId] = edit;
        form->addRow(TextsOf(table_, row).value(0), edit);
        // Typing has a non-zero notification: no dependency pass on every key.
        connect(edit, &QLineEdit::textEdited, this,
                [this, id = row.controlId, edit] { Command(id, edit, 1); });
        break;
    }
    case SETUP_CHECK: {
        auto* box = new QCheckBox(TextsOf(table_, row).value(0), this);
        controls_[row.controlId] = box;
        form->addRow(box);
        connect(box, &QCheckBox::clicked, this,
                [this, id = row.controlId, box] { Command(id, box, 0); });
        break;
    }
    case SETUP_RADIO: {
        QStringList texts = TextsOf(table_, row);
        auto* frame = new QGroupBox(texts.value(0), this);
        auto* layout = new QVBoxLayout(frame);
        auto* group = new QButtonGroup(frame);
        std::vector<int> ids;
        QStringList buttons = RadioTexts(texts, row);
        for (int k = 0; k < buttons.size(); ++k) {
            int id = row.controlId + k;
            auto* radio = new QRadioButton(buttons[k], frame);
            group->addButton(radio);
            layout->addWidget(radio);
            controls_[id] = radio;
            ids.push_back(id);
            connect(radio, &QRadioButton::clicked, this,
                    [this, id, radio] { Command(id, radio, 0); });
        }
        for (int id : ids)
            groups_[id] = ids;
        form->addRow(frame);
        break;
    }
    default:
        break; // kinds not in use have no control
    }
}

bool QtSetupDialog::Open() {
    return SetupDlg_Open(table_, &engine_) != 0;
}

QWidget* QtSetupDialog::Control(int id) const {
    auto it = controls_.find(id);
    return it == controls_.end() ? nullptr : it->second;
}

int QtSetupDialog::NextRadio(int id) const {
    auto it = groups_.find(id);
    if (it == groups_.end()) return 0;
    const std::vector<int>& ids = it->second;
    for (size_t k = 0; k < ids.size(); ++k)
        if (ids[k] == id) return ids[(k + 1) % ids.size()];
    return 0;
}

void QtSetupDialog::Command(int id, QWidget* control, int notification) {
    SetupDlg_Command(&engine_, id, control, notification);
}

void QtSetupDialog::reject() {
    // Escape and the close box are Cancel, through the engine so that it lets go of the table.
    Command(SETUP_ID_CANCEL, Control(SETUP_ID_CANCEL), 0);
}

int RunQtSetupDialog(SetupTable* table, const char* caption, QWidget* parent) {
    QtSetupDialog dialog(table, TextFromStored(caption ? caption : ""), parent);
    if (!dialog.Open()) return 0;
    return dialog.exec() == 1 ? 1 : 0;
}
