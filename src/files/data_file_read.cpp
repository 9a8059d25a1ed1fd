#include "curve/undo.h"
#include "files/data_file.h"
#include "files/data_file_options.h"
#include "settings/profile.h"
#include "platform/host.h"
#include "support/bounded_text.h"
#include "support/c_locale.h"
#include "support/error_report.h"
#include "support/message_box.h"
#include "support/physical_units.h"

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>
#include <sys/stat.h>
#include <vector>

namespace {

const char kInfo[] = "Picture Info";
const char kSetup[] = "Setup";

using Clock = std::chrono::steady_clock;

double SecondsSince(Clock::time_point start) {
    return std::chrono::duration<double>(Clock::now() - start).count();
}

std::uint64_t FileSize(const char* path) {
    struct stat st;
    return stat(path, &st) == 0 && st.st_size > 0 ? static_cast<std::uint64_t>(st.st_size) : 0;
}

bool ReadWhole(const char* path, std::string& bytes) {
    std::FILE* in = std::fopen(path, "rb");
    if (!in) return false;
    char chunk[1 << 16];
    size_t n;
    while ((n = std::fread(chunk, 1, sizeof chunk, in)) > 0)
        bytes.append(chunk, n);
    std::fclose(in);
    return true;
}

// Integers of the .ini are 32-bit unsigned; "-1" wraps as it did for the original reader.
std::uint32_t ReadUnsigned(const char* section, const char* key, const char* ini) {
    char text[64];
    GetPrivateProfileString(section, key, "", text, sizeof text, ini);
    char* end = nullptr;
    long long v = std::strtoll(text, &end, 10);
    return end == text ? 0 : static_cast<std::uint32_t>(v);
}

// Without CommentLines the old single key "Comment" holds all of it.
void ReadComment(CurveFamily& family, const char* ini, std::uint64_t iniSize) {
    std::uint32_t lines = ReadUnsigned(kInfo, "CommentLines", ini);
    if (lines == 0) {
        GetPrivateProfileString(kInfo, "Comment", "", family.comment, sizeof family.comment, ini);
        return;
    }
    // No file holds more comment keys than it has lines of at least "CommentN=".
    if (lines > iniSize / 9 + 1) lines = static_cast<std::uint32_t>(iniSize / 9 + 1);
    family.comment[0] = '\0';
    size_t used = 0;
    char line[sizeof family.comment];
    char key[32];
    for (std::uint32_t i = 0; i < lines; ++i) {
        std::snprintf(key, sizeof key, "Comment%u", i);
        GetPrivateProfileString(kInfo, key, "", line, sizeof line, ini);
        size_t n = std::strlen(line);
        if (used + n + 2 >= sizeof family.comment) {
            INTERNAL_ERROR(INTERNAL_ERROR_STRING);
            continue;
        }
        std::memcpy(family.comment + used, line, n);
        std::memcpy(family.comment + used + n, "\r\n", 3);
        used += n + 2;
    }
}

float ReadUnit(const char* key, char* unit, size_t size, const char* ini) {
    GetPrivateProfileString(kInfo, key, "", unit, size, ini);
    return TakePrefix(unit);
}

void ReadHeader(CurveFamily& family, const char* ini, std::uint64_t iniSize, float& fx, float& fy) {
    family.date = static_cast<std::int32_t>(ReadUnsigned(kInfo, "Date&TimeBin", ini));
    family.timeSpent = static_cast<float>(ReadProfileDouble(kInfo, "TimeSpent", -1.0, ini));
    GetPrivateProfileString(kInfo, "GraphName", "", family.name, sizeof family.name, ini);
    GetPrivateProfileString(kInfo, "Designer", "", family.designer, sizeof family.designer, ini);
    GetPrivateProfileString(kInfo, "ChipName", "", family.chipName, sizeof family.chipName, ini);
    GetPrivateProfileString(kInfo, "CircuitName", "", family.circuitName, sizeof family.circuitName,
                            ini);
    ReadComment(family, ini, iniSize);
    fx = ReadUnit("UnitX", family.xUnits, sizeof family.xUnits, ini);
    fy = ReadUnit("UnitY", family.yUnits, sizeof family.yUnits, ini);
}

void ReadSetup(const char* ini) {
    DataFileLink& l = gDataFileLink;
    if (l.scaleAuto) *l.scaleAuto = 1;
    if (l.fSwapXY_Axes)
        *l.fSwapXY_Axes = GetPrivateProfileInt(kSetup, "SwapXY_Axes", *l.fSwapXY_Axes, ini);
    if (l.fRescalePlotAfterMeasurement)
        *l.fRescalePlotAfterMeasurement = GetPrivateProfileInt(
            kSetup, "RescalePlotAfterMeasurement", *l.fRescalePlotAfterMeasurement, ini);
}

// The table with the shape given by the .ini: separators may run, curves of unequal length
// simply stop. false when the text ended early or a cell held no number.
class TableReader {
  public:
    explicit TableReader(const std::string& bytes)
        : text_(bytes.c_str()), end_(text_ + bytes.size()) {}

