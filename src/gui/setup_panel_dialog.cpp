#include "gui/setup_panel_dialog.h"

#include "ui/settings_registry.h"
#include "gui/qt_canvas.h"
#include "gui/qt_host.h"

#include <QCheckBox>
#include <QComboBox>
#include <QFormLayout>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

namespace {

SetupPanelDialog* Dlg(void* view) {
    return static_cast<SetupPanelDialog*>(view);
}

void ViewCaption(void* view, const char* text) {
    Dlg(view)->setWindowTitle(TextFromStored(text));
}

void ViewFill(void* view, int id, const std::vector<std::string>& entries, int selected) {
    auto* box = qobject_cast<QComboBox*>(Dlg(view)->Control(id));
    if (!box) return;
    bool old = box->blockSignals(true);
    box->clear();
    for (const std::string& e : entries)
        box->addItem(TextFromStored(e.c_str()));
    box->setCurrentIndex(selected);
    box->blockSignals(old);
}

void ViewText(void* view, int id, const char* text) {
    QWidget* w = Dlg(view)->Control(id);
    if (auto* l = qobject_cast<QLabel*>(w)) l->setText(TextFromStored(text));
    if (auto* e = qobject_cast<QLineEdit*>(w)) {
        bool old = e->blockSignals(true);
        e->setText(TextFromStored(text));
        e->blockSignals(old);
    }
}

void ViewCheck(void* view, int id, int on) {
    if (auto* b = qobject_cast<QCheckBox*>(Dlg(view)->Control(id))) {
        bool old = b->blockSignals(true);
        b->setChecked(on != 0);
        b->blockSignals(old);
    }
}

void ViewEnable(void* view, int id, int on) {
    if (QWidget* w = Dlg(view)->Control(id)) w->setEnabled(on != 0);
}

void ViewClose(void* view) {
    Dlg(view)->done(QDialog::Accepted);
}

} // namespace

const SetupPanelView SetupPanelDialog::kView = {
    .SetCaption = ViewCaption,
    .FillList = ViewFill,
    .SetText = ViewText,
    .SetCheck = ViewCheck,
    .Enable = ViewEnable,
    .Close = ViewClose,
};

QWidget* SetupPanelDialog::Control(int id) const {
    auto it = controls_.find(id);
    return it == controls_.end() ? nullptr : it->second;
}

QPushButton* SetupPanelDialog::Button(int button) const {
    auto it = buttons_.find(button);
    return it == buttons_.end() ? nullptr : it->second;
}

SetupPanelDialog::SetupPanelDialog(int voltages, int index, QWidget* parent) : QDialog(parent) {
    auto* top = new QVBoxLayout(this);
    auto* form = new QFormLayout;
    top->addLayout(form);
    auto list = [&](int id, const char* label) {
        auto* box = new QComboBox;
        controls_[id] = box;
        connect(box, &QComboBox::activated, this,
                [this, id](int entry) { SetupPanelSelect(panel_, id, entry); });
        form->addRow(label, box);
    };
    auto field = [&](int id, const char* label, int maxLength) {
        auto* edit = new QLineEdit;
        if (maxLength) edit->setMaxLength(maxLength);
        controls_[id] = edit;
        connect(edit, &QLineEdit::textEdited, this, [this, id](const QString& text) {
            SetupPanelText(panel_, id, StoredFromText(text).constData());
        });
        form->addRow(label, edit);
    };
    auto check = [&](int id, const char* label) {
        auto* box = new QCheckBox(label);
        controls_[id] = box;
        connect(box, &QCheckBox::toggled, this,
                [this, id](bool on) { SetupPanelCheck(panel_, id, on); });
        form->addRow(box);
    };
    auto toAll = [&](int id) {
        auto* b = new QPushButton("Apply2all");
        controls_[id] = b;
        connect(b, &QPushButton::clicked, this, [this, id] { SetupPanelApply2all(panel_, id); });
        form->addRow("", b);
    };
    if (!voltages) {
        list(SP_Kind, "&Type of current:");
        list(SP_DacCard, "&DAC card:");
        list(SP_DacChan, "&Chan#:");
        field(SP_Comment, "Descr&iption of current:", 127);
        field(SP_R, "Resistance(Ohm):", 0);
        check(SP_Monitored, "C&heck Current");
        list(SP_AdcCard, "&ADC card:");
        list(SP_AdcChan, "&Chan#:");
        list(SP_AdcGain, "ADC &Gain:");
        field(SP_ExtGain, "&Ext. gain:", 0);
    } else {
        list(SP_Kind, "&Type of voltage:");
        field(SP_Comment, "De&scription of voltage:", 127);
        list(SP_AdcCard, "ADC card:");
        list(SP_AdcChan, "Chan#:");
        list(SP_AdcGain, "ADC Gain:");
        toAll(SP_GainToAll);
        field(SP_ExtGain, "Ext. gain:", 0);
        toAll(SP_ExtGainToAll);
        check(SP_NoAutoZero, "Ignore this voltage while (un)doing AutoZero");
    }
    auto* shift = new QLabel;
    controls_[SP_Shift] = shift;
    form->addRow(shift);

    auto* row = new QGridLayout;
    const struct {
        int button;
        const char* text;
    } buttons[] = {{SB_Apply, "&Apply"},     {SB_OK, "&OK"},      {SB_Cancel, "&Cancel"},
                   {SB_Discard, "&Discard"}, {SB_Back5, "<<"},    {SB_Prev, "<"},
                   {SB_Next, ">"},           {SB_Forward5, ">>"}, {SB_Save, "&Save"},
                   {SB_Load, "&Load"}};
    int k = 0;
    for (const auto& b : buttons) {
        auto* w = new QPushButton(b.text);
        w->setAutoDefault(false);
        buttons_[b.button] = w;
        int id = b.button;
        connect(w, &QPushButton::clicked, this, [this, id] { SetupPanelPress(panel_, id); });
        row->addWidget(w, k / 5, k % 5);
        ++k;
    }
    top->addLayout(row);
    SetupPanelOpen(panel_, voltages, index, gIniFileName, &kView, this);
}

void SetupPanelDialog::reject() {
    SetupPanelPress(panel_, SB_Cancel);
}

void RunSetupPanel(QWidget* parent, int voltages, int index) {
    SetupPanelDialog dialog(voltages, index, parent);
    dialog.exec();
}
