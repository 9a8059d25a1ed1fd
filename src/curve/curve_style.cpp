#include "curve/curve_style.h"

#include "settings/profile.h"
#include "support/c_locale.h"
#include "support/debug_check.h"

#include <cstdio>

namespace {

// The seven edges of the colour cube; 0x700 / 256 zones, v the place along the edge.
constexpr bool SpectrumZone(unsigned z, uint32_t* color) {
    unsigned v = z % 256;
    switch (z / 256) {
    case 0:
        *color = MakeRGB(v, 0, 0);
        return true;
    case 1:
        *color = MakeRGB(255, v, 0);
        return true;
    case 2:
        *color = MakeRGB(255 - v, 255, 0);
        return true;
    case 3:
        *color = MakeRGB(0, 255, v);
        return true;
    case 4:
        *color = MakeRGB(0, 255 - v, 255);
        return true;
    case 5:
        *color = MakeRGB(v, 0, 255);
        return true;
    case 6:
        *color = MakeRGB(255 - v, 0, 255 - v);
        return true;
    default:
        *color = 0;
        return false;
    }
}

constexpr CurveStyle StartingStyle(unsigned i) {
    uint32_t color = 0;
    SpectrumZone(i * 0x700u / kCurveStyleCount, &color);
    return CurveStyle{color, 0, 1, 1, 5};
}

} // namespace

// What a first start without vtl.ini draws with.
CurveStyle gCurveStyles[kCurveStyleCount] = {
    StartingStyle(0),  StartingStyle(1),  StartingStyle(2),  StartingStyle(3),  StartingStyle(4),
    StartingStyle(5),  StartingStyle(6),  StartingStyle(7),  StartingStyle(8),  StartingStyle(9),
    StartingStyle(10), StartingStyle(11), StartingStyle(12), StartingStyle(13),
};

uint32_t RGB_Spectrum7(unsigned index, unsigned count) {
    VASSERT(count > 0 && count <= 0x1FFFFF);
    VASSERT(index < count);
    if (count == 0) return 0;
    uint32_t color = 0;
    if (!SpectrumZone(index * 0x700u / count, &color))
        VASSERT_MSG(false, "RGB_Spectrum7() -- wrong color cube zone!");
    return color;
}

namespace {

// A hand-edited negative number must still land on a valid style or symbol.
int Wrap(int value, int modulus) {
    int r = value % modulus;
    return r < 0 ? r + modulus : r;
}

} // namespace

int LoadCurveStyles(const char* fileName) {
    ProfileBatch batch(fileName);
    int penWidth = GetPrivateProfileInt("Graphics", "PenWidth", 1, fileName);
    int symbolSize = GetPrivateProfileInt("Graphics", "GraphSymbolSize", 5, fileName);
    char key[64];
    char text[256];
    for (unsigned i = 0; i < kCurveStyleCount; ++i) {
        CurveStyle style;
        style.color = RGB_Spectrum7(i, kCurveStyleCount);
        style.lineStyle = 0;
        style.symbol = 1;
        std::snprintf(key, sizeof key, "Curve[%u].SymbolSize", i);
        style.symbolSize = GetPrivateProfileInt("Graphics", key, symbolSize, fileName);
        std::snprintf(key, sizeof key, "Curve[%u].LineWidth", i);
        style.lineWidth = GetPrivateProfileInt("Graphics", key, penWidth, fileName);
        std::snprintf(key, sizeof key, "CurveColor[%u]", i);
        GetPrivateProfileString("Graphics", key, "", text, sizeof text, fileName);
        int f[5];
        int n = std::sscanf(text, "%d,%d,%d,%d,%d", &f[0], &f[1], &f[2], &f[3], &f[4]);
        if (n >= 3) style.color = MakeRGB(f[0] & 0xFF, f[1] & 0xFF, f[2] & 0xFF);
        if (n >= 4) style.lineStyle = Wrap(f[3], 6);
        if (n >= 5) style.symbol = Wrap(f[4], 7);
        gCurveStyles[i] = style;
    }
    return 1;
}

int SaveCurveStyles(const char* fileName) {
    ProfileBatch batch(fileName);
    char key[64];
    char text[128];
    for (unsigned i = 0; i < kCurveStyleCount; ++i) {
        const CurveStyle& s = gCurveStyles[i];
        std::snprintf(key, sizeof key, "CurveColor[%u]", i);
        SnprintfC(text, sizeof text, "%u,%u,%u,%u,%u", s.color & 0xFF, (s.color >> 8) & 0xFF,
                  (s.color >> 16) & 0xFF, static_cast<unsigned>(s.lineStyle),
                  static_cast<unsigned>(s.symbol));
        WritePrivateProfileString("Graphics", key, text, fileName);
        std::snprintf(key, sizeof key, "Curve[%u].SymbolSize", i);
        WriteProfileInt("Graphics", key, "%u", s.symbolSize, fileName);
        std::snprintf(key, sizeof key, "Curve[%u].LineWidth", i);
        WriteProfileInt("Graphics", key, "%u", s.lineWidth, fileName);
    }
    return 1;
}
