#include "files/data_file.h"

#include "measure/measure_options.h"
#include "support/bounded_text.h"

#include <cstring>

char gLastDataFolder[260] = "";
char gCurrentFileName[260] = "";
// The view is not linked until the window joins; the two flags are the measurement options.
DataFileLink gDataFileLink = {
    nullptr, nullptr, nullptr, nullptr, nullptr, &SwapXY_Axes, &RescalePlotAfterMeasurement,
    nullptr, nullptr};

int DataIniName(const char* path, char* ini, size_t size) {
    if (!ini || size == 0) return 0;
    const char* slash = std::strrchr(path, '/');
    const char* dot = std::strrchr(path, '.');
    size_t keep = std::strlen(path);
    if (dot && (!slash || dot > slash)) keep = static_cast<size_t>(dot - path);
    int fit = keep < size;
    if (!fit) keep = size - 1;
    std::memcpy(ini, path, keep);
    ini[keep] = '\0';
    return BoundedAppend(ini, ".ini", size) & fit;
}

const char* DataFileExtension(const char* path) {
    const char* dot = std::strrchr(path, '.');
    return dot ? dot + 1 : path + std::strlen(path);
}
