// The thermometer: the calibration table (reading files, interpolating, formatting, the window's
// arithmetic) and the thermometer on the simulated sample, wired by the shipped vtl.ini and
// thinfilm.R(T).
#include "common/panel_rack.h"
#include "curve/curve_family.h"
#include "instrument/autozero.h"
#include "instrument/averaging.h"
#include "instrument/daq_cards.h"
#include "instrument/thermometer.h"
#include "instrument/virtual_channels.h"
#include "platform/headless_host.h"
#include "settings/profile.h"
#include "settings/setup_table.h"
#include "ui/settings_registry.h"
#include "ui/thermometer_window.h"

#include <gtest/gtest.h>

#include <regex>
#include <string>
#include <tuple>
#include <vector>

namespace {

int Load(const TempDir& dir, const std::string& name, const std::string& text) {
    WriteWholeFile(dir.File(name), text);
    return LoadTemperatureCurve(dir.File(name).c_str());
}

f64 T(f32 x) {
    f64 kelvin = 0;
    return InterpolateTemperature(x, &kelvin) ? kelvin : -2.0;
}

class ThermometerSim : public ::testing::Test {
  protected:
    // The rack in step mode with the shipped settings beside a copy of the table.
    void Start(const std::string& simExtra = "", bool withTable = true) {
        LoadSimRack(dir_, simExtra);
        WriteWholeFile(dir_.File("vtl.ini"), ReadWholeFile(SourcePath("data/vtl.ini")));
        if (withTable) CopyTable();
        std::snprintf(gIniFileName, sizeof gIniFileName, "%s", dir_.File("vtl.ini").c_str());
        LoadAllSettings(gIniFileName);
        InitDacState();                 // the zeros of the DACs the settings name
        GetVoltageAveragingTimes = 100; // 0.3 Ohm of noise a sample, 30 mOhm averaged
        GetVoltageAveragingStart = TurboAveraging = 0;
        ResizeAveragingArray();
    }
    void CopyTable() {
        WriteWholeFile(dir_.File("thinfilm.R(T)"), ReadWholeFile(SourcePath("data/thinfilm.R(T)")));
    }
    void TearDown() override {
        ResetInstrumentDefaults();
        std::snprintf(gIniFileName, sizeof gIniFileName, "vtl.ini");
    }
    TempDir dir_;
};

} // namespace

// +0.5 mV at the card is 0.5 Ohm on 574 Ohm, where the table falls 87.96 Ohm/K.
TEST_F(ThermometerSim, ShippedSettingsReadT0AndAutoZeroLeavesTheSensorAlone) {
    Start();
    EXPECT_TRUE(HeadlessBoxes().empty());
    TemperatureReading last;
    char text[kTermoTextSize] = "", sensor[64];
    ASSERT_TRUE(TermoWindowTick(last, text, sizeof text));
    EXPECT_NEAR(std::atof(text), 4.2 - 0.5 / 87.96, 0.002) << text;
    TermoSensorText(last, sensor, sizeof sensor);
    EXPECT_TRUE(std::regex_match(sensor, std::regex(R"(R = \+57[45]\.\d +Ohm)"))) << sensor;
    last.voltage = -1;
    TermoSensorText(last, sensor, sizeof sensor);
    EXPECT_STREQ(sensor, "");
    // The sensor current flows at zero DAC output, so AutoZero must leave the sensor alone.
    DoAutoZero(1);
    EXPECT_NEAR(GetTemperature(), 4.2 - 0.5 / 87.96, 0.001);
}

TEST_F(ThermometerSim, TofVTofRAndAbsV) {
    Start("[Inputs]\nThermometerOffset=0\n");
    // The same table in volts at 10 uA.
    std::string volts;
    for (int i = 0; i < gTermoCount; ++i)
        volts += std::to_string(gTermoTemperature[i]) + " " +
                 std::to_string(gTermoValue[i] * 1e-5) + "\n";
    WriteWholeFile(dir_.File("thinfilm.V(T)"), volts);
    std::snprintf(TermoFileName, sizeof TermoFileName, "thinfilm.V(T)");
    TermoIsTofR = 0;
    SaveTermometerOptions(gIniFileName);
    LoadTermometerOptions(gIniFileName);
    TemperatureReading r = ReadTemperature();
    EXPECT_NEAR(r.sensorValue, 5.74e-3, 3e-6);
    EXPECT_NEAR(r.kelvin, 4.2, 0.001);
    LoadTemperatureCurve(dir_.File("thinfilm.R(T)").c_str());
    TermoIsTofR = 1;
    SensorCurrent = 2e-5f;
    EXPECT_NEAR(ReadTemperature().sensorValue, 287.0, 0.2);
    EXPECT_GT(GetTemperature(), 12.0);
    SensorCurrent = 1e-5f;
    VoltageChannels[3].extGain = -100.0f;
    EXPECT_DOUBLE_EQ(GetTemperature(), -2.0);
    UseAbsV = 1;
    EXPECT_NEAR(GetTemperature(), 4.2, 0.001);
    VoltageChannels[3].kind = VOLTAGE_POSITIVE;
    EXPECT_DOUBLE_EQ(GetTemperature(), -1.0);
}

