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

TEST(InternalError, BeepsThenShowsFileAndLine) {
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
}

// The texts of the other exception classes, and the common-dialog errors, have no caller in the
// programs yet; the exceptions share one way to select a text, tested on those that have.
TEST(Exceptions, CodesSelectTheirTexts) {
    EXPECT_STRNE(GFontException(-1).Message(), GFontException(-2).Message());
    // Codes from 0 up are unknown; codes below the table fail the check as well.
    AssertCapture capture;
    for (auto [code, checks] : {std::pair(0, 0), {1, 0}, {-2, 1}}) {
        EXPECT_STREQ(GPenUIException(code).Message(), "Unknown GPenUIException");
        EXPECT_STREQ(GFontException(code - checks).Message(), "Unknown GFontException");
        EXPECT_EQ(capture.Count(), 2 * checks);
    }
}
