// DXB files built byte by byte with the format's own writers, read back into the family.
#include "common/test_support.h"
#include "curve/undo.h"
#include "files/dxb_format.h"
#include "instrument/virtual_channels.h"
#include "measure/sweep_range.h"
#include "platform/headless_host.h"
#include "ui/dxb_read.h"
#include "ui/main_state.h"

#include <gtest/gtest.h>

#include <cstring>
#include <ctime>
#include <functional>
#include <string>

namespace {

struct FooterSpec {
    unsigned version = 0x0100; // 0x0100 writes the old footer with plotLeft and plotBottom in it
    unsigned left = 10, bottom = 20, width = 400, height = 300;
    float xMin = -1.0f, yMin = 2.0f, xPerPixel = 0.5f, yPerPixel = 0.25f;
};

void Float(std::FILE* f, float v) {
    unsigned char b[4];
    std::memcpy(b, &v, 4);
    std::fwrite(b, 1, 4, f);
}
void Long(std::FILE* f, std::uint32_t v) {
    DxbWriteWord(f, v & 0xFFFF);
    DxbWriteWord(f, v >> 16);
}
void Double(std::FILE* f, double v) {
    unsigned char b[8];
    std::memcpy(b, &v, 8);
    std::fwrite(b, 1, 8, f);
}

// Signature, entities, trailer, then a block for the versioned footer, then the footer.
std::string WriteDxb(const TempDir& dir, const std::function<void(std::FILE*)>& entities,
                     const std::function<void(std::FILE*)>& trailer, const FooterSpec& spec = {}) {
    const std::string path = dir.File("plot.dxb");
    std::FILE* f = std::fopen(path.c_str(), "wb");
    std::fwrite(kDxbSignature, 1, kDxbSignatureSize, f);
    entities(f);
    trailer(f);
    const long block = std::ftell(f);
    for (int i = 0; i < 16; ++i)
        DxbWriteByte(f, 0xEE);
    DxbWriteWord(f, spec.left);
    DxbWriteWord(f, spec.bottom);
    if (spec.version == 0x0100) {
        DxbWriteWord(f, 1);
        DxbWriteWord(f, 0);
        DxbWriteWord(f, spec.left);
        DxbWriteWord(f, spec.bottom);
    } else {
        DxbWriteWord(f, 0);
        Long(f, static_cast<std::uint32_t>(block));
        DxbWriteWord(f, spec.version);
    }
    DxbWriteWord(f, spec.width);
    DxbWriteWord(f, spec.height);
    for (float v : {spec.xMin, spec.yMin, spec.xPerPixel, spec.yPerPixel})
        Float(f, v);
    std::fclose(f);
    return path;
}

void Polyline(std::FILE* f, int points, unsigned x0) {
    DxbWriteByte(f, DXB_POLYLINE);
    DxbWriteWord(f, 0);
    for (int i = 0; i < points; ++i) {
        DxbWriteByte(f, DXB_VERTEX);
        DxbWriteWord(f, x0 + i);
        DxbWriteWord(f, 12 * i);
    }
    DxbWriteByte(f, DXB_SEQUENCE_END);
}

void LongText(std::FILE* f, const char* text) {
    DxbWriteWord(f, static_cast<unsigned>(std::strlen(text) + 1));
    DxbWriteString(f, text);
}

void OwnTrailer(std::FILE* f) {
    std::fwrite(kDxbTrailerMarker, 1, 16, f);
    Long(f, 0);
    Long(f, 1700000000u);
    LongText(f, "mA");
    LongText(f, "\xB5V");
    for (const char* t : {"Ic of B7", "R. Physicist", "B7", "SQUID", "second cool-down"})
        LongText(f, t);
    DxbWriteWord(f, 0);
    DxbWriteWord(f, 0x1234);
    DxbWriteWord(f, 0xFEDC);
    Long(f, 0);
    Long(f, 0);
    DxbWriteWord(f, 2); // currents: one connected, one not
    DxbWriteWord(f, 2);
    DxbWriteWord(f, 0);
    DxbWriteString(f, "bias J1");
    DxbWriteWord(f, 0);
    Long(f, 0);
    DxbWriteWord(f, 0);
    DxbWriteWord(f, 0);
    DxbWriteWord(f, 1); // voltages
    DxbWriteWord(f, 1);
    DxbWriteWord(f, 0);
    DxbWriteString(f, "V of J1");
}

class DxbReadTest : public ::testing::Test {
  protected:
    void SetUp() override {
        HeadlessReset();
        gCurves.Reset();
        IVC_Range.from = 0x10000;
        IVC_Range.to = 0x20000;
        BoundedComment(CurrentChannels[1], "old name");
    }
    static void BoundedComment(CurrentChannel& c, const char* text) {
        std::strcpy(c.comment, text);
    }
    std::string Boxes() const {
        std::string all;
        for (const auto& b : HeadlessBoxes())
            all += b.caption + "|" + b.text + ";";
        return all;
    }
    TempDir dir;
};

} // namespace

