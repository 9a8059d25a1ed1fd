#include "common/test_support.h"
#include "support/physical_units.h"

#include <gtest/gtest.h>

#include <cstring>
#include <string>

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
    EXPECT_EQ(Format(0.9999f, "A"), "+999.9 mA");
    EXPECT_EQ(Format(1.0f, "A"), "+1.000  A");
    EXPECT_EQ(Format(-0.00123f, "V"), "-1.230 mV");
    EXPECT_EQ(Format(2.5e-6f, "A"), "+2.500 \xB5"
                                    "A");
    EXPECT_EQ(Format(3e12f, "Hz"), "+3.000 THz");
    EXPECT_EQ(Format(10.0f, "V"), "+10.000  V"); // exactly 10 keeps three decimals
    EXPECT_EQ(Format(10.5f, "V"), "+10.50  V");
    EXPECT_EQ(Format(0.0f, "V"), "+0.000 pV");
    // The first step of the exponent rule already holds these at -12: no flag.
    EXPECT_EQ(Format(1e-13f, "V"), "+0.100 pV");
    EXPECT_EQ(Format(1e-12f, "V"), "+1.000 pV");
    EXPECT_EQ(Format(1e15f, "V"), "+0.000 (null)V flags " + std::to_string(PHYS_ABOVE_RANGE));
    EXPECT_EQ(Format(999e12f, "V"), "+999.0 TV");
}

TEST(FormatPhysical, LongUnitLeavesTheDestinationAlone) {
    const char* unit26 = "abcdefghijklmnopqrstuvwxyz";
    char text[64] = "untouched";
    EXPECT_EQ(FormatPhysical(text, 1e16f, unit26, sizeof text),
              PHYS_UNIT_TOO_LONG | PHYS_ABOVE_RANGE);
    EXPECT_EQ(FormatPhysicalDigits(text, sizeof text, 1.0f, 3, unit26), PHYS_UNIT_TOO_LONG);
    EXPECT_STREQ(text, "untouched");
    EXPECT_EQ(Format(1.0f, unit26 + 1), std::string("+1.000  ") + (unit26 + 1));
}

TEST(FormatPhysical, ShortDestinationIsCutAndFlagged) {
    char text[16];
    std::memset(text, 'x', sizeof text);
    EXPECT_EQ(FormatPhysical(text, 1.5f, "V", 8), PHYS_TEXT_CUT);
    EXPECT_STREQ(text, "+1.500 ");
    EXPECT_EQ(text[8], 'x');
    // "+1.500  V" is 9 characters: 10 bytes hold it, 9 do not.
    EXPECT_EQ(Format(1.5f, "V", 10), "+1.500  V");
    EXPECT_EQ(Format(1.5f, "V", 9), "+1.500   flags " + std::to_string(PHYS_TEXT_CUT));
    EXPECT_EQ(FormatPhysicalDigits(text, 8, 1.5f, 4, "V"), PHYS_TEXT_CUT);
    EXPECT_STREQ(text, "+1.500 ");
}

TEST(FormatPhysicalDigits, DecimalsFollowTheSignificantDigits) {
    EXPECT_EQ(Digits(0.00123f, 5), "+1.2300 mV");
    EXPECT_EQ(Digits(12.34f, 3), " +12.3  V");
    EXPECT_EQ(Digits(123.4f, 3), "  +123  V");
    EXPECT_EQ(Digits(10.0f, 2), " +10.0  V");
    // Too few digits for the integer part: no decimals rather than a wrapped precision.
    EXPECT_EQ(Digits(123.0f, 2), "  +123  V");
    AssertCapture capture;
    EXPECT_EQ(Digits(1.5f, 1), "    +2  V");
    EXPECT_EQ(capture.Messages(), std::vector<std::string>{"SigDig>1"});
}

TEST(TakePrefix, StripsThePrefixAndGivesItsFactor) {
    EXPECT_EQ(Take("mV"), std::pair(1e-3f, std::string("V")));
    EXPECT_EQ(Take("\xB5"
                   "A"),
              std::pair(1e-6f, std::string("A")));
    EXPECT_EQ(Take("TV"), std::pair(1e12f, std::string("V")));
    EXPECT_EQ(Take("V"), std::pair(1.0f, std::string("V")));
    // A blank is the no-prefix entry: the float product 1e-12 * 1000^4, not a literal 1.
    float product = 1e-12f;
    for (int i = 0; i < 4; ++i)
        product *= 1000.0f;
    EXPECT_EQ(Take(" V"), std::pair(product, std::string("V")));
}

TEST(PrefixOf, ScaleAndPrefixOverTheRange) {
    double scale = 0;
    const char* prefix = "";
    EXPECT_EQ(PrefixOf(0.5, scale, prefix), 0);
    EXPECT_STREQ(prefix, "m");
    EXPECT_DOUBLE_EQ(scale, 1e-3);
    EXPECT_EQ(PrefixOf(5e-12, scale, prefix), 0);
    EXPECT_STREQ(prefix, "p");
    EXPECT_EQ(PrefixOf(1e-13, scale, prefix), -1);
    EXPECT_STREQ(prefix, "p");
    EXPECT_DOUBLE_EQ(scale, 1e-12);
    const char* untouched = "untouched";
    prefix = untouched;
    EXPECT_EQ(PrefixOf(2e15, scale, prefix), 1);
    EXPECT_EQ(prefix, untouched);
    EXPECT_DOUBLE_EQ(scale, 1e15);
}
