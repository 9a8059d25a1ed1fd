#include "data_file_fixture.h"

#include <unistd.h>

// The CLI's writers: the box goes to standard output, the file that failed to standard error,
// and the exit status is 1.
TEST_F(DataFileTest, CliVerbsRewriteAndMeasureAndFailOnWhatTheyCanNotWrite) {
    // No .ini: a stream of numbers that goes on across lines, two curves wide.
    WriteWholeFile(dir.File("in.dat"), "1 2 3 4\n5 6 7 8\n9 10\n");
    ProcessResult r = RunCli({"convert", "in.dat", "-o:out.dat", "-set:DataFile/DelimitterID=2",
                              "-set:DataFile/ColumnWidth=7"},
                             dir.Path());
    ASSERT_EQ(r.exitCode, 0) << r.out << r.err;
    EXPECT_EQ(ReadWholeFile(dir.File("out.dat")), "      1,      2,      3,      4\r\n"
                                                  "      5,      6,      7,      8\r\n"
                                                  "      9,     10,\r\n");
    ASSERT_EQ(symlink("/dev/full", dir.File("full.dat").c_str()), 0);
    r = RunCli({"convert", "out.dat", "-o:full.dat"}, dir.Path());
    EXPECT_EQ(r.exitCode, 1);
    EXPECT_NE(r.out.find("Can not write file\nfull.dat\nNo space left on device"),
              std::string::npos)
        << r.out;
    EXPECT_NE(r.err.find("can't write full.dat"), std::string::npos) << r.err;

    // A measurement whose automatic pair can't be written ("data" is a file) and whose -o:
    // fills the disk still measures, and fails.
    WriteWholeFile(dir.File("vtl.ini"), ReadWholeFile(SourcePath("data/vtl.ini")));
    WriteWholeFile(dir.File("data"), "");
    WriteWholeFile(dir.File("simdaq.ini"), "[Clock]\nMode=step\n");
    r = RunCli({"measure", "IVC", "-i:" + dir.File("vtl.ini"), "-simdaq:" + dir.File("simdaq.ini"),
                "-step:4096", "-o:" + dir.File("full.dat")});
    EXPECT_EQ(r.exitCode, 1);
    EXPECT_NE(r.out.find("IVC: 3 curve(s)"), std::string::npos) << r.out;
    for (const std::string& file : {dir.File("data/IVC_"), dir.File("full.dat")})
        EXPECT_NE(r.err.find("can not write " + file), std::string::npos) << r.err;
    EXPECT_EQ(r.out.find("data: "), std::string::npos) << r.out;
}
