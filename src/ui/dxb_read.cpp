#include "ui/dxb_read.h"

#include "curve/undo.h"
#include "files/dxb_format.h"
#include "instrument/virtual_channels.h"
#include "measure/sweep_range.h"
#include "support/bounded_text.h"
#include "support/message_box.h"
#include "support/physical_units.h"
#include "ui/main_state.h"

#include <cfloat>
#include <cstdint>
#include <cstring>
#include <ctime>

char gDxbFileName[260] = "";

namespace {

constexpr unsigned kCurveMinPoints = 5;

// Coordinates beyond the range of a float (a damaged file) stay at its largest value.
float ToFloat(double v) {
    if (v > FLT_MAX) return FLT_MAX;
    if (v < -FLT_MAX) return -FLT_MAX;
    return static_cast<float>(v);
}

class DxbInput {
  public:
    explicit DxbInput(std::FILE* f) : f_(f) {}
    bool Bytes(void* p, size_t n) { return std::fread(p, 1, n, f_) == n; }
    bool Word(unsigned& v) {
        unsigned char b[2];
        if (!Bytes(b, 2)) return false;
        v = b[0] | (b[1] << 8);
        return true;
    }
    bool Long(std::uint32_t& v) {
        unsigned char b[4];
        if (!Bytes(b, 4)) return false;
        v = b[0] | (b[1] << 8) | (b[2] << 16) | (static_cast<std::uint32_t>(b[3]) << 24);
        return true;
    }
    bool Float(float& v) {
        std::uint32_t bits;
        if (!Long(bits)) return false;
        std::memcpy(&v, &bits, 4);
        return true;
    }
    bool Double(double& v) {
        std::uint32_t low, high;
        if (!Long(low) || !Long(high)) return false;
        const std::uint64_t bits = (static_cast<std::uint64_t>(high) << 32) | low;
        std::memcpy(&v, &bits, 8);
        return true;
    }
    bool Skip(long n) {
        for (; n > 0; --n)
            if (std::fgetc(f_) == EOF) return false;
        return true;
    }
    // Up to and including a 0 byte; a text longer than the buffer is cut and the rest skipped.
    bool Text(char* buffer, size_t size) {
        size_t n = 0;
        for (;;) {
            const int c = std::fgetc(f_);
            if (c == EOF) {
                buffer[n] = '\0';
                return false;
            }
            if (c == 0) break;
            if (n + 1 < size) buffer[n++] = static_cast<char>(c);
        }
        buffer[n] = '\0';
        return true;
    }
    // A length word, then a text.
    bool LongText(char* buffer, size_t size) {
        unsigned ignored;
        return Word(ignored) && Text(buffer, size);
    }
    bool Seek(long offset, int whence) { return std::fseek(f_, offset, whence) == 0; }

