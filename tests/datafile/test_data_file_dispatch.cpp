#include "data_file_fixture.h"
#include "files/data_file_auto.h"
#include "settings/profile.h"
#include "ui/settings_registry.h"
#include "measure/measure_options.h"

#include <sys/stat.h>
#include <unistd.h>

namespace {
std::string gShownTitle;
int gShownCalls = 0;
void RecordShown(void*, const char* title) {
    ++gShownCalls;
    gShownTitle = title ? title : "<add>";
}
} // namespace

TEST_F(DataFileTest, ExtensionsChooseTheReaderAndOnlyDatIsSaved) {
    gDataFileLink.Shown = RecordShown;
    gShownCalls = 0;
    Fill({2});
    std::string upper = dir.File("A.DAT"), ged = dir.File("A.GED");
    ASSERT_EQ(SaveDataFile(nullptr, upper.c_str()), 0);
    EXPECT_EQ(gShownTitle, "Vantrel -- " + upper);
    EXPECT_EQ(SaveDataFile(nullptr, ged.c_str()), -1);
    EXPECT_EQ(Box(), "Error|Can not save file.\nThe extention .GED is unknown.");
    rename(upper.c_str(), ged.c_str());
    HeadlessReset();
    EXPECT_EQ(OpenDataFile(nullptr, ged.c_str(), 1), 0) << Box(); // A.ini serves A.GED as well
    EXPECT_EQ(gCurves.count, 2u);
    EXPECT_EQ(gShownTitle, "<add>");
    EXPECT_EQ(std::string(gLastDataFolder), dir.Path());
    EXPECT_EQ(OpenDataFile(nullptr, dir.File("x.txt").c_str(), 0), -1);
    EXPECT_EQ(Box(), "Error|Can not open file\nThe extention .txt is unknown.");
    EXPECT_EQ(gShownCalls, 2);
}

namespace {
std::string gCalls;
int SaveA(const char*) {
    return gCalls += "sA ", 1;
}
int LoadA(const char*) {
    return gCalls += "lA ", 1;
}
int SaveIVF(const char*) {
    return gCalls += "sIVF ", 1;
}
int LoadIVF(const char*) {
    return gCalls += "lIVF ", 1;
}
int SaveVt(const char*) {
    return gCalls += "sVt ", 1;
}
int LoadVt(const char*) {
    return gCalls += "lVt ", 1;
}
} // namespace

TEST_F(DataFileTest, GroupFlagsAreCrossedWhereTheyAreStoredSo) {
    DataFileGroup saved[kDataFileGroupCount];
    std::copy(gDataFileGroups, gDataFileGroups + kDataFileGroupCount, saved);
    gDataFileGroups[0].Load = LoadA, gDataFileGroups[0].Save = SaveA;
    gDataFileGroups[3].Load = LoadIVF, gDataFileGroups[3].Save = SaveIVF;
    gDataFileGroups[7].Load = LoadVt, gDataFileGroups[7].Save = SaveVt;
    ASSERT_TRUE(SetDataFileOption("SaveAveragingOptions", "1"));
    ASSERT_TRUE(SetDataFileOption("LoadIVFOptions", "1"));
    ASSERT_TRUE(SetDataFileOption("SaveV(time)Options", "1"));
    EXPECT_EQ(SaveDataFileGroups("x.ini"), 2u);
    EXPECT_EQ(gCalls, "sA sIVF ");
    gCalls.clear();
    EXPECT_EQ(LoadDataFileGroups("x.ini"), 0u);
    SetDataFileOption("LoadAveragingOptions", "1");
    SetDataFileOption("SaveIVFOptions", "1");
    SetDataFileOption("LoadV(time)Options", "1");
    EXPECT_EQ(LoadDataFileGroups("x.ini"), 3u);
    EXPECT_EQ(gCalls, "lA lIVF lVt ");
    std::copy(saved, saved + kDataFileGroupCount, gDataFileGroups);
}

