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

// A blank is the no-prefix entry: the float product 1e-12 * 1000^4, not a literal 1.
TEST(TakePrefix, StripsThePrefixAndGivesItsFactor) {
    const float blank = 1e-12f * 1000.0f * 1000.0f * 1000.0f * 1000.0f;
    for (auto [unit, factor] :
         {std::pair("mV", 1e-3f), {"\xB5V", 1e-6f}, {"V", 1.0f}, {" V", blank}}) {
        char text[16];
        std::strcpy(text, unit);
        EXPECT_EQ(TakePrefix(text), factor) << unit;
        EXPECT_STREQ(text, "V") << unit;
    }
}

// Above the range the prefix stays as it was.
TEST(PrefixOf, ScaleAndPrefixOverTheRange) {
    for (auto [value, result, expected, factor] : {std::tuple(0.5, 0, "m", 1e-3),
                                                   {5e-12, 0, "p", 1e-12},
                                                   {1e-13, -1, "p", 1e-12},
                                                   {2e15, 1, "untouched", 1e15}}) {
        double scale = 0;
        const char* prefix = "untouched";
        EXPECT_EQ(PrefixOf(value, scale, prefix), result) << value;
        EXPECT_STREQ(prefix, expected) << value;
        EXPECT_DOUBLE_EQ(scale, factor) << value;
    }
}