// The program's own trailer: the footer's transformation, the unit prefixes, the texts, the
// sweep range and the channel names; a strip of four points (the writer's rectangle) is dropped.
TEST_F(DxbReadTest, OwnTrailerGivesUnitsTextsRangeAndNames) {
    const std::string path = WriteDxb(
        dir,
        [](std::FILE* f) {
            Polyline(f, 6, 100);
            DxbWriteRectangle(f, 0, 0, 50, 50);
            DxbWriteByte(f, DXB_SCALE_FACTOR);
            Double(f, 2.5);
            DxbWriteByte(f, DXB_LAYER_NAME);
            DxbWriteString(f, "layer 0");
            DxbWriteLine(f, 1, 2.0f, 3, 4.0f);
            DxbWriteByte(f, DXB_END);
        },
        OwnTrailer);
    ASSERT_EQ(ReadDxbFile(path.c_str(), 0), 0) << Boxes();
    EXPECT_EQ(Boxes(), "");
    ASSERT_EQ(gCurves.count, 1u);
    const Curve& c = gCurves.GetCurve(0);
    ASSERT_EQ(c.count, 6u);
    // x = (vx - 10) * 0.5 - 1 in mA, y = (300 + vy / 1.2 - 20) * 0.25 + 2 in microvolts.
    for (unsigned i = 0; i < 6; ++i) {
        EXPECT_FLOAT_EQ(c.points[i].x, ((100.0f + i - 10) * 0.5f - 1.0f) * 1e-3f) << i;
        EXPECT_NEAR(c.points[i].y, ((300 + 12.0 * i / 1.2 - 20) * 0.25 + 2) * 1e-6, 1e-10) << i;
    }
    EXPECT_EQ(std::string(gCurves.xUnits) + "," + gCurves.yUnits + "," + gCurves.name + "," +
                  gCurves.designer + "," + gCurves.chipName + "," + gCurves.circuitName + "," +
                  gCurves.comment,
              "A,V,Ic of B7,R. Physicist,B7,SQUID,second cool-down");
    EXPECT_EQ(gCurves.date, 1700000000);
    EXPECT_EQ(gCurves.timeSpent, -1.0f);
    EXPECT_EQ(IVC_Range.from, 0x11234u);
    EXPECT_EQ(IVC_Range.to, 0x2FEDCu);
    EXPECT_STREQ(CurrentChannels[0].comment, "bias J1");
    EXPECT_STREQ(CurrentChannels[1].comment, "");
    EXPECT_STREQ(VoltageChannels[0].comment, "V of J1");
    EXPECT_EQ(std::tuple(gViewScale.plotWidth, gViewScale.plotHeight, gViewScale.plotLeft),
              std::tuple(400, 300, 10));
    EXPECT_STREQ(gDxbFileName, path.c_str());
}

// Versions: 0x0200 reads vertices at full size, 0x0201 at a tenth, both with the corner from the
// block; above 0x0201 is refused. Number mode 1 reads the vertices as doubles.
TEST_F(DxbReadTest, VersionsScaleVerticesAndUnknownOnesAreRefused) {
    struct Case {
        unsigned version;
        int result;
        float firstX;
    } cases[] = {
        {0x0200, 0, (1000 - 30) * 0.5f - 1}, {0x0201, 0, (100 - 30) * 0.5f - 1}, {0x0202, 1, 0}};
    for (const Case& k : cases) {
        HeadlessReset();
        FooterSpec spec;
        spec.version = k.version;
        spec.left = 30;
        const std::string path = WriteDxb(
            dir,
            [](std::FILE* f) {
                DxbWriteByte(f, DXB_NUMBER_MODE);
                DxbWriteWord(f, 1);
                DxbWriteByte(f, DXB_POLYLINE);
                DxbWriteWord(f, 0);
                for (int i = 0; i < 5; ++i) {
                    DxbWriteByte(f, DXB_VERTEX);
                    Double(f, 1000.0 + i);
                    Double(f, 0.0);
                }
                DxbWriteByte(f, DXB_SEQUENCE_END);
                DxbWriteByte(f, DXB_END);
            },
            [](std::FILE*) {}, spec);
        EXPECT_EQ(ReadDxbFile(path.c_str(), 0), k.result) << std::hex << k.version;
        if (k.result == 1) {
            EXPECT_EQ(Boxes(), "Vantrel|Unknown Dxb version!;");
            EXPECT_EQ(gCurves.count, 0u);
        } else {
            ASSERT_EQ(gCurves.count, 1u) << std::hex << k.version;
            EXPECT_FLOAT_EQ(gCurves.GetCurve(0).points[0].x, k.firstX) << std::hex << k.version;
        }
    }
}

