#include "common/test_support.h"
#include "fake_dialog.h"
#include "settings/profile.h"
#include "ui/settings_registry.h"
#include "platform/headless_host.h"
#include "ui/setup_dialog.h"

#include <gtest/gtest.h>

#include <cstring>
#include <tuple>

namespace {

int32_t gA;
uint32_t gB;
float gC;
char gD[16];
int32_t gE;
int32_t gF;
uint32_t gStatus;
int gCallbackStarts;
int gCallbackClaims; // when set, the callback deals with every command

int Callback(SetupDialog* dialog, int controlId, void* handle, int) {
    if (controlId == 0 && handle == dialog) ++gCallbackStarts;
    return gCallbackClaims;
}

const int kMasterSlaves[] = {14, 10, 11};
const int kMasterHides[] = {14, 13};
const Dependency kDeps[] = {{0, 2, kMasterSlaves}, {4, 1, kMasterHides}, {0, 1, nullptr}};

SetupRow gRows[8];
SetupTable gTable;

class SetupTableTest : public ::testing::Test {
  protected:
    void SetUp() override {
        gA = gE = gF = 1, gB = 50, gC = 1.5f, gStatus = 7;
        std::strcpy(gD, "abc");
        gCallbackStarts = gCallbackClaims = 0;
        gRows[0] = SetupIntRow(10, &gA, "T", "A", -5, 5);
        gRows[1] = SetupUIntRow(11, &gB, "T", "B", 100, 10); // descending pair
        gRows[2] = SetupFloatRow(12, &gC, "T", "C", 0.5f, 2.5f);
        gRows[3] = SetupTextRow(13, gD, sizeof gD, "T", "D");
        gRows[4] = SetupCheckRow(14, &gE, "T", "E");
        gRows[5] = SetupRadioRow(20, &gF, "T", "F");
        gRows[6] = SetupUIntRow(15, &gStatus, "T", nullptr, 0, 10);
        gRows[7] = SetupUIntRow(16, &gStatus, "T", "Unused", 0, 10);
        gRows[7].kind = 3;
        gTable = {8, gRows, Callback, 3, kDeps};
        for (int id : {10, 11, 12, 13, 14, 15, 16})
            fake.controls[id];
        fake.AddRadioGroup(20, 3);
        std::snprintf(gIniFileName, sizeof gIniFileName, "%s", ini.File("vtl.ini").c_str());
    }
    void TearDown() override { SetCurrentSetupTable(nullptr); }
    std::string Texts() {
        return fake.controls[10].text + "|" + fake.controls[11].text + "|" +
               fake.controls[12].text + "|" + fake.controls[13].text;
    }
    int Command(int id, int notification = 0) {
        return SetupDlg_Command(&fake.dialog, id, nullptr, notification);
    }
    FakeDialog fake;
    TempDir ini;
};

} // namespace

// Save writes each kind and skips rows without a key; Load takes what the file has.
TEST_F(SetupTableTest, SaveAndLoadEachKind) {
    gC = 0.25f;
    std::strcpy(gD, "a=b c");
    ASSERT_EQ(SaveOptionTable(&gTable, gIniFileName), 1);
    EXPECT_EQ(ReadWholeFile(gIniFileName),
              "[T]\r\nA=1\r\nB=50\r\nC=0.25\r\nD=a=b c\r\nE=1\r\nF=1\r\n");
    EXPECT_EQ(gRows[3].value.text, nullptr); // the block went back
    WriteWholeFile(gIniFileName,
                   "[t]\r\na=-3\r\nC=?\r\nd=xyz\r\nF=2\r\nUnused=9\r\nB=4000000000\r\n");
    ASSERT_EQ(LoadOptionTable(&gTable, gIniFileName), 1);
    // The file is not range-checked; "?" counts as missing.
    EXPECT_EQ(std::tuple(gA, gB, gC, std::string(gD), gE, gF, gStatus),
              std::tuple(-3, 4000000000u, 0.25f, "xyz", 1, 2, 7u));
    // A text longer than the buffer is cut to it.
    WriteWholeFile(gIniFileName, "[T]\r\nD=" + std::string(40, 'q') + "\r\n");
    LoadOptionTable(&gTable, gIniFileName);
    EXPECT_EQ(std::string(gD), std::string(15, 'q'));
}

TEST_F(SetupTableTest, OpenFillsTheControlsAndRunsCallbackAndDependencies) {
    gE = 0;
    ASSERT_EQ(SetupDlg_Open(&gTable, &fake.dialog), 1);
    EXPECT_EQ(GetCurrentSetupTable(), &gTable);
    EXPECT_EQ(Texts(), "1|50|1.5|abc");
    EXPECT_EQ(std::tuple(fake.controls[13].limit, fake.controls[20].check, fake.controls[21].check,
                         fake.controls[22].check, gCallbackStarts),
              std::tuple(15u, 0, 1, 0, 1));
    EXPECT_FALSE(fake.controls[10].enabled || fake.controls[13].shown);
    // A click on the master runs the pass; typing in a field does not.
    fake.controls[14].check = 1;
    EXPECT_EQ(Command(12, 0x300), -1);
    EXPECT_FALSE(fake.controls[10].enabled);
    EXPECT_EQ(Command(14), -1);
    EXPECT_TRUE(fake.controls[10].enabled && fake.controls[13].shown);
}

