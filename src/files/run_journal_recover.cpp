#include "files/run_journal_recover.h"

#include "curve/undo.h"
#include "files/data_file.h"
#include "files/data_file_auto.h"
#include "support/c_locale.h"
#include "support/program_folder.h"

#include <cerrno>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <dirent.h>
#include <sys/stat.h>

namespace {

// "run_<pid>.journal": the pid, or -1 for another name.
long JournalPid(const char* name) {
    long pid = -1;
    int used = 0;
    if (std::sscanf(name, "run_%ld.journal%n", &pid, &used) == 1 && name[used] == '\0') return pid;
    return -1;
}

bool Alive(long pid) {
    return pid > 0 && (kill(static_cast<pid_t>(pid), 0) == 0 || errno == EPERM);
}

struct Parse {
    unsigned points = 0, damaged = 0;
    bool cutShort = false;
    std::string title;
};

// One line of the journal into the family; false when it is not a line of the journal.
bool TakeLine(const char* line, Parse& p) {
    unsigned c = 0, i = 0;
    int used = 0;
    if (std::strncmp(line, "title ", 6) == 0) {
        p.title = line + 6;
        return true;
    }
    if (std::strncmp(line, "xunits ", 7) == 0) return gCurves.SetXUnits(line + 7), true;
    if (std::strncmp(line, "yunits ", 7) == 0) return gCurves.SetYUnits(line + 7), true;
    if (std::sscanf(line, "curve %u %n", &c, &used) == 1 && used > 0 && c < 65536) {
        if (c >= gCurves.count && gCurves.SetCurveCount(c + 1) != c + 1) return false;
        gCurves.GetCurve(c).SetName(line + used);
        return true;
    }
    if (std::sscanf(line, "p %u %u %n", &c, &i, &used) != 2 || used == 0) return false;
    char* end = nullptr;
    const double x = StrToDoubleC(line + used, &end);
    if (end == line + used) return false;
    char* end2 = nullptr;
    const double y = StrToDoubleC(end, &end2);
    if (end2 == end || c >= gCurves.count) return false;
    Curve& curve = gCurves.GetCurve(c);
    // Points come in order; a gap means lines were lost.
    if (i != curve.count) return false;
    if (curve.AddPoint(static_cast<float>(x), static_cast<float>(y)) < 0) return false;
    ++p.points;
    return true;
}

} // namespace

std::vector<std::string> LeftJournals(const char* folder) {
    std::vector<std::string> found;
    DIR* dir = opendir(folder);
    if (!dir) return found;
    while (dirent* e = readdir(dir)) {
        const long pid = JournalPid(e->d_name);
        if (pid >= 0 && !Alive(pid)) found.push_back(std::string(folder) + "/" + e->d_name);
    }
    closedir(dir);
    return found;
}

int RecoverJournal(const char* journal, std::string& pairPath, std::string& report) {
    std::FILE* f = std::fopen(journal, "r");
    if (!f) {
        report = std::string("can not read ") + journal;
        return -1;
    }
    gCurves.Reset();
    Parse p;
    char line[1024];
    bool first = true, known = false;
    while (std::fgets(line, sizeof line, f)) {
        const size_t n = std::strlen(line);
        if (n == 0 || line[n - 1] != '\n') {
            p.cutShort = true; // the last line was being written when the program died
            break;
        }
        line[n - 1] = '\0';
        if (first) {
            known = std::strcmp(line, "VantrelJournal 1") == 0;
            first = false;
            if (known) continue;
        }
        if (!known || !TakeLine(line, p)) ++p.damaged;
    }
    std::fclose(f);
    // Curves must be whole: those left empty by damage go.
    for (std::uint32_t c = gCurves.count; c-- > 0;)
        if (gCurves.GetCurve(c).count == 0) gCurves.DeleteCurves(c, c);
    if (p.points == 0 || gCurves.count == 0) {
        gCurves.Reset();
        report = std::string("nothing to recover in ") + journal;
        return -1;
    }
    struct stat s;
    const std::time_t when = stat(journal, &s) == 0 ? s.st_mtime : std::time(nullptr);
    gCurves.date = static_cast<std::int32_t>(when);
    gCurves.SetPlotName(p.title.c_str());
    gCurves.SetDesigner(gUserName);
    gCurves.SetComment("Recovered from the journal of a run that did not end");

    std::string folder = journal;
    folder.erase(folder.find_last_of('/') + 1);
    char base[160];
    AutoDataBaseName(p.title.c_str(), when, base, sizeof base);
    pairPath = folder + base + "_recovered.dat";
    char text[512];
    SnprintfC(text, sizeof text, "recovered %u point(s) in %u curve(s) from %s", p.points,
              gCurves.count, journal);
    report = text;
    if (p.cutShort) report += "; the journal was cut short";
    if (p.damaged) report += "; " + std::to_string(p.damaged) + " damaged line(s) skipped";
    const int written = WriteDataPairQuiet(pairPath.c_str());
    if (written == DATA_PAIR_DONE) std::remove(journal);
    return written;
}
