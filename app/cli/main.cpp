// vantrel-cli: the core of Vantrel over the headless host, for scripts, tests and CI.
#include "cli_verbs.h"
#include "platform/headless_host.h"

#include <cstdio>
#include <cstring>

const CliVerb gCliVerbs[] = {
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
    if (argc < 2) {
        PrintCliUsage();
        return 0;
    }
    for (const CliVerb* v = gCliVerbs; v->name; ++v)
        if (std::strcmp(v->name, argv[1]) == 0) return v->Run(argc, argv);
    std::fprintf(stderr, "vantrel-cli: unknown verb '%s'\n", argv[1]);
    PrintCliUsage();
    return 2;
}
