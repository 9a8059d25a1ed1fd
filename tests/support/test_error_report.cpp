#include "common/test_support.h"
#include "platform/headless_host.h"
#include "support/error_report.h"
#include "support/exceptions.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

std::vector<std::string> gEvents;

int RecordBox(void*, const char* text, const char* caption, unsigned) {
    gEvents.push_back(std::string(caption) + ": " + text);
    return IDOK;
}

void RecordBeep(unsigned kind) {
    gEvents.push_back("beep " + std::to_string(kind));
}

} // namespace

TEST(InternalError, BeepsThenShowsKindFileAndLine) {
    // One sequence for beeps and boxes, so that their order shows.
    static HostTable host = HeadlessHostTable();
    host.MessageBox = RecordBox;
    host.Beep = RecordBeep;
    gEvents.clear();
    SetHost(&host);
    InternalError(0, 42, "curve.cpp");
    SetHost(nullptr);
    EXPECT_EQ(gEvents, (std::vector<std::string>{
                           "beep 16", "Vantrel Error!: Internal Error\n File: curve.cpp     Line: "
                                      "42\nContact a developer\nYou would better close Vantrel "
                                      "and start it again"}));
}

TEST(InternalError, KindsWithAndWithoutText) {
    for (int kind : {1, 2, 3, 4, 5, -1})
        InternalError(kind, 9, "c.cpp");
    auto boxes = HeadlessBoxes();
    ASSERT_EQ(boxes.size(), 3u);
    EXPECT_EQ(boxes[0].text.substr(0, 17), "Load String Fail\n");
    EXPECT_EQ(boxes[1].text.substr(0, 22), "String internal error\n");
    EXPECT_EQ(boxes[2].text.substr(0, 10), "Dxb error\n");
    EXPECT_EQ(HeadlessBeeps().size(), 3u);
}

TEST(ReportCommDlgError, TableCodesShowTheirTexts) {
    const unsigned long codes[] = {0xFFFF, 1,      2,      3,      4,      5,      6,
                                   7,      8,      9,      10,     11,     0x1001, 0x1002,
                                   0x1003, 0x1004, 0x1005, 0x1006, 0x1007, 0x1008, 0x1009,
                                   0x100A, 0x100B, 0x2001, 0x3001, 0x3002, 0x3003};
    int number = 1;
    for (unsigned long code : codes)
        EXPECT_EQ(CommDlgErrorStringNumber(code), number++) << code;
    for (unsigned long code : {0xFFFFul, 2ul, 0x100Bul, 0x3003ul, 0ul, 12ul, 0x100Cul, 0x3004ul})
        ReportCommDlgError(code);
    auto boxes = HeadlessBoxes();
    ASSERT_EQ(boxes.size(), 4u);
    EXPECT_EQ(boxes[0].caption, "CommDlg");
    EXPECT_EQ(boxes[0].text, "Creation of CD failed on call to DialogBox()");
    EXPECT_EQ(boxes[1].text, "Failure initializing CD.  Possibly\n\r do to insufficient memory.");
    EXPECT_EQ(boxes[2].text, "Printer not found");
    EXPECT_EQ(boxes[3].text, "Buffer passed to CD too small to accomodate string");
}

TEST(ReportCommDlgError, MissingStringHasItsOwnBox) {
    ShowCommDlgErrorString(28);
    auto boxes = HeadlessBoxes();
    ASSERT_EQ(boxes.size(), 1u);
    EXPECT_EQ(boxes[0].caption, "Process CommDlg Erorr");
    EXPECT_EQ(boxes[0].text, "Can't load error string from resource");
}

TEST(Exceptions, CodesSelectTheirTexts) {
    EXPECT_STREQ(MeasureIcException(-1).Message(), "Abort requested");
    EXPECT_STREQ(LeastSquareFitException(-2).Message(),
                 "LeastSquareFitException -- the denominator is zero (A&B are infinite)");
    EXPECT_STREQ(StatisticException(-1).Message(),
                 "Can't compute average value - the number of elements is zero");
    EXPECT_STREQ(StatisticException(-3).Message(),
                 "Can not compute relative delta -- average is zero");
    EXPECT_STRNE(GFontException(-1).Message(), GFontException(-2).Message());
    for (int code : {0, 1}) {
        EXPECT_STREQ(MeasureIcException(code).Message(), "Unknown exception");
        EXPECT_STREQ(LeastSquareFitException(code).Message(), "Unknown LeastSquareFitException");
        EXPECT_STREQ(StatisticException(code).Message(), "Unknown StatisticException");
        EXPECT_STREQ(GFontException(code).Message(), "Unknown GFontException");
        EXPECT_STREQ(GPenUIException(code).Message(), "Unknown GPenUIException");
    }
}

TEST(Exceptions, CodesBelowTheTableFailTheCheck) {
    AssertCapture capture;
    EXPECT_STREQ(MeasureIcException(-2).Message(), "Unknown exception");
    EXPECT_STREQ(LeastSquareFitException(-3).Message(), "Unknown LeastSquareFitException");
    EXPECT_STREQ(StatisticException(-4).Message(), "Unknown StatisticException");
    EXPECT_STREQ(GFontException(-3).Message(), "Unknown GFontException");
    EXPECT_STREQ(GPenUIException(-2).Message(), "Unknown GPenUIException");
    EXPECT_EQ(capture.Count(), 5);
}
