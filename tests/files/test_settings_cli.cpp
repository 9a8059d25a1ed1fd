#include "common/test_support.h"

#include <gtest/gtest.h>

TEST(SettingsVerb, CopiesEveryGroupFromOneFileToAnother) {
    TempDir dir;
    WriteWholeFile(dir.File("in.ini"), "[Measure]\nInteractionTime=250\n[Graphics]\n"
                                       "CurveColor[2]=1,2,3,13,15\n");
    ProcessResult r = RunCli({"settings", "-i:" + dir.File("in.ini"), "-o:" + dir.File("out.ini")});
    ASSERT_EQ(r.exitCode, 0) << r.err;
    std::string out = ReadWholeFile(dir.File("out.ini"));
    EXPECT_NE(out.find("InteractionTime=250\r\n"), std::string::npos);
    EXPECT_NE(out.find("CurveColor[2]=1,2,3,1,1\r\n"), std::string::npos);
    EXPECT_NE(out.find("RescalePlotAfterMeasurement=1\r\n"), std::string::npos);
}

TEST(SettingsVerb, PrintsWithoutAnOutputFileAndFailsOnAnUnwritableOne) {
    TempDir dir;
    ProcessResult r = RunCli({"settings", "-i:" + dir.File("missing.ini")});
    ASSERT_EQ(r.exitCode, 0) << r.err;
    EXPECT_EQ(r.out.rfind("[Setup]\r\nGridX=10\r\n", 0), 0u);
    EXPECT_NE(r.out.find("[Graphics]\r\nOptimizeGrid=0\r\nCurveColor[0]=0,0,0,0,1\r\n"),
              std::string::npos);
    EXPECT_NE(r.out.find("[Measure]\r\nDelayAfterJumpToStart=0\r\n"), std::string::npos);
    r = RunCli({"settings", "-i:" + dir.File("missing.ini"), "-o:" + dir.File("no/such.ini")});
    EXPECT_EQ(r.exitCode, 1);
    EXPECT_NE(r.err.find("can not write"), std::string::npos);
}
