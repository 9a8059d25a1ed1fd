#include "measure/run_journal.h"

#include "curve/undo.h"
#include "measure/measure_options.h"
#include "support/bounded_text.h"
#include "support/c_locale.h"

#include <chrono>
#include <cstdarg>
#include <cstdio>
#include <sys/stat.h>
#include <unistd.h>
#include <vector>

char gJournalFolder[4096] = "";
std::int32_t fRunJournal = 1;

namespace {

// Written and read by the measurement thread only, between JournalBegin and JournalEnd; the
// path stays for JournalDiscard, which runs after the thread has ended.
std::FILE* gFile = nullptr;
char gPath[4200] = "";
std::uint32_t gWritten = 0;
std::uint32_t gNamed = 0;
std::chrono::steady_clock::time_point gLast;

void Line(const char* format, ...) __attribute__((format(printf, 1, 2)));
void Line(const char* format, ...) {
    char text[512];
    va_list args;
    va_start(args, format);
    VsnprintfC(text, sizeof text, format, args);
    va_end(args);
    std::fputs(text, gFile);
}

} // namespace

void JournalFileName(const char* folder, long pid, char* path, unsigned size) {
    SnprintfC(path, size, "%s/run_%ld.journal", folder, pid);
}

void JournalBegin(const char* title, const char* xUnits, const char* yUnits) {
    gPath[0] = '\0';
    gWritten = gNamed = 0;
    if (!fRunJournal || !gJournalFolder[0]) return;
    JournalFileName(gJournalFolder, static_cast<long>(getpid()), gPath, sizeof gPath);
    mkdir(gJournalFolder, 0777); // the automatic data folder may not be there before its first pair
    gFile = std::fopen(gPath, "w");
    if (!gFile) {
        gPath[0] = '\0';
        return;
    }
    Line("VantrelJournal 1\ntitle %s\nxunits %s\nyunits %s\n", title ? title : "",
         xUnits ? xUnits : "", yUnits ? yUnits : "");
    std::fflush(gFile);
    gLast = std::chrono::steady_clock::now();
}

void JournalPoints(std::uint32_t measured, bool force) {
    if (!gFile) return;
    const auto now = std::chrono::steady_clock::now();
    if (!force && now - gLast < std::chrono::milliseconds(InteractionTime)) return;
    gLast = now;
    for (; gNamed < gCurves.count; ++gNamed)
        Line("curve %u %s\n", gNamed, gCurves.GetCurve(gNamed).GetName());
    for (std::uint32_t c = 0; c < gCurves.count; ++c) {
        const Curve& curve = gCurves.GetCurve(c);
        for (std::uint32_t i = gWritten; i < measured && i < curve.count; ++i)
            Line("p %u %u %.9g %.9g\n", c, i, static_cast<double>(curve.points[i].x),
                 static_cast<double>(curve.points[i].y));
    }
    if (measured > gWritten) gWritten = measured;
    std::fflush(gFile);
}

void JournalEnd() {
    if (!gFile) return;
    std::fclose(gFile);
    gFile = nullptr;
}

void JournalDiscard() {
    if (gPath[0]) std::remove(gPath);
    gPath[0] = '\0';
}
