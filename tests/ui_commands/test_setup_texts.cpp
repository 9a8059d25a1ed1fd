// Every option dialog that a command opens labels its controls with its own texts, never with
// the key names of vtl.ini.
#include "commands_fixture.h"

#include "files/data_file_options.h"
#include "measure/ivc_options.h"
#include "platform/host.h"
#include "ui/command_ids.h"
#include "ui/plot_options.h"

#include <cstring>
#include <set>
#include <string>
#include <vector>

namespace {

std::vector<SetupTable*> gOpened;
std::string gCaption;
int gAnswer = 0;

int RecordSetupDialog(SetupTable* table, const char* caption) {
    gOpened.push_back(table);
    gCaption = caption;
    return gAnswer;
}

// The headless host, with the dialogs recorded and answered with gAnswer.
class OptionDialogs : public Commands {
  protected:
    void SetUp() override {
        Commands::SetUp();
        gOpened.clear();
        gAnswer = 0;
        kept_ = gPlotOptions;
        host_ = HeadlessHostTable();
        host_.RunSetupDialog = RecordSetupDialog;
        SetHost(&host_);
    }
    void TearDown() override {
        SetHost(nullptr);
        gPlotOptions = kept_;
    }
    PlotOptions kept_;
    HostTable host_{};
};

unsigned Parts(const char* text) {
    unsigned n = 1;
    for (const char* p = text; *p; ++p)
        n += *p == '|';
    return n;
}

// Each row with a control has a non-empty label; a radio group has a caption and at least two
// buttons; a label names a row.
void ExpectLabelled(const SetupTable* table, const std::string& name) {
    const std::set<int> withControl = {SETUP_INT,  SETUP_UINT,  SETUP_FLOAT,
                                       SETUP_TEXT, SETUP_CHECK, SETUP_RADIO};
    std::set<int> rowIds;
    for (unsigned i = 0; i < table->rowCount; ++i) {
        const SetupRow& row = table->rows[i];
        if (!withControl.count(row.kind)) continue;
        rowIds.insert(row.controlId);
        const SetupText* text = FindSetupText(table, row.controlId);
        ASSERT_NE(text, nullptr) << name << ": row " << row.controlId << " ("
                                 << (row.key ? row.key : "no key") << ") has no text";
        ASSERT_TRUE(text->kind == SETUP_TEXT_LABEL && text->text && *text->text)
            << name << ": row " << row.controlId;
        // Only a radio group's text is split; a label may hold "|", as in "|V|".
        if (row.kind == SETUP_RADIO)
            EXPECT_GE(Parts(text->text), 3u) << name << ": " << row.controlId;
    }
    for (unsigned i = 0; i < table->textCount; ++i)
        if (table->texts[i].kind == SETUP_TEXT_LABEL)
            EXPECT_TRUE(rowIds.count(table->texts[i].controlId))
                << name << ": label " << table->texts[i].controlId << " names no row";
}

// The label of the row whose key is given.
std::string TextOfKey(const SetupTable* table, const char* key) {
    for (unsigned i = 0; i < table->rowCount; ++i) {
        const SetupRow& row = table->rows[i];
        const SetupText* t = FindSetupText(table, row.controlId);
        if (row.key && std::strcmp(row.key, key) == 0) return t && t->text ? t->text : "";
    }
    return "<no row " + std::string(key) + ">";
}

TEST_F(OptionDialogs, EveryDialogOfTheCommandsIsLabelled) {
    const int kCommands[] = {IDM_OPT_AVERAGING, IDM_OPT_DATA_FILE, IDM_OPT_THERMOMETER,
                             IDM_OPT_DELAY,     IDM_OPT_AUTOZERO,  IDM_OPT_GENERAL,
                             IDM_USER_NAME,     IDM_OPT_IVC,       IDM_OPT_TRIGGER,
                             IDM_OPT_AXES};
    for (int command : kCommands) {
        size_t before = gOpened.size();
        EXPECT_EQ(CommandDispatch(nullptr, command), 1) << command;
        EXPECT_EQ(gOpened.size(), before + 1) << "command " << command << " opened no dialog";
    }
    EXPECT_EQ(std::tuple(gOpened[7], gOpened[8], gOpened[9], gCaption),
              std::tuple(&gIVCSetupTable, &gTriggerSetupTable, &gPlotOptionsTable, "Axes"));
    // The measurement dialog's x axis button opens this.
    IVC_xAxisDialog(nullptr);
    ASSERT_EQ(gOpened.size(), 11u);
    std::set<SetupTable*> distinct(gOpened.begin(), gOpened.end());
    EXPECT_EQ(distinct.size(), gOpened.size());
    for (size_t k = 0; k < gOpened.size(); ++k)
        ExpectLabelled(gOpened[k], "dialog " + std::to_string(k));
}

TEST_F(OptionDialogs, DataFileFlagsSayWhatTheySteer) {
    // I-V family is crossed: its Save key steers loading.
    EXPECT_EQ(TextOfKey(&gDataFileSetupTable, "SaveIVFOptions"), "Load with data: I-V family");
    EXPECT_EQ(TextOfKey(&gDataFileSetupTable, "LoadIVFOptions"), "Save with data: I-V family");
    EXPECT_EQ(TextOfKey(&gDataFileSetupTable, "SaveV(time)Options"),
              "Never saved with data: V(time)");
}

// Axes and General repaint whatever the answer. A host that answers OK without showing the
// Axes dialog leaves its font and pens as they were.
TEST_F(OptionDialogs, AxesAndGeneralRepaintAndCancelChangesNothing) {
    for (int answer : {0, 1})
        for (int command : {IDM_OPT_AXES, IDM_OPT_GENERAL}) {
            // Other values each time, so that a copy kept from an earlier dialog shows.
            gAnswer = answer;
            gPlotOptions.captionFont.height = 17 + answer;
            gPlotOptions.gridPen.width = 5 + answer;
            int before = HeadlessWindow().refreshes;
            EXPECT_EQ(CommandDispatch(nullptr, command), 1);
            EXPECT_EQ(HeadlessWindow().refreshes, before + 1) << command << " answer " << answer;
            EXPECT_EQ(std::tuple(gPlotOptions.captionFont.height, gPlotOptions.gridPen.width),
                      std::tuple(17u + answer, 5 + answer));
        }
}

} // namespace
