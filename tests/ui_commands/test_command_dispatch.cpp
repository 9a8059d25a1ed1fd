#include "ui/command_ids.h"
#include "commands_fixture.h"

#include "common/test_support.h"
#include "files/data_file.h"

#include <string>

namespace {

TEST_F(Commands, ExitAsksWhenUnsavedAndCancelKeepsTheWindow) {
    HeadlessScriptAnswer(IDCANCEL);
    EXPECT_EQ(CommandDispatch(nullptr, IDM_EXIT), 1);
    ASSERT_EQ(HeadlessBoxes().size(), 1u);
    EXPECT_EQ(HeadlessBoxes()[0].caption + "|" + HeadlessBoxes()[0].text,
              "Vantrel|You have unsaved data!\nWould you like to save them now?");
    EXPECT_EQ(HeadlessBoxes()[0].flags & MB_TYPEMASK, unsigned(MB_YESNOCANCEL));
    EXPECT_EQ(HeadlessWindow().destroyed, 0);
    // Yes saves through Save As, and its Cancel keeps the window too.
    HeadlessScriptAnswer(IDYES);
    HeadlessScriptDialog(0);
    CommandDispatch(nullptr, IDM_EXIT);
    EXPECT_EQ(std::tuple(HeadlessWindow().destroyed, fDataSaved), std::tuple(0, 0));
    HeadlessScriptAnswer(IDNO);
    CommandDispatch(nullptr, IDM_EXIT);
    EXPECT_EQ(HeadlessWindow().destroyed, 1);
}

TEST_F(Commands, SaveThenExitDoesNotAskButAddMakesItAskAgain) {
    TempDir dir;
    Fill(2, 5);
    HeadlessScriptDialog(1, dir.File("run.dat"));
    EXPECT_EQ(CommandDispatch(nullptr, IDM_SAVE), 1);
    EXPECT_EQ(fDataSaved, 1);
    EXPECT_FALSE(ReadWholeFile(dir.File("run.dat")).empty());
    CommandDispatch(nullptr, IDM_EXIT);
    EXPECT_EQ(std::tuple(HeadlessBoxes().size(), HeadlessWindow().destroyed), std::tuple(0u, 1));

    HeadlessScriptDialog(1, dir.File("run.dat"));
    CommandDispatch(nullptr, IDM_ADD);
    EXPECT_EQ(std::tuple(gCurves.count, fDataSaved), std::tuple(4u, 0));
    HeadlessScriptAnswer(IDCANCEL);
    CommandDispatch(nullptr, IDM_EXIT);
    EXPECT_EQ(HeadlessBoxes().size(), 1u);
}

// Open replaces the family and marks it saved; dropped files: the first replaces, the rest add,
// and Cancel at the question opens nothing.
TEST_F(Commands, OpenAndDroppedFiles) {
    TempDir dir;
    const std::string path = dir.File("a.dat");
    Fill(3, 4);
    ASSERT_EQ(SaveDataFile(nullptr, path.c_str()), 0);
    Fill(1, 2);
    fDataSaved = 1;
    HeadlessScriptDialog(1, path);
    EXPECT_EQ(CommandDispatch(nullptr, IDM_OPEN), 1);
    EXPECT_EQ(std::tuple(gCurves.count, fDataSaved, std::string(gWindowTitle), gUndoCurves.count),
              std::tuple(3u, 1, "Vantrel -- " + path, 1u));

    const char* paths[] = {path.c_str(), path.c_str()};
    fDataSaved = 0;
    HeadlessScriptAnswer(IDCANCEL);
    EXPECT_FALSE(DropFiles(nullptr, paths, 2));
    EXPECT_EQ(gCurves.count, 3u);
    HeadlessScriptAnswer(IDNO);
    EXPECT_TRUE(DropFiles(nullptr, paths, 2));
    EXPECT_EQ(std::tuple(gCurves.count, fDataSaved), std::tuple(6u, 0));
}

// Clear Screen can be undone and makes the view automatic; Swap exchanges the view only when
// it is fixed; none of them, nor Undo, touches the saved state. Undo itself: tests/curve.
TEST_F(Commands, ClearScreenUndoSwapAndReverse) {
    Fill(2, 3);
    fDataSaved = 1;
    gViewScale = ViewScale();
    gViewScale.scaleAuto = 0;
    gViewScale.xMax = 5;
    gViewScale.yMax = 7;
    CommandDispatch(nullptr, IDM_SWAP_XY);
    EXPECT_EQ(std::tuple(gViewScale.xMax, gViewScale.yMax), std::tuple(7.0f, 5.0f));
    EXPECT_FLOAT_EQ(gCurves.GetCurve(0).GetPoint(2).x, 0.0f);
    CommandDispatch(nullptr, IDM_CLEAR_SCREEN);
    EXPECT_EQ(std::tuple(gCurves.count, gViewScale.scaleAuto), std::tuple(0u, 1));
    CommandDispatch(nullptr, IDM_UNDO);
    ASSERT_EQ(gCurves.count, 2u);
    CommandDispatch(nullptr, IDM_SWAP_XY);
    EXPECT_EQ(std::tuple(gViewScale.xMax, fDataSaved), std::tuple(7.0f, 1));
    // First pt <--> Last pt reverses the points of every curve.
    CommandDispatch(nullptr, IDM_REVERSE_POINTS);
    EXPECT_EQ(std::tuple(gCurves.GetCurve(1).GetPoint(0).y, gCurves.GetCurve(1).GetPoint(2).y),
              std::tuple(2.0f, 0.0f));
}

TEST_F(Commands, DerivativeClearsTheSavedStateAndReportsShortCurves) {
    Fill(2, 4);
    gCurves.GetCurve(0).Resize(1);
    fDataSaved = 1;
    CommandDispatch(nullptr, IDM_DYDX_X);
    // The report's text: tests/curve.
    EXPECT_EQ(std::tuple(fDataSaved, gCurves.count, HeadlessBoxes().size()), std::tuple(0, 1u, 1u));
}

TEST_F(Commands, DeSelectOnlyInsideASelection) {
    Fill(2, 2);
    gCurves.MarkAll();
    CommandDispatch(nullptr, IDM_DESELECT);
    EXPECT_EQ(gCurves.CountMarked(), 2u);
    SetSelectionState(2);
    CommandDispatch(nullptr, IDM_DESELECT);
    EXPECT_EQ(std::tuple(gSelectionState, gCurves.CountMarked()), std::tuple(0, 0u));
    EXPECT_FALSE(RefuseInSelection(nullptr));
    SetSelectionState(2);
    EXPECT_TRUE(RefuseInSelection(nullptr));
    EXPECT_EQ(HeadlessBoxes().back().caption, "Math & Selection");
}

// Help shows its warning; Style goes to the first marked curve; the calibration curve without
// a table keeps the family but clears the saved state.
TEST_F(Commands, HelpStyleAndCalibrationCurve) {
    CommandDispatch(nullptr, IDM_HELP_SEARCH);
    const HeadlessBox help = HeadlessBoxes().at(0);
    EXPECT_EQ(help.caption + "|" + help.text.substr(0, 29),
              "Warning|The help file is out-of-date.");
    Fill(3, 2);
    gCurves.GetCurve(2).Mark();
    CommandDispatch(nullptr, IDM_CTX_STYLE);
    EXPECT_EQ(HeadlessWindow().lastStyleSlot, 2);
    fDataSaved = 1;
    CommandDispatch(nullptr, IDM_SHOW_CALIBRATION_CURVE);
    EXPECT_EQ(std::tuple(gCurves.count, HeadlessBoxes().size(), fDataSaved), std::tuple(3u, 2u, 0));
}

} // namespace
