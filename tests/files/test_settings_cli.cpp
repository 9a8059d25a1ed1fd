#include "common/test_support.h"
#include "settings/profile.h"
#include "settings/profile_document.h"

#include <gtest/gtest.h>

// The cards are detected before the settings are read, so the validators keep a wiring that
// fits them: every key of the shipped file comes back with its value. A file that can't be
// written is told, and the exit status is 1.
TEST(SettingsVerb, RoundTripKeepsEveryKeyAndAFailedWriteExitsOne) {
    TempDir dir;
    const std::string in = SourcePath("data/vtl.ini"), out = dir.File("out.ini");
    ProcessResult r =
        RunCli({"settings", "-i:" + in, "-simdaq:" + SourcePath("data/simdaq.ini"), "-o:" + out});
    ASSERT_EQ(r.exitCode, 0) << r.err;
    ProfileDocument shipped;
    shipped.Parse(ReadWholeFile(in));
    size_t keys = 0;
    char got[512];
    for (const ProfileSection& section : shipped.sections)
        for (const ProfileLine& line : section.lines) {
            if (line.key.empty()) continue;
            std::string name = section.header.substr(1, section.header.size() - 2);
            GetPrivateProfileString(name.c_str(), line.key.c_str(), "<missing>", got, 512,
                                    out.c_str());
            EXPECT_EQ(got, line.value) << section.header << " " << line.key;
            ++keys;
        }
    EXPECT_GT(keys, 60u);
    const std::string locked = UnwritableFolder(dir) + "/out.ini";
    r = RunCli({"settings", "-i:" + dir.File("missing.ini"), "-o:" + locked});
    EXPECT_EQ(r.exitCode, 1);
    EXPECT_NE(r.out.find("[Error] Can not write file\n" + locked + "\n"), std::string::npos);
    EXPECT_NE(r.err.find("can not write " + locked), std::string::npos) << r.err;
}