  private:
    std::FILE* f_;
};

struct Footer {
    unsigned version = 0x0100;
    std::uint32_t blockOffset = 0;
};

bool ReadFooter(DxbInput& in, Footer& footer) {
    ViewScale& v = gViewScale;
    unsigned marker, left = 0, bottom = 0, width, height;
    float xMin, yMin, xPerPixel, yPerPixel;
    if (!in.Seek(-static_cast<long>(kDxbFooterSize), SEEK_END) || !in.Word(marker)) return false;
    if (marker == 0) {
        if (!in.Long(footer.blockOffset) || !in.Word(footer.version)) return false;
    } else {
        unsigned ignored;
        if (!in.Word(ignored) || !in.Word(left) || !in.Word(bottom)) return false;
    }
    if (!in.Word(width) || !in.Word(height) || !in.Float(xMin) || !in.Float(yMin) ||
        !in.Float(xPerPixel) || !in.Float(yPerPixel))
        return false;
    v.plotLeft = static_cast<int>(left);
    v.plotBottom = static_cast<int>(bottom);
    v.plotWidth = static_cast<int>(width);
    v.plotHeight = static_cast<int>(height);
    v.xMin = xMin;
    v.yMin = yMin;
    v.xPerPixel = xPerPixel;
    v.yPerPixel = yPerPixel;
    return true;
}

// Bytes skipped by the entities that play no part, in number mode 0 and in the other mode.
bool SkippedSize(unsigned code, long& mode0, long& other) {
    static const struct {
        unsigned char code;
        unsigned char mode0, other;
    } kSizes[] = {{1, 8, 32},    {2, 4, 16},     {3, 6, 24},     {8, 14, 40},   {9, 16, 64},
                  {11, 16, 64},  {0x15, 12, 48}, {0x16, 24, 96}, {0x82, 4, 16}, {0x84, 4, 16},
                  {0x86, 4, 16}, {0x83, 8, 32},  {0x85, 4, 8},   {0x88, 2, 2},  {0x89, 6, 24}};
    for (const auto& s : kSizes)
        if (s.code == code) {
            mode0 = s.mode0;
            other = s.other;
            return true;
        }
    return false;
}

void DropShortNewest(std::uint32_t first) {
    if (gCurves.count <= first) return;
    const std::uint32_t last = gCurves.count - 1;
    if (gCurves.GetCurve(last).count < kCurveMinPoints) gCurves.DeleteCurves(last, last);
}

// The entity stream up to its 0 code. False when it failed or ran into the end of the file.
bool ReadEntities(DxbInput& in, const Footer& footer, std::uint32_t first) {
    const ViewScale& v = gViewScale;
    const double k = footer.version < 0x0201 ? 1.0 : 0.1;
    unsigned mode = 0;
    for (;;) {
        unsigned char code;
        if (!in.Bytes(&code, 1)) return false;
        long mode0 = 0, other = 0;
        switch (code) {
        case DXB_END:
            return true;
        case DXB_SEQUENCE_END:
            DropShortNewest(first);
            break;
        case DXB_POLYLINE:
            if (!in.Skip(2)) return false;
            if (gCurves.SetCurveCount(gCurves.count + 1) == 0) return false;
            break;
        case DXB_VERTEX: {
            double vx, vy;
            if (mode == 0) {
                unsigned x, y;
                if (!in.Word(x) || !in.Word(y)) return false;
                vx = x;
                vy = y;
            } else if (!in.Double(vx) || !in.Double(vy)) {
                return false;
            }
            const double x = (vx * k - v.plotLeft) * v.xPerPixel + v.xMin;
            const double y = (v.plotHeight + vy * k / 1.2 - v.plotBottom) * v.yPerPixel + v.yMin;
            if (gCurves.count > first)
                gCurves.GetCurve(gCurves.count - 1).AddPoint(ToFloat(x), ToFloat(y));
            break;
        }
        case DXB_SCALE_FACTOR: {
            double unused;
            if (!in.Double(unused)) return false;
            break;
        }
        case DXB_LAYER_NAME: {
            char layer[128];
            if (!in.Text(layer, sizeof layer)) return false;
            break;
        }
        case DXB_NUMBER_MODE:
            if (!in.Word(mode)) return false;
            break;
        default:
            if (!SkippedSize(code, mode0, other)) {
                MessageBoxBeep(nullptr, "Unknown DXB entity code!", "DXB error",
                               MB_OK | MB_ICONSTOP);
                return false;
            }
            if (!in.Skip(mode == 0 ? mode0 : other)) return false;
        }
    }
}

void ScaleAdded(std::uint32_t first, float kx, float ky) {
    if (kx == 1.0f && ky == 1.0f) return;
    for (std::uint32_t c = first; c < gCurves.count; ++c) {
        Curve& curve = gCurves.GetCurve(c);
        for (std::uint32_t i = 0; i < curve.count; ++i) {
            curve.points[i].x *= kx;
            curve.points[i].y *= ky;
        }
    }
}

// A unit text with its prefix split off: the unit goes to the family, the factor is returned.
float TakeUnit(DxbInput& in, int (CurveFamily::*set)(const char*)) {
    char unit[17];
    if (!in.LongText(unit, sizeof unit)) return 1.0f;
    const float factor = TakePrefix(unit);
    (gCurves.*set)(unit);
    return factor;
}

void ReadChannelNames(DxbInput& in) {
    unsigned n, kind, ignored;
    char name[129];
    if (!in.Word(n)) return;
    for (unsigned i = 0; i < n && i < kCurrentChannelCount; ++i) {
        if (!in.Word(kind)) return;
        char* comment = CurrentChannels[i].comment;
        comment[0] = '\0';
        if (kind == 0) continue;
        if (!in.Word(ignored) || !in.Text(name, sizeof name) || !in.Word(ignored) || !in.Skip(4))
            return;
        BoundedCopy(comment, name, kChannelCommentSize);
    }
    if (!in.Word(ignored) || !in.Word(n)) return;
    for (unsigned i = 0; i < n && i < kVoltageChannelCount; ++i) {
        if (!in.Word(kind)) return;
        char* comment = VoltageChannels[i].comment;
        comment[0] = '\0';
        if (kind == VOLTAGE_NOT_CONNECTED) continue;
        if (!in.Word(ignored) || !in.Text(name, sizeof name)) return;
        BoundedCopy(comment, name, kChannelCommentSize);
    }
}

void ReadOwnTrailer(DxbInput& in, std::uint32_t first) {
    std::uint32_t stamp;
    if (!in.Skip(4) || !in.Long(stamp)) return;
    gCurves.date = static_cast<std::int32_t>(stamp);
    gCurves.timeSpent = -1.0f;
    const float kx = TakeUnit(in, &CurveFamily::SetXUnits);
    const float ky = TakeUnit(in, &CurveFamily::SetYUnits);
    ScaleAdded(first, kx, ky);
    char text[513];
    int (CurveFamily::*const setters[])(const char*) = {
        &CurveFamily::SetPlotName, &CurveFamily::SetDesigner, &CurveFamily::SetChipName,
        &CurveFamily::SetCircuitName, &CurveFamily::SetComment};
    for (auto set : setters) {
        const size_t size = set == &CurveFamily::SetComment ? 513 : 65;
        if (!in.LongText(text, size)) return;
        (gCurves.*set)(text);
    }
    unsigned ignored, from, to;
    if (!in.Word(ignored) || !in.Word(from) || !in.Word(to)) return;
    IVC_Range.from = (IVC_Range.from & 0xFFFF0000u) | from;
    IVC_Range.to = (IVC_Range.to & 0xFFFF0000u) | to;
    if (!in.Skip(8)) return;
    ReadChannelNames(in);
}

void ReadOldTrailer(DxbInput& in, std::uint32_t first, int addMode) {
    char text[129];
    if (!in.Text(text, sizeof text)) return;
    int month = 0, day = 0, year = 0;
    if (!addMode && std::sscanf(text, "%2d/%2d/%d", &month, &day, &year) == 3) {
        std::tm t{};
        t.tm_year = (year < 100 ? year + (year < 70 ? 2000 : 1900) : year) - 1900;
        t.tm_mon = month - 1;
        t.tm_mday = day;
        t.tm_isdst = -1;
        gCurves.date = static_cast<std::int32_t>(std::mktime(&t));
        gCurves.timeSpent = -1.0f;
    }
    if (!in.Text(text, sizeof text)) return;
    if (!addMode) gCurves.SetChipName(text);
    if (!in.Text(text, sizeof text)) return;
    const float kx = std::strstr(text, "mA") ? 1000.0f : 1.0f;
    if (!in.Text(text, sizeof text)) return;
    const float ky = std::strstr(text, "mV") ? 1000.0f : 1.0f;
    ScaleAdded(first, kx, ky);
    for (std::uint32_t c = first; c < gCurves.count; ++c) {
        if (!in.Text(text, sizeof text)) return;
        if (!addMode) gCurves.GetCurve(c).SetName(text);
    }
}

void ReadTrailer(DxbInput& in, std::uint32_t first, int addMode) {
    char marker[16];
    if (!in.Bytes(marker, sizeof marker)) return;
    if (std::memcmp(marker, kDxbTrailerMarker, sizeof marker) == 0) {
        ReadOwnTrailer(in, first);
    } else if (in.Seek(-16, SEEK_CUR)) {
        ReadOldTrailer(in, first, addMode);
    }
}

} // namespace

