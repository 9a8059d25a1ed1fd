// The texts of the About box, in the program's formats, filled from this system: uname for the
// operating system, the kernel's processor list, the steady clock as the high precision
// counter, and the kernel's memory figures.
#pragma once
#include <cstddef>
#include <cstdint>

void AboutVersionText(char* text, size_t size);
// "%s %d.%d, %s": system name, release major and minor, version; "Can't get OS version".
void AboutOsText(char* text, size_t size);
// "%d CPU%s %s%s": count, plural "s", model name; "Undetectable CPU(s) type".
void AboutCpuText(char* text, size_t size);
// "High precision counter frequency: %lu kHz".
void AboutCounterText(char* text, size_t size);
// "Free Memory: %lu kB of %lu kB" and "Memory Load: %d%%".
void AboutMemoryText(char* free, size_t freeSize, char* load, size_t loadSize);

// Statistics of the 10 ms timer: intervals in microseconds, reported every 50.
constexpr unsigned kAboutTimerMs = 10;
constexpr unsigned kAboutTimerSamples = 50;
struct TimerStatistics {
    uint64_t sum = 0;
    uint64_t minimum = UINT64_MAX;
    uint64_t maximum = 0;
    unsigned count = 0;
};
// Adds an interval; true when the 50th came in (the caller reports, then resets).
bool AddTimerInterval(TimerStatistics& s, uint64_t microseconds);
// "%u ms timer statistics for %u samples".
void AboutTimerHeading(char* text, size_t size);
// "Average: %lu us, min: %lu us, max: %lu us".
void AboutTimerText(const TimerStatistics& s, char* text, size_t size);
