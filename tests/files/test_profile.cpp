#include "common/test_support.h"
#include "platform/headless_host.h"
#include "settings/profile.h"

#include <gtest/gtest.h>

#include <climits>
#include <clocale>
#include <unistd.h>

namespace {
// Garbage, a long line and NULs around keys that can be read.
const std::string kHandWritten =
    "; settings written by hand\r\n\x01\xff\xfe[[[==]\r\n" + std::string(100000, 'x') +
    "\r\n[Setup]\r\nWindowPositionLeft = 12\r\nName=\"quoted text\"\n; a comment=not a key\r\n"
    "=novalue\r\n\r\n[graphics]\r\nPenWidth=3\r\nBroken line without equals\r\nRatio=?unset\r\n"
    "q=?\r\nneg=-7\r\nhuge=99999999999999999999\r\nlead=  3.5e2xyz\r\nempty=\r\n"
    "same=1\r\nSAME=2\r\n\r\n[SETUP]\r\nWindowPositionLeft=99\r\n[Setup\r\n" +
    std::string("\0\0\0", 3);
} // namespace

// Sections and keys without regard to case, the first of each; a value starting with "?"
// counts as missing for the typed readers. Writes change only what they name.
TEST(Profile, ReadsAndWritesAHandWrittenFile) {
    TempDir dir;
    std::string ini = dir.File("vtl.ini");
    WriteWholeFile(ini, kHandWritten);
    const char* f = ini.c_str();
    const struct {
        long got, want;
    } kReads[] = {
        {GetPrivateProfileInt("setup", "windowpositionleft", 0, f), 12},
        {GetPrivateProfileInt("Graphics", "Broken line without equals", -4, f), -4},
        {GetPrivateProfileInt("Graphics", "huge", 0, f), INT_MAX},
        {GetPrivateProfileInt("Graphics", "same", 0, f), 1},
        {GetPrivateProfileInt("Setup", "x", 5, dir.File("missing.ini").c_str()), 5},
        {ReadProfileLong("Graphics", "neg", 0, f), -7},
        {ReadProfileLong("Graphics", "empty", 9, f), 0}, // present but empty is not "?"
        {long(ReadProfileDouble("Graphics", "Ratio", 2.5, f) * 10), 25},
        {long(ReadProfileDouble("Graphics", "lead", 0, f)), 350},
    };
    for (size_t i = 0; i < std::size(kReads); ++i)
        EXPECT_EQ(kReads[i].got, kReads[i].want) << "read " << i;
    char text[64], cut[7], comment[8];
    EXPECT_EQ(GetPrivateProfileString("Setup", "Name", "", text, sizeof text, f), 11u);
    GetPrivateProfileString("Setup", "Name", "", cut, sizeof cut, f);
    GetPrivateProfileString("Setup", "; a comment", "dflt", comment, sizeof comment, f);
    EXPECT_EQ(std::tuple(std::string(text), std::string(cut), std::string(comment)),
              std::tuple("quoted text", "quoted", "dflt"));
    // A write replaces the first key in place and keeps the rest.
    ASSERT_EQ(WritePrivateProfileString("SETUP", "windowPositionLeft", "40", ini.c_str()), 1);
    std::string after = ReadWholeFile(ini);
    EXPECT_NE(after.find(std::string(100000, 'x')), std::string::npos);
    for (const char* kept : {"[Setup]\r\nwindowPositionLeft=40\r\nName=\"quoted text\"\r\n",
                             "; settings written by hand\r\n", "Broken line without equals\r\n",
                             "[SETUP]\r\nWindowPositionLeft=99\r\n"})
        EXPECT_NE(after.find(kept), std::string::npos) << kept;
    // A new key goes to the end of its section, before the blank line.
    WritePrivateProfileString("Graphics", "GraphSymbolSize", "5", ini.c_str());
    EXPECT_NE(ReadWholeFile(ini).find("SAME=2\r\nGraphSymbolSize=5\r\n\r\n[SETUP]"),
              std::string::npos);
    // A new section goes to the end; null value deletes a key, null key a section.
    WritePrivateProfileString("Measure", "Delay", "10", ini.c_str());
    EXPECT_EQ(GetPrivateProfileInt("measure", "delay", 0, ini.c_str()), 10);
    WritePrivateProfileString("Graphics", "PenWidth", nullptr, ini.c_str());
    EXPECT_EQ(GetPrivateProfileInt("Graphics", "PenWidth", -1, ini.c_str()), -1);
    WritePrivateProfileString("Measure", nullptr, nullptr, ini.c_str());
    EXPECT_EQ(ReadWholeFile(ini).find("[Measure]"), std::string::npos);
    // Writing to a missing file creates it with CR LF lines, numbers in the C locale.
    std::string fresh = dir.File("fresh.ini");
    std::setlocale(LC_NUMERIC, "de_DE.UTF-8");
    WriteProfileDouble("A", "k", "%g", 0.25, fresh.c_str());
    EXPECT_DOUBLE_EQ(ReadProfileDouble("A", "k", 0, fresh.c_str()), 0.25);
    std::setlocale(LC_NUMERIC, "C");
    EXPECT_EQ(ReadWholeFile(fresh), "[A]\r\nk=0.25\r\n");
}

// Batches nest; only the last one to end writes, once, and only it can fail. A failed write
// shows one box naming the file, leaves the old file as it was and nothing beside it.
TEST(Profile, BatchesWriteOnceAndReportAWriteThatFails) {
    TempDir dir;
    const std::string locked = UnwritableFolder(dir) + "/vtl.ini", full = dir.File("full.ini");
    WriteWholeFile(full, "[Measure]\r\nPoints=1\r\n");
    ASSERT_EQ(symlink("/dev/full", (full + ".tmp" + std::to_string(getpid())).c_str()), 0);
    const std::string box = "Error|Can not write file\n"; // caption|text
    for (auto [file, shown, result] :
         {std::tuple(dir.File("vtl.ini"), std::string(), 1),
          {full, box + full + "\nNo space left on device", 0},
          {locked, box + locked + (geteuid() ? "\nPermission denied" : "\nNot a directory"), 0}}) {
        SCOPED_TRACE(file);
        HeadlessReset();
        std::string before = ReadWholeFile(file);
        const char* f = file.c_str();
        ProfileBatch outer(f);
        {
            ProfileBatch inner(f);
            WriteProfileInt("Measure", "Points", "%u", 100, f);
            WriteProfileLong("Measure", "Total", "%ld", -5L, f);
            EXPECT_EQ(GetPrivateProfileInt("Measure", "Points", 0, f), 100);
            EXPECT_EQ(inner.End(), 1);
        }
        EXPECT_EQ(ReadWholeFile(file), before); // nothing before the last batch ends
        EXPECT_EQ(outer.End(), result);
        EXPECT_EQ(ReadProfileLong("Measure", "Total", 0, f), result ? -5 : 0);
        std::vector<HeadlessBox> boxes = HeadlessBoxes();
        EXPECT_EQ(boxes.size(), result ? 0u : 1u);
        EXPECT_EQ(boxes.empty() ? "" : boxes[0].caption + "|" + boxes[0].text, shown);
    }
    EXPECT_EQ(access((full + ".tmp" + std::to_string(getpid())).c_str(), F_OK), -1);
    // A write outside a batch only gives its result.
    EXPECT_EQ(WritePrivateProfileString("A", "k", "2", locked.c_str()), 0);
    EXPECT_EQ(HeadlessBoxes().size(), 1u);
}
