#include "ui/setup_texts.h"

#include "files/data_file_options.h"
#include "instrument/autozero.h"
#include "instrument/averaging.h"
#include "instrument/thermometer.h"
#include "measure/ivc_options.h"
#include "measure/measure_options.h"
#include "ui/command_table.h"
#include "ui/plot_options.h"

#include <map>
#include <utility>

namespace {

using TextList = std::pair<const SetupText*, unsigned>;

std::map<const SetupTable*, TextList>& Registry() {
    static std::map<const SetupTable*, TextList> registry;
    return registry;
}

// Each table's texts stand beside the table; this is where they all join.
bool RegisterBuiltIn() {
    RegisterMeasureOptionTexts();
    RegisterIVCTexts();
    RegisterTermometerTexts();
    RegisterAveragingTexts();
    RegisterAutoZeroTexts();
    RegisterDataFileTexts();
    RegisterPlotOptionTexts();
    RegisterCommandDialogTexts();
    return true;
}

} // namespace

void RegisterSetupTexts(const SetupTable* table, const SetupText* texts, unsigned count) {
    Registry()[table] = TextList(texts, count);
}

const SetupText* SetupTexts(const SetupTable* table, unsigned* count) {
    static const bool kBuiltIn = RegisterBuiltIn();
    (void)kBuiltIn;
    auto it = Registry().find(table);
    *count = it == Registry().end() ? 0 : it->second.second;
    return it == Registry().end() ? nullptr : it->second.first;
}

const SetupText* FindSetupText(const SetupTable* table, int controlId) {
    unsigned count = 0;
    const SetupText* texts = SetupTexts(table, &count);
    for (unsigned i = 0; i < count; ++i)
        if (texts[i].controlId == controlId) return &texts[i];
    return nullptr;
}
