#include "common/test_support.h"
#include "support/physical_units.h"

#include <gtest/gtest.h>

#include <cstring>
#include <string>
#include <tuple>

namespace {

// The text, and the flags when they are not 0.
std::string Format(float value, const char* unit, size_t size = 64) {
    char text[64];
    int flags = FormatPhysical(text, value, unit, size);
    return text + (flags ? " flags " + std::to_string(flags) : "");
}

std::string Digits(float value, unsigned digits, const char* unit = "V") {
    char text[64];
    FormatPhysicalDigits(text, sizeof text, value, digits, unit);
    return text;
}

// The factor of the prefix, and what is left of the text.
std::pair<float, std::string> Take(const char* unit) {
    char text[16];
    std::strcpy(text, unit);
    float factor = TakePrefix(text);
    return {factor, text};
}

} // namespace

TEST(FormatPhysical, PrefixDecimalsAndRangeEnds) {
    // The first step of the exponent rule already holds 1e-13 at -12: no flag; exactly 10 keeps
    // three decimals.
    for (auto [value, unit, text] : {std::tuple(0.9999f, "A", "+999.9 mA"),
                                     {1.0f, "A", "+1.000  A"},
                                     {-0.00123f, "V", "-1.230 mV"},
                                     {2.5e-6f, "A",
                                      "+2.500 \xB5"
                                      "A"},
                                     {10.0f, "V", "+10.000  V"},
                                     {10.5f, "V", "+10.50  V"},
                                     {0.0f, "V", "+0.000 pV"},
                                     {1e-13f, "V", "+0.100 pV"},
                                     {999e12f, "V", "+999.0 TV"}})
        EXPECT_EQ(Format(value, unit), text) << value;
    EXPECT_EQ(Format(1e15f, "V"), "+0.000 (null)V flags " + std::to_string(PHYS_ABOVE_RANGE));
}

// A unit too long leaves the destination alone; a short destination is cut and flagged.
TEST(FormatPhysical, LongUnitAndShortDestination) {
    const char* unit26 = "abcdefghijklmnopqrstuvwxyz";
    char text[64] = "untouched";
    EXPECT_EQ(FormatPhysical(text, 1e16f, unit26, sizeof text),
              PHYS_UNIT_TOO_LONG | PHYS_ABOVE_RANGE);
    EXPECT_EQ(FormatPhysicalDigits(text, sizeof text, 1.0f, 3, unit26), PHYS_UNIT_TOO_LONG);
    EXPECT_STREQ(text, "untouched");
    EXPECT_EQ(Format(1.0f, unit26 + 1), std::string("+1.000  ") + (unit26 + 1));
    std::memset(text, 'x', sizeof text);
    EXPECT_EQ(FormatPhysical(text, 1.5f, "V", 8), PHYS_TEXT_CUT);
    EXPECT_EQ(std::string(text, 9), std::string("+1.500 \0x", 9));
    // "+1.500  V" is 9 characters: 10 bytes hold it, 9 do not.
    EXPECT_EQ(Format(1.5f, "V", 10), "+1.500  V");
    EXPECT_EQ(Format(1.5f, "V", 9), "+1.500   flags " + std::to_string(PHYS_TEXT_CUT));
    EXPECT_EQ(FormatPhysicalDigits(text, 8, 1.5f, 4, "V"), PHYS_TEXT_CUT);
    EXPECT_STREQ(text, "+1.500 ");
}

TEST(FormatPhysicalDigits, DecimalsFollowTheSignificantDigits) {
    EXPECT_EQ(Digits(0.00123f, 5), "+1.2300 mV");
    EXPECT_EQ(Digits(12.34f, 3), " +12.3  V");
    EXPECT_EQ(Digits(10.0f, 2), " +10.0  V");
    // Too few digits for the integer part: no decimals rather than a wrapped precision.
    EXPECT_EQ(Digits(123.0f, 2), "  +123  V");
    AssertCapture capture;
    EXPECT_EQ(Digits(1.5f, 1), "    +2  V");
    EXPECT_EQ(capture.Count(), 1);
}

TEST(TakePrefix, StripsThePrefixAndGivesItsFactor) {
    EXPECT_EQ(Take("mV"), std::pair(1e-3f, std::string("V")));
    EXPECT_EQ(Take("\xB5"
                   "A"),
              std::pair(1e-6f, std::string("A")));
    EXPECT_EQ(Take("TV"), std::pair(1e12f, std::string("V")));
    EXPECT_EQ(Take("V"), std::pair(1.0f, std::string("V")));
    // A blank is the no-prefix entry: the float product 1e-12 * 1000^4, not a literal 1.
    EXPECT_EQ(Take(" V"),
              std::pair(1e-12f * 1000.0f * 1000.0f * 1000.0f * 1000.0f, std::string("V")));
}

TEST(PrefixOf, ScaleAndPrefixOverTheRange) {
    double scale = 0;
    const char* prefix = "";
    for (auto [value, result, expected, factor] :
         {std::tuple(0.5, 0, "m", 1e-3), {5e-12, 0, "p", 1e-12}, {1e-13, -1, "p", 1e-12}}) {
        EXPECT_EQ(PrefixOf(value, scale, prefix), result);
        EXPECT_STREQ(prefix, expected);
        EXPECT_DOUBLE_EQ(scale, factor);
    }
    const char* untouched = "untouched";
    prefix = untouched;
    EXPECT_EQ(PrefixOf(2e15, scale, prefix), 1);
    EXPECT_EQ(prefix, untouched);
    EXPECT_DOUBLE_EQ(scale, 1e15);
}
