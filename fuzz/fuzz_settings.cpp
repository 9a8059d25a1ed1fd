// vtl.ini through the walk that loads every settings group at start.
#include "fuzz_input_file.h"
#include "platform/headless_host.h"
#include "ui/settings_registry.h"

extern "C" int LLVMFuzzerInitialize(int*, char***) {
    InstallSettingsGroups();
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    HeadlessReset();
    const std::string path = FuzzInputFile("vtl.ini", data, size);
    LoadAllSettings(path.c_str());
    return 0;
}
