#include "support/program_folder.h"
#include "support/bounded_text.h"

#include <climits>
#include <mutex>
#include <string>
#include <unistd.h>

char gUserName[64] = "anonymous";

namespace {
std::string gFolder;
std::once_flag gFound;

void FindFolder() {
    char path[PATH_MAX];
    ssize_t n = readlink("/proc/self/exe", path, sizeof path - 1);
    if (gFolder.empty()) {
        if (n > 0) {
            path[n] = '\0';
            std::string exe(path);
            gFolder = exe.substr(0, exe.rfind('/') + 1);
        } else {
            gFolder = "./";
        }
    }
}
} // namespace

const char* ProgramDirectory() {
    std::call_once(gFound, FindFolder);
    return gFolder.c_str();
}

void SetProgramDirectory(const char* folder) {
    std::call_once(gFound, [] {});
    gFolder = folder ? folder : "";
    if (!gFolder.empty() && gFolder.back() != '/') gFolder += '/';
}

void ProgramFilePath(const char* name, char* out, unsigned size) {
    BoundedCopy(out, ProgramDirectory(), size);
    BoundedAppend(out, name, size);
}
