// The thermometer on the simulated sample, wired by the shipped vtl.ini and thinfilm.R(T).
#include "common/panel_rack.h"
#include "instrument/autozero.h"
#include "instrument/averaging.h"
#include "instrument/daq/sim_driver.h"
#include "instrument/daq_cards.h"
#include "instrument/thermometer.h"
#include "instrument/virtual_channels.h"
#include "platform/headless_host.h"
#include "settings/option_rows.h"
#include "settings/profile.h"
#include "settings/setup_table.h"
#include "ui/settings_registry.h"
#include "ui/thermometer_window.h"

#include <gtest/gtest.h>

#include <cmath>
#include <regex>

namespace {

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

TEST_F(ThermometerSim, ShippedSettingsReadT0AndTheOffsetStaysAfterAutoZero) {
    Start();
    EXPECT_TRUE(HeadlessBoxes().empty());
    EXPECT_EQ(gTermoCount, 236);
    EXPECT_STREQ(TermoFileName, "thinfilm.R(T)");
    // +0.5 mV at the card is 0.5 Ohm on 574 Ohm, where the table falls 87.96 Ohm/K.
    EXPECT_NEAR(GetTemperature(), 4.2 - 0.5 / 87.96, 0.001);
    // The sensor current flows at zero DAC output, so AutoZero must leave the sensor alone.
    DoAutoZero(1);
    EXPECT_NEAR(GetTemperature(), 4.2 - 0.5 / 87.96, 0.001);
}

TEST_F(ThermometerSim, WindowTickShowsTemperatureAndSensorAndFollowsTheHeater) {
    Start("[Inputs]\nThermometerOffset=0\n");
    TemperatureReading last;
    char text[kTermoTextSize] = "", sensor[64];
    ASSERT_TRUE(TermoWindowTick(last, text, sizeof text));
    EXPECT_NEAR(std::atof(text), 4.2, 0.002) << text;
    EXPECT_EQ(last.voltage, 3);
    TermoSensorText(last, sensor, sizeof sensor);
    EXPECT_TRUE(std::regex_match(sensor, std::regex(R"(R = \+57[34]\.\d +Ohm)"))) << sensor;
    last.voltage = -1;
    TermoSensorText(last, sensor, sizeof sensor);
    EXPECT_STREQ(sensor, "");

    SetCurrentNormalized(std::sqrt(0.02 * 1000) / 10, 3); // 20 mW: 2 K above T0
    SimDaqAdvance(60);
    double stage = SimDaqSampleState().temperature;
    EXPECT_GT(stage, 6.0);
    EXPECT_NEAR(GetTemperature(), stage, 0.003);
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
    EXPECT_EQ(r.voltage, 3);
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

TEST_F(ThermometerSim, OptionsKeysListsDialogAndRows) {
    Start("", false);
    ASSERT_EQ(HeadlessBoxes().size(), 1u);
    EXPECT_EQ(HeadlessBoxes()[0].caption, "TermoInit Error");
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
    EXPECT_EQ(HeadlessBoxes()[0].caption, "Information");
    EXPECT_EQ(HeadlessBoxes()[0].text,
              "236 entries were read from file \n" + dir_.File("thinfilm.R(T)"));
    SensorCurrent = 2.5e-6f;
    SaveAllSettings(gIniFileName);
    EXPECT_NE(ReadWholeFile(gIniFileName)
                  .find("[TermoMeter]\r\nT(R)?=1\r\nSensorCurrent=2.5E-06\r\nUseAbsV=0\r\n"
                        "FileName=thinfilm.R(T)\r\n"),
              std::string::npos);
    OptionRows rows;
    Termometer_WriteRows(rows);
    EXPECT_EQ(OptionRowsText(rows),
              "Termometer Options\nType of calibration table\tT(R)\n"
              "Current through the T-sensor (A)\t2.5E-06\n"
              "Use |V| instead of V?\tNo\nCalibration table\tthinfilm.R(T)\n");
}

// The read verb on the shipped files prints every connected channel, the bias monitor's offset
// and the temperature, 0.5 Ohm of offset below 4.2 K.
TEST_F(ThermometerSim, ReadVerbPrintsChannelsAndTheTemperature) {
    Start();
    ProcessResult r =
        RunCli({"read", "-i:" + dir_.File("vtl.ini"), "-simdaq:" + SourcePath("data/simdaq.ini"),
                "-set:Math/GetVoltageAveragingTimes=100"});
    ASSERT_EQ(r.exitCode, 0) << r.err;
    for (const char* line : {"V[  0] Positive      J1", "V[  3] T-sensor      Thermometer",
                             "I[  3] Constant      Heater current", " nA\n"})
        EXPECT_NE(r.out.find(line), std::string::npos) << line << "\n" << r.out;
    EXPECT_TRUE(std::regex_search(
        r.out,
        std::regex(R"(\nT = 4\.19[345] K  \(V\[  3\] Thermometer, R = \+574\.[456] +Ohm\)\n)")))
        << r.out;
}