TEST_F(SetupTableTest, OkWithABadValueBeepsFocusesAndStaysOpen) {
    SetupDlg_Open(&gTable, &fake.dialog);
    for (const char* bad : {"6", "x", "", "2 3", "99999999999"}) {
        fake.controls[10].text = bad;
        fake.beeps = 0;
        EXPECT_EQ(Command(SETUP_ID_OK), -1) << bad;
        EXPECT_EQ(std::tuple(fake.beeps, fake.focused, fake.selectedAll, fake.ended),
                  std::tuple(1, 10, 10, -1))
            << bad;
    }
    fake.controls[10].text = "-5";
    fake.controls[11].text = "-20";
    EXPECT_EQ(Command(SETUP_ID_OK), -1);
    EXPECT_EQ(fake.focused, 11);
    fake.controls[11].text = "9"; // below the pair taken the other way round
    EXPECT_EQ(Command(SETUP_ID_OK), -1);
    fake.controls[11].text = " 100 ";
    fake.controls[12].text = "2.6";
    EXPECT_EQ(Command(SETUP_ID_OK), -1);
    EXPECT_EQ(std::tuple(fake.focused, gA), std::tuple(12, 1)); // nothing committed yet
    fake.controls[12].text = "2.5";
    fake.controls[13].text = "new";
    fake.controls[14].check = fake.controls[20].check = fake.controls[21].check = 0;
    fake.controls[22].check = 1;
    EXPECT_EQ(Command(SETUP_ID_OK), 1);
    EXPECT_EQ(std::tuple(fake.ended, GetCurrentSetupTable()), std::tuple(1, nullptr));
    EXPECT_EQ(std::tuple(gA, gB, gC, std::string(gD), gE, gF),
              std::tuple(-5, 100u, 2.5f, "new", 0, 2));
}

// A disabled field is not checked; a static one and a missing one keep their values.
TEST_F(SetupTableTest, ADisabledFieldIsNotCheckedAndKeepsItsValue) {
    SetupDlg_Open(&gTable, &fake.dialog);
    fake.controls[14].check = 0;
    Command(14);
    ASSERT_FALSE(fake.controls[10].enabled);
    fake.controls[10].text = "garbage";
    fake.controls[15].isStatic = true;
    fake.controls[15].text = "999";
    fake.controls.erase(13);
    EXPECT_EQ(Command(SETUP_ID_OK), 1);
    EXPECT_EQ(std::tuple(fake.beeps, gA, gStatus, std::string(gD), gE),
              std::tuple(0, 1, 7u, "abc", 0));
}

// Load fills the controls, and the pass follows the loaded master; Cancel keeps the variables.
TEST_F(SetupTableTest, LoadThenCancelLeavesTheVariables) {
    WriteWholeFile(gIniFileName, "[T]\r\nA=4\r\nD=from file\r\nE=0\r\n");
    SetupDlg_Open(&gTable, &fake.dialog);
    EXPECT_EQ(Command(SETUP_ID_LOAD), -1);
    EXPECT_EQ(Texts(), "4|50|1.5|from file"); // B and C not in the file: the live values
    EXPECT_FALSE(fake.controls[10].enabled);
    EXPECT_EQ(Command(SETUP_ID_CANCEL), 0);
    EXPECT_EQ(std::tuple(fake.ended, GetCurrentSetupTable(), gA, std::string(gD), gE),
              std::tuple(0, nullptr, 1, "abc", 1));
}

// A callback that deals with a command stops the engine, and the dependency pass too.
TEST_F(SetupTableTest, ACallbackThatDealsWithTheCommandStopsEverythingElse) {
    SetupDlg_Open(&gTable, &fake.dialog);
    gCallbackClaims = 1;
    fake.controls[14].check = 0;
    EXPECT_EQ(Command(SETUP_ID_OK), -1);
    EXPECT_EQ(std::tuple(fake.ended, fake.controls[10].enabled), std::tuple(-1, true));
}

TEST_F(SetupTableTest, AMissingRadioButtonEndsTheDialogWithAMessage) {
    fake.controls.erase(20);
    EXPECT_EQ(SetupDlg_Open(&gTable, &fake.dialog), 0);
    EXPECT_EQ(std::tuple(fake.ended, GetCurrentSetupTable(), gRows[3].value.text),
              std::tuple(0, nullptr, nullptr));
    auto boxes = HeadlessBoxes();
    ASSERT_EQ(boxes.size(), 1u);
    EXPECT_EQ(boxes[0].caption + "|" + boxes[0].text,
              "SetupDlg failure|Can not find radio button with specified ID\nContact developper "
              "and describe what were you doing.");
}

TEST(SetupDependencies, EveryActionInEveryState) {
    // Slave 2 starts disabled and hidden, so every effect is visible.
    const char* expected[8] = {"DDE", "EED", "D-E", "E-D", "H-S", "S-H", "DED", "EDE"};
    for (unsigned action = 0; action < 8; ++action) {
        for (int state = 0; state < 3; ++state) { // unchecked, third state, checked
            FakeDialog fake;
            fake.controls[1].check = state == 0 ? 0 : state == 1 ? 2 : 1;
            fake.controls[2].enabled = !(expected[action][state] == 'E');
            fake.controls[2].shown = !(expected[action][state] == 'S');
            const int ids[] = {1, 2};
            Dependency dep = {action, 1, ids};
            SetupTable table = {0, nullptr, nullptr, 1, &dep};
            AssertCapture capture;
            ProcessDependencies(&table, &fake.dialog);
            const FakeControl& slave = fake.controls[2];
            const char effect = expected[action][state];
            if (effect == '-')
                EXPECT_EQ(capture.Messages(),
                          std::vector<std::string>{"Wrong action in master-slave dependency"});
            else // D and E disable and enable, H and S hide and show
                EXPECT_EQ(effect == 'D' || effect == 'E' ? slave.enabled : slave.shown,
                          effect == 'E' || effect == 'S');
        }
    }
}
