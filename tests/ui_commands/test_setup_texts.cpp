// Every option dialog that a command opens labels its controls with its own texts, never with
// the key names of vtl.ini.
#include "commands_fixture.h"

#include "files/data_file_options.h"

#include "instrument/autozero.h"
#include "instrument/averaging.h"
#include "instrument/thermometer.h"
#include "measure/ivc_options.h"
#include "measure/measure_options.h"
#include "platform/host.h"
#include "ui/plot_options.h"

#include <cstring>
#include <set>
#include <string>
#include <vector>

namespace {

std::vector<SetupTable*> gOpened;

int RecordSetupDialog(SetupTable* table, const char*) {
    gOpened.push_back(table);
    return 0; // Cancel: nothing changes
}

// The headless host, with the dialogs recorded and cancelled.
class OptionDialogTexts : public Commands {
  protected:
    void SetUp() override {
        Commands::SetUp();
        gOpened.clear();
        host_ = HeadlessHostTable();
        host_.RunSetupDialog = RecordSetupDialog;
        SetHost(&host_);
    }
    void TearDown() override {
        SetHost(&HeadlessHostTable());
        Commands::TearDown();
    }
    HostTable host_{};
};

bool HasControl(const SetupRow& row) {
    switch (row.kind) {
    case SETUP_INT:
    case SETUP_UINT:
    case SETUP_FLOAT:
    case SETUP_TEXT:
    case SETUP_CHECK:
    case SETUP_RADIO:
        return true;
    default:
        return false;
    }
}

unsigned Parts(const char* text) {
    unsigned n = 1;
    for (const char* p = text; *p; ++p)
        n += *p == '|';
    return n;
}

// Each row with a control has a non-empty label; a radio group has a caption and at least two
// buttons; a text that is not a row is a static text or a button.
void ExpectLabelled(const SetupTable* table, const char* name) {
    std::set<int> rowIds;
    for (unsigned i = 0; i < table->rowCount; ++i) {
        const SetupRow& row = table->rows[i];
        if (!HasControl(row)) continue;
        rowIds.insert(row.controlId);
        const SetupText* text = FindSetupText(table, row.controlId);
        ASSERT_NE(text, nullptr) << name << ": row " << row.controlId << " ("
                                 << (row.key ? row.key : "no key") << ") has no text";
        EXPECT_EQ(text->kind, SETUP_TEXT_LABEL) << name << ": row " << row.controlId;
        ASSERT_NE(text->text, nullptr);
        EXPECT_GT(std::strlen(text->text), 0u) << name << ": row " << row.controlId;
        // Only a radio group's text is split; a label may hold "|", as in "|V|".
        if (row.kind == SETUP_RADIO) {
            EXPECT_GE(Parts(text->text), 3u) << name << ": radio " << row.controlId;
        }
    }
    const unsigned count = table->textCount;
    const SetupText* texts = table->texts;
    for (unsigned i = 0; i < count; ++i) {
        if (texts[i].kind != SETUP_TEXT_LABEL) continue;
        EXPECT_TRUE(rowIds.count(texts[i].controlId))
            << name << ": label " << texts[i].controlId << " names no row";
    }
}

std::string Text(const SetupTable* table, int controlId) {
    const SetupText* t = FindSetupText(table, controlId);
    return t && t->text ? t->text : "";
}

// The label of the row whose key is given.
std::string TextOfKey(const SetupTable* table, const char* key) {
    for (unsigned i = 0; i < table->rowCount; ++i) {
        const SetupRow& row = table->rows[i];
        if (row.key && std::strcmp(row.key, key) == 0) return Text(table, row.controlId);
    }
    return "<no row " + std::string(key) + ">";
}

TEST_F(OptionDialogTexts, EveryDialogOfTheCommandsIsLabelled) {
    // Averaging, data file, thermometer, delays, AutoZero, general measurement, user name,
    // V(I) options, trigger, axes.
    const int kCommands[] = {IDM_OPT_AVERAGING, IDM_OPT_DATA_FILE, IDM_OPT_THERMOMETER,
                             IDM_OPT_DELAY,     IDM_OPT_AUTOZERO,  IDM_OPT_GENERAL,
                             IDM_USER_NAME,     IDM_OPT_IVC,       IDM_OPT_TRIGGER,
                             IDM_OPT_AXES};
    for (int command : kCommands) {
        size_t before = gOpened.size();
        EXPECT_EQ(CommandDispatch(nullptr, command), 1) << command;
        EXPECT_EQ(gOpened.size(), before + 1) << "command " << command << " opened no dialog";
    }
    EXPECT_EQ(gOpened[7], &gIVCSetupTable);
    EXPECT_EQ(gOpened[8], &gTriggerSetupTable);
    EXPECT_EQ(gOpened[9], &gPlotOptionsTable);
    // The measurement dialog's x axis button opens this.
    IVC_xAxisDialog(nullptr);
    ASSERT_EQ(gOpened.size(), 11u);
    std::set<SetupTable*> distinct(gOpened.begin(), gOpened.end());
    EXPECT_EQ(distinct.size(), gOpened.size());
    for (size_t k = 0; k < gOpened.size(); ++k)
        ExpectLabelled(gOpened[k], ("dialog " + std::to_string(k)).c_str());
}

TEST_F(OptionDialogTexts, DataFileFlagsSayWhatTheySteer) {
    // I-V family is crossed: its Save key steers loading.
    EXPECT_EQ(TextOfKey(&gDataFileSetupTable, "SaveIVFOptions"), "Load with data: I-V family");
    EXPECT_EQ(TextOfKey(&gDataFileSetupTable, "LoadIVFOptions"), "Save with data: I-V family");
    EXPECT_EQ(TextOfKey(&gDataFileSetupTable, "SaveAveragingOptions"), "Save with data: Averaging");
    EXPECT_EQ(TextOfKey(&gDataFileSetupTable, "SaveV(time)Options"),
              "Never saved with data: V(time)");
    EXPECT_EQ(Parts(TextOfKey(&gDataFileSetupTable, "DelimitterID").c_str()), 4u);
}

} // namespace
