#include "ui/setup_texts.h"

#include "instrument/thermometer.h"
#include "measure/measure_options.h"

#include <map>
#include <utility>

namespace {

using TextList = std::pair<const SetupText*, unsigned>;

std::map<const SetupTable*, TextList>& Registry() {
    static std::map<const SetupTable*, TextList> registry;
    return registry;
}

// The texts of the groups whose dialogs carry more than their keys say.
const SetupText kDelaysTexts[] = {
    {IDC_DELAY_AFTER_JUMP, 0, "Delay after current jumps to the first point (ms)"},
    {IDC_SYSTEM_DECAY_TIME, 0, "Delay after Sweep1 is set (ms)"},
    {IDC_DELAY_AFTER_SWEEP2, 0, "Delay after Sweep2 is set (ms)"},
    {IDC_DELAY_BEFORE_VOLTAGE, 0, "Delay after multiplexing  (ms)"},
    {IDC_INTERACTION_TIME, 0, "Interactivity time (ms)"},
    {IDC_STOP_AFTER_EACH_CURVE, 0, "Stop After Each Curve?"},
};
const SetupText kGeneralTexts[] = {
    {IDC_MEASURE_IN_EACH_POINT, 0,
     "How the sweep current is measured|In each point|Only on the edges"},
};
const SetupText kTermometerTexts[] = {
    {IDC_TERMO_TOFV, 0, "Thermometer|T(V)|T(R)"},
    {IDC_TERMO_CURRENT_LABEL, SETUP_TEXT_STATIC, "Sensor current"},
    {IDC_TERMO_BROWSE, SETUP_TEXT_BUTTON, ">>"},
};

template <unsigned N> void Register(const SetupTable* table, const SetupText (&texts)[N]) {
    RegisterSetupTexts(table, texts, N);
}

bool RegisterBuiltIn() {
    Register(&gDelaysSetupTable, kDelaysTexts);
    Register(&gGeneralMeasureSetupTable, kGeneralTexts);
    Register(TermometerSetupTable(), kTermometerTexts);
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
