#include "curve/undo.h"
#include "files/data_file.h"
#include "files/data_file_options.h"
#include "settings/profile.h"
#include "platform/host.h"
#include "support/c_locale.h"
#include "support/message_box.h"

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <cstdio>
#include <cstring>
#include <ctime>
#include <string>
#include <sys/stat.h>
#include <unistd.h>

namespace {

const char kInfo[] = "Picture Info";
const char kSetup[] = "Setup";
const char kVersion[] = "3.32";

using Clock = std::chrono::steady_clock;

double SecondsSince(Clock::time_point start) {
    return std::chrono::duration<double>(Clock::now() - start).count();
}

void WriteText(const char* section, const char* key, const char* value, const char* ini) {
    WritePrivateProfileString(section, key, value, ini);
}

void WriteUnsigned(const char* section, const char* key, unsigned long value, const char* ini) {
    char text[32];
    SnprintfC(text, sizeof text, "%lu", value);
    WriteText(section, key, text, ini);
}

void WriteInt(const char* section, const char* key, int value, const char* ini) {
    char text[32];
    SnprintfC(text, sizeof text, "%d", value);
    WriteText(section, key, text, ini);
}

void WriteFloat(const char* section, const char* key, const char* format, double value,
                const char* ini) {
    char text[512];
    SnprintfC(text, sizeof text, format, value);
    WriteText(section, key, text, ini);
}

// Deleting first keeps stale keys of a longer family out of the new .ini. A file without write
// permission stands for the read-only mark, which the superuser would otherwise delete freely.
bool RemoveOldIni(const char* ini) {
    struct stat st;
    if (stat(ini, &st) != 0) return true;
    if (S_ISREG(st.st_mode) && (st.st_mode & (S_IWUSR | S_IWGRP | S_IWOTH)) == 0) return false;
    if (unlink(ini) != 0 && (errno == EACCES || errno == EPERM)) return false;
    return true;
}

// One comment key a line: a line ends at CR (an LF right after it is skipped) or at the end.
// A bare LF also ends a line, since it can't stand inside a profile value.
void WriteComment(const char* comment, const char* ini) {
    unsigned lines = 0;
    const char* p = comment;
    while (*p) {
        const char* end = p;
        while (*end && *end != '\r' && *end != '\n')
            ++end;
        std::string line(p, end);
        char key[32];
        std::snprintf(key, sizeof key, "Comment%u", lines++);
        WriteText(kInfo, key, line.c_str(), ini);
        p = end;
        if (*p == '\r') ++p;
        if (*p == '\n') ++p;
    }
    WriteUnsigned(kInfo, "CommentLines", lines, ini);
}

void WriteHumanDate(std::int32_t date, const char* ini) {
    static const char* const kMonths[12] = {"Jan", "Feb", "Mar", "Apr", "May", "Jun",
                                            "Jul", "Aug", "Sep", "Oct", "Nov", "Dec"};
    std::time_t t = static_cast<std::time_t>(static_cast<std::uint32_t>(date));
    std::tm parts{};
    if (!localtime_r(&t, &parts)) return;
    char text[64];
    SnprintfC(text, sizeof text, "%d-%3s-%d", parts.tm_mday, kMonths[parts.tm_mon % 12],
              parts.tm_year + 1900);
    WriteText(kInfo, "Date&Time", text, ini);
}

void WriteSetup(const char* ini) {
    const DataFileLink& l = gDataFileLink;
    if (l.scaleAuto) WriteInt(kSetup, "ScaleAuto", *l.scaleAuto, ini);
    if (l.xMin) WriteFloat(kSetup, "FixedViewScaleMinX", "%f", *l.xMin, ini);
    if (l.xMax) WriteFloat(kSetup, "FixedViewScaleMaxX", "%f", *l.xMax, ini);
    if (l.yMin) WriteFloat(kSetup, "FixedViewScaleMinY", "%f", *l.yMin, ini);
    if (l.yMax) WriteFloat(kSetup, "FixedViewScaleMaxY", "%f", *l.yMax, ini);
    if (l.fSwapXY_Axes) WriteInt(kSetup, "SwapXY_Axes", *l.fSwapXY_Axes, ini);
    if (l.fRescalePlotAfterMeasurement)
        WriteInt(kSetup, "RescalePlotAfterMeasurement", *l.fRescalePlotAfterMeasurement, ini);
}

// Longest first, for good: the plot's order and styles move with the curves. A selection
// sort that takes a later curve only when strictly longer keeps equal lengths in order.
void SortLongestFirst(CurveFamily& family) {
    for (std::uint32_t i = 0; i < family.count; ++i) {
        std::uint32_t best = i;
        for (std::uint32_t j = i + 1; j < family.count; ++j)
            if (family.GetCurve(best).count < family.GetCurve(j).count) best = j;
        if (best != i) family.SwapCurves(i, best);
    }
}

void WriteIni(const CurveFamily& family, const char* ini) {
    WriteText(kInfo, "VTL_Version", kVersion, ini);
    WriteUnsigned(kInfo, "Date&TimeBin", static_cast<std::uint32_t>(family.date), ini);
    WriteFloat(kInfo, "TimeSpent", "%.3f", family.timeSpent, ini);
    WriteHumanDate(family.date, ini);
    WriteText(kInfo, "GraphName", family.name, ini);
    WriteText(kInfo, "Designer", family.designer, ini);
    WriteText(kInfo, "ChipName", family.chipName, ini);
    WriteText(kInfo, "CircuitName", family.circuitName, ini);
    WriteComment(family.comment, ini);
    WriteText(kInfo, "UnitX", family.xUnits, ini);
    WriteText(kInfo, "UnitY", family.yUnits, ini);
    WriteSetup(ini);
}

void WriteCurveKeys(const CurveFamily& family, const char* ini) {
    WriteUnsigned(kInfo, "NumberOfCurves", family.count, ini);
    char key[48];
    for (std::uint32_t i = 0; i < family.count; ++i) {
        const Curve& c = family.GetCurve(i);
        std::snprintf(key, sizeof key, "NumberOfPointsInCurve%u", i);
        WriteUnsigned(kInfo, key, c.count, ini);
        std::snprintf(key, sizeof key, "NameOfCurve%u", i);
        WriteText(kInfo, key, c.name, ini);
    }
}

// Rows side by side, CR LF ended, no header. Returns 0, or the errno of the first write that
// failed.
int WriteTable(const CurveFamily& family, std::FILE* out) {
    const int width = static_cast<int>(DataFileColumnWidth());
    const int digits = width - 4;
    const char delimiter = DataFileDelimiter();
    const bool sorted = fSortCurves != 0;
    std::uint32_t rows = 0;
    for (std::uint32_t i = 0; i < family.count; ++i)
        if (family.GetCurve(i).count > rows) rows = family.GetCurve(i).count;

    CLocaleScope c;
    std::string buffer;
    buffer.reserve(1 << 17);
    auto flush = [&] {
        bool ok = std::fwrite(buffer.data(), 1, buffer.size(), out) == buffer.size();
        buffer.clear();
        return ok ? 0 : (errno ? errno : EIO);
    };
    char cell[160];
    for (std::uint32_t row = 0; row < rows; ++row) {
        for (std::uint32_t i = 0; i < family.count; ++i) {
            const Curve& curve = family.curves[i];
            int n = 0;
            if (row < curve.count) {
                const Point& p = curve.points[row];
                n = std::snprintf(cell, sizeof cell, "%*.*g%c%*.*g", width, digits,
                                  static_cast<double>(p.x), delimiter, width, digits,
                                  static_cast<double>(p.y));
            } else if (!sorted) {
                n = std::snprintf(cell, sizeof cell, "%*s%c%*s", width, "", delimiter, width, "");
            }
            if (n > 0) buffer.append(cell, std::min(static_cast<size_t>(n), sizeof cell - 1));
            if (i + 1 == family.count)
                buffer.append("\r\n", 2);
            else
                buffer.push_back(delimiter);
        }
        if (buffer.size() >= (1 << 16))
            if (int error = flush()) return error;
    }
    return flush();
}

int WritePair(const char* path, bool showOptions) {
    if (showOptions && fShowOptionsOnSave) ShowDataFileOptions();
    char ini[512];
    DataIniName(path, ini, sizeof ini);
    Clock::time_point start = Clock::now();
    if (!RemoveOldIni(ini)) {
        MessageBoxBeep(nullptr, "INI File marked as 'ReadOnly'Operaton will be aborted!",
                       "Can not delete old INI file", MB_OK | MB_ICONSTOP);
        return DATA_PAIR_SHORT;
    }
    // One write of the .ini, when the batch ends; a failed one has shown its box. Its result is
    // -4, the code of a .ini that can't be replaced, and no .dat is written beside a missing
    // .ini.
    ProfileBatch batch(ini);
    WriteIni(gCurves, ini);
    if (fSortCurves) SortLongestFirst(gCurves);
    WriteCurveKeys(gCurves, ini);
    SaveDataFileGroups(ini);
    if (!batch.End()) return DATA_PAIR_SHORT;
    double iniSeconds = SecondsSince(start);
    start = Clock::now();

    std::FILE* out = std::fopen(path, "wb");
    if (!out) {
        MessageBoxBeep(nullptr, "Error of Output to Data FileCan't open file", "Vantrel",
                       MB_OK | MB_ICONSTOP);
        return DATA_PAIR_NO_DAT;
    }
    // A .dat that could not be written whole (a full disk, above all, shows at the close) is
    // -3, the code of a .dat that can't be made.
    errno = 0;
    int error = WriteTable(gCurves, out);
    if (std::fclose(out) != 0 && !error) error = errno ? errno : EIO;
    if (error) {
        ReportWriteFailure(path, error);
        return DATA_PAIR_NO_DAT;
    }
    gCurves.saved = 1;

    char status[128];
    SnprintfC(status, sizeof status, "Time spent: %.1f sec (INI) + %.1f sec (DAT)", iniSeconds,
              SecondsSince(start));
    Host().SetStatusText(0, status);
    return DATA_PAIR_DONE;
}

} // namespace

int WriteDataPair(const char* path) {
    return WritePair(path, true);
}

int WriteDataPairQuiet(const char* path) {
    return WritePair(path, false);
}
