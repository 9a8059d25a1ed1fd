// The verbs of vantrel-cli. Each takes the command line after the verb has been found and
// returns the process exit status.
#pragma once

struct CliVerb {
    const char* name;
    int (*Run)(int argc, char** argv);
    const char* usage; // one line: arguments and what the verb does
};

// The table, ended by an entry with a null name.
extern const CliVerb gCliVerbs[];

void PrintCliUsage();

// The verbs.
int RunConvert(int argc, char** argv);
int RunCardsVerb(int argc, char** argv);
int RunMeasureVerb(int argc, char** argv);
int RunSettingsVerb(int argc, char** argv);
int RunReadVerb(int argc, char** argv);
int RunRecoverVerb(int argc, char** argv);
int RunMathVerb(int argc, char** argv);
// Only when the Qt interface is built: it draws through the Qt canvas.
int RunPlotVerb(int argc, char** argv);
int RunPrintVerb(int argc, char** argv);
