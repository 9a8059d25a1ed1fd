#include "data_file_fixture.h"

#include <sys/stat.h>

namespace {
const char kQuestion[] = "Wrong or Missing INI file|The file\n%s\nis missing or bad\nWould U like "
                         "to continue without\nreading info from this file?";

std::string Ini(const std::string& curveKeys, const std::string& extra = "") {
    return "[Picture Info]\r\nVTL_Version=3.32\r\n" + extra + curveKeys;
}
} // namespace

TEST_F(DataFileTest, BareDatLoadsItsColumnsAfterTheQuestion) {
    std::string dat = dir.File("bare.dat");
    WriteWholeFile(dat, "1 2 3 4\n5 6 7 8\n9 10\n");
    gCurves.SetPlotName("kept");
    ASSERT_EQ(ReadDataPair(dat.c_str(), 0), DATA_PAIR_DONE);
    char text[600];
    std::snprintf(text, sizeof text, kQuestion, dir.File("bare.ini").c_str());
    EXPECT_EQ(Box(), text);
    ASSERT_EQ(gCurves.count, 2u);
    EXPECT_STREQ(gCurves.name, "kept");
    EXPECT_EQ(gCurves.GetCurve(0).count, 3u); // the stream goes on across lines
    EXPECT_EQ(gCurves.GetCurve(1).count, 2u);
    EXPECT_FLOAT_EQ(gCurves.GetCurve(1).GetPoint(1).y, 8.0f);
    EXPECT_FLOAT_EQ(gCurves.GetCurve(0).GetPoint(2).x, 9.0f);
}

TEST_F(DataFileTest, RefusingTheQuestionOrAVersionZeroChangesNothing) {
    Fill({3});
    std::string dat = dir.File("v0.dat");
    WriteWholeFile(dat, "1 2\n");
    WriteWholeFile(dir.File("v0.ini"), "[Picture Info]\nVTL_Version=0\n");
    HeadlessScriptAnswer(IDNO);
    EXPECT_EQ(ReadDataPair(dat.c_str(), 0), DATA_PAIR_REFUSED);
    EXPECT_EQ(HeadlessBoxes().at(0).caption, "Wrong or Missing INI file");
    EXPECT_EQ(gCurves.count, 1u);
}

TEST_F(DataFileTest, CommaTableWithoutIniGivesNoCurve) {
    std::string dat = dir.File("comma.dat");
    WriteWholeFile(dat, "1,2,3,4\r\n");
    EXPECT_EQ(ReadDataPair(dat.c_str(), 0), DATA_PAIR_DONE);
    EXPECT_EQ(gCurves.count, 0u);
}

TEST_F(DataFileTest, MissingDatIsReportedAndChangesNothing) {
    Fill({2});
    WriteWholeFile(dir.File("gone.ini"), Ini("NumberOfCurves=1\r\n"));
    EXPECT_EQ(ReadDataPair(dir.File("gone.dat").c_str(), 0), DATA_PAIR_NO_DAT);
    EXPECT_EQ(Box(), "Input error|Can't open DAT file");
    EXPECT_EQ(gCurves.count, 1u);
}

TEST_F(DataFileTest, TruncatedDatKeepsWhatWasRead) {
    std::string dat = dir.File("short.dat");
    WriteWholeFile(dat, "1 2\r\n3 4\r\n5");
    WriteWholeFile(dir.File("short.ini"), Ini("NumberOfCurves=1\r\nNumberOfPointsInCurve0=10\r\n"));
    EXPECT_EQ(ReadDataPair(dat.c_str(), 0), DATA_PAIR_SHORT);
    EXPECT_EQ(Box(), "|Error reading file");
    ASSERT_EQ(gCurves.count, 1u);
    // Sized no longer than the bytes can hold; points not reached stay zero.
    const Curve& c = gCurves.GetCurve(0);
    ASSERT_GE(c.count, 4u);
    ASSERT_LE(c.count, 10u);
    EXPECT_FLOAT_EQ(c.GetPoint(1).y, 4.0f);
    EXPECT_FLOAT_EQ(c.GetPoint(2).x, 0.0f); // its y is missing, so the point was not taken
}

TEST_F(DataFileTest, NonNumericCellEndsTheRead) {
    std::string dat = dir.File("text.dat");
    WriteWholeFile(dat, "1 2\r\nabc 4\r\n");
    WriteWholeFile(dir.File("text.ini"), Ini("NumberOfCurves=1\r\nNumberOfPointsInCurve0=2\r\n"));
    EXPECT_EQ(ReadDataPair(dat.c_str(), 0), DATA_PAIR_SHORT);
    EXPECT_EQ(Box(), "|Error reading file");
}

