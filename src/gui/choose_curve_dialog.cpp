#include "gui/choose_curve_dialog.h"

#include "curve/undo.h"
#include "gui/qt_canvas.h"
#include "gui/qt_host.h"

#include <QApplication>
#include <QDialogButtonBox>
#include <QGridLayout>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QVBoxLayout>

#include <cstdio>

ChooseCurveDialog::ChooseCurveDialog(QWidget* parent, int initial) : QDialog(parent) {
    setWindowTitle("Choose Curve");
    auto* layout = new QVBoxLayout(this);
    list = new QListWidget(this);
    comment = new QLineEdit(this);
    comment->setMaxLength(int(sizeof(Curve::name)) - 1);
    layout->addWidget(list);
    layout->addWidget(comment);
    auto* grid = new QGridLayout;
    layout->addLayout(grid);
    auto button = [&](const char* text, int row, int column, auto action) {
        auto* b = new QPushButton(text, this);
        grid->addWidget(b, row, column);
        connect(b, &QPushButton::clicked, this, action);
    };
    button("Make &First", 0, 0, [this] { Move(Chosen(), 0); });
    button("Make &Last", 0, 1, [this] { Move(Chosen(), int(gCurves.count) - 1); });
    button("Move &Up", 0, 2, [this] { Move(Chosen(), Chosen() - 1); });
    button("Move &Down", 0, 3, [this] { Move(Chosen(), Chosen() + 1); });
    button("&Set Comment", 1, 0, [this] {
        int i = Chosen();
        if (i < 0) return;
        gCurves.GetCurve(unsigned(i)).SetName(StoredFromText(comment->text()).constData());
        Fill(i + 1 < int(gCurves.count) ? i + 1 : i);
    });
    button("Set for &All", 1, 1, [this] {
        QByteArray text = StoredFromText(comment->text());
        for (unsigned c = 0; c < gCurves.count; ++c)
            gCurves.GetCurve(c).SetName(text.constData());
        Fill(Chosen());
    });
    button("Delete", 1, 2, [this] {
        int i = Chosen();
        if (i < 0 || gCurves.count <= 1) {
            QApplication::beep();
            return;
        }
        gCurves.DeleteCurves(unsigned(i), unsigned(i));
        Fill(i < int(gCurves.count) ? i : i - 1);
    });
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    layout->addWidget(buttons);
    connect(list, &QListWidget::currentRowChanged, this, [this](int row) {
        if (row >= 0 && row < int(gCurves.count))
            comment->setText(TextFromStored(gCurves.GetCurve(unsigned(row)).GetName()));
    });
    Fill(initial);
    resize(480, 360);
}

void ChooseCurveDialog::Fill(int select) {
    list->clear();
    for (unsigned c = 0; c < gCurves.count; ++c) {
        char line[160];
        std::snprintf(line, sizeof line, "%u\t%-128s", c, gCurves.GetCurve(c).GetName());
        list->addItem(TextFromStored(line).trimmed());
    }
    if (select >= 0 && select < int(gCurves.count)) list->setCurrentRow(select);
}

void ChooseCurveDialog::Move(int from, int to) {
    if (from < 0 || to < 0 || to >= int(gCurves.count) || from == to) return;
    gCurves.MoveCurve(unsigned(from), unsigned(to));
    Fill(to);
}

int ChooseCurveDialog::Chosen() const {
    return list->currentRow();
}

int RunChooseCurveDialog(QWidget* parent, int initial) {
    ChooseCurveDialog dialog(parent, initial);
    return dialog.exec() == QDialog::Accepted ? dialog.Chosen() : -1;
}
