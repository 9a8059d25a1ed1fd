#include "common/test_support.h"
#include "support/cmdline.h"

#include <gtest/gtest.h>

#include <cstring>
#include <string>
#include <tuple>
#include <vector>

using ::testing::ExitedWithCode;

namespace {

// The parser keeps pointers into the line, so the line lives in the fixture.
class CmdLine : public ::testing::Test {
  protected:
    void Parse(const std::string& text) {
        line_.assign(text.begin(), text.end());
        line_.push_back('\0');
        ASSERT_TRUE(ParseCommandLine(line_.data()));
    }
    void TearDown() override { FreeCommandLine(); }
    std::vector<char> line_;
};
using CmdLineDeathTest = CmdLine;

std::vector<std::string> Words() {
    std::vector<std::string> words;
    for (int i = 1; const char* p = Positional(i); ++i)
        words.push_back(p);
    return words;
}

} // namespace

// The escapes, case-insensitive matching, word lists, doubles, integer positionals and value
// lists of the parser have no caller in the programs yet; their tests come with the first one.

TEST_F(CmdLine, SplitsOnWhiteSpaceAndQuotes) {
    Parse("  a\tb\r\n\xFF \"my file.dat\" ab'c d'e `x y` \"\" \"say \"\"hi\"\"\" 'it''s' "
          "\"a\\tb\" \"open");
    // Backslashes stay as they are unless escapes are asked for.
    EXPECT_EQ(Words(), (std::vector<std::string>{"a", "b", "my file.dat", "abc de", "x y", "",
                                                 "say \"hi\"", "it's", "a\\tb", "open"}));
    EXPECT_STREQ(Positional(0), "prog.exe");
    std::string many;
    for (int i = 0; i < 100; ++i)
        many += "w" + std::to_string(i) + " ";
    Parse(many);
    EXPECT_EQ(PositionalCount(), 101);
    EXPECT_STREQ(Positional(100), "w99");
}

TEST_F(CmdLine, SwitchesMatchOverTheNameLength) {
    Parse("file -i:myfile.ini -ux /i:x -I:big");
    char a[64], b[64], c[5], x[64];
    EXPECT_EQ((std::vector<int>{FindSwitch("i:", a, sizeof a), FindSwitch("i", b, sizeof b),
                                FindSwitch("ux:", x, sizeof x), FindSwitch("file", x, sizeof x),
                                FindSwitch("i:", c, sizeof c), FindSwitchAfter(2, "i:", x, 64)}),
              (std::vector<int>{2, 2, 0, 0, 2, 0}));
    EXPECT_EQ(std::tuple(std::string(a), std::string(b), std::string(c)),
              std::tuple("myfile.ini", ":myfile.ini", "myfi"));
    // "/" begins a path here: a positional, never a switch.
    EXPECT_EQ(Words(), (std::vector<std::string>{"file", "/i:x"}));
}

TEST_F(CmdLine, ValuesAndDefaults) {
    Parse("-n:-42 -a+ -b- -c -u:\"Ann Lee\"");
    EXPECT_EQ(std::tuple(SwitchInt("n:", 3), SwitchInt("k:", 3)), std::tuple(-42, 3));
    // "+" and "-" set and clear; a bare switch flips the default; no switch keeps it.
    EXPECT_EQ((std::vector<int>{SwitchBool("a", 0), SwitchBool("b", 1), SwitchBool("c", 0),
                                SwitchBool("c", 1), SwitchBool("e", 1)}),
              (std::vector<int>{1, 0, 1, 0, 1}));
    char name[8], fallback[8];
    SwitchString("u:", "nobody", name, sizeof name);
    SwitchString("q:", "default", fallback, sizeof fallback);
    EXPECT_EQ(std::tuple(std::string(name), std::string(fallback)),
              std::tuple("Ann Lee", "default"));
}

// A bad value ends the program with status 4 and a message that names the switch.
TEST_F(CmdLineDeathTest, BadSwitchValues) {
    Parse("-n:4x -big:99999999999 -v:yes -u:");
    static char text[16];
    const std::pair<void (*)(), const char*> cases[] = {
        {[] { SwitchInt("n:", 0); }, "^Invalid -n: parameter -- not an integer number\n$"},
        {[] { SwitchInt("big:", 0); }, "not an integer number"},
        {[] { SwitchBool("v:", 0); }, "^Invalid -v: parameter -- not \\+,- or space\n$"},
        {[] { SwitchString("u:", "x", text, sizeof text); },
         "^Invalid -u: parameter -- string missing\n$"},
    };
    for (const auto& [call, message] : cases)
        EXPECT_EXIT(call(), ExitedWithCode(4), message);
}

TEST_F(CmdLine, OptionsFileIsOverruledByTheCommandLine) {
    TempDir dir;
    WriteWholeFile(dir.File("my opts"), "-n:5 -s:fromfile\r\n-b:+\n");
    Parse("-n:7 \"-@" + dir.File("my opts") + "\"");
    char text[16];
    SwitchString("s:", "", text, sizeof text);
    EXPECT_EQ(std::tuple(SwitchInt("n:", 0), std::string(text), SwitchBool("b:", 0)),
              std::tuple(7, "fromfile", 1));
    FreeCommandLine();
    EXPECT_STREQ(gOptionsFileText, "");
    WriteWholeFile(dir.File("full"), "-k:1 " + std::string(4091, ' '));
    Parse("-@" + dir.File("full"));
    EXPECT_EQ(std::strlen(gOptionsFileText), 4096u);
    EXPECT_EQ(SwitchInt("k:", 0), 1);
}

TEST_F(CmdLineDeathTest, OptionsFileFailures) {
    TempDir dir;
    std::string missing = dir.File("missing");
    EXPECT_EXIT(Parse("-@" + missing), ExitedWithCode(3),
                "^Can't open option's file '" + missing + "'$");
    EXPECT_EXIT(Parse("-@"), ExitedWithCode(4), "^Invalid -@ parameter -- string missing\n$");
    WriteWholeFile(dir.File("big"), std::string(4097, ' '));
    EXPECT_EXIT(Parse("-@" + dir.File("big")), ExitedWithCode(5),
                "^Internal error: options file is larger than 4096 bytes\n$");
    WriteWholeFile(dir.File("long"), "-u:abcdefghij -n:x");
    Parse("-@" + dir.File("long"));
    char text[8];
    EXPECT_EXIT(SwitchString("u:", "", text, sizeof text), ExitedWithCode(5),
                "^Internal Error in StringFindSwith\\(\\) -- buffer is too small\nFile: .*, line "
                "[0-9]+\nContact developers\n$");
    EXPECT_EXIT(SwitchInt("n:", 0), ExitedWithCode(4), "-n: parameter -- not an integer");
}

// The verb is the first positional: usage without one, exit status 2 for an unknown one.
TEST(CliCommandLine, VerbIsTheFirstPositional) {
    ProcessResult r = RunCli({});
    EXPECT_EQ(r.exitCode, 0);
    EXPECT_NE(r.out.find("usage: vantrel-cli"), std::string::npos);
    r = RunCli({"-daq:sim", "no-such-verb"});
    EXPECT_EQ(r.exitCode, 2);
    EXPECT_NE(r.err.find("unknown verb 'no-such-verb'"), std::string::npos);
    EXPECT_EQ(RunCli({"-daq:sim"}).exitCode, 0);
}