TEST_F(DataFileTest, OptionsTravelThroughSectionDataFile) {
    std::string ini = dir.File("vtl.ini");
    WriteWholeFile(ini, "[DataFile]\r\nDelimitterID=2\r\nColumnWidth=20\r\nsort=0\r\n"
                        "LoadIc(T)Options=1\r\n");
    LoadDataFileOptions(ini.c_str());
    EXPECT_EQ(gDelimitterID, 2);
    EXPECT_EQ(gColumnWidth, 20u);
    EXPECT_EQ(fSortCurves, 0);
    EXPECT_EQ(fShowOptionsOnSave, 1);
    EXPECT_TRUE(DataFileGroupSaves(gDataFileGroups[6]));
    gColumnWidth = 99;
    EXPECT_EQ(DataFileColumnWidth(), kMaxColumnWidth);
    SaveDataFileOptions(ini.c_str());
    EXPECT_EQ(GetPrivateProfileInt("DataFile", "ColumnWidth", 0, ini.c_str()), 99);
    EXPECT_EQ(GetPrivateProfileInt("DataFile", "SaveTrigger", -1, ini.c_str()), 0);
}

TEST_F(DataFileTest, SetupKeysAreWrittenAndOnlyTheTwoFlagsRead) {
    int32_t scaleAuto = 0, swap = 1, rescale = 0;
    float xMin = -1, xMax = 2, yMin = 3, yMax = 4;
    gDataFileLink = {&scaleAuto, &xMin, &xMax, &yMin, &yMax, &swap, &rescale, nullptr, nullptr};
    Fill({1});
    std::string dat = dir.File("s.dat"), ini = dir.File("s.ini");
    ASSERT_EQ(WriteDataPair(dat.c_str()), 0);
    EXPECT_NE(ReadWholeFile(ini).find("[Setup]\r\nScaleAuto=0\r\nFixedViewScaleMinX=-1.000000\r\n"),
              std::string::npos);
    swap = 0;
    xMin = 7;
    ASSERT_EQ(ReadDataPair(dat.c_str(), 0), 0);
    EXPECT_EQ(swap, 1);
    EXPECT_EQ(scaleAuto, 1);
    EXPECT_EQ(xMin, 7);
}

TEST_F(DataFileTest, AutomaticPairNeverOverwrites) {
    Fill({3});
    gCurves.date = 1700000000;
    std::string settings = dir.File("vtl.ini");
    char first[512], second[512];
    ASSERT_EQ(WriteAutomaticDataPair("IVC: a/b", settings.c_str(), first, sizeof first), 0);
    std::string firstText = ReadWholeFile(first);
    Fill({5});
    gCurves.date = 1700000000;
    ASSERT_EQ(WriteAutomaticDataPair("IVC: a/b", settings.c_str(), second, sizeof second), 0);
    EXPECT_NE(std::string(first), second);
    EXPECT_EQ(std::string(first).rfind(dir.File("data/IVC_ a_b_"), 0), 0u) << first;
    EXPECT_EQ(ReadWholeFile(first), firstText);
    EXPECT_TRUE(HeadlessBoxes().empty());
}

TEST_F(DataFileTest, ExistingGroupsTravelInTheDataIni) {
    uint32_t old = MaxDACStep;
    MaxDACStep = 77;
    SetDataFileOption("SaveDelayOptions", "1");
    Fill({1});
    std::string dat = dir.File("g.dat");
    ASSERT_EQ(WriteDataPair(dat.c_str()), 0);
    EXPECT_EQ(GetPrivateProfileInt("Measure", "MaxDACStep", 0, dir.File("g.ini").c_str()), 77);
    MaxDACStep = 5;
    ASSERT_EQ(ReadDataPair(dat.c_str(), 0), 0);
    EXPECT_EQ(MaxDACStep, 5u); // loading is steered by its own key
    SetDataFileOption("LoadDelayOptions", "1");
    ASSERT_EQ(ReadDataPair(dat.c_str(), 0), 0);
    EXPECT_EQ(MaxDACStep, 77u);
    MaxDACStep = old;
}
