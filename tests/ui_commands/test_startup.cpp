#include "ui/command_ids.h"
#include "commands_fixture.h"

#include "common/test_support.h"
#include "files/data_file.h"
#include "ui/settings_registry.h"
#include "instrument/daq_cards.h"
#include "common/fake_rack.h"
#include "measure/measure_options.h"
#include "support/cmdline.h"
#include "support/program_folder.h"
#include "ui/startup.h"

#include <string>
#include <vector>

namespace {

class Startup : public Commands {
  protected:
    void SetUp() override {
        Commands::SetUp();
        gRack = FakeRack();
        SetDaqDriver(&kFakeDriver);
        std::snprintf(gIniFileName, sizeof gIniFileName, "untouched.ini");
    }
    void TearDown() override {
        SetDaqDriver(nullptr);
        ResetCards();
        FreeCommandLine();
    }
    // The parser keeps pointers into the vector, so both live as long as the test.
    void Parse(std::vector<std::string> args) {
        args_ = std::move(args);
        args_.insert(args_.begin(), "vantrel");
        argv_.clear();
        for (std::string& a : args_)
            argv_.push_back(a.data());
        ParseArgv(int(argv_.size()), argv_.data());
    }
    std::vector<std::string> args_;
    std::vector<char*> argv_;
    static FakeCard Multifunction() {
        FakeCard c;
        c.adcBits = 16;
        c.adcChannels = {{0, 15}};
        c.dacChannels = 2;
        return c;
    }
};

// No ADC: the two messages, and the end before any settings are read; no cards at all is no DAC.
TEST_F(Startup, NoAdcGivesTheTwoMessagesAndEndsBeforeTheSettings) {
    FakeCard dac;
    dac.dacChannels = 8;
    gRack.cards = {dac};
    Parse({});
    EXPECT_EQ(StartupCreate(nullptr), STARTUP_NO_ADC);
    auto boxes = HeadlessBoxes();
    ASSERT_EQ(boxes.size(), 2u);
    EXPECT_EQ(boxes[0].caption, "DAC/ADC Initialization Error");
    EXPECT_NE(boxes[0].text.find("[ ] no DACs\n[x] no ADCs\nVantrel will show"), std::string::npos);
    EXPECT_EQ(std::tuple(boxes[1].caption, boxes[1].text),
              std::tuple("Detected NIDAQ Cards", gHardwareReport));
    EXPECT_STREQ(gIniFileName, "untouched.ini");
    gRack.cards = {};
    ResetCards();
    EXPECT_EQ(StartupCreate(nullptr), STARTUP_NO_DAC);
}

// The switches name the settings and the user; files named on the command line open instead of
// the About box.
TEST_F(Startup, SwitchesNameTheSettingsAndTheUserAndNamedFilesOpenInsteadOfAbout) {
    TempDir dir;
    WriteWholeFile(dir.File("my.ini"), "[Measure]\r\nInteractionTime=77\r\n");
    Fill(2, 3);
    ASSERT_EQ(SaveDataFile(nullptr, dir.File("f.dat").c_str()), 0);
    uint32_t old = InteractionTime;
    gRack.cards = {Multifunction()};
    Parse({"-i:" + dir.File("my.ini"), "-u:Ada", dir.File("f.dat"), dir.File("f.dat")});
    EXPECT_EQ(StartupCreate(nullptr), STARTUP_RUNNING);
    EXPECT_EQ(std::tuple(HeadlessBoxes().size(), std::string(gIniFileName), InteractionTime,
                         std::string(gUserName)),
              std::tuple(0u, dir.File("my.ini"), 77u, "Ada"));
    InteractionTime = old;
    static int posted = 0;
    StartupFinish(nullptr, [](void*, int command) { posted = command; });
    EXPECT_EQ(posted, 266);
    CommandDispatch(nullptr, IDM_OPEN_COMMAND_LINE_FILES);
    EXPECT_EQ(std::tuple(gCurves.count, fDataSaved, HeadlessWindow().abouts), std::tuple(4u, 1, 0));
}

// Without switches: vtl.ini beside the program, an anonymous user and the About box; Load
// Options takes the chosen file, and Save Options writes there.
TEST_F(Startup, WithoutSwitchesAboutShowsAndTheOptionsCommandsUseTheChosenFile) {
    // Settings validate against the cards, so the rack comes first.
    gRack.cards = {Multifunction()};
    Parse({});
    ASSERT_EQ(StartupCreate(nullptr), STARTUP_RUNNING);
    StartupFinish(nullptr, nullptr);
    EXPECT_EQ(
        std::tuple(std::string(gIniFileName), std::string(gUserName), HeadlessWindow().abouts),
        std::tuple(std::string(ProgramDirectory()) + "vtl.ini", "anonymous", 1));
    TempDir dir;
    WriteWholeFile(dir.File("other.ini"), "[Measure]\r\nInteractionTime=321\r\n");
    uint32_t old = InteractionTime;
    HeadlessScriptDialog(1, dir.File("other.ini"));
    CommandDispatch(nullptr, IDM_LOAD_OPTIONS);
    EXPECT_EQ(std::tuple(std::string(gIniFileName), InteractionTime),
              std::tuple(dir.File("other.ini"), 321u));
    InteractionTime = 654;
    CommandDispatch(nullptr, IDM_SAVE_OPTIONS);
    EXPECT_NE(ReadWholeFile(dir.File("other.ini")).find("InteractionTime=654"), std::string::npos);
    InteractionTime = old;
}

} // namespace
