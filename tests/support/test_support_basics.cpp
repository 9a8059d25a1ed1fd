#include "common/test_support.h"
#include "platform/headless_host.h"
#include "support/block_exchange.h"
#include "support/bounded_text.h"
#include "support/dynamic_array.h"
#include "support/message_box.h"

#include <gtest/gtest.h>

#include <cstring>

TEST(BoundedText, CopyAndAppendCutAndTerminate) {
    char buf[8];
    EXPECT_EQ(BoundedCopy(buf, "1234567"), 1);
    EXPECT_STREQ(buf, "1234567");
    EXPECT_EQ(BoundedCopy(buf, "12345678"), 0);
    EXPECT_STREQ(buf, "1234567");
    EXPECT_EQ(BoundedCopy(buf, "ab"), 1);
    EXPECT_EQ(BoundedAppend(buf, "cde"), 1);
    EXPECT_STREQ(buf, "abcde");
    EXPECT_EQ(BoundedAppend(buf, "fgh"), 0);
    EXPECT_STREQ(buf, "abcdefg");
    EXPECT_EQ(BoundedAppend(buf, ""), 1);
}

TEST(BoundedText, NullPointerIsAProgrammingError) {
    AssertCapture capture;
    char buf[4] = "x";
    EXPECT_EQ(BoundedCopy(buf, nullptr, sizeof buf), 0);
    EXPECT_EQ(capture.Count(), 1);
    EXPECT_STREQ(buf, "x");
}

TEST(BlockExchange, ExchangesEvenBlocksAndRefusesOddOnes) {
    char a[14] = "abcdefghijklm", b[14] = "NOPQRSTUVWXYZ";
    ExchangeBlocks(a, b, 12);
    EXPECT_STREQ(a, "NOPQRSTUVWXYm");
    EXPECT_STREQ(b, "abcdefghijklZ");
    ExchangeBlocks(a, a, 12);
    EXPECT_STREQ(a, "NOPQRSTUVWXYm");
    AssertCapture capture;
    ExchangeBlocks(a, b, 3);
    ExchangeBlocks(nullptr, b, 2);
    EXPECT_EQ(capture.Count(), 2);
    EXPECT_STREQ(a, "NOPQRSTUVWXYm");
}

TEST(DynamicArray, ReadPastCountFailsTheCheck) {
    DynamicArray array(3);
    array[2] = 7;
    ASSERT_EQ(array.Resize(5), 1);
    EXPECT_EQ(array[2], 7);
    EXPECT_EQ(array[4], 0);
    AssertCapture capture;
    EXPECT_EQ(array[5], 0);
    ASSERT_EQ(capture.Count(), 1);
    EXPECT_EQ(capture.Messages()[0], "i>=0");
}

TEST(MessageBoxBeep, BeepsWithTheIconSoundBeforeTheBox) {
    HeadlessScriptAnswer(IDNO);
    EXPECT_EQ(MessageBoxBeep(nullptr, "Continue?", "Undo", MB_YESNO | MB_ICONQUESTION), IDNO);
    EXPECT_EQ(MessageBoxBeep(nullptr, "Done", "Info", MB_OK | MB_ICONINFORMATION | 0x1000), IDOK);
    auto beeps = HeadlessBeeps();
    ASSERT_EQ(beeps.size(), 2u);
    EXPECT_EQ(beeps[0], unsigned(MB_ICONQUESTION));
    EXPECT_EQ(beeps[1], unsigned(MB_ICONINFORMATION));
    auto boxes = HeadlessBoxes();
    ASSERT_EQ(boxes.size(), 2u);
    EXPECT_EQ(boxes[0].caption, "Undo");
    EXPECT_EQ(boxes[0].text, "Continue?");
    EXPECT_EQ(boxes[0].answer, IDNO);
}

TEST(HeadlessHost, DefaultButtons) {
    EXPECT_EQ(DefaultButton(MB_YESNO), IDYES);
    EXPECT_EQ(DefaultButton(MB_YESNO | MB_DEFBUTTON2), IDNO);
    EXPECT_EQ(DefaultButton(MB_RETRYCANCEL), IDRETRY);
    EXPECT_EQ(DefaultButton(MB_YESNOCANCEL | MB_DEFBUTTON3), IDCANCEL);
    EXPECT_EQ(DefaultButton(MB_OK), IDOK);
}

TEST(Cli, PrintsUsageWithoutAVerb) {
    ProcessResult r = RunCli({});
    EXPECT_EQ(r.exitCode, 0);
    EXPECT_NE(r.out.find("usage: vantrel-cli"), std::string::npos);
    r = RunCli({"no-such-verb"});
    EXPECT_EQ(r.exitCode, 2);
    EXPECT_NE(r.err.find("unknown verb 'no-such-verb'"), std::string::npos);
}
