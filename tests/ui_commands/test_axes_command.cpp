// Options | Axes opens the Axes table and repaints whatever the dialog's answer.
#include "ui/command_ids.h"
#include "commands_fixture.h"

#include "platform/host.h"
#include "ui/plot_options.h"

#include <string>

namespace {

SetupTable* gTable = nullptr;
std::string gCaption;
int gAnswer = 0;

int RecordSetupDialog(SetupTable* table, const char* caption) {
    gTable = table;
    gCaption = caption;
    return gAnswer;
}

class AxesCommand : public Commands {
  protected:
    void SetUp() override {
        Commands::SetUp();
        kept_ = gPlotOptions;
        host_ = HeadlessHostTable();
        host_.RunSetupDialog = RecordSetupDialog;
        SetHost(&host_);
    }
    void TearDown() override {
        SetHost(nullptr);
        gPlotOptions = kept_;
        Commands::TearDown();
    }
    PlotOptions kept_;
    HostTable host_{};
};

TEST_F(AxesCommand, OpensTheAxesTableAndRefreshesOnOkAndCancel) {
    ASSERT_NE(FindCommand(IDM_OPT_AXES), nullptr);
    EXPECT_TRUE(FindCommand(IDM_OPT_AXES)->flags & CMD_BUILT);
    for (int answer : {0, 1}) {
        gAnswer = answer;
        gTable = nullptr;
        int before = HeadlessWindow().refreshes;
        EXPECT_EQ(CommandDispatch(nullptr, IDM_OPT_AXES), 1);
        EXPECT_EQ(gTable, &gPlotOptionsTable);
        EXPECT_EQ(gCaption, "Axes");
        EXPECT_EQ(HeadlessWindow().refreshes, before + 1) << "answer " << answer;
    }
}

TEST_F(AxesCommand, OkWithoutTheDialogShownKeepsFontAndPens) {
    // A host that answers OK without showing the dialog: nothing was edited.
    gAnswer = 1;
    gPlotOptions.captionFont.height = 17;
    gPlotOptions.gridPen.width = 5;
    CommandDispatch(nullptr, IDM_OPT_AXES);
    EXPECT_EQ(gPlotOptions.captionFont.height, 17u);
    EXPECT_EQ(gPlotOptions.gridPen.width, 5);
}

} // namespace
