// The calibration table: reading files, interpolating, formatting, the window's arithmetic.
#include "common/test_support.h"
#include "curve/curve_family.h"
#include "instrument/thermometer.h"
#include "platform/headless_host.h"
#include "ui/thermometer_window.h"

#include <gtest/gtest.h>

#include <string>
#include <utility>
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

} // namespace

TEST(ThermometerFile, EveryExtensionReadsAsText) {
    TempDir dir;
    for (const char* name : {"a.t", "a.scf", "a.V(T)", "a.R(T)"}) {
        ResetTemperatureTable();
        EXPECT_EQ(Load(dir, name, "1.5 100\n4.2\t  50.5\n"), 2) << name;
        EXPECT_FLOAT_EQ(gTermoTemperature[1], 4.2f);
        EXPECT_FLOAT_EQ(gTermoValue[1], 50.5f);
    }
    EXPECT_TRUE(HeadlessBoxes().empty());
}

TEST(ThermometerFile, SkippedAndBadLinesKeepTheirEntryAndTheirIndex) {
    TempDir dir;
    ResetTemperatureTable();
    EXPECT_EQ(Load(dir, "a.t", "9 90\n9 90\n9 90\n9 90\n9 90\n9 90\n9 90\n"), 7);
    EXPECT_EQ(Load(dir, "b.t", "; c\n1 10\n# c\n \t \n\nbad\n4.2 junk\n"), 7);
    EXPECT_FLOAT_EQ(gTermoTemperature[0], 9.0f); // the last load's entry shows through
    EXPECT_FLOAT_EQ(gTermoValue[1], 10.0f);
    for (int i : {2, 3, 4, 5})
        EXPECT_FLOAT_EQ(gTermoValue[i], 90.0f) << i;
    // "%f %f" assigns as far as it scans.
    EXPECT_FLOAT_EQ(gTermoTemperature[6], 4.2f);
    EXPECT_FLOAT_EQ(gTermoValue[6], 90.0f);
    // In a fresh table a comment is an entry of 0 K at 0.
    ResetTemperatureTable();
    EXPECT_EQ(Load(dir, "c.t", "1 10\n; c\n3 30\n"), 3);
    EXPECT_DOUBLE_EQ(T(5.0f), 0.5); // the hole's segment 10 -> 0 wins
    // A line longer than 511 characters reads as two.
    EXPECT_EQ(Load(dir, "d.t", "1 10" + std::string(600, ' ') + "\n"), 2);
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

TEST(ThermometerFile, NulIsEmptyAndSilentAMissingFileIsNot) {
    TempDir dir;
    Load(dir, "a.t", "1 10\n2 20\n");
    EXPECT_EQ(LoadTemperatureCurve("nul"), 0);
    EXPECT_EQ(gTermoCount, 0);
    EXPECT_TRUE(HeadlessBoxes().empty());
    Load(dir, "a.t", "1 10\n2 20\n");
    EXPECT_EQ(LoadTemperatureCurve(dir.File("missing.R(T)").c_str()), 0);
    EXPECT_EQ(gTermoCount, 0);
    ASSERT_EQ(HeadlessBoxes().size(), 1u);
    EXPECT_EQ(HeadlessBoxes()[0].caption, "TermoInit Error");
    EXPECT_EQ(HeadlessBoxes()[0].text, "Can not open temperature curve file");
    EXPECT_DOUBLE_EQ(T(15.0f), -2.0);
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

TEST(ThermometerTable, FormatsTemperaturesAndFailures) {
    char text[kTermoTextSize];
    auto format = [&](f32 kelvin) {
        bool ok = FormatTemperature(kelvin, text, sizeof text);
        return (ok ? "ok " : "no ") + std::string(text);
    };
    EXPECT_EQ(format(4.2f), "ok     4.200 K");
    EXPECT_EQ(format(0.0f), "ok     0.000 K");
    EXPECT_EQ(format(-1.0f), "no V not def");
    EXPECT_EQ(format(-2.0f), "no InterpErr");
    EXPECT_EQ(format(-0.5f), "no err ???");
    AssertCapture capture;
    FormatTemperature(4.2f, text, 12);
    EXPECT_EQ(capture.Count(), 1);
}

TEST(ThermometerWindow, BarScaleAndLabels) {
    TermoBarLimits limits;
    EXPECT_EQ(TermoBarFill(150.0, limits, 201), 100); // truncated
    EXPECT_EQ(TermoBarFill(-2.0, limits, 200), 0);
    EXPECT_EQ(TermoBarFill(301.0, limits, 200), 200);
    EXPECT_EQ(TermoBarFill(4.2, {4.2f, 4.205f}, 200), 100);
    char text[32];
    TermoScaleLabel({1.0f, 11.0f}, 3, text, sizeof text);
    EXPECT_STREQ(text, "7.00    ");
    TermoLimitText(300.0f, text, sizeof text);
    EXPECT_STREQ(text, "300.00");
    EXPECT_EQ((std::vector<int>{TermoTickLength(1), TermoTickLength(5), TermoTickLength(40)}),
              (std::vector<int>{7, 9, 11}));
    EXPECT_STREQ(TermoWindowTitle(true, " 4.2"), " 4.2");
    EXPECT_STREQ(TermoWindowTitle(false, " 4.2"), "Temperature");
}

TEST(ThermometerTable, ShowsTheTableAsACurve) {
    CurveFamily family;
    ResetTemperatureTable();
    EXPECT_FALSE(ShowTemperatureCurve(nullptr, family));
    ASSERT_EQ(HeadlessBoxes().size(), 1u);
    EXPECT_EQ(HeadlessBoxes()[0].caption, "Error");
    TempDir dir;
    Load(dir, "a.t", "1 100\n2 80\n4 40\n");
    family.SetCurveCount(3);
    TermoIsTofR = 1;
    ASSERT_TRUE(ShowTemperatureCurve(nullptr, family));
    ASSERT_EQ(family.count, 1u);
    EXPECT_EQ(family.GetCurve(0).count, 3u);
    EXPECT_FLOAT_EQ(family.GetCurve(0).GetPoint(2).x, 4.0f);
    EXPECT_FLOAT_EQ(family.GetCurve(0).GetPoint(2).y, 40.0f);
    EXPECT_STREQ(family.name, "T calibration curve");
    EXPECT_STREQ(family.yUnits, "Ohm");
    EXPECT_EQ(std::string(family.comment), std::string("File:\r\n") + TermoFileName);
}
