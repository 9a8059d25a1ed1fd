#include "ui/gfont.h"

#include "settings/profile.h"
#include "platform/host.h"
#include "support/bounded_text.h"
#include "support/exceptions.h"
#include "settings/profile_color.h"

#include <cstdio>

namespace {

void KeyOf(char (&key)[128], const char* prefix, const char* ending) {
    std::snprintf(key, sizeof key, "%s%s", prefix, ending);
}

int WriteUnsigned(const char* section, const char* prefix, const char* ending, unsigned value,
                  const char* fileName) {
    char key[128];
    KeyOf(key, prefix, ending);
    return WriteProfileInt(section, key, "%u", static_cast<int>(value), fileName);
}

} // namespace

const char* FontWeightName(int weight) {
    static const char* const names[] = {"thin",   "ultra-light", "light", "normal",
                                        "medium", "semi-bold",   "bold",  "extra-bold",
                                        "heavy",  "black"};
    if (weight < 1 || weight > 1000) return "";
    if (weight <= 150) return names[0];
    return names[(weight - 51) / 100];
}

GFont::GFont() {
    BoundedCopy(faceName, "Arial");
}

GFont::GFont(const char* name, unsigned points, CanvasColor textColor)
    : height(points), color(textColor) {
    BoundedCopy(faceName, name);
}

int GFont::Height(const PlotCanvas& dc) const {
    CanvasCaps caps;
    if (dc.GetCaps == nullptr || !dc.GetCaps(dc.context, &caps))
        throw GFontException(GFontException::GET_DC_FAILED);
    return static_cast<int>(static_cast<long long>(height) * caps.logPixelsY / 72);
}

void GFont::CreateFor(const PlotCanvas& dc) const {
    CanvasFont font;
    font.face = faceName;
    font.pixelHeight = Height(dc);
    font.weight = weight;
    font.italic = italic;
    font.underline = underline;
    font.strikeOut = strikeOut;
    dc.SetFont(dc.context, font);
}

int GFont::Choose(void* window) {
    return Host().ChooseFont(window, this) == 1 ? 1 : 0;
}

void GFont::Describe(char* text, std::size_t size) const {
    std::snprintf(text, size, "%s, %upt\n%s%s%s", faceName, height, FontWeightName(weight),
                  italic ? " + italic" : "", "");
}

void GFont::DescribeShort(char* text, std::size_t size) const {
    std::snprintf(text, size, "%s, %upt", faceName, height);
}

int GFont::Save(const char* fileName, const char* section, const char* prefix) const {
    char key[128];
    KeyOf(key, prefix, "Name");
    WritePrivateProfileString(section, key, faceName, fileName);
    WriteUnsigned(section, prefix, "Size", height, fileName);
    WriteUnsigned(section, prefix, "Italic", italic, fileName);
    WriteUnsigned(section, prefix, "Weight", weight, fileName);
    WriteUnsigned(section, prefix, "Underline", underline, fileName);
    WriteUnsigned(section, prefix, "StrikeOut", strikeOut, fileName);
    WriteUnsigned(section, prefix, "CharSet", charSet, fileName);
    KeyOf(key, prefix, "Color");
    WriteProfileColor(section, key, color, fileName);
    return 1;
}

int GFont::Load(const char* fileName, const char* section, const char* prefix) {
    char key[128];
    KeyOf(key, prefix, "Name");
    GetPrivateProfileString(section, key, "Arial", faceName, sizeof faceName, fileName);
    KeyOf(key, prefix, "Size");
    height = static_cast<unsigned>(GetPrivateProfileInt(section, key, 9, fileName));
    KeyOf(key, prefix, "Italic");
    italic = GetPrivateProfileInt(section, key, 0, fileName);
    KeyOf(key, prefix, "Weight");
    weight = GetPrivateProfileInt(section, key, 0, fileName);
    KeyOf(key, prefix, "Underline");
    underline = GetPrivateProfileInt(section, key, 0, fileName);
    KeyOf(key, prefix, "StrikeOut");
    strikeOut = GetPrivateProfileInt(section, key, 0, fileName);
    KeyOf(key, prefix, "CharSet");
    charSet = GetPrivateProfileInt(section, key, 0, fileName);
    KeyOf(key, prefix, "Color");
    color = static_cast<CanvasColor>(ReadProfileColor(section, key, 0, fileName));
    return 1;
}
