#include "Velbase/common/common_string.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include <gtest/gtest.h>

#include "string_contents.h"

namespace {

using namespace std::literals;

// The six conversions under one form: what one gives, or nothing where it says that it fails.
template <typename T> using Conversion = T (String::*)(bool*, unsigned) const;

template <typename T> std::optional<T> converted(const String& text, Conversion<T> conversion, unsigned base)
{
    bool ok = true;
    const T number = (text.*conversion)(&ok, base);
    if (ok)
        return number;
    EXPECT_EQ(number, 0) << "a failure gives 0";
    return std::nullopt;
}

// The outcome of all six, in decimal, "-" where one fails.
std::string outcomes(const String& text, unsigned base)
{
    std::string all;
    const auto add = [&](const auto& number) {
        all += all.empty() ? "" : " ";
        all += number ? std::to_string(*number) : "-";
    };
    add(converted<short>(text, &String::ToShort, base));
    add(converted<unsigned short>(text, &String::ToUShort, base));
    add(converted<int>(text, &String::ToInt, base));
    add(converted<unsigned>(text, &String::ToUInt, base));
    add(converted<long long>(text, &String::ToInt64, base));
    add(converted<unsigned long long>(text, &String::ToUInt64, base));
    return all;
}

struct IntegerCase {
    const char* name;
    Bytes text;
    unsigned base;
    const char* outcomes;  // of ToShort, ToUShort, ToInt, ToUInt, ToInt64, ToUInt64
};

// clang-format off
const IntegerCase FORM_CASES[] = {
    // name                    text             base outcomes
    {"Zero",                   "0",             10,  "0 0 0 0 0 0"},
    {"Number",                 "42",            10,  "42 42 42 42 42 42"},
    {"LeadingZeros",           "0000000000000000000000000000042", 10, "42 42 42 42 42 42"},
    {"SpaceAround",            "  42\t",        10,  "42 42 42 42 42 42"},
    {"EverySpaceAround",       "\t\n\v\f\r \xA0" "42" "\t\n\v\f\r \xA0", 10, "42 42 42 42 42 42"},
    {"SpaceInside",            "4 2",           10,  "- - - - - -"},
    {"NoSpaceByte1F",          "\x1F" "42",     10,  "- - - - - -"},
    {"NoSpaceByte85",          "42\x85",        10,  "- - - - - -"},
    {"Plus",                   "+7",            10,  "7 7 7 7 7 7"},
    {"SpaceBeforePlus",        " \xA0+7",       10,  "7 7 7 7 7 7"},
    {"SpaceAfterPlus",         "+ 5",           10,  "- - - - - -"},
    {"PlusAlone",              "+",             10,  "- - - - - -"},
    {"PlusAndSpace",           "+ ",            10,  "- - - - - -"},
    {"TwoSigns",               "+-7",           10,  "- - - - - -"},
    {"PlusPlus",               "++7",           10,  "- - - - - -"},
    {"MinusMinus",             "--7",           10,  "- - - - - -"},
    {"Minus",                  "-7",            10,  "-7 - -7 - - -"},
    {"SpaceBeforeMinus",       " -7 ",          10,  "-7 - -7 - - -"},
    {"SpaceAfterMinus",        "- 7",           10,  "- - - - - -"},
    {"MinusAlone",             "-",             10,  "- - - - - -"},
    {"MinusZero",              "-0",            10,  "0 - 0 - 0 -"},
    {"MinusZeros",             "-000",          10,  "0 - 0 - 0 -"},
    {"SignBehind",             "7-",            10,  "- - - - - -"},
    {"NullText",               NULL_STRING,     10,  "- - - - - -"},
    {"EmptyText",              "",              10,  "- - - - - -"},
    {"SpaceAlone",             " \t ",          10,  "- - - - - -"},
    {"NoDigit",                "x",             10,  "- - - - - -"},
    {"LetterBehind",           "12abc",         10,  "- - - - - -"},
    {"TwoNumbers",             "1 2",           10,  "- - - - - -"},
    {"PointBehind",            "12.",           10,  "- - - - - -"},
    {"CommaInside",            "1,000",         10,  "- - - - - -"},
    {"ZeroByteBehind",         "12\0"sv,        10,  "- - - - - -"},
    {"ZeroByteBefore",         "\0" "12"sv,     10,  "- - - - - -"},
    {"ZeroByteInside",         "1\0" "2"sv,     10,  "- - - - - -"},
    {"SuperscriptIsNoDigit",   "1\xB2",         10,  "- - - - - -"},
    {"LowerHexadecimal",       "ff",            16,  "255 255 255 255 255 255"},
    {"UpperHexadecimal",       "FF",            16,  "255 255 255 255 255 255"},
    {"MixedHexadecimal",       "fF",            16,  "255 255 255 255 255 255"},
    {"NegativeHexadecimal",    "-fF",           16,  "-255 - -255 - - -"},
    {"NoPrefix0x",             "0x10",          16,  "- - - - - -"},
    {"NoPrefix0xUpper",        "0X1F",          16,  "- - - - - -"},
    {"LetterBeyondTheBase",    "1g",            16,  "- - - - - -"},
    {"DigitBeyondTheBase",     "19",            8,   "- - - - - -"},
    {"Octal",                  "17",            8,   "15 15 15 15 15 15"},
    {"Binary",                 "1111",          2,   "15 15 15 15 15 15"},
    {"Base36",                 "zz",            36,  "1295 1295 1295 1295 1295 1295"},
    {"Base36Mixed",            "Zz",            36,  "1295 1295 1295 1295 1295 1295"},
    {"Base0HasNoDigit",        "0",             0,   "- - - - - -"},
    {"Base0HasNoDigit1",       "1",             0,   "- - - - - -"},
    {"Base1HasTheDigit0",      "0000",          1,   "0 0 0 0 0 0"},
    {"Base1HasNoDigit1",       "1",             1,   "- - - - - -"},
    {"Base1HasNoDigit1Behind", "01",            1,   "- - - - - -"},
};

// The limits of the widths. The signed ones' are 32-bit numbers.
const IntegerCase LIMIT_CASES[] = {
    // name                    text                    base outcomes
    {"Below2To15",             "32766",                10,  "32766 32766 32766 32766 32766 32766"},
    {"MaximumShort",           "32767",                10,  "32767 32767 32767 32767 32767 32767"},
    {"TwoTo15",                "32768",                10,  "- 32768 32768 32768 32768 32768"},
    {"BelowMaximumUShort",     "65534",                10,  "- 65534 65534 65534 65534 65534"},
    {"MaximumUShort",          "65535",                10,  "- 65535 65535 65535 65535 65535"},
    {"TwoTo16",                "65536",                10,  "- - 65536 65536 65536 65536"},
    {"MinusMaximumShort",      "-32767",               10,  "-32767 - -32767 - - -"},
    {"MinimumShort",           "-32768",               10,  "-32768 - -32768 - - -"},
    {"BelowMinimumShort",      "-32769",               10,  "32767 - -32769 - - -"},
    {"MinusFortyThousand",     "-40000",               10,  "25536 - -40000 - - -"},
    {"MinusBelowMaxUShort",    "-65534",               10,  "2 - -65534 - - -"},
    {"MinusMaximumUShort",     "-65535",               10,  "1 - -65535 - - -"},
    {"MinusTwoTo16",           "-65536",               10,  "- - -65536 - - -"},
    {"BelowMaximumInt",        "2147483646",           10,  "- - 2147483646 2147483646 2147483646 2147483646"},
    {"MaximumInt",             "2147483647",           10,  "- - 2147483647 2147483647 2147483647 2147483647"},
    {"TwoTo31",                "2147483648",           10,  "- - - 2147483648 -2147483648 2147483648"},
    {"AboveTwoTo31",           "2147483649",           10,  "- - - 2147483649 -2147483647 2147483649"},
    {"MinusMaximumInt",        "-2147483647",          10,  "- - -2147483647 - - -"},
    {"MinimumInt",             "-2147483648",          10,  "- - -2147483648 - - -"},
    {"BelowMinimumInt",        "-2147483649",          10,  "- - - - - -"},
    {"BelowMaximumUInt",       "4294967294",           10,  "- - - 4294967294 -2 4294967294"},
    {"MaximumUInt",            "4294967295",           10,  "- - - 4294967295 -1 4294967295"},
    {"TwoTo32",                "4294967296",           10,  "- - - - - 4294967296"},
    {"MinusMaximumUInt",       "-4294967295",          10,  "- - - - - -"},
    {"MinusTwoTo32",           "-4294967296",          10,  "- - - - - -"},
    {"MinusOne",               "-1",                   10,  "-1 - -1 - - -"},
    {"MinusFive",              "-5",                   10,  "-5 - -5 - - -"},
    {"MaximumInt64",           "9223372036854775807",  10,  "- - - - - 9223372036854775807"},
    {"MinimumInt64",           "-9223372036854775808", 10,  "- - - - - -"},
    {"BelowMaximumUInt64",     "18446744073709551614", 10,  "- - - - - 18446744073709551614"},
    {"MaximumUInt64",          "18446744073709551615", 10,  "- - - - - 18446744073709551615"},
    {"TwoTo64",                "18446744073709551616", 10,  "- - - - - -"},
    {"TenTimesTooLarge",       "184467440737095516150", 10, "- - - - - -"},
    {"ThirtyNines",            "999999999999999999999999999999", 10, "- - - - - -"},
    {"TooLargeThenALetter",    "184467440737095516150x", 10, "- - - - - -"},
};

// Bases beyond 36 are not refused: the limits of the letters move on, and wrap.
const IntegerCase LARGE_BASE_CASES[] = {
    // name                    text         base        outcomes
    {"Base37HasTheBracket",    "[",         37,         "36 36 36 36 36 36"},
    {"Base37HasTheBrace",      "{",         37,         "68 68 68 68 68 68"},
    {"Base37HasNoBackslash",   "\\",        37,         "- - - - - -"},
    {"Base37HasNoBar",         "|",         37,         "- - - - - -"},
    {"Base38HasTheBackslash",  "\\",        38,         "37 37 37 37 37 37"},
    {"Base40HasAllLowerCodes", "\x7E",      40,         "71 71 71 71 71 71"},
    {"Base41HasNoLowerLetter", "a",         41,         "- - - - - -"},
    {"Base41HasUpperLetters",  "A",         41,         "10 10 10 10 10 10"},
    {"Base42HasTheBacktick",   "`",         42,         "41 41 41 41 41 41"},
    {"Base42HasNoA",           "a",         42,         "- - - - - -"},
    {"Base43HasA",             "a",         43,         "10 10 10 10 10 10"},
    {"Base43HasNoB",           "b",         43,         "- - - - - -"},
    {"Base72HasTheTilde",      "~",         72,         "71 71 71 71 71 71"},
    {"Base72HasNoDelete",      "\x7F",      72,         "- - - - - -"},
    {"Base73HasNoLetter",      "A",         73,         "- - - - - -"},
    {"Base73HasDigits",        "19",        73,         "82 82 82 82 82 82"},
    {"Base256HasNoLetter",     "A",         256,        "- - - - - -"},
    {"Base256HasDigits",       "11",        256,        "257 257 257 257 257 257"},
    {"Base267IsLike11",        "A",         267,        "10 10 10 10 10 10"},
    {"Base267HasNoB",          "B",         267,        "- - - - - -"},
    {"Base292IsLike36",        "z",         292,        "35 35 35 35 35 35"},
    {"Base65536IsLike256",     "A",         65536,      "- - - - - -"},
    {"Base65536",              "10",        65536,      "- - 65536 65536 65536 65536"},
    {"Base70000HasNoLetter",   "x",         70000,      "- - - - - -"},
    {"Base70000",              "10",        70000,      "- - 70000 70000 70000 70000"},
    {"LargestBaseHasNoLetter", "A",         4294967295, "- - - - - -"},
    {"LargestBase",            "10",        4294967295, "- - - 4294967295 -1 4294967295"},
    {"LargestBaseTwice",       "20",        4294967295, "- - - - - 8589934590"},
    // A digit that is larger than the base can take the last step over the limit, where it wraps.
    {"DigitBeyondTheBaseWraps", "1AV{",     37,         "22 22 65558 65558 65558 65558"},
    {"MinusWrapped",           "-1AV{",     37,         "-22 - -65558 - - -"},
};
// clang-format on

class StringToInteger : public testing::TestWithParam<IntegerCase> { };

TEST_P(StringToInteger, GivesTheNumberOrFails)
{
    const String text = stringOf(GetParam().text);
    EXPECT_EQ(outcomes(text, GetParam().base), GetParam().outcomes);
    EXPECT_EQ(contents(text), GetParam().text);
}

const auto caseName = [](const auto& row) { return row.param.name; };
INSTANTIATE_TEST_SUITE_P(Forms, StringToInteger, testing::ValuesIn(FORM_CASES), caseName);
INSTANTIATE_TEST_SUITE_P(Limits, StringToInteger, testing::ValuesIn(LIMIT_CASES), caseName);
INSTANTIATE_TEST_SUITE_P(LargeBases, StringToInteger, testing::ValuesIn(LARGE_BASE_CASES), caseName);

TEST(StringToInteger, OkMayBeNullAndBaseIsTen)
{
    const String text("-12");
    EXPECT_EQ(text.ToShort(), -12);
    EXPECT_EQ(text.ToInt(nullptr), -12);
    EXPECT_EQ(text.ToInt64(), 0);
    EXPECT_EQ(text.ToUInt(nullptr, 16), 0u);
    const String other("12");
    EXPECT_EQ(other.ToUShort(), 12);
    EXPECT_EQ(other.ToUInt(), 12u);
    EXPECT_EQ(other.ToInt64(), 12);
    EXPECT_EQ(other.ToUInt64(nullptr, 16), 0x12u);
}

// ---- Every base

std::vector<unsigned> everyBase()
{
    std::vector<unsigned> bases;
    for (unsigned base = 0; base <= 520; ++base)
        bases.push_back(base);
    bases.insert(bases.end(), {65536, 70000, 4294967295});
    return bases;
}

// An 8-bit number read as signed.
int readAsSigned(unsigned number)
{
    const int low = static_cast<int>(number % 256);
    return low < 128 ? low : low - 256;
}

// The value of a byte as a digit, or nothing: the rule once more, in plain numbers.
std::optional<unsigned> digitValueOf(int byte, unsigned base)
{
    if (byte >= 48 && byte <= 57) {
        const unsigned value = static_cast<unsigned>(byte - 48);
        return base > 10 || value < base ? std::optional<unsigned>(value) : std::nullopt;
    }
    if (base <= 10 || byte < 65 || byte > 127)
        return std::nullopt;
    const bool belowUpper = byte < readAsSigned(base % 256 + 55);
    const bool belowLower = byte >= 97 && byte < readAsSigned(base % 256 + 87);
    if (!belowUpper && !belowLower)
        return std::nullopt;
    return static_cast<unsigned>(byte >= 97 && byte <= 122 ? byte - 87 : byte - 55);
}

TEST(StringToInteger, EveryByteIsTheDigitThatItIsInEveryBase)
{
    String text("x");
    for (const unsigned base : everyBase()) {
        for (int byte = 0; byte < 256; ++byte) {
            text[0] = static_cast<char>(byte);
            const std::optional<unsigned> value = digitValueOf(byte, base);
            ASSERT_EQ(converted<unsigned>(text, &String::ToUInt, base), value) << "byte " << byte << ", base " << base;
        }
    }
}

TEST(StringToInteger, BytesFrom80AreNoDigitsInAnyBase)
{
    for (const unsigned base : everyBase()) {
        for (int byte = 0x80; byte < 256; ++byte)
            ASSERT_EQ(digitValueOf(byte, base), std::nullopt);
    }
}

// The numbers that can be written in a base with the digits 0 to 9 and A to Z alone, as far as the base has them. For
// the bases up to 36 these are all.
class Writer {
public:
    explicit Writer(unsigned base)
        : m_base(base)
        , m_largestDigit(0)
    {
        while (m_largestDigit < 35 && m_largestDigit + 1 < base && digitValueOf(DIGITS[m_largestDigit + 1], base))
            ++m_largestDigit;
    }

