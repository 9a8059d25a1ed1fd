#include "common/test_support.h"
#include "settings/profile.h"

#include <gtest/gtest.h>

#include <climits>
#include <clocale>

namespace {
const char* kHandWritten = "; settings written by hand\r\n"
                           "[Setup]\r\n"
                           "WindowPositionLeft = 12\r\n"
                           "Name=\"quoted text\"\n"
                           "; a comment=not a key\r\n"
                           "\r\n"
                           "[graphics]\r\n"
                           "PenWidth=3\r\n"
                           "Broken line without equals\r\n"
                           "Ratio=?unset\r\n"
                           "\r\n"
                           "[SETUP]\r\n"
                           "WindowPositionLeft=99\r\n";
} // namespace

TEST(Profile, ReadsWithoutCaseAndTakesTheFirstSectionAndKey) {
    TempDir dir;
    std::string ini = dir.File("vtl.ini");
    WriteWholeFile(ini, kHandWritten);
    EXPECT_EQ(GetPrivateProfileInt("setup", "windowpositionleft", 0, ini.c_str()), 12);
    EXPECT_EQ(GetPrivateProfileInt("Graphics", "PENWIDTH", 0, ini.c_str()), 3);
    char text[64];
    EXPECT_EQ(GetPrivateProfileString("Setup", "Name", "", text, sizeof text, ini.c_str()), 11u);
    EXPECT_STREQ(text, "quoted text");
    GetPrivateProfileString("Setup", "Name", "", text, 7, ini.c_str());
    EXPECT_STREQ(text, "quoted");
    GetPrivateProfileString("Setup", "; a comment", "dflt", text, sizeof text, ini.c_str());
    EXPECT_STREQ(text, "dflt");
    EXPECT_EQ(GetPrivateProfileInt("Graphics", "Broken line without equals", -4, ini.c_str()), -4);
    // A value that starts with "?" counts as missing for the typed readers.
    EXPECT_DOUBLE_EQ(ReadProfileDouble("Graphics", "Ratio", 2.5, ini.c_str()), 2.5);
    EXPECT_EQ(ReadProfileLong("Graphics", "PenWidth", 7, ini.c_str()), 3);
    EXPECT_EQ(ReadProfileLong("Nowhere", "PenWidth", 7, ini.c_str()), 7);
    EXPECT_EQ(GetPrivateProfileInt("Setup", "x", 5, dir.File("missing.ini").c_str()), 5);
}

TEST(Profile, WriteReplacesInPlaceAndKeepsTheRest) {
    TempDir dir;
    std::string ini = dir.File("vtl.ini");
    WriteWholeFile(ini, kHandWritten);
    ASSERT_EQ(WritePrivateProfileString("SETUP", "windowPositionLeft", "40", ini.c_str()), 1);
    std::string after = ReadWholeFile(ini);
    EXPECT_NE(after.find("[Setup]\r\nwindowPositionLeft=40\r\nName=\"quoted text\"\r\n"),
              std::string::npos);
    EXPECT_NE(after.find("; settings written by hand\r\n"), std::string::npos);
    EXPECT_NE(after.find("Broken line without equals\r\n"), std::string::npos);
    EXPECT_NE(after.find("[SETUP]\r\nWindowPositionLeft=99\r\n"), std::string::npos);
    // A new key goes to the end of its section, before the blank line.
    WritePrivateProfileString("Graphics", "GraphSymbolSize", "5", ini.c_str());
    after = ReadWholeFile(ini);
    EXPECT_NE(after.find("Ratio=?unset\r\nGraphSymbolSize=5\r\n\r\n[SETUP]"), std::string::npos);
    // A new section goes to the end; null value deletes a key, null key a section.
    WritePrivateProfileString("Measure", "Delay", "10", ini.c_str());
    EXPECT_EQ(GetPrivateProfileInt("measure", "delay", 0, ini.c_str()), 10);
    WritePrivateProfileString("Graphics", "PenWidth", nullptr, ini.c_str());
    EXPECT_EQ(GetPrivateProfileInt("Graphics", "PenWidth", -1, ini.c_str()), -1);
    WritePrivateProfileString("Measure", nullptr, nullptr, ini.c_str());
    EXPECT_EQ(ReadWholeFile(ini).find("[Measure]"), std::string::npos);
    // Writing to a missing file creates it with CR LF lines.
    std::string fresh = dir.File("fresh.ini");
    WritePrivateProfileString("A", "k", "v", fresh.c_str());
    EXPECT_EQ(ReadWholeFile(fresh), "[A]\r\nk=v\r\n");
}

