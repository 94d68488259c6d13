#include "Velbase/common/common_string.h"
#include "string_contents.h"
#include "tests/support/RowName.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <limits>

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
    {"NoSpaceByte1F",          "\x1F" "42",     10,  "- - - - - -"},
    {"NoSpaceByte85",          "42\x85",        10,  "- - - - - -"},
    {"Plus",                   "+7",            10,  "7 7 7 7 7 7"},
    {"SpaceAfterPlus",         "+ 5",           10,  "- - - - - -"},
    {"PlusAlone",              "+",             10,  "- - - - - -"},
    {"TwoSigns",               "+-7",           10,  "- - - - - -"},
    {"Minus",                  "-7",            10,  "-7 - -7 - - -"},
    {"SpaceAfterMinus",        "- 7",           10,  "- - - - - -"},
    {"MinusAlone",             "-",             10,  "- - - - - -"},
    {"MinusZero",              "-0",            10,  "0 - 0 - 0 -"},
    {"SignBehind",             "7-",            10,  "- - - - - -"},
    {"NullText",               NULL_STRING,     10,  "- - - - - -"},
    {"EmptyText",              "",              10,  "- - - - - -"},
    {"SpaceAlone",             " \t ",          10,  "- - - - - -"},
    {"NoDigit",                "x",             10,  "- - - - - -"},
    {"LetterBehind",           "12abc",         10,  "- - - - - -"},
    {"PointBehind",            "12.",           10,  "- - - - - -"},
    {"ZeroByteBehind",         "12\0"sv,        10,  "- - - - - -"},
    {"ZeroByteBefore",         "\0" "12"sv,     10,  "- - - - - -"},
    {"SuperscriptIsNoDigit",   "1\xB2",         10,  "- - - - - -"},
    {"LowerHexadecimal",       "ff",            16,  "255 255 255 255 255 255"},
    {"UpperHexadecimal",       "FF",            16,  "255 255 255 255 255 255"},
    {"NegativeHexadecimal",    "-fF",           16,  "-255 - -255 - - -"},
    {"NoPrefix0x",             "0x10",          16,  "- - - - - -"},
    {"LetterBeyondTheBase",    "1g",            16,  "- - - - - -"},
    {"DigitBeyondTheBase",     "19",            8,   "- - - - - -"},
    {"Octal",                  "17",            8,   "15 15 15 15 15 15"},
    {"Binary",                 "1111",          2,   "15 15 15 15 15 15"},
    {"Base36",                 "zz",            36,  "1295 1295 1295 1295 1295 1295"},
    {"Base0HasNoDigit",        "0",             0,   "- - - - - -"},
    {"Base1HasTheDigit0",      "0000",          1,   "0 0 0 0 0 0"},
    {"Base1HasNoDigit1Behind", "01",            1,   "- - - - - -"},
};

