#include "common/test_support.h"
#include "platform/headless_host.h"
#include "support/block_exchange.h"
#include "support/bounded_text.h"
#include "support/dynamic_array.h"
#include "support/message_box.h"

#include <gtest/gtest.h>

#include <string>
#include <tuple>
#include <vector>

TEST(BoundedText, CopyAndAppendCutAndTerminate) {
    char full[8], cut[8], buf[8];
    EXPECT_EQ((std::vector<int>{BoundedCopy(full, "1234567"), BoundedCopy(cut, "12345678"),
                                BoundedCopy(buf, "ab"), BoundedAppend(buf, "cde")}),
              (std::vector<int>{1, 0, 1, 1}));
    EXPECT_EQ(std::tuple(std::string(full), std::string(cut), std::string(buf)),
              std::tuple("1234567", "1234567", "abcde"));
    EXPECT_EQ((std::vector<int>{BoundedAppend(buf, "fgh"), BoundedAppend(buf, "")}),
              (std::vector<int>{0, 1}));
    EXPECT_STREQ(buf, "abcdefg");
    // A null pointer is a programming error.
    AssertCapture capture;
    EXPECT_EQ(BoundedCopy(buf, nullptr, 4), 0);
    EXPECT_EQ(std::tuple(capture.Count(), std::string(buf)), std::tuple(1, "abcdefg"));
}

TEST(BlockExchange, ExchangesEvenBlocksAndRefusesOddOnes) {
    char a[14] = "abcdefghijklm", b[14] = "NOPQRSTUVWXYZ";
    ExchangeBlocks(a, b, 12);
    ExchangeBlocks(a, a, 12);
    EXPECT_EQ(std::tuple(std::string(a), std::string(b)),
              std::tuple("NOPQRSTUVWXYm", "abcdefghijklZ"));
    AssertCapture capture;
    ExchangeBlocks(a, b, 3);
    ExchangeBlocks(nullptr, b, 2);
    EXPECT_EQ(std::tuple(capture.Count(), std::string(a)), std::tuple(2, "NOPQRSTUVWXYm"));
}

TEST(DynamicArray, ReadPastCountFailsTheCheck) {
    DynamicArray array(3);
    array[2] = 7;
    ASSERT_EQ(array.Resize(5), 1);
    EXPECT_EQ(std::tuple(array[2], array[4]), std::tuple(7, 0));
    AssertCapture capture;
    EXPECT_EQ(array[5], 0);
    EXPECT_EQ(capture.Messages(), std::vector<std::string>{"i>=0"});
}

// The box beeps with its icon's sound first; without an answer the headless host takes the
// default button.
TEST(MessageBoxBeep, BeepsWithTheIconSoundBeforeTheBox) {
    HeadlessScriptAnswer(IDNO);
    EXPECT_EQ(MessageBoxBeep(nullptr, "Continue?", "Undo", MB_YESNO | MB_ICONQUESTION), IDNO);
    EXPECT_EQ(MessageBoxBeep(nullptr, "Done", "Info", MB_OK | MB_ICONINFORMATION | 0x1000), IDOK);
    EXPECT_EQ(HeadlessBeeps(), (std::vector<unsigned>{MB_ICONQUESTION, MB_ICONINFORMATION}));
    auto boxes = HeadlessBoxes();
    ASSERT_EQ(boxes.size(), 2u);
    EXPECT_EQ(std::tuple(boxes[0].caption, boxes[0].text, boxes[0].answer),
              std::tuple("Undo", "Continue?", IDNO));
    EXPECT_EQ((std::vector<int>{DefaultButton(MB_YESNO), DefaultButton(MB_YESNO | MB_DEFBUTTON2),
                                DefaultButton(MB_YESNOCANCEL | MB_DEFBUTTON3)}),
              (std::vector<int>{IDYES, IDNO, IDCANCEL}));
}