TEST_F(DataFileTest, AbsurdCountsAllocateOnlyWhatTheFilesCanHold) {
    std::string dat = dir.File("huge.dat");
    WriteWholeFile(dat, "1 2\r\n3 4\r\n");
    WriteWholeFile(dir.File("huge.ini"),
                   Ini("NumberOfCurves=4000000000\r\nNumberOfPointsInCurve0=4000000000\r\n"));
    EXPECT_EQ(ReadDataPair(dat.c_str(), 0), DATA_PAIR_SHORT);
    EXPECT_EQ(Box(), "|Error reading file");
    ASSERT_GE(gCurves.count, 1u);
    EXPECT_LT(gCurves.count, 16u);
    EXPECT_LT(gCurves.GetCurve(0).count, 16u);
    EXPECT_FLOAT_EQ(gCurves.GetCurve(0).GetPoint(1).x, 3.0f);
}

TEST_F(DataFileTest, AddedFileWithPrefixedUnitIsScaled) {
    Fill({1});
    gCurves.SetUnits("V", "A");
    std::string dat = dir.File("add.dat");
    WriteWholeFile(dat, "2 3\r\n");
    WriteWholeFile(dir.File("add.ini"),
                   Ini("NumberOfCurves=1\r\nNumberOfPointsInCurve0=1\r\nNameOfCurve0=added\r\n",
                       "UnitX=mV\r\nUnitY=kA\r\n"));
    ASSERT_EQ(ReadDataPair(dat.c_str(), 1), DATA_PAIR_DONE);
    ASSERT_EQ(gCurves.count, 2u);
    EXPECT_STREQ(gCurves.xUnits, "V");
    EXPECT_STREQ(gCurves.GetCurve(1).name, "added");
    EXPECT_NEAR(gCurves.GetCurve(1).GetPoint(0).x, 2e-3, 1e-9);
    EXPECT_NEAR(gCurves.GetCurve(1).GetPoint(0).y, 3e3, 1e-3);
    // Replacing takes the prefix off the family's unit and scales the same way.
    ASSERT_EQ(ReadDataPair(dat.c_str(), 0), DATA_PAIR_DONE);
    EXPECT_STREQ(gCurves.xUnits, "V");
    EXPECT_STREQ(gCurves.yUnits, "A");
    EXPECT_NEAR(gCurves.GetCurve(0).GetPoint(0).x, 2e-3, 1e-9);
}

TEST_F(DataFileTest, OldSingleCommentKeyAndOverlongCommentLines) {
    std::string dat = dir.File("c.dat");
    WriteWholeFile(dat, "");
    WriteWholeFile(dir.File("c.ini"), Ini("NumberOfCurves=0\r\n", "Comment=old; one key\r\n"));
    ASSERT_EQ(ReadDataPair(dat.c_str(), 0), DATA_PAIR_DONE);
    EXPECT_STREQ(gCurves.comment, "old; one key");

    std::string lines = "CommentLines=3\r\nComment0=" + std::string(300, 'a') +
                        "\r\nComment1=" + std::string(300, 'b') + "\r\nComment2=c\r\n";
    WriteWholeFile(dir.File("c.ini"), Ini("NumberOfCurves=0\r\n", lines));
    HeadlessReset();
    ASSERT_EQ(ReadDataPair(dat.c_str(), 0), DATA_PAIR_DONE);
    EXPECT_EQ(std::string(gCurves.comment), std::string(300, 'a') + "\r\nc\r\n");
    EXPECT_EQ(HeadlessBoxes().at(0).caption, "Vantrel Error!");
}

TEST_F(DataFileTest, ReadOnlyIniStopsTheSave) {
    Fill({2});
    std::string dat = dir.File("ro.dat");
    ASSERT_EQ(WriteDataPair(dat.c_str()), 0);
    std::string before = ReadWholeFile(dat);
    chmod(dir.File("ro.ini").c_str(), 0444);
    Fill({5});
    EXPECT_EQ(WriteDataPair(dat.c_str()), DATA_PAIR_SHORT);
    EXPECT_EQ(Box(), "Can not delete old INI file|INI File marked as 'ReadOnly'Operaton will be "
                     "aborted!");
    EXPECT_EQ(ReadWholeFile(dat), before);
}

TEST_F(DataFileTest, UncreatableDatKeepsTheIni) {
    Fill({1});
    std::string dat = dir.File("sub.dat");
    mkdir(dat.c_str(), 0777); // a folder where the file should be
    EXPECT_EQ(WriteDataPair(dat.c_str()), DATA_PAIR_NO_DAT);
    EXPECT_EQ(Box(), "Vantrel|Error of Output to Data FileCan't open file");
    EXPECT_NE(ReadWholeFile(dir.File("sub.ini")).find("NumberOfCurves=1"), std::string::npos);
}