TEST_F(ThermometerSim, OptionsBrowseDialogAndKeys) {
    Start("", false); // no table: the load says so (tested with the table), no temperature
    EXPECT_EQ(HeadlessBoxes().size(), 1u);
    EXPECT_DOUBLE_EQ(GetTemperature(), -2.0);
    CopyTable();
    // ">>" puts the chosen file into the field.
    std::string field;
    SetupDialogOps ops = {};
    ops.GetText = [](void*, int, char* text, size_t) { return text[0] = '\0', 1; };
    ops.SetText = [](void* c, int, const char* text) { *static_cast<std::string*>(c) = text; };
    SetupDialog dialog = {&ops, &field};
    HeadlessScriptDialog(1, "/x/a.scf");
    EXPECT_EQ(TermometerSetupTable()->callback(&dialog, IDC_TERMO_BROWSE, nullptr, 0), 1);
    EXPECT_EQ(field, "/x/a.scf");
    HeadlessReset();
    EXPECT_EQ(TermometerSetupDialog(), 1);
    ASSERT_EQ(HeadlessBoxes().size(), 1u);
    EXPECT_EQ(std::tuple(HeadlessBoxes()[0].caption, HeadlessBoxes()[0].text),
              std::tuple("Information",
                         "236 entries were read from file \n" + dir_.File("thinfilm.R(T)")));
    SensorCurrent = 2.5e-6f;
    SaveAllSettings(gIniFileName);
    EXPECT_NE(ReadWholeFile(gIniFileName)
                  .find("[TermoMeter]\r\nT(R)?=1\r\nSensorCurrent=2.5E-06\r\nUseAbsV=0\r\n"
                        "FileName=thinfilm.R(T)\r\n"),
              std::string::npos);
}

// The extension does not matter: .t, .scf, .V(T) and .R(T) read alike.
TEST(ThermometerFile, SkippedAndBadLinesNulAndMissingFiles) {
    TempDir dir;
    EXPECT_EQ(Load(dir, "a.R(T)", "1.5 100\n4.2\t  50.5\n"), 2);
    EXPECT_EQ(std::tuple(gTermoTemperature[1], gTermoValue[1]), std::tuple(4.2f, 50.5f));
    // Skipped and bad lines keep their entry and their index: the last load's entries show
    // through; "%f %f" assigns as far as it scans.
    ResetTemperatureTable();
    EXPECT_EQ(Load(dir, "a.t", "9 90\n9 90\n9 90\n9 90\n9 90\n9 90\n9 90\n"), 7);
    EXPECT_EQ(Load(dir, "b.t", "; c\n1 10\n# c\n \t \n\nbad\n4.2 junk\n"), 7);
    EXPECT_EQ(std::vector<f32>(gTermoValue, gTermoValue + 7),
              (std::vector<f32>{90, 10, 90, 90, 90, 90, 90}));
    EXPECT_EQ(std::tuple(gTermoTemperature[0], gTermoTemperature[6]), std::tuple(9.0f, 4.2f));
    // In a fresh table a comment is an entry of 0 K at 0.
    ResetTemperatureTable();
    EXPECT_EQ(Load(dir, "c.t", "1 10\n; c\n3 30\n"), 3);
    EXPECT_DOUBLE_EQ(T(5.0f), 0.5); // the hole's segment 10 -> 0 wins
    // A line longer than 511 characters reads as two.
    EXPECT_EQ(Load(dir, "d.t", "1 10" + std::string(600, ' ') + "\n"), 2);
    // "nul" empties the table silently; a missing file empties it and says so.
    EXPECT_EQ(LoadTemperatureCurve("nul"), 0);
    EXPECT_EQ(gTermoCount, 0);
    EXPECT_TRUE(HeadlessBoxes().empty());
    Load(dir, "a.t", "1 10\n2 20\n");
    EXPECT_EQ(LoadTemperatureCurve(dir.File("missing.R(T)").c_str()), 0);
    EXPECT_EQ(gTermoCount, 0);
    ASSERT_EQ(HeadlessBoxes().size(), 1u);
    EXPECT_EQ(std::tuple(HeadlessBoxes()[0].caption, HeadlessBoxes()[0].text),
              std::tuple("TermoInit Error", "Can not open temperature curve file"));
    EXPECT_DOUBLE_EQ(T(15.0f), -2.0);
}

