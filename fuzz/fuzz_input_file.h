// The input of a fuzz run as a file: the readers take paths.
#pragma once
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <unistd.h>

inline std::string FuzzInputFile(const char* name, const uint8_t* data, size_t size) {
    static const std::string folder = [] {
        std::string f = "/tmp/vantrel_fuzz_" + std::to_string(getpid());
        std::system(("mkdir -p " + f).c_str());
        return f;
    }();
    const std::string path = folder + "/" + name;
    std::FILE* f = std::fopen(path.c_str(), "wb");
    if (!f) std::abort();
    if (size) std::fwrite(data, 1, size, f);
    std::fclose(f);
    return path;
}
