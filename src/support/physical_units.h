// Values with engineering prefixes: "+1.230 mV" for 0.00123 and "V", and the prefix of a unit
// text back to its factor. Stored text is single-byte; the micro sign is the byte 0xB5.
#pragma once
#include <cstddef>

// Flags ORed into the result of the formatters.
enum : int {
    PHYS_BELOW_RANGE = 1,   // below the smallest prefix: the exponent is held at -12
    PHYS_ABOVE_RANGE = 2,   // above the largest prefix: the exponent becomes PHYS_OVERFLOW_EXP
    PHYS_UNIT_TOO_LONG = 4, // unit longer than PHYS_MAX_UNIT: the destination is not written
    PHYS_TEXT_CUT = 16,     // the text did not fit the destination and was cut
};

constexpr int PHYS_MIN_EXP = -12;
constexpr float PHYS_MIN_MAGNITUDE = 1e-12f;
constexpr int PHYS_MAX_EXP = PHYS_MIN_EXP + 24;
// Exponent given to values of 1e15 and above. Its prefix slot lies past the table and prints as
// PHYS_OVERFLOW_PREFIX, with a mantissa that rounds to zero: "+0.000 (null)V" for 1e15 and "V".
constexpr int PHYS_OVERFLOW_EXP = PHYS_MIN_EXP + 105;
constexpr const char* PHYS_OVERFLOW_PREFIX = "(null)";
constexpr std::size_t PHYS_MAX_UNIT = 25;
constexpr int PHYS_PREFIX_COUNT = 9;

// The prefixes from 1e-12 up in steps of 1000: "p", "n", "\xB5", "m", " ", "k", "M", "G", "T".
// No prefix is one blank.
extern const char* const gPhysPrefixes[PHYS_PREFIX_COUNT];

// "%+6.3f %s%s" of mantissa, prefix and unit; two decimals above 10 and one above 100. At most
// size bytes with the terminator go to destination. Returns the flags.
int FormatPhysical(char* destination, float value, const char* unit, std::size_t size);
// The same with digits significant digits (checked to be above 1; never fewer than 0 decimals).
int FormatPhysicalDigits(char* destination, std::size_t size, float value, unsigned digits,
                         const char* unit);
// Strips a leading prefix from text and returns its factor, computed in float from 1e-12 (so a
// leading blank gives a factor near, not exactly, 1). Without a prefix text stays and it is 1.
float TakePrefix(char* text);
// The prefix under which value (>= 0) reads best: scale gets its factor and prefix its text.
// -1 below 1e-12 (prefix "p"), 1 at or above 1e15 (scale 1e15, prefix not written), else 0.
int PrefixOf(double value, double& scale, const char*& prefix);
