// The command line with an options file: the first line of the input is the command line, in
// which "@F" names the options file made of the rest; then the lookups every program makes.
#include "fuzz_input_file.h"
#include "support/cmdline.h"

#include <cstring>
#include <string>

namespace {
struct Failed {};
[[noreturn]] void ThrowFailure(int) {
    throw Failed{};
}
} // namespace

extern "C" int LLVMFuzzerInitialize(int*, char***) {
    gCmdLineFailHook = ThrowFailure;
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    const std::string input(reinterpret_cast<const char*>(data), size);
    const size_t eol = input.find('\n');
    std::string line = input.substr(0, eol == std::string::npos ? input.size() : eol);
    const std::string rest = eol == std::string::npos ? std::string() : input.substr(eol + 1);
    const std::string file =
        FuzzInputFile("options", reinterpret_cast<const uint8_t*>(rest.data()), rest.size());
    for (size_t at; (at = line.find("@F")) != std::string::npos;)
        line.replace(at, 2, "@" + file);
    std::string text = "prog.exe " + line;
    try {
        if (ParseCommandLine(text.data())) {
            char value[256];
            for (const char* name : {"i:", "o:", "set:", "step:", "daq:", "u:", "@"})
                FindSwitch(name, value, sizeof value);
            for (int at = FindSwitchAfter(0, "set:", value, sizeof value); at;
                 at = FindSwitchAfter(at, "set:", value, sizeof value)) {
            }
            SwitchInt("step:", 1);
            SwitchBool("both:", 0);
            for (int k = 0; k < PositionalCount(); ++k)
                Positional(k);
        }
    } catch (const Failed&) {
        // A refused command line: the programs end with the message, here the next input.
    }
    FreeCommandLine();
    return 0;
}