// The limits of the widths. The signed ones' are 32-bit numbers.
const IntegerCase LIMIT_CASES[] = {
    // name                    text                    base outcomes
    {"MaximumShort",           "32767",                10,  "32767 32767 32767 32767 32767 32767"},
    {"TwoTo15",                "32768",                10,  "- 32768 32768 32768 32768 32768"},
    {"MaximumUShort",          "65535",                10,  "- 65535 65535 65535 65535 65535"},
    {"TwoTo16",                "65536",                10,  "- - 65536 65536 65536 65536"},
    {"MinimumShort",           "-32768",               10,  "-32768 - -32768 - - -"},
    {"BelowMinimumShort",      "-32769",               10,  "32767 - -32769 - - -"},
    {"MinusFortyThousand",     "-40000",               10,  "25536 - -40000 - - -"},
    {"MinusMaximumUShort",     "-65535",               10,  "1 - -65535 - - -"},
    {"MinusTwoTo16",           "-65536",               10,  "- - -65536 - - -"},
    {"MaximumInt",             "2147483647",           10,  "- - 2147483647 2147483647 2147483647 2147483647"},
    {"TwoTo31",                "2147483648",           10,  "- - - 2147483648 -2147483648 2147483648"},
    {"MinimumInt",             "-2147483648",          10,  "- - -2147483648 - - -"},
    {"BelowMinimumInt",        "-2147483649",          10,  "- - - - - -"},
    {"MaximumUInt",            "4294967295",           10,  "- - - 4294967295 -1 4294967295"},
    {"TwoTo32",                "4294967296",           10,  "- - - - - 4294967296"},
    {"MinusTwoTo32",           "-4294967296",          10,  "- - - - - -"},
    {"MinusOne",               "-1",                   10,  "-1 - -1 - - -"},
    {"MaximumInt64",           "9223372036854775807",  10,  "- - - - - 9223372036854775807"},
    {"MinimumInt64",           "-9223372036854775808", 10,  "- - - - - -"},
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
    {"Base37HasNoBar",         "|",         37,         "- - - - - -"},
    {"Base38HasTheBackslash",  "\\",        38,         "37 37 37 37 37 37"},
    {"Base40HasAllLowerCodes", "\x7E",      40,         "71 71 71 71 71 71"},
    {"Base41HasNoLowerLetter", "a",         41,         "- - - - - -"},
    {"Base41HasUpperLetters",  "A",         41,         "10 10 10 10 10 10"},
    {"Base42HasTheBacktick",   "`",         42,         "41 41 41 41 41 41"},
    {"Base42HasNoA",           "a",         42,         "- - - - - -"},
    {"Base43HasA",             "a",         43,         "10 10 10 10 10 10"},
    {"Base72HasTheTilde",      "~",         72,         "71 71 71 71 71 71"},
    {"Base72HasNoDelete",      "\x7F",      72,         "- - - - - -"},
    {"Base73HasNoLetter",      "A",         73,         "- - - - - -"},
    {"Base73HasDigits",        "19",        73,         "82 82 82 82 82 82"},
    {"Base256HasNoLetter",     "A",         256,        "- - - - - -"},
    {"Base256HasDigits",       "11",        256,        "257 257 257 257 257 257"},
    {"Base267IsLike11",        "A",         267,        "10 10 10 10 10 10"},
    {"Base292IsLike36",        "z",         292,        "35 35 35 35 35 35"},
    {"Base65536",              "10",        65536,      "- - 65536 65536 65536 65536"},
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

INSTANTIATE_TEST_SUITE_P(Forms, StringToInteger, testing::ValuesIn(FORM_CASES), RowName());
INSTANTIATE_TEST_SUITE_P(Limits, StringToInteger, testing::ValuesIn(LIMIT_CASES), RowName());
INSTANTIATE_TEST_SUITE_P(LargeBases, StringToInteger, testing::ValuesIn(LARGE_BASE_CASES), RowName());

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
    {"Negative",                "-1.5",        -1.5},
    {"Exponent",                "1e3",         1000.0},
    {"NegativeExponent",        "25E-2",       0.25},
    {"Hexadecimal",             "0x1.8p1",     3.0},
    {"Infinity",                "inf",         std::numeric_limits<double>::infinity()},
    {"TooLargeIsInfinity",      "1e999",       std::numeric_limits<double>::infinity()},
    {"TooSmallIsZero",          "1e-999",      0.0},
    {"NullText",                NULL_STRING,   FAILS},
    {"EmptyText",               "",            FAILS},
    {"SpaceBefore",             " 3.25",       FAILS},
    {"SpaceAfter",              "1.5 ",        FAILS},
    {"SpaceAlone",              " ",           FAILS},
    {"UnitBehind",              "1.5kg",       FAILS},
    {"PointAndComma",           "1.000,5",     FAILS},
    {"PointAlone",              ".",           FAILS},
    {"Word",                    "abc",         FAILS},
    {"ExponentWithoutNumber",   "1e",          FAILS},
    {"ZeroByteBehind",          "1.5\0"sv,     FAILS},
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

INSTANTIATE_TEST_SUITE_P(Cases, StringToDouble, testing::ValuesIn(DOUBLE_CASES), RowName());

TEST(StringToDouble, TakesNotANumber)
{
    bool ok = false;
    EXPECT_TRUE(std::isnan(String("nan").ToDouble(&ok)));
    EXPECT_TRUE(ok);
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

}  // namespace
