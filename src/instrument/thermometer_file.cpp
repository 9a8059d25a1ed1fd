#include "instrument/thermometer.h"

#include "settings/settings_file.h"
#include "support/bounded_text.h"
#include "support/c_locale.h"
#include "support/message_box.h"

#include <cstdio>
#include <cstring>
#include <strings.h>

namespace {

// Windows has no file of that name: "nul" is the null device there, and users keep it as
// the way to say "no calibration".
bool IsNullDevice(const char* name) {
    return strcasecmp(name, "nul") == 0;
}

bool IsSkippedLine(const char* line) {
    if (line[0] == ';' || line[0] == '#' || line[0] == '\n') return true;
    const char* p = line;
    while (*p == ' ' || *p == '\t')
        ++p;
    return *p == '\0' || *p == '\n';
}

} // namespace

int LoadTemperatureCurve(const char* fileName) {
    std::FILE* f = std::fopen(IsNullDevice(fileName) ? "/dev/null" : fileName, "r");
    if (!f) {
        gTermoCount = 0;
        MessageBoxBeep(nullptr, "Can not open temperature curve file", "TermoInit Error",
                       MB_OK | MB_ICONERROR);
        return 0;
    }
    CLocaleScope cLocale;
    char line[512];
    // Every line takes an index, comments too, so entries keep the line numbers of the file
    // and a line that does not scan leaves its entry as the last load had it.
    int index = 0;
    while (index < kTermoTableSize && std::fgets(line, sizeof line, f)) {
        if (!IsSkippedLine(line))
            std::sscanf(line, "%f %f", &gTermoTemperature[index], &gTermoValue[index]);
        ++index;
    }
    std::fclose(f);
    gTermoCount = index;
    if (index == kTermoTableSize)
        MessageBoxBeep(nullptr,
                       "The number of entries in temperature curve file\nis larger than 1024. "
                       "Extra entries are ignored.",
                       "Loading calibration curve", MB_OK | MB_ICONEXCLAMATION);
    return gTermoCount;
}

void TermoCalibrationPath(char* path, size_t size) {
    if (IsNullDevice(TermoFileName) || TermoFileName[0] == '/' || TermoFileName[0] == '\0') {
        BoundedCopy(path, TermoFileName, size);
        return;
    }
    const char* slash = std::strrchr(gIniFileName, '/');
    size_t folder = slash ? static_cast<size_t>(slash - gIniFileName + 1) : 0;
    if (folder >= size) folder = size - 1;
    std::memcpy(path, gIniFileName, folder);
    path[folder] = '\0';
    BoundedAppend(path, TermoFileName, size);
}