    bool Number(const char* separators, float& value) {
        while (at_ < end_ && std::strchr(separators, *at_) && *at_)
            ++at_;
        if (at_ >= end_) return false;
        char* stop = nullptr;
        value = std::strtof(at_, &stop);
        if (stop == at_) return false;
        at_ = stop;
        return true;
    }

  private:
    const char* text_;
    const char* end_;
    const char* at_ = text_;
};

bool ReadShapedTable(CurveFamily& family, std::uint32_t first, const std::string& bytes, float fx,
                     float fy) {
    std::uint32_t rows = 0;
    for (std::uint32_t i = first; i < family.count; ++i)
        if (family.curves[i].count > rows) rows = family.curves[i].count;
    TableReader table(bytes);
    for (std::uint32_t row = 0; row < rows; ++row)
        for (std::uint32_t i = first; i < family.count; ++i) {
            Curve& c = family.curves[i];
            if (row >= c.count) continue;
            float x, y;
            if (!table.Number("\n\r \t,;", x) || !table.Number(" \t,;", y)) return false;
            c.points[row] = Point(x * fx, y * fy);
        }
    return true;
}

// Without the .ini the first line tells how many curves: half the numbers it holds. Only
// white space separates numbers here, so a comma-delimited table gives no curve.
void ReadBareTable(CurveFamily& family, std::uint32_t first, const std::string& bytes) {
    char line[513];
    size_t n = 0;
    while (n < bytes.size() && n < 512 && bytes[n] != '\n') {
        line[n] = bytes[n];
        ++n;
    }
    if (n < 512 && n < bytes.size()) line[n++] = '\n';
    line[n] = '\0';
    unsigned numbers = 0;
    for (char* p = line;; ++numbers) {
        char* stop = nullptr;
        std::strtof(p, &stop);
        if (stop == p) break;
        p = stop;
    }
    std::uint32_t curves = numbers / 2;
    if (curves == 0) return;
    family.SetCurveCount(first + curves);
    if (family.count < first + curves) return;

    // A curve grows row by row as long as both of its numbers scan; the first failure ends the
    // table after its row. The points are gathered first so that each curve is sized once.
    std::vector<std::vector<Point>> points(curves);
    const char* at = bytes.c_str();
    bool going = true;
    while (going) {
        for (std::uint32_t i = 0; i < curves && going; ++i) {
            char* stop = nullptr;
            float x = std::strtof(at, &stop);
            if (stop == at) {
                going = false;
                break;
            }
            const char* afterX = stop;
            float y = std::strtof(afterX, &stop);
            if (stop == afterX) {
                going = false;
                break;
            }
            at = stop;
            points[i].push_back(Point(x, y));
        }
    }
    for (std::uint32_t i = 0; i < curves; ++i) {
        Curve& c = family.GetCurve(first + i);
        if (points[i].empty() || c.Resize(static_cast<std::uint32_t>(points[i].size())) < 0)
            continue;
        std::memcpy(c.points, points[i].data(), points[i].size() * sizeof(Point));
    }
}

// Sizes the new curves from the .ini, never beyond what the files can hold: a .dat of n bytes
// holds at most (n + 1) / 4 points (every number but the first needs two bytes; the budget
// keeps a margin), and every curve costs the .ini far more than 16 bytes. Returns false when a
// count had to be cut, which only a damaged pair asks for.
bool SizeCurves(CurveFamily& family, std::uint32_t first, const char* ini, std::uint64_t iniSize,
                std::uint64_t datSize) {
    bool whole = true;
    std::uint64_t curves = ReadUnsigned(kInfo, "NumberOfCurves", ini);
    if (curves > iniSize / 16 + 1) {
        curves = iniSize / 16 + 1;
        whole = false;
    }
    if (family.SetCurveCount(first + static_cast<std::uint32_t>(curves)) < first + curves)
        whole = false;
    std::uint64_t budget = (datSize + 1) / 3 + 1;
    char key[48];
    for (std::uint32_t i = first; i < family.count; ++i) {
        std::uint32_t k = i - first;
        Curve& c = family.curves[i];
        std::snprintf(key, sizeof key, "NumberOfPointsInCurve%u", k);
        std::uint64_t points = ReadUnsigned(kInfo, key, ini);
        if (points > budget) {
            points = budget;
            whole = false;
        }
        budget -= points;
        if (points && c.Resize(static_cast<std::uint32_t>(points)) < 0) whole = false;
        std::snprintf(key, sizeof key, "NameOfCurve%u", k);
        GetPrivateProfileString(kInfo, key, "", c.name, sizeof c.name, ini);
    }
    return whole;
}

} // namespace

