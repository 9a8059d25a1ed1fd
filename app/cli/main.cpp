// vantrel-cli: the core of Vantrel over the headless host, for scripts, tests and CI.
#include "ui/settings_registry.h"
#include "cli_verbs.h"
#include "platform/headless_host.h"
#include "files/data_file.h"
#include "support/cmdline.h"
#include "ui/dxb_read.h"

#include <cstdio>
#include <cstring>

const CliVerb gCliVerbs[] = {
    {"cards", RunCardsVerb,
     "[-daq:NAME] [-simdaq:PATH] detects the cards and prints the hardware report"},
    {"measure", RunMeasureVerb,
     "TITLE [-i:vtl.ini] [-o:FILE.dat] [-set:Section/Key=value ...] [-from:B] [-to:B] "
     "[-step:B] [-both:+] [-autozero:+] runs a measurement (IVC, Ic(H), Im(H)) and writes its "
     "data pair"},
    {"convert", RunConvert,
     "IN -o:OUT.dat [-i:vtl.ini] [-set:DataFile/Key=value ...]  rewrite a data file as a data "
     "pair"},
    {"settings", RunSettingsVerb,
     "[-i:FILE] [-o:FILE] [-daq:NAME] [-simdaq:PATH] [-set:Section/Key=value ...] detects the "
     "cards, loads all settings (default vtl.ini beside the program) and writes them to -o: or "
     "prints them"},
    {"math", RunMathVerb,
     "VERB IN -o:OUT.dat [-i:vtl.ini] [-set:Math/Key=value ...]  one operation of the Math menu "
     "on every curve (alone: the list of operations)"},
    {"recover", RunRecoverVerb,
     "[-i:FILE]  makes data pairs of the journals that killed runs left in the automatic data "
     "folder"},
    {"read", RunReadVerb,
     "[-i:FILE] [-daq:NAME] [-simdaq:PATH]  prints every connected voltage and current"},
#ifdef VANTREL_HAVE_GUI
    {"plot", RunPlotVerb,
     "FILE.dat -o:FILE.png [-w:W] [-h:H] [-i:vtl.ini]  draws the file's plot into an image"},
    {"print", RunPrintVerb,
     "FILE -o:OUT.pdf [-i:vtl.ini] [-set:Print/Key=value ...]  prints the file's plot and its "
     "text blocks into a PDF"},
#endif
    {nullptr, nullptr, nullptr},
};

void PrintCliUsage() {
    std::printf("Vantrel command-line runner\n"
                "usage: vantrel-cli VERB [-name:value ...]\n"
                "verbs:\n");
    for (const CliVerb* v = gCliVerbs; v->name; ++v)
        std::printf("  %-10s %s\n", v->name, v->usage);
    std::printf("With no verb it prints this text.\n");
}

int main(int argc, char** argv) {
    HeadlessSetEcho(true);
    InstallSettingsGroups();
    gDataFileLink.ReadDxb = ReadDxbFile; // convert and plot read DXB files too
    // Switches may stand before the verb, and an options file (-@FILE) may hold them.
    ParseArgv(argc, argv);
    const char* verb = Positional(1);
    if (!verb) {
        PrintCliUsage();
        return 0;
    }
    for (const CliVerb* v = gCliVerbs; v->name; ++v)
        if (std::strcmp(v->name, verb) == 0) return v->Run(argc, argv);
    std::fprintf(stderr, "vantrel-cli: unknown verb '%s'\n", verb);
    PrintCliUsage();
    return 2;
}
