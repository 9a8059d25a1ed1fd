#include "common/panel_rack.h"

#include "curve/undo.h"
#include "gui/measure_dialog.h"
#include "instrument/virtual_channels.h"
#include "platform/headless_host.h"
#include "platform/host.h"

#include "support/bounded_text.h"

#include <QApplication>
#include <cstdlib>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>
#include <gtest/gtest.h>

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
        gCurves.Reset();
    }
    ~MeasureDialog() override { IVC_Range = saved; }
    static QPushButton* Button(MeasureDlg& d, int id) {
        return qobject_cast<QPushButton*>(d.Control(id));
    }
};

TEST_F(MeasureDialog, DoItFillsACurveAndTheDialogEnds) {
    IVC_Range = SweepRange{0, 65535, 4096, 0, 0, FirstSweep1Current};
    MeasureDlg dlg(*FindMeasureParams("IVC"));
    dlg.show();
    EXPECT_EQ("16", qobject_cast<QLineEdit*>(dlg.Control(SweepControlId(0, SC_Points)))->text());
    QTest::mouseClick(Button(dlg, MC_DoIt), Qt::LeftButton);
    QTRY_VERIFY_WITH_TIMEOUT(!dlg.isVisible(), 20000);
    EXPECT_EQ(1, WaitMeasurementEnd());
    EXPECT_EQ(QDialog::DialogCode(1), dlg.result());
    ASSERT_EQ(3u, gCurves.count);
    EXPECT_EQ(16u, gCurves.GetCurve(0).count);
    // After the run the panel is usable again.
    EXPECT_TRUE(Button(dlg, MC_DoIt)->isEnabled());
    EXPECT_TRUE(dlg.Control(MC_AutoZero)->isEnabled());
    EXPECT_EQ("Cancel", Button(dlg, MC_Cancel)->text());
}

TEST_F(MeasureDialog, StopEndsTheRunWithTheKeptPoints) {
    IVC_Range = SweepRange{0, 65535, 1, 0, 0, FirstSweep1Current};
    MeasureDlg dlg(*FindMeasureParams("IVC"));
    dlg.show();
    QTest::mouseClick(Button(dlg, MC_DoIt), Qt::LeftButton);
    // During the run everything that reaches the cards is off, and Cancel reads Stop.
    EXPECT_FALSE(Button(dlg, MC_DoIt)->isEnabled());
    EXPECT_FALSE(dlg.Control(MC_AutoZero)->isEnabled());
    EXPECT_FALSE(Button(dlg, MC_All)->isEnabled());
    EXPECT_FALSE(Button(dlg, MC_Options)->isEnabled());
    EXPECT_FALSE(dlg.Control(MC_CurrentRows)->isEnabled());
    EXPECT_EQ("Stop", Button(dlg, MC_Cancel)->text());
    QTest::qWait(300);
    QTest::mouseClick(Button(dlg, MC_Cancel), Qt::LeftButton);
    QTRY_VERIFY_WITH_TIMEOUT(!dlg.isVisible(), 20000);
    EXPECT_EQ(1, WaitMeasurementEnd());
    ASSERT_EQ(3u, gCurves.count);
    std::uint32_t kept = gCurves.GetCurve(0).count;
    EXPECT_GE(kept, 5u);
    EXPECT_LT(kept, 65536u);
    EXPECT_EQ(0u, IVC_Range.from);
    EXPECT_TRUE(Button(dlg, MC_DoIt)->isEnabled());
    EXPECT_TRUE(dlg.Control(MC_CurrentRows)->isEnabled());
}

TEST_F(MeasureDialog, CancelEndsWithZeroAndKeepsTheFamily) {
    MeasureDlg dlg(*FindMeasureParams("IVC"));
    dlg.show();
    QTest::mouseClick(Button(dlg, MC_Cancel), Qt::LeftButton);
    EXPECT_FALSE(dlg.isVisible());
    EXPECT_EQ(0, dlg.result());
    EXPECT_EQ(0u, gCurves.count);
}

} // namespace

// The pictures of the README: taken only when VANTREL_SCREENSHOTS names a folder.
#include "gui/setup_panel_dialog.h"

#include <QPixmap>

namespace {

TEST_F(MeasureDialog, Screenshots) {
    const char* folder = std::getenv("VANTREL_SCREENSHOTS");
    if (!folder) GTEST_SKIP() << "VANTREL_SCREENSHOTS not set";
    IVC_Range = SweepRange{0, 65535, 1, 0, 0, FirstSweep1Current};
    VoltageChannels[0].kind = VOLTAGE_POSITIVE;
    BoundedCopy(CurrentChannels[0].comment, "bias");
    BoundedCopy(VoltageChannels[0].comment, "J1");
    MeasureDlg dlg(*FindMeasureParams("IVC"));
    dlg.show();
    QTest::mouseClick(Button(dlg, MC_DoIt), Qt::LeftButton);
    QTest::qWait(1500);
    EXPECT_TRUE(dlg.grab().save(QString(folder) + "/measure-dialog.png"));
    QTest::mouseClick(Button(dlg, MC_Cancel), Qt::LeftButton);
    QTRY_VERIFY_WITH_TIMEOUT(!dlg.isVisible(), 20000);
    WaitMeasurementEnd();
    SetupPanelDialog panel(0, 0);
    panel.show();
    QTest::qWait(300);
    EXPECT_TRUE(panel.grab().save(QString(folder) + "/setup-panel.png"));
}

} // namespace
