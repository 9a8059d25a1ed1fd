#include "ui/setup_dialog.h"
#include "curve/undo.h"
#include "gui/color_button.h"
#include "gui_app.h"
#include "gui/main_window.h"
#include "gui/pen_dialog.h"
#include "gui/qt_host.h"
#include "gui/setup_dialog.h"
#include "instrument/averaging.h"
#include "instrument/thermometer.h"
#include "platform/headless_host.h"
#include "ui/command_table.h"
#include "ui/main_state.h"
#include "ui/main_window_calls.h"

#include <QAction>
#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QMenuBar>
#include <QMessageBox>
#include <QPushButton>
#include <QRadioButton>
#include <QTest>
#include <QTimer>

#include <gtest/gtest.h>

#include <atomic>
#include <thread>

namespace {

class Gui : public ::testing::Test {
  protected:
    void SetUp() override {
        App();
        gCurves.Reset();
        gUndoCurves.Reset();
        fUndoEnabled = 0;
        SetSelectionState(0);
    }
    void TearDown() override {
        SetHost(nullptr);
        SetMainWindowCalls(nullptr);
    }
};

// Menus, texts and keys come from the command table; the states follow it on UpdateMenus.
TEST_F(Gui, MenusComeFromTheCommandTable) {
    VantrelMainWindow w;
    w.Install();
    QList<QAction*> menus = w.menuBar()->actions();
    ASSERT_EQ(unsigned(menus.size()), gMenuCount);
    for (unsigned i = 0; i < gMenuCount; ++i)
        EXPECT_EQ(menus[int(i)]->text(), gMenuTitles[i]);
    ASSERT_NE(w.Action(IDM_OPEN), nullptr);
    EXPECT_EQ(std::tuple(w.Action(IDM_OPEN)->text(), w.Action(IDM_OPEN)->shortcut(),
                         w.Action(IDM_UNDO)->shortcuts().size(), w.Action(IDM_MEASURE_VT)->text()),
              std::tuple("&Open\tCtrl+O", QKeySequence("Ctrl+O"), 2, "&V(T) && R(T)\tF8"));
    EXPECT_FALSE(w.Action(IDM_UNDO)->isEnabled());
    EXPECT_TRUE(w.Action(IDM_DYDX_X)->isEnabled());
    gCurves.SetCurveCount(1);
    gCurves.GetCurve(0).AddPoint(1, 2);
    SaveUndo();
    SetSelectionState(2);
    w.UpdateMenus();
    EXPECT_TRUE(w.Action(IDM_UNDO)->isEnabled());
    EXPECT_FALSE(w.Action(IDM_DYDX_X)->isEnabled());
}

TEST_F(Gui, TheHostWritesTheStatusBar) {
    VantrelMainWindow w;
    w.Install();
    Host().SetStatusText(2, "x\xB5V");
    QApplication::processEvents();
    EXPECT_EQ(w.Pane(2)->text(), QString::fromUtf8("x\u00B5V"));
}

// Clicks the button of the first message box that shows up. The box runs its own event loop,
// so the answer has to come from a timer inside it.
void AnswerNextBox(QTimer& timer, QMessageBox::StandardButton button) {
    QObject::connect(&timer, &QTimer::timeout, [button] {
        if (auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget()))
            box->button(button)->click();
    });
    timer.start(10);
}

TEST_F(Gui, BoxFromAnotherThreadWaitsForTheInterfaceThread) {
    VantrelMainWindow w;
    w.Install();
    std::atomic<int> answer{0};
    QTimer timer;
    AnswerNextBox(timer, QMessageBox::No);
    std::thread worker([&] {
        answer = Host().MessageBox(nullptr, "Go on?", "Vantrel", MB_YESNOCANCEL | MB_ICONQUESTION);
    });
    for (int i = 0; i < 300 && !answer; ++i)
        QTest::qWait(10);
    worker.join();
    EXPECT_EQ(answer.load(), IDNO);
}

int32_t gNumber = 7;
int32_t gFlag = 1;
char gText[8] = "abc";
SetupRow gRows[] = {
    SetupCheckRow(100, &gFlag, "Test", "Flag"),
    SetupIntRow(101, &gNumber, "Test", "Number", 0, 100),
    SetupTextRow(102, gText, sizeof gText, "Test", "Text"),
};
const int kSlaves[] = {100, 101};
const Dependency kDependencies[] = {{0, 1, kSlaves}};
SetupTable gTable = {3, gRows, nullptr, 1, kDependencies};

