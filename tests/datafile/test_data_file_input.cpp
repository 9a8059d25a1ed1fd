#include "data_file_fixture.h"

namespace {
std::string Ini(const std::string& curveKeys, const std::string& extra = "") {
    return "[Picture Info]\r\nVTL_Version=3.32\r\n" + extra + curveKeys;
}
} // namespace

// Each file is read over a family of one curve "c0" with 3 points.
TEST_F(DataFileTest, ReadsAndItsFailures) {
    const std::string one = "NumberOfCurves=1\r\nNumberOfPointsInCurve0=";
    const struct {
        const char* name;
        std::string dat, ini; // "-" for a file that is not there
        int answer, result;
        std::string box; // caption|text of the first box, "<none>" for none
        int curves;      // after the read; -1 for "absurd", checked below
    } kCases[] = {
        {"bare", "1 2 3 4\n5 6 7 8\n9 10\n", "-", 0, DATA_PAIR_DONE, "Wrong or Missing INI file|",
         2},
        {"v0 refused", "1 2\n", "[Picture Info]\nVTL_Version=0\n", IDNO, DATA_PAIR_REFUSED,
         "Wrong or Missing INI file|The file\n" + dir.File("v0 refused.ini") +
             "\nis missing or bad\nWould U like to continue without\nreading info from this file?",
         1},
        // Only white space separates numbers without the .ini.
        {"comma", "1,2,3,4\r\n", "-", 0, DATA_PAIR_DONE, "Wrong or Missing INI file|", 0},
        {"no dat", "-", Ini("NumberOfCurves=1\r\n"), 0, DATA_PAIR_NO_DAT,
         "Input error|Can't open DAT file", 1},
        {"short", "1 2\r\n3 4\r\n5", Ini(one + "10\r\n"), 0, DATA_PAIR_SHORT, "|Error reading file",
         1},
        // Counts beyond what the bytes can hold allocate only what they can.
        {"absurd", "1 2\r\n3 4\r\n", Ini("NumberOfCurves=4000000000\r\n" + one + "4000000000\r\n"),
         0, DATA_PAIR_SHORT, "|Error reading file", -1},
    };
    for (const auto& c : kCases) {
        SCOPED_TRACE(c.name);
        HeadlessReset();
        Fill({3});
        std::string dat = dir.File(std::string(c.name) + ".dat");
        if (c.dat != "-") WriteWholeFile(dat, c.dat);
        if (c.ini != "-") WriteWholeFile(dir.File(std::string(c.name) + ".ini"), c.ini);
        if (c.answer) HeadlessScriptAnswer(c.answer);
        EXPECT_EQ(ReadDataPair(dat.c_str(), 0), c.result);
        EXPECT_EQ(Box().substr(0, c.box.size()), c.box);
        EXPECT_EQ(c.curves < 0 ? -1 : int(gCurves.count), c.curves);
    }
    // What "absurd" read stays, in curves sized no longer than the bytes can hold.
    ASSERT_TRUE(gCurves.count >= 1u && gCurves.count < 16u && gCurves.GetCurve(0).count < 16u);
    EXPECT_FLOAT_EQ(gCurves.GetCurve(0).GetPoint(1).x, 3.0f);
    // "short": points not reached stay zero, and a point without its y is not taken.
    EXPECT_EQ(ReadDataPair(dir.File("short.dat").c_str(), 0), DATA_PAIR_SHORT);
    ASSERT_GE(gCurves.GetCurve(0).count, 4u);
    EXPECT_EQ(std::tuple(gCurves.GetCurve(0).GetPoint(1).y, gCurves.GetCurve(0).GetPoint(2).x),
              std::tuple(4.0f, 0.0f));
}

TEST_F(DataFileTest, PrefixedUnitsScaleAndOldCommentsRead) {
    Fill({1});
    gCurves.SetUnits("V", "A");
    std::string dat = dir.File("add.dat");
    WriteWholeFile(dat, "2 3\r\n");
    WriteWholeFile(dir.File("add.ini"),
                   Ini("NumberOfCurves=1\r\nNumberOfPointsInCurve0=1\r\nNameOfCurve0=added\r\n",
                       "UnitX=mV\r\nUnitY=kA\r\nComment=old; one key\r\n"));
    // Adding scales the points and leaves the family's units alone.
    ASSERT_EQ(ReadDataPair(dat.c_str(), 1), DATA_PAIR_DONE);
    ASSERT_EQ(gCurves.count, 2u);
    EXPECT_EQ(std::tuple(std::string(gCurves.xUnits), std::string(gCurves.GetCurve(1).name)),
              std::tuple("V", "added"));
    EXPECT_NEAR(gCurves.GetCurve(1).GetPoint(0).x, 2e-3, 1e-9);
    EXPECT_NEAR(gCurves.GetCurve(1).GetPoint(0).y, 3e3, 1e-3);
    // Replacing takes the prefix off the family's unit; a comment of old files stands in one key.
    ASSERT_EQ(ReadDataPair(dat.c_str(), 0), DATA_PAIR_DONE);
    EXPECT_EQ(std::tuple(std::string(gCurves.yUnits), std::string(gCurves.comment),
                         gCurves.GetCurve(0).GetPoint(0).y),
              std::tuple("A", "old; one key", 3e3f));
}
