// The Axes dialog's font and pen buttons, driven through the table engine on an in-memory
// dialog: the choosers and the dialog's own OK both have to agree before gPlotOptions changes.
#include "ui/setup_dialog.h"
#include "fake_dialog.h"

#include "common/test_support.h"
#include "settings/profile.h"
#include "ui/settings_registry.h"
#include "platform/headless_host.h"
#include "support/bounded_text.h"
#include "ui/axes_dialog.h"
#include "ui/gpen_ui.h"
#include "ui/plot_options.h"

#include <gtest/gtest.h>

#include <string>
#include <tuple>
#include <vector>

namespace {

// What the user does in the Axes dialog: (control, text typed before it) pairs; the dialog
// that results stays for inspection.
std::vector<std::pair<int, std::string>> gSteps;
FakeDialog* gDialog = nullptr;
int gFontAnswer = 0;
GPenUI gPenFields;

int DriveAxesDialog(SetupTable* table, const char*) {
    FakeDialog& d = *gDialog;
    for (unsigned i = 0; i < table->rowCount; ++i)
        d.controls[table->rows[i].controlId];
    for (int id : {AXES_ID_FONT_TEXT, AXES_ID_AXES_PEN_TEXT, AXES_ID_GRID_PEN_TEXT})
        d.controls[id].isStatic = true;
    if (!SetupDlg_Open(table, &d.dialog)) return 0;
    for (const auto& [id, typed] : gSteps) {
        if (!typed.empty()) d.controls[101].text = typed;
        int ended = SetupDlg_Command(&d.dialog, id, nullptr, 0);
        if (ended >= 0) return ended;
    }
    return 0;
}

// A font dialog that edits what it is given whatever the answer, as a real one does.
int FakeFontDialog(void*, GFont* font) {
    BoundedCopy(font->faceName, "Courier New");
    font->height = 14;
    font->color = 0xFF0000;
    return gFontAnswer;
}

// A pen dialog whose user presses OK once, and gives up after a report.
int FakePenDialog(void*, const char* caption, GPen* pen) {
    return AcceptPenUI(nullptr, caption, *pen, gPenFields);
}

std::string Describe(const GFont& font) {
    char text[128];
    font.Describe(text, sizeof text);
    return text;
}

int Key(const char* key) {
    return GetPrivateProfileInt("Setup", key, -1, gIniFileName);
}

class AxesDialog : public ::testing::Test {
  protected:
    void SetUp() override {
        kept_ = gPlotOptions;
        gPlotOptions = PlotOptions();
        BoundedCopy(keptIni_, gIniFileName);
        BoundedCopy(gIniFileName, dir_.File("vtl.ini").c_str());
        gSteps.clear(), gDialog = &dialog_, gFontAnswer = 0, gPenFields = GPenUI();
        host_ = HeadlessHostTable();
        host_.RunSetupDialog = DriveAxesDialog;
        host_.ChooseFont = FakeFontDialog;
        host_.ChoosePen = FakePenDialog;
        SetHost(&host_);
    }
    void TearDown() override {
        SetHost(nullptr);
        gPlotOptions = kept_;
        BoundedCopy(gIniFileName, keptIni_);
    }
    PlotOptions kept_;
    char keptIni_[sizeof gIniFileName];
    TempDir dir_;
    FakeDialog dialog_;
    HostTable host_{};
};

// The chooser's Cancel keeps the font; its OK shows at once and waits for the dialog's OK.
TEST_F(AxesDialog, ChosenFontWaitsForTheDialogsOk) {
    gSteps = {{AXES_ID_FONT, ""}, {SETUP_ID_OK, ""}};
    EXPECT_EQ(AxesOptionsDialog(nullptr), 1);
    EXPECT_EQ(std::tuple(dialog_.controls[AXES_ID_FONT_TEXT].text,
                         Describe(gPlotOptions.captionFont),
                         dialog_.controls[AXES_ID_GRID_PEN_TEXT].text),
              std::tuple("Arial, 9pt\n", "Arial, 9pt\n", "Dot, 0 px, RGB=(192,192,192)"));
    gFontAnswer = 1;
    gSteps = {{AXES_ID_FONT, ""}, {SETUP_ID_CANCEL, ""}};
    EXPECT_EQ(AxesOptionsDialog(nullptr), 0);
    EXPECT_EQ(
        std::tuple(dialog_.controls[AXES_ID_FONT_TEXT].text, Describe(gPlotOptions.captionFont)),
        std::tuple("Courier New, 14pt\n", "Arial, 9pt\n"));
    gSteps = {{AXES_ID_FONT, ""}, {SETUP_ID_OK, "25"}};
    EXPECT_EQ(AxesOptionsDialog(nullptr), 1);
    EXPECT_EQ(std::tuple(Describe(gPlotOptions.captionFont), gPlotOptions.captionFont.color,
                         gPlotOptions.gridX),
              std::tuple("Courier New, 14pt\n", 0xFF0000u, 25u));
}

TEST_F(AxesDialog, BadPenWidthIsReportedAndTheOldPenKept) {
    gPenFields.style = PEN_DASH;
    BoundedCopy(gPenFields.width, "2x");
    gPenFields.color = 0x0000FF;
    gSteps = {{AXES_ID_AXES_PEN, ""}, {SETUP_ID_OK, ""}};
    EXPECT_EQ(AxesOptionsDialog(nullptr), 1);
    ASSERT_EQ(HeadlessBoxes().size(), 1u);
    EXPECT_EQ(HeadlessBoxes()[0].caption + "|" + HeadlessBoxes()[0].text,
              "Axes Pen|GPenUIException -- the pen width is invalid");
    const GPen& axes = gPlotOptions.axesPen;
    EXPECT_EQ(std::tuple(axes.style, axes.width, axes.color), std::tuple(PEN_SOLID, 1, 0x800000u));

    BoundedCopy(gPenFields.width, "3");
    gSteps = {{AXES_ID_GRID_PEN, ""}, {SETUP_ID_OK, ""}};
    EXPECT_EQ(AxesOptionsDialog(nullptr), 1);
    EXPECT_EQ(dialog_.controls[AXES_ID_GRID_PEN_TEXT].text, "Dash, 3 px, RGB=(255,000,000)");
    EXPECT_EQ(std::tuple(gPlotOptions.gridPen.style, gPlotOptions.gridPen.width, axes.width),
              std::tuple(PEN_DASH, 3, 1));
}

// Save writes nothing with a bad row; Load takes the font and pens into the dialog only.
TEST_F(AxesDialog, SaveAndLoadTakeTheFontAndPensAlong) {
    gFontAnswer = 1;
    gSteps = {{AXES_ID_FONT, ""}, {SETUP_ID_SAVE, "1"}, {SETUP_ID_CANCEL, ""}};
    AxesOptionsDialog(nullptr);
    EXPECT_EQ(std::tuple(dialog_.beeps, Key("AxesCaptionFontSize")), std::tuple(1, -1));
    gSteps = {{AXES_ID_FONT, ""}, {SETUP_ID_SAVE, "30"}, {SETUP_ID_CANCEL, ""}};
    AxesOptionsDialog(nullptr);
    EXPECT_EQ(std::tuple(Key("AxesCaptionFontSize"), Key("GridX"), Key("GridLinesStyle")),
              std::tuple(14, 30, PEN_DOT));
    EXPECT_EQ(std::tuple(gPlotOptions.captionFont.height, gPlotOptions.gridX), std::tuple(9u, 10u));

    WritePrivateProfileString("Setup", "GridLinesWidth", "4", gIniFileName);
    WritePrivateProfileString("Setup", "AxesCaptionFontName", "Times", gIniFileName);
    gSteps = {{SETUP_ID_LOAD, ""}, {SETUP_ID_CANCEL, ""}};
    AxesOptionsDialog(nullptr);
    EXPECT_EQ(dialog_.controls[AXES_ID_GRID_PEN_TEXT].text, "Dot, 4 px, RGB=(192,192,192)");
    EXPECT_EQ(gPlotOptions.gridPen.width, 0);
    gSteps = {{SETUP_ID_LOAD, ""}, {SETUP_ID_OK, ""}};
    EXPECT_EQ(AxesOptionsDialog(nullptr), 1);
    EXPECT_EQ(
        std::tuple(gPlotOptions.gridPen.width, std::string(gPlotOptions.captionFont.faceName)),
        std::tuple(4, "Times"));
}

} // namespace
