#include "files/data_file_auto.h"

#include "curve/undo.h"
#include "files/data_file.h"
#include "files/data_file_options.h"
#include "support/bounded_text.h"
#include "support/c_locale.h"
#include "support/message_box.h"
#include "support/user_folders.h"

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <string>
#include <sys/stat.h>

namespace {

bool Exists(const std::string& path) {
    struct stat st;
    return stat(path.c_str(), &st) == 0;
}

// Makes the folder and its parents.
bool MakeFolder(const std::string& folder) {
    if (folder.empty() || Exists(folder)) return true;
    size_t slash = folder.find_last_of('/');
    if (slash != std::string::npos && slash > 0 && !MakeFolder(folder.substr(0, slash)))
        return false;
    return mkdir(folder.c_str(), 0777) == 0 || errno == EEXIST;
}

} // namespace

void AutoDataFolder(const char* settingsFile, char* folder, size_t size) {
    if (gAutoDataFolder[0]) {
        BoundedCopy(folder, gAutoDataFolder, size);
        return;
    }
    const std::string user = UserDataFolder();
    if (!user.empty()) {
        BoundedCopy(folder, user.c_str(), size);
        return;
    }
    const char* slash = settingsFile ? std::strrchr(settingsFile, '/') : nullptr;
    std::string base = slash ? std::string(settingsFile, slash + 1) : std::string();
    BoundedCopy(folder, (base + "data").c_str(), size);
}

void AutoDataBaseName(const char* title, std::time_t when, char* name, size_t size) {
    std::string clean;
    for (const char* p = title && *title ? title : "data"; *p && clean.size() < 64; ++p) {
        unsigned char c = static_cast<unsigned char>(*p);
        bool bad = c < 32 || c == 127 || std::strchr("/\\:*?\"<>|", c);
        clean.push_back(bad ? '_' : static_cast<char>(c));
    }
    std::tm t{};
    localtime_r(&when, &t);
    SnprintfC(name, size, "%s_%04d-%02d-%02d_%02d-%02d-%02d", clean.c_str(), t.tm_year + 1900,
              t.tm_mon + 1, t.tm_mday, t.tm_hour, t.tm_min, t.tm_sec);
}

int WriteAutomaticDataPair(const char* title, const char* settingsFile, char* path, size_t size) {
    char folder[260];
    AutoDataFolder(settingsFile, folder, sizeof folder);
    char base[160];
    std::time_t when = gCurves.date ? static_cast<std::time_t>(gCurves.date) : std::time(nullptr);
    AutoDataBaseName(title, when, base, sizeof base);

    const std::string stem = std::string(folder) + "/" + base;
    std::string name = stem;
    for (unsigned n = 2; Exists(name + ".dat") || Exists(name + ".ini"); ++n)
        name = stem + "_" + std::to_string(n);
    const std::string dat = name + ".dat";
    if (path && size) BoundedCopy(path, dat.c_str(), size);
    if (!MakeFolder(folder)) {
        char text[700];
        std::snprintf(text, sizeof text, "Can not create folder\n%s\n%s", folder,
                      std::strerror(errno));
        MessageBoxBeep(nullptr, text, "Error", MB_OK | MB_ICONSTOP);
        return DATA_PAIR_NO_DAT;
    }
    return WriteDataPairQuiet(dat.c_str());
}
