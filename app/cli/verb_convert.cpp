// vantrel-cli convert: any data file the program opens, written as a data pair under the Data
// File Options, with -set: overriding option keys for this run.
#include "cli_verbs.h"
#include "curve/undo.h"
#include "files/data_file.h"
#include "files/data_file_options.h"
#include "support/cmdline.h"

#include <cstdio>
#include <cstring>
#include <strings.h>

int RunConvert(int argc, char** argv) {
    const char* in = Positional(2);
    char out[512] = "";
    if (!in || !FindSwitch("o:", out, sizeof out) || !out[0]) {
        std::fprintf(stderr, "usage: vantrel-cli convert IN -o:OUT.dat [-i:vtl.ini] "
                             "[-set:DataFile/Key=value ...]\n");
        return 2;
    }
    char settings[512];
    if (FindSwitch("i:", settings, sizeof settings)) LoadDataFileOptions(settings);

    char set[512];
    for (int at = FindSwitchAfter(0, "set:", set, sizeof set); at;
         at = FindSwitchAfter(at, "set:", set, sizeof set)) {
        char* slash = std::strchr(set, '/');
        char* equals = slash ? std::strchr(slash, '=') : nullptr;
        if (!equals) {
            std::fprintf(stderr, "vantrel-cli convert: -set:%s is not Section/Key=value\n", set);
            return 2;
        }
        *slash = *equals = '\0';
        if (strcasecmp(set, "DataFile") != 0 || !SetDataFileOption(slash + 1, equals + 1)) {
            std::fprintf(stderr, "vantrel-cli convert: unknown option %s/%s\n", set, slash + 1);
            return 2;
        }
    }

    if (OpenDataFile(nullptr, in, 0) < 0) {
        std::fprintf(stderr, "vantrel-cli convert: can't read %s\n", in);
        return 1;
    }
    if (SaveDataFile(nullptr, out) < 0) {
        std::fprintf(stderr, "vantrel-cli convert: can't write %s\n", out);
        return 1;
    }
    std::printf("%s -> %s: %u curves\n", in, out, gCurves.count);
    return 0;
}