    // The digits of the largest such number up to `limit`, most significant first.
    std::vector<unsigned> largestUpTo(unsigned long long limit) const
    {
        std::vector<unsigned> digits;
        do {
            digits.insert(digits.begin(), static_cast<unsigned>(limit % m_base));
            limit /= m_base;
        } while (limit != 0);
        const auto unwritable =
            std::find_if(digits.begin(), digits.end(), [&](unsigned d) { return d > m_largestDigit; });
        std::fill(unwritable, digits.end(), m_largestDigit);
        return digits;
    }

    // The digits of the next such number.
    std::vector<unsigned> next(std::vector<unsigned> digits) const
    {
        for (auto digit = digits.rbegin(); digit != digits.rend(); ++digit) {
            if (*digit < m_largestDigit) {
                ++*digit;
                return digits;
            }
            *digit = 0;
        }
        digits.insert(digits.begin(), 1);
        return digits;
    }

    unsigned long long numberOf(const std::vector<unsigned>& digits) const
    {
        unsigned long long number = 0;
        for (const unsigned digit : digits)
            number = number * m_base + digit;
        return number;
    }

    static std::string textOf(const std::vector<unsigned>& digits)
    {
        std::string text;
        for (const unsigned digit : digits)
            text += DIGITS[digit];
        return text;
    }

private:
    static constexpr char DIGITS[] = "0123456789ABCDEFGHIJKLMNOPQRSTUVWXYZ";
    unsigned m_base;
    unsigned m_largestDigit;
};

// Checks that in every base the last number that can be written up to `limit`, and the one before it, convert to what
// `expected` makes of them, and the next one fails.
template <typename T, typename Expected>
void expectLimit(Conversion<T> conversion, const std::string& sign, unsigned long long limit, Expected expected)
{
    for (const unsigned base : everyBase()) {
        if (base < 2)
            continue;
        const Writer writer(base);
        const std::vector<unsigned> last = writer.largestUpTo(limit);
        const std::vector<unsigned> before = limit == 0 ? last : writer.largestUpTo(writer.numberOf(last) - 1);
        for (const std::vector<unsigned>& digits : {before, last}) {
            const std::string text = sign + Writer::textOf(digits);
            ASSERT_EQ(converted<T>(text.c_str(), conversion, base), static_cast<T>(expected(writer.numberOf(digits))))
                << text << ", base " << base;
        }
        const std::string above = sign + Writer::textOf(writer.next(last));
        ASSERT_EQ(converted<T>(above.c_str(), conversion, base), std::nullopt) << above << ", base " << base;
    }
}

const auto itself = [](unsigned long long number) { return number; };
const auto negated = [](unsigned long long number) { return 0 - number; };
const auto asSignedWord = [](unsigned long long number) {
    return static_cast<long long>(number) - (number < 0x80000000 ? 0 : 0x100000000);
};

TEST(StringToIntegerLimits, UnsignedConversionsReachTheirMaximumInEveryBase)
{
    expectLimit<unsigned short>(&String::ToUShort, "", 65535, itself);
    expectLimit<unsigned>(&String::ToUInt, "", 4294967295, itself);
    expectLimit<unsigned long long>(&String::ToUInt64, "", 18446744073709551615u, itself);
}

TEST(StringToIntegerLimits, ToShortReaches32767AndMinus65535InEveryBase)
{
    expectLimit<short>(&String::ToShort, "", 32767, itself);
    expectLimit<short>(&String::ToShort, "-", 65535, negated);
}

TEST(StringToIntegerLimits, ToIntReachesItsMaximumAndMinimumInEveryBase)
{
    expectLimit<int>(&String::ToInt, "", 2147483647, itself);
    expectLimit<int>(&String::ToInt, "-", 2147483648, negated);
}

TEST(StringToIntegerLimits, ToInt64Reaches32BitsAndNoNegativeNumberInEveryBase)
{
    expectLimit<long long>(&String::ToInt64, "", 4294967295, asSignedWord);
    expectLimit<long long>(&String::ToInt64, "-", 0, itself);
}

// ---- Floating point

std::optional<double> toDouble(const String& text)
{
    bool ok = true;
    const double number = text.ToDouble(&ok);
    if (ok)
        return number;
    EXPECT_EQ(number, 0.0);
    return std::nullopt;
}

struct DoubleCase {
    const char* name;
    Bytes text;
    std::optional<double> number;
};

constexpr std::optional<double> FAILS = std::nullopt;

// clang-format off
const DoubleCase DOUBLE_CASES[] = {
    // name                     text           number
    {"Integer",                 "3",           3.0},
    {"Point",                   "3.25",        3.25},
    {"Comma",                   "3,25",        3.25},
    {"PointFirst",              ".5",          0.5},
    {"PointLast",               "5.",          5.0},
    {"CommaLast",               "5,",          5.0},
    {"Negative",                "-1.5",        -1.5},
    {"Positive",                "+1.5",        1.5},
    {"Exponent",                "1e3",         1000.0},
    {"NegativeExponent",        "25E-2",       0.25},
    {"Hexadecimal",             "0x1.8p1",     3.0},
    {"HexadecimalComma",        "0x1,8p1",     3.0},
    {"Infinity",                "inf",         std::numeric_limits<double>::infinity()},
    {"TooLargeIsInfinity",      "1e999",       std::numeric_limits<double>::infinity()},
    {"TooSmallIsZero",          "1e-999",      0.0},
    {"NullText",                NULL_STRING,   FAILS},
    {"EmptyText",               "",            FAILS},
    {"SpaceBefore",             " 3.25",       FAILS},
    {"SpaceAfter",              "1.5 ",        FAILS},
    {"TabBefore",               "\t3,25",      FAILS},
    {"NoBreakSpaceAfter",       "1.5\xA0",     FAILS},
    {"SpaceAlone",              " ",           FAILS},
    {"SpaceInside",             "1 5",         FAILS},
    {"UnitBehind",              "1.5kg",       FAILS},
    {"TwoPoints",               "1.2.3",       FAILS},
    {"PointAndComma",           "1.000,5",     FAILS},
    {"ThousandsAndPoint",       "1,000.5",     FAILS},
    {"PointAlone",              ".",           FAILS},
    {"Word",                    "abc",         FAILS},
    {"ExponentWithoutNumber",   "1e",          FAILS},
    {"ZeroByteBehind",          "1.5\0"sv,     FAILS},
    {"ZeroByteInside",          "1\0" "5"sv,   FAILS},
    {"ZeroByteAndComma",        "1,5\0,"sv,    FAILS},
};
// clang-format on

class StringToDouble : public testing::TestWithParam<DoubleCase> { };

TEST_P(StringToDouble, GivesTheNumberOrFails)
{
    const String text = stringOf(GetParam().text);
    EXPECT_EQ(toDouble(text), GetParam().number);
    EXPECT_EQ(contents(text), GetParam().text);
}

INSTANTIATE_TEST_SUITE_P(Cases, StringToDouble, testing::ValuesIn(DOUBLE_CASES), caseName);

TEST(StringToDouble, TakesNotANumber)
{
    bool ok = false;
    EXPECT_TRUE(std::isnan(String("nan").ToDouble(&ok)));
    EXPECT_TRUE(ok);
}

TEST(StringToDouble, OkMayBeNull)
{
    EXPECT_EQ(String("1.5").ToDouble(), 1.5);
    EXPECT_EQ(String("x").ToDouble(nullptr), 0.0);
}

TEST(StringToFloat, NarrowsTheDouble)
{
    bool ok = false;
    EXPECT_EQ(String("0.1").ToFloat(&ok), 0.1f);
    EXPECT_TRUE(ok);
    EXPECT_EQ(String("1,5").ToFloat(), 1.5f);
}

TEST(StringToFloat, BeyondItsRangeIsInfinityAndOk)
{
    bool ok = false;
    EXPECT_EQ(String("1e39").ToFloat(&ok), std::numeric_limits<float>::infinity());
    EXPECT_TRUE(ok);
    ok = false;
    EXPECT_EQ(String("-1e300").ToFloat(&ok), -std::numeric_limits<float>::infinity());
    EXPECT_TRUE(ok);
}

TEST(StringToFloat, FailsAsToDoubleDoes)
{
    bool ok = true;
    EXPECT_EQ(String(" 1.5").ToFloat(&ok), 0.0f);
    EXPECT_FALSE(ok);
}

}  // namespace