int ReadDxbFile(const char* path, int addMode) {
    if (!addMode) gCurves.Clear();
    const std::uint32_t first = gCurves.count;
    std::FILE* f = std::fopen(path, "rb");
    if (!f) {
        MessageBoxBeep(nullptr, "Can't open file", "DxbIn error", MB_OK | MB_ICONSTOP);
        return -3;
    }
    DxbInput in(f);
    char signature[kDxbSignatureSize];
    if (!in.Bytes(signature, sizeof signature) ||
        std::memcmp(signature, kDxbSignature, sizeof signature) != 0) {
        std::fclose(f);
        return 0;
    }
    BoundedCopy(gDxbFileName, path);
    Footer footer;
    const bool footerRead = ReadFooter(in, footer);
    if (footerRead && footer.version > 0x0201) {
        std::fclose(f);
        MessageBoxBeep(nullptr, "Unknown Dxb version!", gProgramName, MB_OK | MB_ICONSTOP);
        return 1;
    }
    if (footerRead && footer.version > 0x0100) {
        unsigned left = 0, bottom = 0;
        if (in.Seek(static_cast<long>(footer.blockOffset) + 0x10, SEEK_SET) && in.Word(left) &&
            in.Word(bottom)) {
            gViewScale.plotLeft = static_cast<int>(left);
            gViewScale.plotBottom = static_cast<int>(bottom);
        }
    }
    const bool read =
        footerRead && in.Seek(kDxbSignatureSize, SEEK_SET) && ReadEntities(in, footer, first);
    if (read) {
        ReadTrailer(in, first, addMode);
    } else {
        MessageBoxBeep(nullptr, "This is not AutoCad DXB file", "DXB error", MB_OK | MB_ICONSTOP);
    }
    std::fclose(f);
    return 0;
}
