#include "data_file_fixture.h"

#include <sys/stat.h>
#include <tuple>
#include <unistd.h>

class RoundTrip : public DataFileTest,
                  public ::testing::WithParamInterface<std::tuple<int, int>> {};

TEST_P(RoundTrip, UnequalCurvesComeBackWhole) {
    gDelimitterID = std::get<0>(GetParam());
    fSortCurves = std::get<1>(GetParam());
    const std::vector<unsigned> lengths = {5, 12, 0, 7};
    Fill(lengths);
    gCurves.SetHeader("IVC run", "V", "A", "Ann");
    gCurves.SetChipName("chip 7");
    gCurves.SetComment("first line\r\n\r\nthird line");
    gCurves.date = 1700000000;
    gCurves.timeSpent = 12.5f;
    std::string dat = dir.File("run.dat");
    ASSERT_EQ(WriteDataPair(dat.c_str()), DATA_PAIR_DONE);
    EXPECT_STREQ(gCurves.GetCurve(0).name, fSortCurves ? "c1" : "c0"); // sorted for good
    gCurves.Reset();
    ASSERT_EQ(ReadDataPair(dat.c_str(), 0), DATA_PAIR_DONE) << Box();
    EXPECT_TRUE(HeadlessBoxes().empty());
    ASSERT_EQ(gCurves.count, 4u);
    const CurveFamily& f = gCurves;
    EXPECT_EQ(std::string(f.name) + "|" + f.designer + "|" + f.chipName + "|" + f.comment + "|" +
                  f.xUnits + "|" + std::to_string(f.date) + "|" + std::to_string(f.timeSpent),
              "IVC run|Ann|chip 7|first line\r\n\r\nthird line\r\n|V|1700000000|12.500000");
    for (unsigned n = 0; n < 4; ++n) {
        const Curve& c = gCurves.GetCurve(n);
        unsigned i = c.name[1] - '0';
        ASSERT_EQ(c.count, lengths[i]) << c.name;
        for (unsigned k = 0; k < c.count; ++k) {
            EXPECT_NEAR(c.GetPoint(k).x, k + i / 4.0f, 1e-5);
            EXPECT_NEAR(c.GetPoint(k).y, -1.5e-3f * k, 1e-9);
        }
    }
}

INSTANTIATE_TEST_SUITE_P(DelimitersAndSort, RoundTrip,
                         ::testing::Combine(::testing::Values(0, 1, 2), ::testing::Values(0, 1)));

// Each case saves one curve of 5 points over a pair of 2 points, changed as told. A .ini that
// fills the disk is the profile writer's case.
TEST_F(DataFileTest, EveryFailedWriteShowsOneBoxNamingItsFileAndClaimsNothing) {
    using Prepare = void (*)(const std::string& dat, const std::string& ini);
    const std::string full = "\nNo space left on device", locked = UnwritableFolder(dir);
    const struct {
        const char* name;
        std::string folder;
        Prepare prepare;
        int result;
        std::string box; // caption|text of the one box
    } kCases[] = {
        {"read-only ini", dir.Path(), [](auto&, auto& ini) { chmod(ini.c_str(), 0444); },
         DATA_PAIR_SHORT,
         "Can not delete old INI file|INI File marked as 'ReadOnly'Operaton will be aborted!"},
        {"dat a folder", dir.Path(),
         [](auto& dat, auto&) { ASSERT_EQ(remove(dat.c_str()) | mkdir(dat.c_str(), 0777), 0); },
         DATA_PAIR_NO_DAT, "Vantrel|Error of Output to Data FileCan't open file"},
        {"full dat", dir.Path(),
         [](auto& dat, auto&) {
             ASSERT_EQ(remove(dat.c_str()) | symlink("/dev/full", dat.c_str()), 0);
         },
         DATA_PAIR_NO_DAT, "Error|Can not write file\n" + dir.File("full dat.dat") + full},
        {"locked", locked, nullptr, DATA_PAIR_SHORT,
         "Error|Can not write file\n" + locked + "/locked.ini\n"},
    };
    for (const auto& c : kCases) {
        SCOPED_TRACE(c.name);
        std::string dat = c.folder + "/" + c.name + ".dat", ini = c.folder + "/" + c.name + ".ini";
        Fill({2});
        ASSERT_EQ(c.prepare ? WriteDataPair(dat.c_str()) : 0, DATA_PAIR_DONE);
        std::string before = ReadWholeFile(dat);
        if (c.prepare) c.prepare(dat, ini);
        HeadlessReset();
        Fill({5});
        EXPECT_EQ(WriteDataPair(dat.c_str()), c.result);
        ASSERT_EQ(HeadlessBoxes().size(), 1u) << Box(1);
        EXPECT_EQ(Box().substr(0, c.box.size()), c.box);
        EXPECT_EQ(HeadlessStatusText(0), ""); // no "Time spent" for a pair that is not there
        // Failed at the .ini: the .dat is as it was, or not there. At the .dat: the .ini stays.
        if (c.result == DATA_PAIR_SHORT) {
            EXPECT_EQ(ReadWholeFile(dat), before);
        } else {
            EXPECT_NE(ReadWholeFile(ini).find("NumberOfPointsInCurve0=5"), std::string::npos);
        }
    }
}
