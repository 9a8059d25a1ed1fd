#include "common/test_support.h"
#include "support/cmdline.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <cstring>
#include <string>
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
    void TearDown() override {
        FreeCommandLine();
        gEscapes = 0;
        gCaseInsensitive = 0;
    }
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

TEST_F(CmdLine, SplitsOnWhiteSpaceAndQuotes) {
    Parse("  a\tb\r\n\xFF \"my file.dat\" ab'c d'e `x y` \"\" \"say \"\"hi\"\"\" 'it''s' \"open");
    EXPECT_EQ(Words(), (std::vector<std::string>{"a", "b", "my file.dat", "abc de", "x y", "",
                                                 "say \"hi\"", "it's", "open"}));
    EXPECT_STREQ(Positional(0), "prog.exe");
    std::string many;
    for (int i = 0; i < 100; ++i)
        many += "w" + std::to_string(i) + " ";
    Parse(many);
    EXPECT_EQ(PositionalCount(), 101);
    EXPECT_STREQ(Positional(100), "w99");
}

TEST_F(CmdLine, EscapesOnlyWhenAskedAndOnlyInQuotes) {
    Parse("\"a\\tb\"");
    EXPECT_STREQ(Positional(1), "a\\tb");
    gEscapes = 1;
    Parse("\"\\a\\b\\f\\n\\r\\t\\v\" \"\\\\\\'\\\"\\?\" \"\\x41\\101\" c\\n \"\\q\" \"\\x4A\"");
    // \x is 16 * first + second - '0' in 8 bits: right for digits only, so \x4A is 'Q'.
    EXPECT_EQ(Words(),
              (std::vector<std::string>{"\a\b\f\n\r\t\v", "\\'\"?", "AA", "c\\n", "\\q", "Q"}));
    Parse("\"ab\\x4");
    EXPECT_EQ(std::string(Positional(1)), "ab\x04");
    Parse("\"ab\\12");
    EXPECT_EQ(std::string(Positional(1)), "ab\n");
}

TEST_F(CmdLine, SwitchesMatchOverTheNameLength) {
    Parse("file -i:myfile.ini -ux /i:x -I:big");
    char text[64];
    EXPECT_EQ(FindSwitch("i:", text, sizeof text), 2);
    EXPECT_STREQ(text, "myfile.ini");
    EXPECT_EQ(FindSwitch("i", text, sizeof text), 2);
    EXPECT_STREQ(text, ":myfile.ini");
    EXPECT_EQ(FindSwitch("ux:", text, sizeof text), 0);
    EXPECT_EQ(FindSwitch("file", text, sizeof text), 0);
    EXPECT_EQ(FindSwitch("i:", text, 5), 2);
    EXPECT_STREQ(text, "myfi");
    // "/" begins a path here: a positional, never a switch.
    EXPECT_EQ(Words(), (std::vector<std::string>{"file", "/i:x"}));
    EXPECT_EQ(FindSwitchAfter(2, "i:", text, sizeof text), 0);
    gCaseInsensitive = 1;
    EXPECT_EQ(FindSwitchAfter(2, "i:", text, sizeof text), 5);
    EXPECT_STREQ(text, "big");
}

TEST_F(CmdLine, WordsOfAText) {
    const char* list = "  -a:1\r\n-bb:two\t-c \xFF-d:4";
    char text[8] = "";
    EXPECT_TRUE(FindSwitchIn(list, "bb:", text, sizeof text));
    EXPECT_STREQ(text, "two");
    EXPECT_TRUE(FindSwitchIn(list, "d:", text, sizeof text));
    EXPECT_STREQ(text, "4");
    EXPECT_FALSE(FindSwitchIn("a:1 b:2", "a:", text, sizeof text));
    EXPECT_EQ(CountWords(list), 4u);
    EXPECT_TRUE(WordAt(list, 1, text, 4));
    EXPECT_STREQ(text, "-bb");
    EXPECT_FALSE(WordAt(list, 4, text, sizeof text));
}

