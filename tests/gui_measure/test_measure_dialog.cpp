#include "common/panel_rack.h"
#include "measure_panel/card_calls.h"

#include "curve/undo.h"
#include "gui/measure_dialog.h"
#include "gui/plot_widget.h"
#include "gui/setup_panel_dialog.h"
#include "instrument/virtual_channels.h"
#include "platform/headless_host.h"
#include "support/bounded_text.h"

#include <QApplication>
#include <QLineEdit>
#include <QPixmap>
#include <QPushButton>
#include <QScrollBar>
#include <QTest>
#include <gtest/gtest.h>

#include <cstdlib>

// Font configuration keeps caches for the life of the process.
extern "C" const char* __lsan_default_suppressions() {
    return "leak:libfontconfig\n";
}

namespace {

// One application for all tests, made on first use.
void EnsureApplication() {
    static int argc = 1;
    static char name[] = "test_gui_measure";
    static char* argv[] = {name, nullptr};
    if (!QApplication::instance()) new QApplication(argc, argv);
}

struct MeasureDialog : ::testing::Test {
    PanelRack rack;
    SweepRange saved = IVC_Range;
    MeasureDialog() {
        EnsureApplication();
        HeadlessReset();
    }
    ~MeasureDialog() override { IVC_Range = saved; }
    static QPushButton* Button(MeasureDlg& d, int id) {
        return qobject_cast<QPushButton*>(d.Control(id));
    }
};

// A run from Do It to its end, once to the last point and once stopped: what reaches the cards
// is off and Cancel reads Stop; the voltage rows scroll meanwhile with no card read from the
// window thread and show the rows of the scroll bar; the end gives the controls back. With
// VANTREL_SCREENSHOTS naming a folder, the README's pictures are taken after a second at rest.
TEST_F(MeasureDialog, RunScrollsItsVoltageRowsAndEnds) {
    const char* pictures = std::getenv("VANTREL_SCREENSHOTS");
    BoundedCopy(CurrentChannels[0].comment, "bias");
    const struct {
        std::uint32_t step, least, most;
        bool stop;
    } cases[] = {{4096, 16, 16, false}, {1, 5, 65535, true}};
    for (const auto& c : cases) {
        gCurves.Reset();
        IVC_Range = SweepRange{0, 65535, c.step, 0, 0, FirstSweep1Current};
        PlotWidget plot; // paints the undo family, then the live one again
        plot.show();
        MeasureDlg dlg(*FindMeasureParams("IVC"));
        dlg.show();
        auto* points = qobject_cast<QLineEdit*>(dlg.Control(SweepControlId(0, SC_Points)));
        EXPECT_EQ(QString::number(65535 / c.step + 1), points->text());
        CountCardCallsOfThisThread();
        QTest::mouseClick(Button(dlg, MC_DoIt), Qt::LeftButton);
        for (int id : {MC_DoIt, MC_AutoZero, MC_All, MC_Options, MC_CurrentRows})
            EXPECT_FALSE(dlg.Control(id)->isEnabled()) << id;
        EXPECT_EQ("Stop", Button(dlg, MC_Cancel)->text());
        for (int k = 0; k < (pictures ? 130 : 30) && dlg.isVisible(); ++k) {
            dlg.VoltageScroll()->setValue(k < 30 ? k % 4 : 0);
            plot.repaint();
            QTest::qWait(10);
        }
        if (pictures && c.stop) dlg.grab().save(QString(pictures) + "/measure-dialog.png");
        if (c.stop) QTest::mouseClick(Button(dlg, MC_Cancel), Qt::LeftButton);
        QTRY_VERIFY_WITH_TIMEOUT(!dlg.isVisible(), 20000);
        EXPECT_EQ(1, WaitMeasurementEnd());
        EXPECT_EQ(QDialog::DialogCode(1), dlg.result());
        EXPECT_EQ(0, gCountedCardCalls.load());
        EXPECT_EQ(QString("v%1").arg(dlg.VoltageScroll()->value()),
                  dlg.VoltageRowOf(0).button->text());
        ASSERT_EQ(3u, gCurves.count);
        EXPECT_GE(gCurves.GetCurve(0).count, c.least);
        EXPECT_LE(gCurves.GetCurve(0).count, c.most);
        for (int id : {MC_DoIt, MC_AutoZero, MC_CurrentRows})
            EXPECT_TRUE(dlg.Control(id)->isEnabled()) << id;
        EXPECT_EQ("Cancel", Button(dlg, MC_Cancel)->text());
    }
    if (!pictures) return;
    SetupPanelDialog panel(0, 0);
    panel.show();
    QTest::qWait(300);
    EXPECT_TRUE(panel.grab().save(QString(pictures) + "/setup-panel.png"));
}

TEST_F(MeasureDialog, CancelEndsWithZeroAndKeepsTheFamily) {
    gCurves.Reset();
    MeasureDlg dlg(*FindMeasureParams("IVC"));
    dlg.show();
    QTest::mouseClick(Button(dlg, MC_Cancel), Qt::LeftButton);
    EXPECT_FALSE(dlg.isVisible());
    EXPECT_EQ(0, dlg.result());
    EXPECT_EQ(0u, gCurves.count);
}

} // namespace