// Failures keep what was read before them; a file that is not DXB at all loads nothing quietly.
TEST_F(DxbReadTest, BrokenStreamsKeepEarlierCurvesAndSayWhy) {
    const std::string unknown = WriteDxb(
        dir,
        [](std::FILE* f) {
            Polyline(f, 5, 0);
            DxbWriteByte(f, 0x42);
            Polyline(f, 5, 0);
        },
        [](std::FILE*) {});
    EXPECT_EQ(ReadDxbFile(unknown.c_str(), 0), 0);
    EXPECT_EQ(Boxes(),
              "DXB error|Unknown DXB entity code!;DXB error|This is not AutoCad DXB file;");
    EXPECT_EQ(gCurves.count, 1u);

    HeadlessReset();
    const std::string plain = dir.File("plain.dxb");
    WriteWholeFile(plain, "AutoCAD DXB 1.0\r\n\x1A"
                          "X and more bytes than a footer has, certainly");
    EXPECT_EQ(ReadDxbFile(plain.c_str(), 1), 0);
    EXPECT_EQ(std::tuple(Boxes(), gCurves.count), std::tuple(std::string(), 1u));

    EXPECT_EQ(ReadDxbFile(dir.File("missing.dxb").c_str(), 1), -3);
    EXPECT_EQ(Boxes(), "DxbIn error|Can't open file;");
}

// The old trailer: a date, the chip, units that scale only when they hold "mA" or "mV", and one
// name a curve; added curves keep the family's texts.
TEST_F(DxbReadTest, OldTrailerScalesMilliUnitsAndNamesCurves) {
    struct Case {
        const char* x;
        const char* y;
        float kx, ky;
    } cases[] = {{"mA", "mV", 1000, 1000}, {"A", "uV", 1, 1}};
    for (const Case& k : cases) {
        const std::string path = WriteDxb(
            dir,
            [](std::FILE* f) {
                Polyline(f, 5, 100);
                Polyline(f, 7, 200);
                DxbWriteByte(f, DXB_END);
            },
            [&k](std::FILE* f) {
                for (const char* t : {"11/23/1998", "B7", k.x, k.y, "J1", "J2"})
                    DxbWriteString(f, t);
            });
        gCurves.Reset();
        ASSERT_EQ(ReadDxbFile(path.c_str(), 0), 0) << Boxes();
        ASSERT_EQ(gCurves.count, 2u);
        EXPECT_EQ(std::string(gCurves.GetCurve(0).name) + gCurves.GetCurve(1).name, "J1J2");
        EXPECT_STREQ(gCurves.chipName, "B7");
        EXPECT_FLOAT_EQ(gCurves.GetCurve(1).points[0].x, ((200 - 10) * 0.5f - 1) * k.kx);
        EXPECT_FLOAT_EQ(gCurves.GetCurve(1).points[0].y, ((300 - 20) * 0.25f + 2) * k.ky);
        const std::time_t stamp = gCurves.date;
        const std::tm* t = std::localtime(&stamp);
        EXPECT_EQ(std::tuple(t->tm_year, t->tm_mon, t->tm_mday, t->tm_hour),
                  std::tuple(98, 10, 23, 0));

        ASSERT_EQ(ReadDxbFile(path.c_str(), 1), 0);
        EXPECT_EQ(gCurves.count, 4u);
        EXPECT_STREQ(gCurves.GetCurve(2).name, "");
    }
}

// From the command line, a DXB file converts to a data pair.
TEST(DxbCli, ConvertsToADataPair) {
    TempDir dir;
    const std::string path = WriteDxb(
        dir,
        [](std::FILE* f) {
            Polyline(f, 8, 100);
            DxbWriteByte(f, DXB_END);
        },
        OwnTrailer);
    ProcessResult r = RunCli({"convert", path, "-o:" + dir.File("out.dat")});
    ASSERT_EQ(r.exitCode, 0) << r.err << r.out;
    const std::string ini = ReadWholeFile(dir.File("out.ini"));
    EXPECT_NE(ini.find("NumberOfPointsInCurve0=8"), std::string::npos) << ini;
}

// A file cut at any byte reads without harm: what was whole before the cut, or a message (the
// footer of a cut file is whatever its last bytes are, an unknown version too).
TEST_F(DxbReadTest, FileCutAtEveryByteReadsSafely) {
    const std::string whole = ReadWholeFile(WriteDxb(
        dir,
        [](std::FILE* f) {
            Polyline(f, 6, 100);
            DxbWriteByte(f, DXB_END);
        },
        OwnTrailer));
    const std::string cut = dir.File("cut.dxb");
    for (size_t n = 0; n < whole.size(); ++n) {
        WriteWholeFile(cut, whole.substr(0, n));
        HeadlessReset();
        const int result = ReadDxbFile(cut.c_str(), 0);
        EXPECT_LE(gCurves.count, 1u) << n;
        for (const HeadlessBox& b : HeadlessBoxes())
            EXPECT_EQ(b.caption + "|" + b.text, result == 1
                                                    ? "Vantrel|Unknown Dxb version!"
                                                    : "DXB error|This is not AutoCad DXB file")
                << n;
    }
}
