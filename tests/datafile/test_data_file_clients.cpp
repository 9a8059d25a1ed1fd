#include "data_file_fixture.h"

#include <cstdlib>
#include <sstream>

namespace {
// The first python3 that has numpy, or an empty text.
std::string PythonWithNumpy() {
    for (const char* python : {"python3", "/usr/bin/python3"})
        if (RunProcess({python, "-c", "import numpy"}).exitCode == 0) return python;
    return "";
}
} // namespace

TEST_F(DataFileTest, NumpyLoadsTheTableWithTheSameNumbers) {
    std::string python = PythonWithNumpy();
    if (python.empty()) GTEST_SKIP() << "numpy is not installed";
    for (int delimiter : {0, 1}) {
        gDelimitterID = delimiter;
        fSortCurves = 0;
        Fill({6, 6, 6});
        gCurves.GetCurve(2).GetPoint(5) = Point(-1.25e-7f, 6.02e23f);
        std::string dat = dir.File("np.dat");
        ASSERT_EQ(WriteDataPair(dat.c_str()), 0);
        ProcessResult r = RunProcess(
            {python, "-c",
             "import numpy,sys\n"
             "a = numpy.loadtxt(sys.argv[1], delimiter=None if sys.argv[2] == '0' else '\\t')\n"
             "print(a.shape[0], a.shape[1])\n"
             "for v in a.flatten(): print(repr(float(v)))\n",
             dat, std::to_string(delimiter)});
        ASSERT_EQ(r.exitCode, 0) << r.err;
        std::istringstream in(r.out);
        unsigned rows = 0, columns = 0;
        in >> rows >> columns;
        ASSERT_EQ(rows, 6u);
        ASSERT_EQ(columns, 6u);
        for (unsigned row = 0; row < rows; ++row)
            for (unsigned c = 0; c < 3; ++c) {
                double x, y;
                in >> x >> y;
                const Point& p = gCurves.GetCurve(c).GetPoint(row);
                EXPECT_NEAR(x, p.x, std::abs(p.x) * 1e-7 + 1e-12);
                EXPECT_NEAR(y, p.y, std::abs(p.y) * 1e-7 + 1e-12);
            }
    }
}

TEST_F(DataFileTest, ConvertVerbRewritesABareTableUnderTheOptions) {
    WriteWholeFile(dir.File("in.dat"), "1 2 3 4\n5 6 7 8\n");
    ProcessResult r = RunCli({"convert", "in.dat", "-o:out.dat", "-set:DataFile/DelimitterID=2",
                              "-set:DataFile/ColumnWidth=7"},
                             dir.Path());
    ASSERT_EQ(r.exitCode, 0) << r.out << r.err;
    EXPECT_NE(r.out.find("[Wrong or Missing INI file]"), std::string::npos) << r.out;
    EXPECT_EQ(ReadWholeFile(dir.File("out.dat")), "      1,      2,      3,      4\r\n"
                                                  "      5,      6,      7,      8\r\n");
    EXPECT_NE(ReadWholeFile(dir.File("out.ini")).find("NumberOfCurves=2"), std::string::npos);

    r = RunCli({"convert", "out.dat", "-o:again.txt"}, dir.Path());
    EXPECT_EQ(r.exitCode, 1);
    EXPECT_NE(r.out.find("The extention .txt is unknown."), std::string::npos) << r.out;
    r = RunCli({"convert", "out.dat", "-o:x.dat", "-set:DataFile/Nonsense=1"}, dir.Path());
    EXPECT_EQ(r.exitCode, 2);
}