TEST(Profile, NumbersUseTheCLocaleAndBatchesWriteOnce) {
    TempDir dir;
    std::string ini = dir.File("vtl.ini");
    const char* old = std::setlocale(LC_NUMERIC, "de_DE.UTF-8");
    WriteProfileDouble("Measure", "Step", "%g", 0.25, ini.c_str());
    EXPECT_DOUBLE_EQ(ReadProfileDouble("Measure", "Step", 0, ini.c_str()), 0.25);
    std::setlocale(LC_NUMERIC, "C");
    (void)old;
    EXPECT_NE(ReadWholeFile(ini).find("Step=0.25"), std::string::npos);
    {
        ProfileBatch batch(ini.c_str());
        WriteProfileInt("Measure", "Points", "%u", 100, ini.c_str());
        WriteProfileLong("Measure", "Total", "%ld", -5L, ini.c_str());
        EXPECT_EQ(GetPrivateProfileInt("Measure", "Points", 0, ini.c_str()), 100);
        // Nothing reaches the disk before the batch ends.
        EXPECT_EQ(ReadWholeFile(ini).find("Points"), std::string::npos);
    }
    EXPECT_EQ(GetPrivateProfileInt("Measure", "Points", 0, ini.c_str()), 100);
    EXPECT_EQ(ReadProfileLong("Measure", "Total", 0, ini.c_str()), -5);
}

TEST(Profile, AFailedWriteReportsZeroAndLeavesNoFile) {
    TempDir dir;
    std::string ini = dir.File("no-such-folder/vtl.ini");
    EXPECT_EQ(WritePrivateProfileString("A", "k", "2", ini.c_str()), 0);
    EXPECT_EQ(GetPrivateProfileInt("A", "k", -1, ini.c_str()), -1);
}

TEST(Profile, GarbageAndLongLinesLoadWithoutHarm) {
    TempDir dir;
    std::string ini = dir.File("vtl.ini");
    std::string junk = std::string("\x01\xff\xfe[[[==]\r\n") + std::string(100000, 'x') +
                       "\r\n[Setup]\r\nGood=7\r\n=novalue\r\n[Setup\r\n";
    junk += std::string("\0\0\0", 3);
    WriteWholeFile(ini, junk);
    EXPECT_EQ(GetPrivateProfileInt("Setup", "Good", 0, ini.c_str()), 7);
    WritePrivateProfileString("Setup", "Good", "8", ini.c_str());
    std::string after = ReadWholeFile(ini);
    EXPECT_NE(after.find(std::string(100000, 'x')), std::string::npos);
    EXPECT_NE(after.find("Good=8"), std::string::npos);
    EXPECT_EQ(GetPrivateProfileInt("Setup", "Good", 0, ini.c_str()), 8);
}

TEST(Profile, TypedReadersTakeQuestionMarkAsMissingAndClampRange) {
    TempDir dir;
    std::string ini = dir.File("vtl.ini");
    WriteWholeFile(ini, "[A]\nq=?\nqs=?12\nneg=-7\nhuge=99999999999999999999\n"
                        "lead=  3.5e2xyz\nempty=\nsame=1\nSAME=2\n[a]\nsame=3\n");
    EXPECT_EQ(ReadProfileLong("a", "Q", 4, ini.c_str()), 4);
    EXPECT_EQ(ReadProfileLong("A", "qs", 4, ini.c_str()), 4);
    EXPECT_DOUBLE_EQ(ReadProfileDouble("A", "qs", 1.5, ini.c_str()), 1.5);
    EXPECT_EQ(ReadProfileLong("A", "neg", 0, ini.c_str()), -7);
    EXPECT_DOUBLE_EQ(ReadProfileDouble("A", "lead", 0, ini.c_str()), 350.0);
    EXPECT_EQ(GetPrivateProfileInt("A", "huge", 0, ini.c_str()), INT_MAX);
    EXPECT_EQ(ReadProfileLong("A", "empty", 9, ini.c_str()), 0); // present but empty is not "?"
    EXPECT_EQ(GetPrivateProfileInt("A", "same", 0, ini.c_str()), 1);
}
