#include "common/test_support.h"
#include "platform/headless_host.h"
#include "support/error_report.h"
#include "support/exceptions.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

std::vector<std::string> gEvents;

} // namespace

TEST(InternalError, BeepsThenShowsKindFileAndLine) {
    // One sequence for beeps and boxes, so that their order shows.
    static HostTable host = HeadlessHostTable();
    host.MessageBox = [](void*, const char* text, const char* caption, unsigned) -> int {
        gEvents.push_back(std::string(caption) + ": " + text);
        return IDOK;
    };
    host.Beep = [](unsigned kind) { gEvents.push_back("beep " + std::to_string(kind)); };
    gEvents.clear();
    SetHost(&host);
    InternalError(0, 42, "curve.cpp");
    SetHost(nullptr);
    EXPECT_EQ(gEvents, (std::vector<std::string>{
                           "beep 16", "Vantrel Error!: Internal Error\n File: curve.cpp     Line: "
                                      "42\nContact a developer\nYou would better close Vantrel "
                                      "and start it again"}));
    // Kinds 1 to 3 have their own text; the others show nothing.
    for (int kind : {1, 2, 3, 4, 5, -1})
        InternalError(kind, 9, "c.cpp");
    std::vector<std::string> heads;
    for (const HeadlessBox& box : HeadlessBoxes())
        heads.push_back(box.text.substr(0, box.text.find('\n')));
    EXPECT_EQ(heads,
              (std::vector<std::string>{"Load String Fail", "String internal error", "Dxb error"}));
    EXPECT_EQ(HeadlessBeeps().size(), 3u);
}

TEST(ReportCommDlgError, CodesShowTheirTextsAndUnknownOnesNothing) {
    for (unsigned long code : {0xFFFFul, 2ul, 0x100Bul, 0x3003ul, 0ul, 12ul, 0x100Cul, 0x3004ul})
        ReportCommDlgError(code);
    ShowCommDlgErrorString(28);
    std::vector<std::string> shown;
    for (const HeadlessBox& box : HeadlessBoxes())
        shown.push_back(box.caption + ": " + box.text);
    EXPECT_EQ(shown, (std::vector<std::string>{
                         "CommDlg: Creation of CD failed on call to DialogBox()",
                         "CommDlg: Failure initializing CD.  Possibly\n\r do to insufficient "
                         "memory.",
                         "CommDlg: Printer not found",
                         "CommDlg: Buffer passed to CD too small to accomodate string",
                         "Process CommDlg Erorr: Can't load error string from resource"}));
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
    // Codes from 0 up are unknown; codes below the table fail the check as well.
    AssertCapture capture;
    for (auto [code, checks] : {std::pair(0, 0), {1, 0}, {-2, 1}}) {
        EXPECT_STREQ(MeasureIcException(code).Message(), "Unknown exception");
        EXPECT_STREQ(GPenUIException(code).Message(), "Unknown GPenUIException");
        EXPECT_STREQ(LeastSquareFitException(code - checks).Message(),
                     "Unknown LeastSquareFitException");
        EXPECT_STREQ(StatisticException(code - 2 * checks).Message(), "Unknown StatisticException");
        EXPECT_STREQ(GFontException(code - checks).Message(), "Unknown GFontException");
        EXPECT_EQ(capture.Count(), 5 * checks);
    }
}
