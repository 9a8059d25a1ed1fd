#include "ui/about_info.h"

#include "support/bounded_text.h"
#include "support/c_locale.h"

#include <chrono>
#include <cstdio>
#include <cstring>
#include <sys/sysinfo.h>
#include <sys/utsname.h>
#include <unistd.h>

void AboutVersionText(char* text, size_t size) {
    SnprintfC(text, size, "Vantrel v%2d.%02d %s (build %u)", 3, 32, "beta", 121u);
}

void AboutOsText(char* text, size_t size) {
    utsname u;
    int major = 0, minor = 0;
    if (uname(&u) != 0 || std::sscanf(u.release, "%d.%d", &major, &minor) < 1) {
        BoundedCopy(text, "Can't get OS version", size);
        return;
    }
    SnprintfC(text, size, "%s %d.%d, %s", u.sysname, major, minor, u.version);
}

void AboutCpuText(char* text, size_t size) {
    long count = sysconf(_SC_NPROCESSORS_ONLN);
    char model[128] = "unknown CPU";
    if (FILE* f = std::fopen("/proc/cpuinfo", "r")) {
        char line[512];
        while (std::fgets(line, sizeof line, f)) {
            if (std::strncmp(line, "model name", 10) != 0) continue;
            const char* colon = std::strchr(line, ':');
            if (!colon) break;
            BoundedCopy(model, colon + 2);
            model[std::strcspn(model, "\n")] = '\0';
            break;
        }
        std::fclose(f);
    }
    if (count < 1) {
        BoundedCopy(text, "Undetectable CPU(s) type", size);
        return;
    }
    SnprintfC(text, size, "%d CPU%s %s%s", int(count), count > 1 ? "s" : "", model, "");
}

void AboutCounterText(char* text, size_t size) {
    using Clock = std::chrono::steady_clock;
    unsigned long kHz = static_cast<unsigned long>(Clock::period::den / Clock::period::num / 1000);
    SnprintfC(text, size, "High precision counter frequency: %lu kHz", kHz);
}

void AboutMemoryText(char* free, size_t freeSize, char* load, size_t loadSize) {
    struct sysinfo info {};
    sysinfo(&info);
    unsigned long unit = info.mem_unit ? info.mem_unit : 1;
    unsigned long total = static_cast<unsigned long>(info.totalram * unit / 1024);
    unsigned long avail = static_cast<unsigned long>((info.freeram + info.bufferram) * unit / 1024);
    SnprintfC(free, freeSize, "Free Memory: %lu kB of %lu kB", avail, total);
    int percent = total ? int(100 - avail * 100 / total) : 0;
    SnprintfC(load, loadSize, "Memory Load: %d%%", percent);
}

bool AddTimerInterval(TimerStatistics& s, uint64_t microseconds) {
    s.sum += microseconds;
    if (microseconds < s.minimum) s.minimum = microseconds;
    if (microseconds > s.maximum) s.maximum = microseconds;
    return ++s.count >= kAboutTimerSamples;
}

void AboutTimerHeading(char* text, size_t size) {
    SnprintfC(text, size, "%u ms timer statistics for %u samples", kAboutTimerMs,
              kAboutTimerSamples);
}

void AboutTimerText(const TimerStatistics& s, char* text, size_t size) {
    unsigned long average = s.count ? static_cast<unsigned long>(s.sum / s.count) : 0;
    SnprintfC(text, size, "Average: %lu us, min: %lu us, max: %lu us", average,
              static_cast<unsigned long>(s.count ? s.minimum : 0),
              static_cast<unsigned long>(s.maximum));
}