int ReadDataPair(const char* path, int addMode) {
    if (fShowOptionsOnLoad) ShowDataFileOptions();
    char ini[512];
    DataIniName(path, ini, sizeof ini);
    Clock::time_point start = Clock::now();
    CLocaleScope locale;

    // The version is only tested for 0: every version is read by the same path.
    bool withIni = ReadProfileDouble(kInfo, "VTL_Version", 0.0, ini) != 0.0;
    if (!withIni) {
        char text[700];
        SnprintfC(text, sizeof text,
                  "The file\n%s\nis missing or bad\nWould U like to continue without\nreading "
                  "info from this file?",
                  ini);
        if (MessageBoxBeep(nullptr, text, "Wrong or Missing INI file",
                           MB_YESNO | MB_ICONQUESTION) != IDYES)
            return DATA_PAIR_REFUSED;
    }

    std::string bytes;
    if (!ReadWhole(path, bytes)) {
        MessageBoxBeep(nullptr, "Can't open DAT file", "Input error", MB_OK | MB_ICONSTOP);
        return DATA_PAIR_NO_DAT;
    }

    ProfileBatch batch(ini);
    const std::uint64_t iniSize = withIni ? FileSize(ini) : 0;
    std::uint32_t first = addMode ? gCurves.count : 0;
    float fx = 1.0f, fy = 1.0f;
    if (!addMode) {
        gCurves.Clear();
        if (withIni) {
            ReadHeader(gCurves, ini, iniSize, fx, fy);
            ReadSetup(ini);
            LoadDataFileGroups(ini);
        }
    } else if (withIni) {
        // Added points come in the family's units; its own unit names stay.
        char scratch[16];
        fx = ReadUnit("UnitX", scratch, sizeof scratch, ini);
        fy = ReadUnit("UnitY", scratch, sizeof scratch, ini);
    }
    double iniSeconds = SecondsSince(start);
    start = Clock::now();

    if (withIni) {
        bool whole = SizeCurves(gCurves, first, ini, iniSize, bytes.size());
        if (!ReadShapedTable(gCurves, first, bytes, fx, fy) || !whole) {
            MessageBoxBeep(nullptr, "Error reading file", nullptr, MB_OK | MB_ICONSTOP);
            return DATA_PAIR_SHORT;
        }
    } else {
        ReadBareTable(gCurves, first, bytes);
    }
    gCurves.saved = 1;

    char status[128];
    SnprintfC(status, sizeof status, "Time spent: %.1f sec (INI) + %.1f sec (DAT)", iniSeconds,
              SecondsSince(start));
    Host().SetStatusText(0, status);
    return DATA_PAIR_DONE;
}
