#include "data_file_fixture.h"
#include "files/data_file_auto.h"

namespace {
std::string gCalls;
} // namespace

// Upper-case .DAT saves; the .ini of a pair serves any reader's extension; others are refused.
TEST_F(DataFileTest, ExtensionsChooseTheReaderAndOnlyDatIsSaved) {
    Fill({2});
    std::string upper = dir.File("A.DAT"), ged = dir.File("A.GED");
    ASSERT_EQ(SaveDataFile(nullptr, upper.c_str()), 0);
    EXPECT_EQ(SaveDataFile(nullptr, ged.c_str()), -1);
    EXPECT_EQ(Box(), "Error|Can not save file.\nThe extention .GED is unknown.");
    rename(upper.c_str(), ged.c_str());
    HeadlessReset();
    EXPECT_EQ(OpenDataFile(nullptr, ged.c_str(), 1), 0) << Box();
    EXPECT_EQ(std::tuple(gCurves.count, std::string(gLastDataFolder)), std::tuple(2u, dir.Path()));
    EXPECT_EQ(OpenDataFile(nullptr, dir.File("x.txt").c_str(), 0), -1);
    EXPECT_EQ(Box(), "Error|Can not open file\nThe extention .txt is unknown.");
}

// The options, in section "DataFile"; three pairs of group flags are crossed where stored,
// and two save flags steer nothing: I-V family and V(time) here, straight groups in the
// groups test.
TEST_F(DataFileTest, OptionsTravelThroughSectionDataFileWithSomeFlagsCrossed) {
    DataFileGroup saved[kDataFileGroupCount];
    std::copy(gDataFileGroups, gDataFileGroups + kDataFileGroupCount, saved);
    gDataFileGroups[DATA_GROUP_IVF].Load = [](const char*) { return gCalls += "lIVF ", 1; };
    gDataFileGroups[DATA_GROUP_IVF].Save = [](const char*) { return gCalls += "sIVF ", 1; };
    gDataFileGroups[DATA_GROUP_VTIME].Load = [](const char*) { return gCalls += "lVt ", 1; };
    gDataFileGroups[DATA_GROUP_VTIME].Save = [](const char*) { return gCalls += "sVt ", 1; };
    std::string ini = dir.File("vtl.ini");
    WriteWholeFile(ini, "[DataFile]\r\nDelimitterID=2\r\nColumnWidth=20\r\nsort=0\r\n"
                        "LoadIVFOptions=1\r\nSaveV(time)Options=1\r\n");
    LoadDataFileOptions(ini.c_str());
    EXPECT_EQ(std::tuple(gDelimitterID, gColumnWidth, fSortCurves, SaveDataFileGroups("x.ini"),
                         LoadDataFileGroups("x.ini")),
              std::tuple(2, 20u, 0, 1u, 0u));
    for (const char* key : {"SaveIVFOptions", "LoadV(time)Options"})
        SetDataFileOption(key, "1");
    EXPECT_EQ(LoadDataFileGroups("x.ini"), 2u);
    EXPECT_EQ(gCalls, "sIVF lIVF lVt ");
    std::copy(saved, saved + kDataFileGroupCount, gDataFileGroups);
    gColumnWidth = 99;
    EXPECT_EQ(DataFileColumnWidth(), kMaxColumnWidth);
}

TEST_F(DataFileTest, AutomaticPairNeverOverwritesAndReportsAFolderItCanNotMake) {
    std::string settings = dir.File("vtl.ini");
    char first[512], second[512];
    std::string firstText;
    for (char* path : {first, second}) {
        Fill({path == first ? 3u : 5u});
        gCurves.date = 1700000000;
        ASSERT_EQ(WriteAutomaticDataPair("IVC: a/b", settings.c_str(), path, 512), 0);
        if (firstText.empty()) firstText = ReadWholeFile(first);
    }
    EXPECT_NE(std::string(first), second);
    EXPECT_EQ(std::string(first).rfind(dir.File("data/IVC_ a_b_"), 0), 0u) << first;
    EXPECT_EQ(ReadWholeFile(first), firstText);
    EXPECT_TRUE(HeadlessBoxes().empty());
    // A folder that can't be made: the box names it, and path names the .dat that is not there.
    std::string locked = UnwritableFolder(dir);
    EXPECT_EQ(WriteAutomaticDataPair("IVC", (locked + "/vtl.ini").c_str(), first, 512), -3);
    EXPECT_EQ(Box().rfind("Error|Can not create folder\n" + locked + "/data\n", 0), 0u) << Box();
    EXPECT_EQ(std::string(first).rfind(locked + "/data/IVC_", 0), 0u) << first;
}
