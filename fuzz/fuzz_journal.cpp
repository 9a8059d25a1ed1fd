// A run journal left by a killed program, recovered into a data pair.
#include "curve/undo.h"
#include "files/run_journal_recover.h"
#include "fuzz_input_file.h"
#include "platform/headless_host.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    HeadlessReset();
    const std::string path = FuzzInputFile("run_999999.journal", data, size);
    std::string pair, report;
    RecoverJournal(path.c_str(), pair, report);
    if (!pair.empty()) {
        std::remove(pair.c_str());
        std::remove((pair.substr(0, pair.size() - 3) + "ini").c_str());
    }
    return 0;
}
