#include "common/test_support.h"
#include "support/physical_units.h"

#include <gtest/gtest.h>

#include <cstring>
#include <string>

namespace {

std::string Format(float value, const char* unit, int* flags = nullptr) {
    char text[64];
    int f = FormatPhysical(text, value, unit, sizeof text);
    if (flags) *flags = f;
    return text;
}

std::string Digits(float value, unsigned digits, const char* unit = "V") {
    char text[64];
    FormatPhysicalDigits(text, sizeof text, value, digits, unit);
    return text;
}

} // namespace

TEST(FormatPhysical, PrefixAndDecimalsFollowTheMantissa) {
    EXPECT_EQ(Format(0.9999f, "A"), "+999.9 mA");
    EXPECT_EQ(Format(1.0f, "A"), "+1.000  A");
    EXPECT_EQ(Format(-0.00123f, "V"), "-1.230 mV");
    EXPECT_EQ(Format(2.5e-6f, "A"), "+2.500 \xB5"
                                    "A");
    EXPECT_EQ(Format(3e12f, "Hz"), "+3.000 THz");
    // Exactly 10 keeps three decimals.
    EXPECT_EQ(Format(10.0f, "V"), "+10.000  V");
    EXPECT_EQ(Format(10.5f, "V"), "+10.50  V");
}

TEST(FormatPhysical, RangeEnds) {
    int flags = -1;
    EXPECT_EQ(Format(0.0f, "V", &flags), "+0.000 pV");
    EXPECT_EQ(flags, 0);
    // The first step of the exponent rule already holds these at -12: no flag.
    EXPECT_EQ(Format(1e-13f, "V", &flags), "+0.100 pV");
    EXPECT_EQ(flags, 0);
    EXPECT_EQ(Format(1e-12f, "V", &flags), "+1.000 pV");
    EXPECT_EQ(flags, 0);
    EXPECT_EQ(Format(1e15f, "V", &flags), "+0.000 (null)V");
    EXPECT_EQ(flags, PHYS_ABOVE_RANGE);
    EXPECT_EQ(Format(999e12f, "V", &flags), "+999.0 TV");
    EXPECT_EQ(flags, 0);
}

TEST(FormatPhysical, LongUnitLeavesTheDestinationAlone) {
    const char* unit26 = "abcdefghijklmnopqrstuvwxyz";
    char text[64] = "untouched";
    EXPECT_EQ(FormatPhysical(text, 1e16f, unit26, sizeof text),
              PHYS_UNIT_TOO_LONG | PHYS_ABOVE_RANGE);
    EXPECT_EQ(FormatPhysicalDigits(text, sizeof text, 1.0f, 3, unit26), PHYS_UNIT_TOO_LONG);
    EXPECT_STREQ(text, "untouched");
    EXPECT_EQ(FormatPhysical(text, 1.0f, unit26 + 1, sizeof text), 0);
    EXPECT_EQ(std::string(text), std::string("+1.000  ") + (unit26 + 1));
}

TEST(FormatPhysical, ShortDestinationIsCutAndFlagged) {
    char text[16];
    std::memset(text, 'x', sizeof text);
    EXPECT_EQ(FormatPhysical(text, 1.5f, "V", 8), PHYS_TEXT_CUT);
    EXPECT_STREQ(text, "+1.500 ");
    EXPECT_EQ(text[8], 'x');
    // "+1.500  V" is 9 characters: 10 bytes hold it, 9 do not.
    EXPECT_EQ(FormatPhysical(text, 1.5f, "V", 10), 0);
    EXPECT_EQ(FormatPhysical(text, 1.5f, "V", 9), PHYS_TEXT_CUT);
    EXPECT_EQ(FormatPhysicalDigits(text, 8, 1.5f, 4, "V"), PHYS_TEXT_CUT);
    EXPECT_STREQ(text, "+1.500 ");
}

TEST(FormatPhysicalDigits, DecimalsFollowTheSignificantDigits) {
    EXPECT_EQ(Digits(0.00123f, 5), "+1.2300 mV");
    EXPECT_EQ(Digits(12.34f, 3), " +12.3  V");
    EXPECT_EQ(Digits(123.4f, 3), "  +123  V");
    EXPECT_EQ(Digits(10.0f, 2), " +10.0  V");
    AssertCapture capture;
    EXPECT_EQ(Digits(1.5f, 1), "    +2  V");
    ASSERT_EQ(capture.Count(), 1);
    EXPECT_EQ(capture.Messages()[0], "SigDig>1");
    // Too few digits for the integer part: no decimals rather than a wrapped precision.
    EXPECT_EQ(Digits(123.0f, 2), "  +123  V");
}

TEST(TakePrefix, StripsThePrefixAndGivesItsFactor) {
    char text[16] = "mV";
    EXPECT_FLOAT_EQ(TakePrefix(text), 1e-3f);
    EXPECT_STREQ(text, "V");
    std::strcpy(text, "\xB5"
                      "A");
    EXPECT_FLOAT_EQ(TakePrefix(text), 1e-6f);
    EXPECT_STREQ(text, "A");
    std::strcpy(text, "TV");
    EXPECT_FLOAT_EQ(TakePrefix(text), 1e12f);
    EXPECT_STREQ(text, "V");
    std::strcpy(text, "V");
    EXPECT_EQ(TakePrefix(text), 1.0f);
    EXPECT_STREQ(text, "V");
    // A blank is the no-prefix entry: the float product 1e-12 * 1000^4, not a literal 1.
    std::strcpy(text, " V");
    float product = 1e-12f;
    for (int i = 0; i < 4; ++i)
        product *= 1000.0f;
    EXPECT_EQ(TakePrefix(text), product);
    EXPECT_STREQ(text, "V");
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
