// Feeds ReadDxbFile one file per input; the first byte chooses adding over replacing.
#include "curve/undo.h"
#include "platform/headless_host.h"
#include "ui/dxb_read.h"

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <unistd.h>

namespace {
std::string gPath;
} // namespace

extern "C" int LLVMFuzzerInitialize(int*, char***) {
    gPath = "/tmp/vantrel_fuzz_" + std::to_string(getpid()) + ".dxb";
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    std::FILE* f = std::fopen(gPath.c_str(), "wb");
    if (!f) std::abort();
    if (size) std::fwrite(data, 1, size, f);
    std::fclose(f);
    HeadlessReset();
    gCurves.Reset();
    const int addMode = size > 20 && (data[size - 1] & 1);
    if (addMode) gCurves.SetCurveCount(1);
    ReadDxbFile(gPath.c_str(), addMode);
    for (uint32_t i = 0; i < gCurves.count; ++i) {
        const Curve& c = gCurves.GetCurve(i);
        if (c.count > c.capacity || (c.count && !c.points)) std::abort();
    }
    return 0;
}
