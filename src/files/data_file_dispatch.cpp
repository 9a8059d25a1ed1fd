#include "files/data_file.h"
#include "platform/host.h"
#include "support/bounded_text.h"
#include "support/c_locale.h"
#include "support/message_box.h"

#include <cstring>
#include <strings.h>

namespace {

bool IsExtension(const char* ext, const char* const* names) {
    for (; *names; ++names)
        if (strcasecmp(ext, *names) == 0) return true;
    return false;
}

void ReportUnknown(const char* pattern, const char* ext) {
    char cut[200];
    BoundedCopy(cut, ext);
    char text[300];
    SnprintfC(text, sizeof text, pattern, cut);
    MessageBoxBeep(nullptr, text, "Error", MB_OK | MB_ICONSTOP);
}

// The window shows "Vantrel -- path" for the file it holds.
void TakeFileName(const char* path) {
    BoundedCopy(gCurrentFileName, path);
}

void TakeFolder(const char* path) {
    const char* slash = std::strrchr(path, '/');
    size_t n = slash ? static_cast<size_t>(slash - path) : 0;
    if (n >= sizeof gLastDataFolder) n = sizeof gLastDataFolder - 1;
    std::memcpy(gLastDataFolder, path, n);
    gLastDataFolder[n] = '\0';
}

void Show(void* window, bool titled) {
    if (!gDataFileLink.Shown) return;
    char title[360];
    BoundedCopy(title, "Vantrel -- ");
    BoundedAppend(title, gCurrentFileName);
    gDataFileLink.Shown(window, titled ? title : nullptr);
}

class WaitCursor {
  public:
    WaitCursor() { Host().WaitCursor(1); }
    ~WaitCursor() { Host().WaitCursor(0); }
};

} // namespace

int OpenDataFile(void* window, const char* path, int addMode) {
    static const char* const kPairs[] = {"dat", "VantrelData", "ge", "GED", "prn", nullptr};
    static const char* const kDxb[] = {"dxb", nullptr};
    WaitCursor wait;
    const char* ext = DataFileExtension(path);
    int result;
    if (IsExtension(ext, kPairs)) {
        result = ReadDataPair(path, addMode);
    } else if (IsExtension(ext, kDxb) && gDataFileLink.ReadDxb) {
        result = gDataFileLink.ReadDxb(path, addMode);
    } else {
        ReportUnknown("Can not open file\nThe extention .%s is unknown.", ext);
        return -1;
    }
    if (result < 0) return result;
    if (!addMode) TakeFileName(path);
    TakeFolder(path);
    Show(window, !addMode);
    return result;
}

int SaveDataFile(void* window, const char* path) {
    const char* ext = DataFileExtension(path);
    if (strcasecmp(ext, "dat") != 0) {
        ReportUnknown("Can not save file.\nThe extention .%s is unknown.", ext);
        return -1;
    }
    int result = WriteDataPair(path);
    if (result < 0) return result;
    TakeFileName(path);
    Show(window, true);
    return result;
}
