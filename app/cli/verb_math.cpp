// vantrel-cli math: one operation of the Math menu on every curve of a data file, written as a
// data pair, so that operations can be scripted and checked outside the window.
#include "analysis/curve_operations.h"
#include "analysis/math_options.h"
#include "analysis/multi_point_derivative.h"
#include "cli_verbs.h"
#include "curve/undo.h"
#include "files/data_file.h"
#include "settings/profile.h"
#include "support/c_locale.h"
#include "support/cmdline.h"

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>
#include <strings.h>
#include <unistd.h>

namespace {

struct MathVerb {
    const char* name;
    const char* what;
};

const MathVerb kVerbs[] = {
    {"filter", "Filter: single-point spikes above FilterParameter"},
    {"smooth", "Smooth: moving average over 2 SmoothParameter + 1 points"},
    {"skip-extra-points",
     "Skip Extra Points: drop points that turn by less than SEP_CriticalAngle"},
    {"dydx-x", "Simple dy/dx (x)"},
    {"dydx-y", "Simple dy/dx (y)"},
    {"integrate", "Integrate"},
    {"multi-dydx-x", "Multi-point dY/dX (X), over 2 DerivePoints + 1 points"},
    {"multi-dydx-y", "Multi-point dY/dX (Y)"},
    {"shift", "Shift by -dx: and -dy:"},
    {"scale", "Scale: x * -xm: / -xd:, y * -ym: / -yd:"},
    {"abs", "Abs of x (-x:+) and/or y (-y:+)"},
    {"y-as-new-x", "y as new x, the source curve -source:N (default 0)"},
    {"ymin-relative", "(Y-Ymin) / Ymin"},
    {"ymax-relative", "(Y-Ymin) / Ymax"},
    {"swap-xy", "X <--> Y"},
    {"reverse", "First pt <--> Last pt"},
};

double Number(const char* name, double fallback) {
    char text[64];
    if (!FindSwitch(name, text, sizeof text)) return fallback;
    return StrToDoubleC(text, nullptr);
}

void Usage() {
    std::printf(
        "usage: vantrel-cli math VERB IN -o:OUT.dat [-i:vtl.ini] [-set:Math/Key=value ...]\n"
        "verbs:\n");
    for (const MathVerb& v : kVerbs)
        std::printf("  %-18s %s\n", v.name, v.what);
}

// -set:Math/Key=value for the keys of the Math options, through a private copy of the settings.
bool ApplySets(const char* settings) {
    char text[512];
    for (int at = FindSwitchAfter(0, "set:", text, sizeof text); at;
         at = FindSwitchAfter(at, "set:", text, sizeof text)) {
        char* slash = std::strchr(text, '/');
        char* equals = slash ? std::strchr(slash, '=') : nullptr;
        if (!equals || strncasecmp(text, "Math/", 5) != 0) {
            std::fprintf(stderr, "vantrel-cli math: -set:%s is not Math/Key=value\n", text);
            return false;
        }
        *equals = '\0';
        if (!WritePrivateProfileString("Math", slash + 1, equals + 1, settings)) return false;
    }
    return true;
}

} // namespace

int RunMathVerb(int, char**) {
    const char* verb = Positional(2);
    const char* in = Positional(3);
    char out[4096] = "";
    if (!verb) {
        Usage();
        return 0;
    }
    const MathVerb* found = nullptr;
    for (const MathVerb& v : kVerbs)
        if (std::strcmp(v.name, verb) == 0) found = &v;
    if (!found || !in || !FindSwitch("o:", out, sizeof out) || !out[0]) {
        if (!found) std::fprintf(stderr, "vantrel-cli math: no operation \"%s\"\n", verb);
        Usage();
        return 2;
    }
    char settings[4096];
    SnprintfC(settings, sizeof settings, "%s.math%d", out, static_cast<int>(getpid()));
    char given[4096];
    if (FindSwitch("i:", given, sizeof given)) {
        std::FILE* src = std::fopen(given, "rb");
        std::FILE* dst = std::fopen(settings, "wb");
        for (int c; src && dst && (c = std::fgetc(src)) != EOF;)
            std::fputc(c, dst);
        if (src) std::fclose(src);
        if (dst) std::fclose(dst);
    }
    const bool setOk = ApplySets(settings);
    LoadMathOptions(settings);
    std::remove(settings);
    if (!setOk) return 2;
    if (OpenDataFile(nullptr, in, 0) < 0) {
        std::fprintf(stderr, "vantrel-cli math: can't read %s\n", in);
        return 1;
    }
    const std::string name = found->name;
    gCurves.MarkAll();
    for (std::uint32_t c = 0; c < gCurves.count; ++c) {
        Curve& curve = gCurves.GetCurve(c);
        if (name == "filter") FilterSpikes(curve, FilterParameter);
        if (name == "smooth") SmoothCurve(curve, SmoothParameter);
        if (name == "skip-extra-points") {
            const unsigned before = SkipExtraPoints(curve, SEP_CriticalAngle);
            std::printf("%s: %u -> %u points\n", curve.GetName(), before, curve.count);
        }
        if (name == "shift") ShiftCurve(curve, Number("dx:", 0), Number("dy:", 0));
        if (name == "scale")
            ScaleCurve(curve, Number("xm:", 1), Number("xd:", 1), Number("ym:", 1),
                       Number("yd:", 1));
        if (name == "abs") AbsCurve(curve, SwitchBool("x:", 0), SwitchBool("y:", 0));
        if (name == "reverse") ReverseCurve(curve);
    }
    bool ok = true;
    if (name == "dydx-x" || name == "dydx-y") {
        if (name == "dydx-x" ? gCurves.DifferentiateX() : gCurves.DifferentiateY())
            std::printf("curves of fewer than 2 points were discarded\n");
    }
    if (name == "integrate") gCurves.Integrate();
    if (name == "multi-dydx-x" || name == "multi-dydx-y") {
        CurveFamily derived;
        MultiPointDerivative(gCurves, name == "multi-dydx-y", derived);
        gCurves.Reset();
        gCurves = derived;
    }
    if (name == "swap-xy") gCurves.SwapAxes();
    if (name == "ymin-relative") ok = RelativeToMin(gCurves);
    if (name == "ymax-relative") ok = RelativeToMax(gCurves);
    if (name == "y-as-new-x") {
        if (const char* refusal = YAsNewXRefusal(gCurves)) {
            std::fprintf(stderr, "vantrel-cli math: %s\n", refusal);
            return 1;
        }
        const long source = static_cast<long>(Number("source:", 0));
        if (source < 0 || source >= static_cast<long>(gCurves.count)) {
            std::fprintf(stderr, "vantrel-cli math: no curve %ld\n", source);
            return 2;
        }
        YAsNewX(gCurves, static_cast<std::uint32_t>(source));
    }
    if (!ok) return 1;
    if (WriteDataPairQuiet(out) != DATA_PAIR_DONE) {
        std::fprintf(stderr, "vantrel-cli math: can't write %s\n", out);
        return 1;
    }
    std::printf("%s %s -> %s: %u curves\n", found->name, in, out, gCurves.count);
    return 0;
}
