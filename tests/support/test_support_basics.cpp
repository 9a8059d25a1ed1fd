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
    // A null pointer is a programming error.
    AssertCapture capture;
    EXPECT_EQ(BoundedCopy(buf, nullptr, 4), 0);
    EXPECT_EQ(capture.Count(), 1);
    EXPECT_STREQ(buf, "abcdefg");
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
    EXPECT_EQ(capture.Messages(), std::vector<std::string>{"i>=0"});
}

TEST(MessageBoxBeep, BeepsWithTheIconSoundBeforeTheBox) {
    HeadlessScriptAnswer(IDNO);
    EXPECT_EQ(MessageBoxBeep(nullptr, "Continue?", "Undo", MB_YESNO | MB_ICONQUESTION), IDNO);
    EXPECT_EQ(MessageBoxBeep(nullptr, "Done", "Info", MB_OK | MB_ICONINFORMATION | 0x1000), IDOK);
    EXPECT_EQ(HeadlessBeeps(), (std::vector<unsigned>{MB_ICONQUESTION, MB_ICONINFORMATION}));
    auto boxes = HeadlessBoxes();
    ASSERT_EQ(boxes.size(), 2u);
    EXPECT_EQ(std::tuple(boxes[0].caption, boxes[0].text, boxes[0].answer),
              std::tuple("Undo", "Continue?", IDNO));
}

TEST(HeadlessHost, DefaultButtons) {
    EXPECT_EQ(
        (std::vector<int>{DefaultButton(MB_YESNO), DefaultButton(MB_YESNO | MB_DEFBUTTON2),
                          DefaultButton(MB_RETRYCANCEL),
                          DefaultButton(MB_YESNOCANCEL | MB_DEFBUTTON3), DefaultButton(MB_OK)}),
        (std::vector<int>{IDYES, IDNO, IDRETRY, IDCANCEL, IDOK}));
}
