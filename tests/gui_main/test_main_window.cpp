#include "ui/setup_dialog.h"
#include "curve/undo.h"
#include "gui/color_button.h"
#include "gui_app.h"
#include "gui/main_window.h"
#include "gui/pen_dialog.h"
#include "gui/plot_widget.h"
#include "gui/qt_host.h"
#include "gui/setup_dialog.h"
#include "instrument/averaging.h"
#include "instrument/thermometer.h"
#include "measure/ivc_options.h"
#include "measure/measure_options.h"
#include "platform/headless_host.h"
#include "support/bounded_text.h"
#include "ui/axes_dialog.h"
#include "ui/command_table.h"
#include "ui/main_state.h"
#include "ui/main_window_calls.h"
#include "ui/plot_options.h"
#include "ui/plot_render.h"

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

TEST_F(Gui, MenusComeFromTheCommandTable) {
    VantrelMainWindow w;
    w.Install();
    QList<QAction*> menus = w.menuBar()->actions();
    ASSERT_EQ(unsigned(menus.size()), gMenuCount);
    for (unsigned i = 0; i < gMenuCount; ++i)
        EXPECT_EQ(menus[int(i)]->text(), gMenuTitles[i]);
    ASSERT_NE(w.Action(IDM_OPEN), nullptr);
    EXPECT_EQ(w.Action(IDM_OPEN)->text(), "&Open\tCtrl+O");
    EXPECT_EQ(w.Action(IDM_OPEN)->shortcut(), QKeySequence("Ctrl+O"));
    EXPECT_EQ(w.Action(IDM_UNDO)->shortcuts().size(), 2);
    EXPECT_EQ(w.Action(IDM_MEASURE_VT)->text(), "&V(T) && R(T)\tF8");
    EXPECT_FALSE(w.Action(IDM_UNDO)->isEnabled());
    EXPECT_FALSE(w.Action(IDM_DELETE_POINTS_IN)->isEnabled());
    EXPECT_TRUE(w.Action(IDM_DYDX_X)->isEnabled());

    gCurves.SetCurveCount(1);
    gCurves.GetCurve(0).AddPoint(1, 2);
    SaveUndo();
    SetSelectionState(2);
    w.UpdateMenus();
    EXPECT_TRUE(w.Action(IDM_UNDO)->isEnabled());
    EXPECT_FALSE(w.Action(IDM_DYDX_X)->isEnabled());
    EXPECT_TRUE(w.Action(IDM_DESELECT)->isEnabled());
}

TEST_F(Gui, StatusBarHasFourPanesAndTheHostWritesThem) {
    VantrelMainWindow w;
    w.Install();
    Host().SetStatusText(2, "x\xB5V");
    QApplication::processEvents();
    EXPECT_EQ(w.Pane(2)->text(), QString::fromUtf8("x\u00B5V"));
    EXPECT_EQ(w.Pane(3)->width(), 100);
}

TEST_F(Gui, PlotShowsTheReportWithNoCurvesAndDrawsAFamily) {
    VantrelMainWindow w;
    w.resize(640, 480);
    w.Plot()->grab();
    EXPECT_EQ(w.Plot()->LastResult(), PLOT_NOTHING);
    gCurves.SetCurveCount(1);
    for (int i = 0; i < 20; ++i)
        gCurves.GetCurve(0).AddPoint(float(i), float(i * i));
    gViewScale.scaleAuto = 1;
    w.Plot()->grab();
    EXPECT_EQ(w.Plot()->LastResult(), PLOT_DRAWN);
}

TEST_F(Gui, RefreshesComeAtMostEveryInteractionTime) {
    uint32_t old = InteractionTime;
    InteractionTime = 300;
    VantrelMainWindow w;
    w.Install();
    w.show();
    QTest::qWait(50);
    int before = w.Plot()->Paints();
    for (int i = 0; i < 20; ++i) {
        RefreshAll(&w);
        QTest::qWait(5);
    }
    // Twenty refreshes within 100 ms: at most the first paints at once, the rest make one
    // deferred paint.
    int burst = w.Plot()->Paints() - before;
    EXPECT_LE(burst, 1);
    QTest::qWait(400);
    EXPECT_EQ(w.Plot()->Paints() - before, burst + 1);
    InteractionTime = old;
}