// The engine's choices reach the Qt controls: a bad value keeps the dialog open with the text
// selected, a dependency disables the edit, OK and Escape end it.
TEST_F(Gui, SetupDialogOnQtControls) {
    gNumber = 7;
    gFlag = 1;
    QtSetupDialog d(&gTable, "Test");
    ASSERT_TRUE(d.Open());
    d.show();
    auto* edit = qobject_cast<QLineEdit*>(d.Control(101));
    auto* ok = qobject_cast<QPushButton*>(d.Control(SETUP_ID_OK));
    ASSERT_TRUE(edit && ok);
    EXPECT_EQ(edit->text(), "7");
    // The buffer less its terminator.
    EXPECT_EQ(qobject_cast<QLineEdit*>(d.Control(102))->maxLength(), 7);
    edit->setText("500");
    QTest::mouseClick(ok, Qt::LeftButton);
    EXPECT_TRUE(d.isVisible());
    EXPECT_EQ(std::tuple(gNumber, edit->selectedText()), std::tuple(7, "500"));
    qobject_cast<QCheckBox*>(d.Control(100))->click();
    EXPECT_FALSE(edit->isEnabled());
    QTest::mouseClick(ok, Qt::LeftButton);
    EXPECT_FALSE(d.isVisible());
    EXPECT_EQ(std::tuple(d.result(), gNumber, gFlag, GetCurrentSetupTable()),
              std::tuple(1, 7, 0, nullptr));

    gFlag = 1;
    QtSetupDialog e(&gTable, "Test");
    ASSERT_TRUE(e.Open());
    qobject_cast<QLineEdit*>(e.Control(101))->setText("9");
    e.reject();
    EXPECT_EQ(std::tuple(e.result(), gNumber, GetCurrentSetupTable()), std::tuple(0, 7, nullptr));
}

// Registered texts name the radio buttons, check boxes and labels, never the keys, and add the
// buttons that are not rows. A bar in a label is part of it, not a separator of buttons.
TEST_F(Gui, TableTextsLabelTheControls) {
    QtSetupDialog termo(TermometerSetupTable(), "Thermometer Setup");
    auto* tofr = qobject_cast<QRadioButton*>(termo.Control(IDC_TERMO_TOFR));
    auto* browse = qobject_cast<QPushButton*>(termo.Control(IDC_TERMO_BROWSE));
    auto* absv = qobject_cast<QCheckBox*>(termo.Control(IDC_TERMO_ABSV));
    ASSERT_TRUE(tofr && browse && absv);
    EXPECT_EQ(std::tuple(tofr->text(), browse->text(), absv->text()),
              std::tuple("T(R)", ">>", "Use |V| instead of V"));
    EXPECT_NE(qobject_cast<QLabel*>(termo.Control(IDC_TERMO_CURRENT_LABEL)), nullptr);
    QtSetupDialog averaging(AveragingSetupTable(), "Averaging Setup");
    QStringList labels;
    for (QLabel* label : averaging.findChildren<QLabel*>())
        labels << label->text();
    EXPECT_TRUE(labels.contains("&Number of samples")) << labels.join(" / ").toStdString();
    EXPECT_FALSE(labels.contains("GetCurrentAveragingTimes"));
}

TEST_F(Gui, PenDialogStaysOpenOnABadWidthAndTakesAGoodOne) {
    HeadlessReset();
    GPen pen{PEN_DOT, 0, 0xC0C0C0};
    QtPenDialog d(&pen, "Grid Pen");
    d.show();
    ASSERT_EQ(d.StyleList()->count(), 6);
    EXPECT_EQ(std::tuple(d.StyleList()->itemText(5), d.StyleList()->currentIndex(),
                         d.WidthField()->text(), d.ColorButton()->Color()),
              std::tuple("Invisible", PEN_DOT, "0", 0xC0C0C0u));
    d.StyleList()->setCurrentIndex(PEN_DASHDOT);
    d.WidthField()->setText("-1");
    d.accept();
    EXPECT_TRUE(d.isVisible());
    ASSERT_EQ(HeadlessBoxes().size(), 1u);
    EXPECT_EQ(std::tuple(HeadlessBoxes()[0].caption, HeadlessBoxes()[0].text, pen.style),
              std::tuple("Grid Pen", "GPenUIException -- the pen width is invalid", PEN_DOT));
    d.WidthField()->setText("2");
    d.accept();
    EXPECT_FALSE(d.isVisible());
    EXPECT_EQ(std::tuple(d.result(), pen.style, pen.width),
              std::tuple(int(QDialog::Accepted), PEN_DASHDOT, 2));
}

} // namespace
