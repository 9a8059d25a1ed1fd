#include "data_file_fixture.h"

#include <cmath>
#include <cstring>
#include <tuple>

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
    if (fSortCurves) {
        EXPECT_STREQ(gCurves.GetCurve(0).name, "c1"); // sorted for good
    }

    gCurves.Reset();
    ASSERT_EQ(ReadDataPair(dat.c_str(), 0), DATA_PAIR_DONE) << Box();
    EXPECT_TRUE(HeadlessBoxes().empty());
    ASSERT_EQ(gCurves.count, 4u);
    EXPECT_STREQ(gCurves.name, "IVC run");
    EXPECT_STREQ(gCurves.designer, "Ann");
    EXPECT_STREQ(gCurves.chipName, "chip 7");
    EXPECT_STREQ(gCurves.comment, "first line\r\n\r\nthird line\r\n");
    EXPECT_STREQ(gCurves.xUnits, "V");
    EXPECT_EQ(gCurves.date, 1700000000);
    EXPECT_FLOAT_EQ(gCurves.timeSpent, 12.5f);
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

TEST_F(DataFileTest, TableCellsFollowWidthDelimiterAndSort) {
    Fill({1, 2});
    gCurves.GetCurve(1).GetPoint(1) = Point(3.14159f, 2.0f);
    gDelimitterID = 2;
    gColumnWidth = 6;
    fSortCurves = 0;
    std::string dat = dir.File("t.dat");
    ASSERT_EQ(WriteDataPair(dat.c_str()), 0);
    EXPECT_EQ(ReadWholeFile(dat), "     0,    -0,  0.25,    -0\r\n"
                                  "      ,      ,   3.1,     2\r\n");
    Fill({1, 2});
    fSortCurves = 1;
    ASSERT_EQ(WriteDataPair(dat.c_str()), 0);
    EXPECT_EQ(ReadWholeFile(dat), "  0.25,    -0,     0,    -0\r\n"
                                  "   1.2,-0.0015,\r\n");
}
