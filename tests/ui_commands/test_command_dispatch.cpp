#include "ui/command_ids.h"
#include "commands_fixture.h"

#include "common/test_support.h"
#include "files/data_file.h"
#include "ui/settings_registry.h"
#include "measure/measure_options.h"
#include "ui/memory_handler.h"

#include <string>

namespace {

const char kUnsaved[] = "You have unsaved data!\nWould you like to save them now?";

TEST_F(Commands, ExitAsksWhenUnsavedAndCancelKeepsTheWindow) {
    HeadlessScriptAnswer(IDCANCEL);
    EXPECT_EQ(CommandDispatch(nullptr, IDM_EXIT), 1);
    ASSERT_EQ(HeadlessBoxes().size(), 1u);
    EXPECT_EQ(HeadlessBoxes()[0].caption, "Vantrel");
    EXPECT_EQ(HeadlessBoxes()[0].text, kUnsaved);
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
    EXPECT_TRUE(HeadlessBoxes().empty());
    EXPECT_EQ(HeadlessWindow().destroyed, 1);

    HeadlessScriptDialog(1, dir.File("run.dat"));
    CommandDispatch(nullptr, IDM_ADD);
    EXPECT_EQ(gCurves.count, 4u);
    EXPECT_EQ(fDataSaved, 0);
    HeadlessScriptAnswer(IDCANCEL);
    CommandDispatch(nullptr, IDM_EXIT);
    EXPECT_EQ(HeadlessBoxes().size(), 1u);
    EXPECT_EQ(HeadlessWindow().destroyed, 1);
}

TEST_F(Commands, YesSavesThroughSaveAsAndItsCancelKeepsTheWindow) {
    Fill(1, 3);
    HeadlessScriptAnswer(IDYES);
    HeadlessScriptDialog(0); // the Save As dialog is cancelled
    CommandDispatch(nullptr, IDM_EXIT);
    EXPECT_EQ(HeadlessWindow().destroyed, 0);
    EXPECT_EQ(fDataSaved, 0);
}

TEST_F(Commands, OpenReplacesAndMarksSaved) {
    TempDir dir;
    Fill(3, 4);
    ASSERT_EQ(SaveDataFile(nullptr, dir.File("a.dat").c_str()), 0);
    gCurves.Reset();
    Fill(1, 2);
    fDataSaved = 1;
    HeadlessScriptDialog(1, dir.File("a.dat"));
    EXPECT_EQ(CommandDispatch(nullptr, IDM_OPEN), 1);
    EXPECT_EQ(gCurves.count, 3u);
    EXPECT_EQ(fDataSaved, 1);
    EXPECT_EQ(std::string(gWindowTitle), "Vantrel -- " + dir.File("a.dat"));
    EXPECT_EQ(gUndoCurves.count, 1u);
}

TEST_F(Commands, UndoTwiceRestoresWhatTheFirstRemoved) {
    Fill(2, 3);
    CommandDispatch(nullptr, IDM_CLEAR_SCREEN); // Clear Screen
    EXPECT_EQ(gCurves.count, 0u);
    CommandDispatch(nullptr, IDM_UNDO);
    EXPECT_EQ(gCurves.count, 2u);
    CommandDispatch(nullptr, IDM_UNDO);
    EXPECT_EQ(gCurves.count, 0u);
    CommandDispatch(nullptr, IDM_UNDO);
    EXPECT_EQ(gCurves.count, 2u);
    EXPECT_FLOAT_EQ(gCurves.GetCurve(1).GetPoint(2).y, 2.0f);
}

TEST_F(Commands, ClearScreenSwapAndUndoKeepTheSavedState) {
    for (int saved : {0, 1}) {
        Fill(1, 3);
        fDataSaved = saved;
        gViewScale.scaleAuto = 0;
        CommandDispatch(nullptr, IDM_CLEAR_SCREEN);
        EXPECT_EQ(gViewScale.scaleAuto, 1);
        CommandDispatch(nullptr, IDM_UNDO);
        CommandDispatch(nullptr, IDM_SWAP_XY);
        EXPECT_EQ(fDataSaved, saved);
    }
    EXPECT_GE(HeadlessWindow().refreshes, 6);
}

TEST_F(Commands, SwapExchangesTheViewOnlyWhenNotAutomatic) {
    Fill(1, 3);
    gViewScale = ViewScale();
    gViewScale.scaleAuto = 0;
    gViewScale.xMax = 5;
    gViewScale.yMax = 7;
    CommandDispatch(nullptr, IDM_SWAP_XY);
    EXPECT_EQ(gViewScale.xMax, 7);
    EXPECT_EQ(gViewScale.yMax, 5);
    EXPECT_FLOAT_EQ(gCurves.GetCurve(0).GetPoint(2).x, 0.0f);
    gViewScale.scaleAuto = 1;
    CommandDispatch(nullptr, IDM_SWAP_XY);
    EXPECT_EQ(gViewScale.xMax, 7);
}

TEST_F(Commands, FirstAndLastPointChangePlaces) {
    Fill(1, 4);
    CommandDispatch(nullptr, IDM_REVERSE_POINTS);
    EXPECT_FLOAT_EQ(gCurves.GetCurve(0).GetPoint(0).x, 3.0f);
    EXPECT_FLOAT_EQ(gCurves.GetCurve(0).GetPoint(3).x, 0.0f);
    EXPECT_EQ(fDataSaved, 0);
}

TEST_F(Commands, DerivativeClearsTheSavedStateAndReportsShortCurves) {
    Fill(2, 4);
    gCurves.GetCurve(0).Resize(1);
    fDataSaved = 1;
    CommandDispatch(nullptr, IDM_DYDX_X);
    EXPECT_EQ(fDataSaved, 0);
    EXPECT_EQ(gCurves.count, 1u);
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
    EXPECT_EQ(gSelectionState, 0);
    EXPECT_EQ(gCurves.CountMarked(), 0u);
    EXPECT_TRUE(RefuseInSelection(nullptr) == false);
    EXPECT_EQ(gCurves.CountMarked(), 2u);
    SetSelectionState(2);
    EXPECT_TRUE(RefuseInSelection(nullptr));
    EXPECT_EQ(HeadlessBoxes().back().caption, "Math & Selection");
}

TEST_F(Commands, DroppedFilesFirstReplacesThenAddsAndCancelOpensNothing) {
    TempDir dir;
    Fill(2, 3);
    ASSERT_EQ(SaveDataFile(nullptr, dir.File("d.dat").c_str()), 0);
    std::string path = dir.File("d.dat");
    const char* paths[] = {path.c_str(), path.c_str()};
    fDataSaved = 0;
    HeadlessScriptAnswer(IDCANCEL);
    EXPECT_FALSE(DropFiles(nullptr, paths, 2));
    EXPECT_EQ(gCurves.count, 2u);
    HeadlessScriptAnswer(IDNO);
    EXPECT_TRUE(DropFiles(nullptr, paths, 2));
    EXPECT_EQ(gCurves.count, 4u);
    EXPECT_EQ(fDataSaved, 0);
}

TEST_F(Commands, HelpShowsTheOutOfDateWarning) {
    CommandDispatch(nullptr, IDM_HELP_SEARCH);
    ASSERT_EQ(HeadlessBoxes().size(), 1u);
    EXPECT_EQ(HeadlessBoxes()[0].caption, "Warning");
    EXPECT_EQ(HeadlessBoxes()[0].text.rfind("The help file is out-of-date.", 0), 0u);
}

TEST_F(Commands, OptionsCommandsGoThroughTheSetupDialog) {
    uint32_t old = InteractionTime;
    HeadlessScriptDialog(0);
    EXPECT_EQ(CommandDispatch(nullptr, IDM_OPT_DELAY), 1);
    EXPECT_EQ(InteractionTime, old);
    int before = HeadlessWindow().refreshes;
    CommandDispatch(nullptr, IDM_OPT_GENERAL); // General repaints afterwards
    EXPECT_EQ(HeadlessWindow().refreshes, before + 1);
}

TEST_F(Commands, StyleGoesToTheFirstMarkedCurve) {
    Fill(3, 2);
    gCurves.GetCurve(2).Mark();
    CommandDispatch(nullptr, IDM_CTX_STYLE);
    EXPECT_EQ(HeadlessWindow().lastStyleSlot, 2);
}

TEST(MemoryHandler, AsksRetryOrCancelWithTheSize) {
    HeadlessReset();
    HeadlessScriptAnswer(IDRETRY);
    EXPECT_TRUE(AskRetryAllocation(1234));
    HeadlessScriptAnswer(IDCANCEL);
    EXPECT_FALSE(AskRetryAllocation(1));
    auto boxes = HeadlessBoxes();
    ASSERT_EQ(boxes.size(), 2u);
    EXPECT_EQ(boxes[0].caption, "Vantrel");
    EXPECT_NE(boxes[0].text.find("allocate 1234 bytes."), std::string::npos);
    EXPECT_EQ(boxes[0].flags & MB_TYPEMASK, unsigned(MB_RETRYCANCEL));
}

} // namespace

namespace {

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
    r = RunCli({"plot", dir.File("p.dat")});
    EXPECT_EQ(r.exitCode, 2);
}

} // namespace

namespace {

TEST_F(Commands, CalibrationCurveWithNoTableKeepsTheFamily) {
    Fill(2, 3);
    fDataSaved = 1;
    CommandDispatch(nullptr, IDM_SHOW_CALIBRATION_CURVE);
    EXPECT_EQ(gCurves.count, 2u);
    EXPECT_FALSE(HeadlessBoxes().empty());
    EXPECT_EQ(fDataSaved, 0);
}

} // namespace