TEST_F(Gui, TitleFollowsTheWindowCalls) {
    VantrelMainWindow w;
    w.Install();
    MainWindow().SetTitle(&w, "Vantrel -- /tmp/a.dat");
    EXPECT_EQ(w.windowTitle(), "Vantrel -- /tmp/a.dat");
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

TEST_F(Gui, SetupDialogStaysOpenOnABadValueAndWritesOnOk) {
    QtSetupDialog d(&gTable, "Test");
    ASSERT_TRUE(d.Open());
    d.show();
    auto* edit = qobject_cast<QLineEdit*>(d.Control(101));
    ASSERT_NE(edit, nullptr);
    EXPECT_EQ(edit->text(), "7");
    EXPECT_EQ(qobject_cast<QLineEdit*>(d.Control(102))->maxLength(),
              7); // the buffer less its terminator
    edit->setText("500");
    QTest::mouseClick(qobject_cast<QPushButton*>(d.Control(SETUP_ID_OK)), Qt::LeftButton);
    EXPECT_TRUE(d.isVisible());
    EXPECT_EQ(gNumber, 7);
    EXPECT_EQ(edit->selectedText(), "500");

    edit->setText("42");
    QTest::mouseClick(qobject_cast<QPushButton*>(d.Control(SETUP_ID_OK)), Qt::LeftButton);
    EXPECT_FALSE(d.isVisible());
    EXPECT_EQ(d.result(), 1);
    EXPECT_EQ(gNumber, 42);
    EXPECT_EQ(GetCurrentSetupTable(), nullptr);
}

TEST_F(Gui, SetupDialogDependencyDisablesAndKeepsTheOldValue) {
    gNumber = 5;
    gFlag = 1;
    QtSetupDialog d(&gTable, "Test");
    ASSERT_TRUE(d.Open());
    d.show();
    auto* box = qobject_cast<QCheckBox*>(d.Control(100));
    auto* edit = qobject_cast<QLineEdit*>(d.Control(101));
    EXPECT_TRUE(edit->isEnabled());
    box->click();
    EXPECT_FALSE(edit->isEnabled());
    edit->setText("999"); // disabled: neither checked nor taken
    QTest::mouseClick(qobject_cast<QPushButton*>(d.Control(SETUP_ID_OK)), Qt::LeftButton);
    EXPECT_EQ(d.result(), 1);
    EXPECT_EQ(gNumber, 5);
    EXPECT_EQ(gFlag, 0);
}

TEST_F(Gui, EscapeIsCancel) {
    gNumber = 3;
    QtSetupDialog d(&gTable, "Test");
    ASSERT_TRUE(d.Open());
    d.show();
    qobject_cast<QLineEdit*>(d.Control(101))->setText("9");
    d.reject();
    EXPECT_EQ(d.result(), 0);
    EXPECT_EQ(gNumber, 3);
    EXPECT_EQ(GetCurrentSetupTable(), nullptr);
}

TEST_F(Gui, RegisteredTextsNameTheRadioButtonsAndAddTheBrowseButton) {
    QtSetupDialog d(TermometerSetupTable(), "Thermometer Setup");
    auto* tofr = qobject_cast<QRadioButton*>(d.Control(IDC_TERMO_TOFR));
    ASSERT_NE(tofr, nullptr);
    EXPECT_EQ(tofr->text(), "T(R)");
    auto* browse = qobject_cast<QPushButton*>(d.Control(IDC_TERMO_BROWSE));
    ASSERT_NE(browse, nullptr);
    EXPECT_EQ(browse->text(), ">>");
    EXPECT_NE(qobject_cast<QLabel*>(d.Control(IDC_TERMO_CURRENT_LABEL)), nullptr);
}

int ChooseCourier(void*, GFont* font) {
    BoundedCopy(font->faceName, "Courier New");
    font->height = 12;
    return 1;
}

TEST_F(Gui, AxesDialogShowsTheFontAndPensAndItsButtonsReachTheChoosers) {
    PlotOptions kept = gPlotOptions;
    gPlotOptions = PlotOptions();
    HostTable host = HeadlessHostTable();
    host.ChooseFont = ChooseCourier;
    SetHost(&host);
    QtSetupDialog d(&gPlotOptionsTable, "Axes");
    ASSERT_TRUE(d.Open());
    d.show();
    auto* font = qobject_cast<QLabel*>(d.Control(AXES_ID_FONT_TEXT));
    ASSERT_NE(font, nullptr);
    EXPECT_EQ(font->text(), "Arial, 9pt\n");
    auto* axesPen = qobject_cast<QLabel*>(d.Control(AXES_ID_AXES_PEN_TEXT));
    ASSERT_NE(axesPen, nullptr);
    EXPECT_EQ(axesPen->text(), "Solid, 1 px, RGB=(000,000,128)");
    auto* gridButton = qobject_cast<QPushButton*>(d.Control(AXES_ID_GRID_PEN));
    ASSERT_NE(gridButton, nullptr);
    EXPECT_EQ(gridButton->text(), "&Grid pen...");
    ASSERT_NE(qobject_cast<QPushButton*>(d.Control(AXES_ID_AXES_PEN)), nullptr);
    QTest::mouseClick(qobject_cast<QPushButton*>(d.Control(AXES_ID_FONT)), Qt::LeftButton);
    EXPECT_EQ(font->text(), "Courier New, 12pt\n");
    d.reject();
    EXPECT_STREQ(gPlotOptions.captionFont.faceName, "Arial");
    gPlotOptions = kept;
}

TEST_F(Gui, PenDialogStaysOpenOnABadWidthAndTakesAGoodOne) {
    HeadlessReset();
    GPen pen{PEN_DOT, 0, 0xC0C0C0};
    QtPenDialog d(&pen, "Grid Pen");
    d.show();
    ASSERT_EQ(d.StyleList()->count(), 6);
    EXPECT_EQ(d.StyleList()->itemText(5), "Invisible");
    EXPECT_EQ(d.StyleList()->currentIndex(), PEN_DOT);
    EXPECT_EQ(d.WidthField()->text(), "0");
    EXPECT_EQ(d.ColorButton()->Color(), 0xC0C0C0u);
    d.StyleList()->setCurrentIndex(PEN_DASHDOT);
    d.WidthField()->setText("-1");
    d.accept();
    EXPECT_TRUE(d.isVisible());
    ASSERT_EQ(HeadlessBoxes().size(), 1u);
    EXPECT_EQ(HeadlessBoxes()[0].caption, "Grid Pen");
    EXPECT_EQ(pen.style, PEN_DOT);
    d.WidthField()->setText("2");
    d.accept();
    EXPECT_FALSE(d.isVisible());
    EXPECT_EQ(d.result(), QDialog::Accepted);
    EXPECT_EQ(pen.style, PEN_DASHDOT);
    EXPECT_EQ(pen.width, 2);
}

TEST_F(Gui, RowsShowTheirLabelsAndNotTheirKeys) {
    QtSetupDialog averaging(AveragingSetupTable(), "Averaging Setup");
    QStringList labels;
    for (QLabel* label : averaging.findChildren<QLabel*>())
        labels << label->text();
    EXPECT_TRUE(labels.contains("&Number of samples")) << labels.join(" / ").toStdString();
    EXPECT_TRUE(labels.contains("Rate (samples/sec): . . . . "));
    EXPECT_FALSE(labels.contains("GetCurrentAveragingTimes"));

    QtSetupDialog ivc(&gIVCSetupTable, "IVC Options");
    auto* trigger = qobject_cast<QCheckBox*>(ivc.Control(IDC_IVC_TRIGGER));
    ASSERT_NE(trigger, nullptr);
    EXPECT_EQ(trigger->text(), "&Trigger after setting each value of sweep1");

    QtSetupDialog axis(&gIVCxAxisSetupTable, "IVC x axis");
    auto* automatic = qobject_cast<QRadioButton*>(axis.Control(IDC_IVC_XAXIS_AUTO));
    ASSERT_NE(automatic, nullptr);
    EXPECT_EQ(automatic->text(), "The value is increased &automatically");

    // A bar in a label is part of it, not a separator of buttons.
    QtSetupDialog termo(TermometerSetupTable(), "Thermometer Setup");
    auto* absv = qobject_cast<QCheckBox*>(termo.Control(IDC_TERMO_ABSV));
    ASSERT_NE(absv, nullptr);
    EXPECT_EQ(absv->text(), "Use |V| instead of V");
}

} // namespace
