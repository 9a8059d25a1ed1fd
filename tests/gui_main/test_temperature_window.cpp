// The Temperature window over the simulated sample, wired by the shipped vtl.ini.
#include "common/test_support.h"
#include "ui/settings_registry.h"
#include "gui/main_window.h"
#include "gui/temperature_bar.h"
#include "gui/temperature_window.h"
#include "gui_app.h"
#include "instrument/daq/sim_driver.h"
#include "instrument/daq_cards.h"
#include "instrument/thermometer.h"
#include "instrument/virtual_channels.h"
#include "measure/measure_run.h"
#include "platform/headless_host.h"
#include "ui/command_table.h"
#include "ui/main_window_calls.h"

#include <QAction>
#include <QApplication>
#include <QLabel>
#include <QLineEdit>
#include <QTest>
#include <QThread>

#include <gtest/gtest.h>

#include <atomic>

namespace {

// The simulated driver, counting what reads the cards.
std::atomic<int> gReads{0};
DaqDriver gCounting;
i16 CountedAiRead(i16 slot, i16 channel, i16 gain, i16* reading) {
    ++gReads;
    return gSimDaqDriver.AI_Read(slot, channel, gain, reading);
}
i16 CountedDaqOp(i16 slot, i16 channel, i16 gain, i16* buffer, u32 count, f64 rate) {
    ++gReads;
    return gSimDaqDriver.DAQ_Op(slot, channel, gain, buffer, count, rate);
}

class TemperatureWindowTest : public AppFirst, public ::testing::Test {
  protected:
    void SetUp() override {
        App();
        HeadlessReset();
        SetCommandChecked(IDM_TEMPERATURE, 0);
        WriteWholeFile(dir_.File("simdaq.ini"), "[Clock]\nMode=step\n[Noise]\nSeed=3\n");
        ASSERT_TRUE(SimDaqLoad(dir_.File("simdaq.ini").c_str()));
        gCounting = gSimDaqDriver;
        gCounting.AI_Read = CountedAiRead;
        gCounting.DAQ_Op = CountedDaqOp;
        SetDaqDriver(&gCounting);
        char report[kCardsReportSize];
        ASSERT_EQ(0, DetectCards(report, sizeof report, dir_.Path().c_str())) << report;
        for (const char* name : {"vtl.ini", "thinfilm.R(T)"})
            WriteWholeFile(dir_.File(name), ReadWholeFile(SourcePath(std::string("data/") + name)));
        std::snprintf(gIniFileName, sizeof gIniFileName, "%s", dir_.File("vtl.ini").c_str());
        LoadAllSettings(gIniFileName);
        InitDacState();
        ASSERT_EQ(gTermoCount, 236);
        window_.Install();
    }
    void TearDown() override {
        CloseTemperatureWindow();
        SetHost(nullptr);
        SetMainWindowCalls(nullptr);
        ResetInstrumentDefaults();
        std::snprintf(gIniFileName, sizeof gIniFileName, "vtl.ini");
    }
    TemperatureWindow* Open() {
        CommandDispatch(&window_, IDM_TEMPERATURE);
        return OpenedTemperatureWindow();
    }
    static double Kelvin(const TemperatureWindow* t) {
        return t->Text().trimmed().section(' ', 0, 0).toDouble();
    }
    TempDir dir_;
    VantrelMainWindow window_;
};

TEST_F(TemperatureWindowTest, ShowsTheSampleTemperatureEachTickWithBarAndScale) {
    TemperatureWindow* t = Open();
    ASSERT_NE(t, nullptr);
    EXPECT_TRUE(t->isVisible() && t->Timer().isActive());
    EXPECT_TRUE(window_.Action(IDM_TEMPERATURE)->isChecked());
    EXPECT_EQ(std::tuple(t->Layout(), t->ScaleLabel(1)->text()),
              std::tuple(kTermoLayoutNarrow, "60.00   "));
    t->Tick();
    EXPECT_NEAR(Kelvin(t), 4.2, 0.01) << t->Text().toStdString();
    EXPECT_TRUE(t->SensorText().startsWith("R = +57")) << t->SensorText().toStdString();

    // A limit edit moves the labels and the bar at once.
    t->LowerEdit()->selectAll();
    QTest::keyClicks(t->LowerEdit(), "4");
    t->UpperEdit()->selectAll();
    QTest::keyClicks(t->UpperEdit(), "4.4");
    EXPECT_EQ(t->ScaleLabel(1)->text(), "4.08    ");
    const int h = t->Bar()->height() - 1;
    EXPECT_EQ(t->Bar()->Fill(), TermoBarFill(Kelvin(t), {4.0f, 4.4f}, h));
    EXPECT_GT(t->Bar()->Fill(), h / 4);
    // Closing the window clears the menu check.
    t->close();
    EXPECT_EQ(OpenedTemperatureWindow(), nullptr);
    EXPECT_FALSE(window_.Action(IDM_TEMPERATURE)->isChecked());
}

std::atomic<bool> gMeasuring{false};
int HoldMeasurement(void*) {
    while (gMeasuring)
        QThread::msleep(2);
    return 0;
}

TEST_F(TemperatureWindowTest, ShowsTheLastValueWithoutReadingDuringAMeasurement) {
    TemperatureWindow* t = Open();
    ASSERT_NE(t, nullptr);
    t->Tick();
    const QString before = t->Text();
    gMeasuring = true;
    MeasureParams params = {HoldMeasurement, 0,       "Hold",  nullptr,    nullptr,
                            nullptr,         nullptr, nullptr, LayoutPlain};
    ASSERT_TRUE(StartMeasurement(nullptr, params));
    gReads = 0;
    t->Tick();
    EXPECT_EQ(gReads.load(), 0);
    EXPECT_EQ(t->Text(), before);
    gMeasuring = false;
    WaitMeasurementEnd();
    t->Tick();
    EXPECT_GT(gReads.load(), 0);
}

} // namespace
