// Feeds ReadDataPair a .dat and an .ini taken from one input: the bytes before the first
// "\n[ini]\n" are the .dat, the rest the .ini. The first byte chooses adding over replacing.
#include "curve/undo.h"
#include "files/data_file.h"
#include "files/data_file_options.h"
#include "platform/headless_host.h"

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>
#include <unistd.h>

namespace {

std::string gDat, gIni;

void WriteFile(const std::string& path, const uint8_t* data, size_t size) {
    std::FILE* f = std::fopen(path.c_str(), "wb");
    if (!f) std::abort();
    if (size) std::fwrite(data, 1, size, f);
    std::fclose(f);
}

} // namespace

extern "C" int LLVMFuzzerInitialize(int*, char***) {
    std::string base = "/tmp/vantrel_fuzz_" + std::to_string(getpid());
    gDat = base + ".dat";
    gIni = base + ".ini";
    fShowOptionsOnLoad = 0;
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    static const char kMarker[] = "\n[ini]\n";
    const size_t markerSize = sizeof kMarker - 1;
    int addMode = size > 0 && (data[0] & 1);
    const uint8_t* end = data + size;
    const uint8_t* split = end;
    for (const uint8_t* p = data; p + markerSize <= end; ++p)
        if (std::memcmp(p, kMarker, markerSize) == 0) {
            split = p;
            break;
        }
    WriteFile(gDat, data, static_cast<size_t>(split - data));
    if (split < end)
        WriteFile(gIni, split + markerSize, static_cast<size_t>(end - split - markerSize));
    else
        unlink(gIni.c_str());

    HeadlessReset();
    gCurves.Reset();
    if (addMode) {
        gCurves.SetCurveCount(1);
        gCurves.GetCurve(0).Resize(2);
    }
    ReadDataPair(gDat.c_str(), addMode);
    // Every curve must hold what it says it holds.
    for (uint32_t i = 0; i < gCurves.count; ++i) {
        const Curve& c = gCurves.GetCurve(i);
        if (c.count > c.capacity || (c.count && !c.points)) std::abort();
        volatile float sum = 0;
        for (uint32_t k = 0; k < c.count; ++k)
            sum = sum + c.points[k].x;
    }
    return 0;
}
