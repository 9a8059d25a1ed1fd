#include "ui/command_ids.h"
#include "commands_fixture.h"

#include "common/test_support.h"
#include "files/data_file.h"
#include "ui/memory_handler.h"

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

TEST_F(Commands, YesSavesThroughSaveAsAndItsCancelKeepsTheWindow) {
    Fill(1, 3);
    HeadlessScriptAnswer(IDYES);
    HeadlessScriptDialog(0); // the Save As dialog is cancelled
    CommandDispatch(nullptr, IDM_EXIT);
    EXPECT_EQ(std::tuple(HeadlessWindow().destroyed, fDataSaved), std::tuple(0, 0));
}

// Open replaces the family and marks it saved; dropped files: the first replaces, the rest add,
// and Cancel at the question opens nothing.
TEST_F(Commands, OpenAndDroppedFiles) {
    TempDir dir;
    const std::string path = dir.File("a.dat");
    Fill(3, 4);
    ASSERT_EQ(SaveDataFile(nullptr, path.c_str()), 0);
    gCurves.Reset();
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

// Undo twice restores what the first removed; Clear Screen, Undo and Swap keep the saved state.
TEST_F(Commands, UndoClearScreenSwapAndReverse) {
    for (int saved : {0, 1}) {
        gCurves.Reset();
        Fill(2, 3);
        fDataSaved = saved;
        gViewScale.scaleAuto = 0;
        CommandDispatch(nullptr, IDM_CLEAR_SCREEN);
        EXPECT_EQ(std::tuple(gCurves.count, gViewScale.scaleAuto), std::tuple(0u, 1));
        CommandDispatch(nullptr, IDM_UNDO);
        EXPECT_EQ(gCurves.count, 2u);
        CommandDispatch(nullptr, IDM_UNDO);
        EXPECT_EQ(gCurves.count, 0u);
        CommandDispatch(nullptr, IDM_UNDO);
        ASSERT_EQ(gCurves.count, 2u);
        EXPECT_FLOAT_EQ(gCurves.GetCurve(1).GetPoint(2).y, 2.0f);
        CommandDispatch(nullptr, IDM_SWAP_XY);
        EXPECT_EQ(fDataSaved, saved);
    }
    // Swap exchanges the view only when it is not automatic.
    gCurves.Reset();
    Fill(2, 3);
    gViewScale = ViewScale();
    gViewScale.scaleAuto = 0;
    gViewScale.xMax = 5;
    gViewScale.yMax = 7;
    CommandDispatch(nullptr, IDM_SWAP_XY);
    EXPECT_EQ(std::tuple(gViewScale.xMax, gViewScale.yMax), std::tuple(7.0f, 5.0f));
    EXPECT_FLOAT_EQ(gCurves.GetCurve(0).GetPoint(2).x, 0.0f);
    gViewScale.scaleAuto = 1;
    CommandDispatch(nullptr, IDM_SWAP_XY);
    EXPECT_EQ(gViewScale.xMax, 7);
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
    EXPECT_EQ(std::tuple(fDataSaved, gCurves.count), std::tuple(0, 1u));
    ASSERT_EQ(HeadlessBoxes().size(), 1u);
    EXPECT_EQ(HeadlessBoxes()[0].text,
              "Some curves consisted of 0 or 1 point only.\nThey have been discarded.");
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
    ASSERT_EQ(HeadlessBoxes().size(), 1u);
    EXPECT_EQ(HeadlessBoxes()[0].caption, "Warning");
    EXPECT_EQ(HeadlessBoxes()[0].text.rfind("The help file is out-of-date.", 0), 0u);
    Fill(3, 2);
    gCurves.GetCurve(2).Mark();
    CommandDispatch(nullptr, IDM_CTX_STYLE);
    EXPECT_EQ(HeadlessWindow().lastStyleSlot, 2);
    fDataSaved = 1;
    CommandDispatch(nullptr, IDM_SHOW_CALIBRATION_CURVE);
    EXPECT_EQ(std::tuple(gCurves.count, HeadlessBoxes().size(), fDataSaved), std::tuple(3u, 2u, 0));
}

TEST(MemoryHandler, AsksRetryOrCancelWithTheSize) {
    HeadlessReset();
    HeadlessScriptAnswer(IDRETRY);
    EXPECT_TRUE(AskRetryAllocation(1234));
    HeadlessScriptAnswer(IDCANCEL);
    EXPECT_FALSE(AskRetryAllocation(1));
    ASSERT_EQ(HeadlessBoxes().size(), 2u);
    const HeadlessBox box = HeadlessBoxes()[0];
    EXPECT_EQ(std::tuple(box.caption, box.text.find("allocate 1234 bytes.") != std::string::npos,
                         box.flags & MB_TYPEMASK),
              std::tuple("Vantrel", true, unsigned(MB_RETRYCANCEL)));
}

TEST(PlotVerb, DrawsADataFileIntoAPng) {
    TempDir dir;
    gCurves.Reset();
    gCurves.SetCurveCount(1);
    for (int i = 0; i < 50; ++i)
        gCurves.GetCurve(0).AddPoint(float(i), float(i % 7));
    ASSERT_EQ(SaveDataFile(nullptr, dir.File("p.dat").c_str()), 0);
    gCurves.Reset();
    ProcessResult r =
        RunCli({"plot", dir.File("p.dat"), "-o:" + dir.File("p.png"), "-w:320", "-h:200"});
    if (r.err.find("unknown verb") != std::string::npos) GTEST_SKIP() << "built without Qt";
    EXPECT_EQ(r.exitCode, 0) << r.err;
    EXPECT_EQ(ReadWholeFile(dir.File("p.png")).substr(0, 4), "\x89PNG");
    EXPECT_EQ(RunCli({"plot", dir.File("p.dat")}).exitCode, 2);
}

} // namespace
