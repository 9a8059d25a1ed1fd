#include "ui/gpen.h"

#include "settings/profile.h"
#include "support/debug_check.h"
#include "support/exceptions.h"
#include "settings/profile_color.h"

#include <cerrno>
#include <cstdio>
#include <cstdlib>

namespace {

void KeyOf(char (&key)[128], const char* prefix, const char* ending) {
    std::snprintf(key, sizeof key, "%s%s", prefix, ending);
}

} // namespace

const char* PenStyleName(int style) {
    static const char* const names[] = {"Solid",   "Dash",       "Dot",
                                        "DashDot", "DashDotDot", "Invisible"};
    return style >= 0 && style <= PEN_INVISIBLE ? names[style] : nullptr;
}

void GPen::CreateFor(const PlotCanvas& dc) const {
    CreateFor(dc, color);
}

void GPen::CreateFor(const PlotCanvas& dc, CanvasColor replacement) const {
    VASSERT(style >= PEN_SOLID && style <= PEN_INVISIBLE);
    int s = style >= PEN_SOLID && style <= PEN_INVISIBLE ? style : PEN_SOLID;
    dc.SetPen(dc.context, s, width, replacement);
}

int GPen::Save(const char* fileName, const char* section, const char* prefix) const {
    char key[128];
    KeyOf(key, prefix, "Style");
    WriteProfileInt(section, key, "%u", style, fileName);
    KeyOf(key, prefix, "Width");
    WriteProfileInt(section, key, "%u", width, fileName);
    KeyOf(key, prefix, "Color");
    WriteProfileColor(section, key, color, fileName);
    return 1;
}

int GPen::Load(const char* fileName, const char* section, const char* prefix) {
    char key[128];
    KeyOf(key, prefix, "Style");
    int s = GetPrivateProfileInt(section, key, style, fileName);
    if ((s & 0xF) < 6) style = s & 0xF;
    KeyOf(key, prefix, "Width");
    int w = GetPrivateProfileInt(section, key, width, fileName);
    if (w >= 0) width = w;
    KeyOf(key, prefix, "Color");
    color = static_cast<CanvasColor>(ReadProfileColor(section, key, color, fileName));
    return 1;
}

void GPen::SetWidthFromText(const char* text) {
    char* end = nullptr;
    errno = 0;
    long w = std::strtol(text, &end, 10);
    while (end != text && *end == ' ')
        ++end;
    if (end == text || *end != '\0' || errno != 0 || w < 0 || w > 0x7FFFFFFF)
        throw GPenUIException(GPenUIException::INVALID_WIDTH);
    width = static_cast<int>(w);
}

GPenUI GPen::Show() const {
    GPenUI ui;
    ui.style = style;
    std::snprintf(ui.width, sizeof ui.width, "%d", width);
    ui.color = color;
    return ui;
}

void GPen::Read(const GPenUI& ui) {
    // The width first: it is the only field that can fail.
    SetWidthFromText(ui.width);
    style = ui.style >= PEN_SOLID && ui.style <= PEN_INVISIBLE ? ui.style : style;
    color = ui.color;
}