TEST(ThermometerFile, TheTableHolds1024EntriesAndSaysSoAtTheLimit) {
    TempDir dir;
    std::string lines;
    for (int i = 0; i < 1100; ++i)
        lines += std::to_string(i) + " " + std::to_string(2 * i) + "\n";
    EXPECT_EQ(Load(dir, "big.t", lines), 1024);
    EXPECT_FLOAT_EQ(gTermoValue[1023], 2046.0f);
    EXPECT_EQ(Load(dir, "1023.t", lines.substr(0, lines.find("1023 "))), 1023);
    EXPECT_EQ(Load(dir, "1024.t", lines.substr(0, lines.find("1024 "))), 1024);
    auto boxes = HeadlessBoxes();
    ASSERT_EQ(boxes.size(), 2u);
    EXPECT_EQ(boxes[1].caption, "Loading calibration curve");
    EXPECT_EQ(boxes[1].text, "The number of entries in temperature curve file\nis larger than "
                             "1024. Extra entries are ignored.");
}

// The first segment that holds x wins; nothing is extrapolated.
TEST(ThermometerTable, Interpolation) {
    const std::pair<const char*, std::vector<std::pair<f32, f64>>> cases[] = {
        {"1 100\n2 80\n4 40\n",
         {{90, 1.5}, {60, 3}, {100, 1}, {80, 2}, {40, 4}, {100.01f, -2}, {39.99f, -2}}},
        {"1 0\n2 10\n3 0\n3.5 0\n", {{5, 1.5}, {0, 1}}}, // not monotonic, then flat
        {"1 0\n2 0\n", {{0, 1}}},                        // a flat segment gives its entry, not 0/0
        {"4.2 574\n", {{574, -2}}}};
    TempDir dir;
    for (const auto& [table, points] : cases) {
        Load(dir, "a.t", table);
        for (auto [x, kelvin] : points)
            EXPECT_DOUBLE_EQ(T(x), kelvin) << table << "at " << x;
    }
}

TEST(ThermometerWindow, FormatsTemperaturesBarAndTitle) {
    char text[kTermoTextSize];
    std::string shown;
    for (f32 kelvin : {4.2f, 0.0f, -1.0f, -2.0f, -0.5f}) {
        const bool ok = FormatTemperature(kelvin, text, sizeof text);
        shown += (ok ? "ok " : "no ") + std::string(text) + "|";
    }
    EXPECT_EQ(shown, "ok     4.200 K|ok     0.000 K|no V not def|no InterpErr|no err ???|");
    AssertCapture capture;
    FormatTemperature(4.2f, text, 12);
    EXPECT_EQ(capture.Count(), 1);
    TermoBarLimits limits;
    // Truncated; clamped at both ends; a narrow range.
    EXPECT_EQ((std::vector<int>{TermoBarFill(150.0, limits, 201), TermoBarFill(-2.0, limits, 200),
                                TermoBarFill(301.0, limits, 200),
                                TermoBarFill(4.2, {4.2f, 4.205f}, 200)}),
              (std::vector<int>{100, 0, 200, 100}));
    TermoLimitText(300.0f, text, sizeof text);
    EXPECT_STREQ(text, "300.00");
    EXPECT_STREQ(TermoWindowTitle(true, " 4.2"), " 4.2");
    EXPECT_STREQ(TermoWindowTitle(false, " 4.2"), "Temperature");
}

TEST(ThermometerTable, ShowsTheTableAsACurve) {
    CurveFamily family;
    TempDir dir;
    Load(dir, "a.t", "1 100\n2 80\n4 40\n");
    family.SetCurveCount(3);
    TermoIsTofR = 1;
    ASSERT_TRUE(ShowTemperatureCurve(nullptr, family));
    ASSERT_EQ(std::tuple(family.count, family.GetCurve(0).count), std::tuple(1u, 3u));
    EXPECT_EQ(std::tuple(family.GetCurve(0).GetPoint(2).x, family.GetCurve(0).GetPoint(2).y),
              std::tuple(4.0f, 40.0f));
    EXPECT_EQ(std::tuple(std::string(family.name), std::string(family.yUnits),
                         std::string(family.comment)),
              std::tuple("T calibration curve", "Ohm", std::string("File:\r\n") + TermoFileName));
}