TEST_F(CmdLine, ValuesAndDefaults) {
    Parse("-n:-42 -x:1.5e3 -a+ -b- -c -u:\"Ann Lee\" -d:\"1.5,2;3 4\t5\" -l:,10;;-3, 7 2.5");
    EXPECT_EQ((std::vector<int>{SwitchInt("n:", 3), SwitchInt("k:", 3), PositionalInt(1, 0),
                                PositionalInt(3, -1)}),
              (std::vector<int>{-42, 3, 7, -1}));
    EXPECT_DOUBLE_EQ(SwitchDouble("x:", 0), 1500.0);
    EXPECT_DOUBLE_EQ(PositionalDouble(2, 0), 2.5);
    // "+" and "-" set and clear; a bare switch flips the default; no switch keeps it.
    EXPECT_EQ((std::vector<int>{SwitchBool("a", 0), SwitchBool("b", 1), SwitchBool("c", 0),
                                SwitchBool("c", 1), SwitchBool("e", 1)}),
              (std::vector<int>{1, 0, 1, 0, 1}));
    char text[8];
    SwitchString("u:", "nobody", text, sizeof text);
    EXPECT_STREQ(text, "Ann Lee");
    SwitchString("q:", "default", text, sizeof text);
    EXPECT_STREQ(text, "default");
    double d[8] = {};
    EXPECT_EQ(SwitchDoubleList("d:", d, 8), 5u);
    EXPECT_DOUBLE_EQ(d[4], 5.0);
    int n[4] = {};
    EXPECT_EQ(SwitchIntList("l:", n, 3), 2u);
    EXPECT_EQ(n[1], -3);
    EXPECT_EQ(SwitchIntList("none:", n, 4), 0u);
}

// A bad value ends the program with status 4 and a message that names the switch.
TEST_F(CmdLineDeathTest, BadSwitchValuesAndLists) {
    Parse("-n:4x -big:99999999999 -x:abc -v:yes -u: -d:1,x -i:1,2.5 -o:1,99999999999 -h:1e999 "
          "-f:1,2,3,4");
    static double d[8];
    static int n[8];
    static char text[16];
    const std::pair<void (*)(), const char*> cases[] = {
        {[] { SwitchInt("n:", 0); }, "^Invalid -n: parameter -- not an integer number\n$"},
        {[] { SwitchInt("big:", 0); }, "not an integer number"},
        {[] { SwitchDouble("x:", 0); }, "^Invalid -x: parameter -- not a number\n$"},
        {[] { SwitchBool("v:", 0); }, "^Invalid -v: parameter -- not \\+,- or space\n$"},
        {[] { SwitchString("u:", "x", text, sizeof text); },
         "^Invalid -u: parameter -- string missing\n$"},
        {[] { SwitchDoubleList("d:", d, 8); }, "^Bad formed list of doubles in -d:$"},
        {[] { SwitchIntList("i:", n, 8); }, "^Bad formed list of doubles in -i:$"},
        {[] { SwitchIntList("o:", n, 8); }, "Bad formed list"},
        {[] { SwitchDoubleList("h:", d, 8); }, "Bad formed list"},
        // A list that fills its capacity exactly is already too long.
        {[] { SwitchIntList("f:", n, 4); },
         "^Too long list of values in -f:\\. Maximum 4 items allowed\\.$"},
    };
    for (const auto& [call, message] : cases)
        EXPECT_EXIT(call(), ExitedWithCode(4), message);
    EXPECT_EQ(SwitchDoubleList("f:", d, 5), 4u);
}

TEST_F(CmdLineDeathTest, BadPositionalsNameTheirOrdinal) {
    std::string text;
    for (int i = 0; i < 22; ++i)
        text += "bad ";
    Parse(text);
    for (const char* ordinal : {"1st", "2nd", "3rd", "4th", "11st", "12nd", "13rd", "21st", "22nd"})
        EXPECT_EXIT(PositionalInt(std::atoi(ordinal), 0), ExitedWithCode(4),
                    std::string("^The ") + ordinal +
                        " parameter is invalid:\"bad\" is not an integer\n$");
    EXPECT_EXIT(PositionalDouble(3, 0), ExitedWithCode(4),
                "^The 3rd parameter is invalid:\"bad\" is not an floating point number\n$");
}

TEST_F(CmdLine, OptionsFileIsOverruledByTheCommandLine) {
    TempDir dir;
    WriteWholeFile(dir.File("my opts"), "-n:5 -s:fromfile\r\n-b:+\n-l:1,2");
    Parse("-n:7 \"-@" + dir.File("my opts") + "\"");
    EXPECT_EQ(SwitchInt("n:", 0), 7);
    char text[16];
    SwitchString("s:", "", text, sizeof text);
    EXPECT_STREQ(text, "fromfile");
    EXPECT_EQ(SwitchBool("b:", 0), 1);
    int list[4];
    EXPECT_EQ(SwitchIntList("l:", list, 4), 2u);
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
    TempDir dir;
    r = RunCli({"-@" + dir.File("none")});
    EXPECT_EQ(r.exitCode, 3);
    EXPECT_EQ(r.err, "Can't open option's file '" + dir.File("none") + "'");
}
