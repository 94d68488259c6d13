#include "Velbase/common/common_string.h"
#include "string_contents.h"
#include "tests/support/RowName.h"

#include <gtest/gtest.h>

#include <climits>
#include <cmath>
#include <limits>

namespace {

// The same number through every width that holds it.
struct UnsignedCase {
    const char* name;
    unsigned number;
    unsigned base;
    const char* text;
};

// clang-format off
const UnsignedCase UNSIGNED_CASES[] = {
    // name               number       base        text
    {"Zero",              0,           10,         "0"},
    {"ZeroInBase7",       0,           7,          "0"},
    {"AllDigits",         1234567890,  10,         "1234567890"},
    {"Largest",           4294967295,  10,         "4294967295"},
    {"LargestInBase16",   4294967295,  16,         "FFFFFFFF"},
    {"LargestInBase36",   4294967295,  36,         "1Z141Z3"},
    {"UpperCase",         255,         16,         "FF"},
    {"Binary",            255,         2,          "11111111"},
    {"Base35",            1224,        35,         "YY"},
    {"Base36",            1295,        36,         "ZZ"},
    {"Base0IsTen",        255,         0,          "255"},
    {"Base1IsTen",        255,         1,          "255"},
    {"LargestBaseIsTen",  255,         4294967295, "255"},
};
// clang-format on

class NumberOfUnsigned : public testing::TestWithParam<UnsignedCase> { };

TEST_P(NumberOfUnsigned, WritesTheDigits)
{
    const unsigned number = GetParam().number;
    const unsigned base = GetParam().base;
    EXPECT_EQ(contents(String::Number(number, base)), GetParam().text);
    EXPECT_EQ(contents(String::Number(static_cast<unsigned long>(number), base)), GetParam().text);
    if (number <= INT_MAX) {
        EXPECT_EQ(contents(String::Number(static_cast<int>(number), base)), GetParam().text);
        EXPECT_EQ(contents(String::Number(static_cast<long>(number), base)), GetParam().text);
    }
}

INSTANTIATE_TEST_SUITE_P(Cases, NumberOfUnsigned, testing::ValuesIn(UNSIGNED_CASES), RowName());

struct SignedCase {
    const char* name;
    int number;
    unsigned base;
    const char* text;
};

// clang-format off
const SignedCase SIGNED_CASES[] = {
    // name               number        base       text
    {"MinusOne",          -1,           10,        "-1"},
    {"MinusOneInBase16",  -1,           16,        "-1"},
    {"Hexadecimal",       -255,         16,        "-FF"},
    {"Base1IsTen",        -255,         1,         "-255"},
    {"Largest",           INT_MAX,      10,        "2147483647"},
    {"AboveSmallest",     INT_MIN + 1,  10,        "-2147483647"},
    {"Smallest",          INT_MIN,      10,        "-2147483648"},
    {"SmallestInBase16",  INT_MIN,      16,        "-80000000"},
    {"SmallestInBase36",  INT_MIN,      36,        "-ZIK0ZK"},
    {"SmallestInBase2",   INT_MIN,      2,         "-10000000000000000000000000000000"},
};
// clang-format on

class NumberOfSigned : public testing::TestWithParam<SignedCase> { };

TEST_P(NumberOfSigned, WritesTheSignAndTheMagnitude)
{
    EXPECT_EQ(contents(String::Number(GetParam().number, GetParam().base)), GetParam().text);
    EXPECT_EQ(contents(String::Number(static_cast<long>(GetParam().number), GetParam().base)), GetParam().text);
}

INSTANTIATE_TEST_SUITE_P(Cases, NumberOfSigned, testing::ValuesIn(SIGNED_CASES), RowName());

struct WideCase {
    const char* name;
    unsigned long long number;
    unsigned base;
    const char* asUnsigned;
    const char* asSigned;
};

// clang-format off
const WideCase WIDE_CASES[] = {
    // name             number                base        asUnsigned               asSigned
    {"Zero",            0,                    10,         "0",                     "0"},
    {"Decimal",         255,                  10,         "255",                   "255"},
    {"Hexadecimal",     255,                  16,         "FF",                    "FF"},
    {"Base2IsTen",      255,                  2,          "255",                   "255"},
    {"Base8IsTen",      255,                  8,          "255",                   "255"},
    {"Base0IsTen",      255,                  0,          "255",                   "255"},
    {"LargestBase",     255,                  4294967295, "255",                   "255"},
    {"TwoTo32",         4294967296,           10,         "4294967296",            "4294967296"},
    {"TwoTo32InBase16", 4294967296,           16,         "100000000",             "100000000"},
    {"LargestSigned",   LLONG_MAX,            10,         "9223372036854775807",   "9223372036854775807"},
    {"Smallest",        LLONG_MAX + 1ull,     10,         "9223372036854775808",   "-9223372036854775808"},
    {"SmallestHex",     LLONG_MAX + 1ull,     16,         "8000000000000000",      "8000000000000000"},
    {"MinusOne",        ULLONG_MAX,           10,         "18446744073709551615",  "-1"},
    {"MinusOneHex",     ULLONG_MAX,           16,         "FFFFFFFFFFFFFFFF",      "FFFFFFFFFFFFFFFF"},
};
// clang-format on

class NumberOf64Bits : public testing::TestWithParam<WideCase> { };

TEST_P(NumberOf64Bits, KnowsBase16AndDecimal)
{
    const WideCase& row = GetParam();
    EXPECT_EQ(contents(String::Number(row.number, row.base)), row.asUnsigned);
    EXPECT_EQ(contents(String::Number(static_cast<long long>(row.number), row.base)), row.asSigned);
}

INSTANTIATE_TEST_SUITE_P(Cases, NumberOf64Bits, testing::ValuesIn(WIDE_CASES), RowName());

#if LONG_MAX > INT_MAX
TEST(NumberOfLong, GoesOnInTheSameDigitsWhereItIsWider)
{
    const long trillion = static_cast<long>(1000000000000LL);
    EXPECT_EQ(contents(String::Number(trillion)), "1000000000000");
    EXPECT_EQ(contents(String::Number(-trillion, 36)), "-CRE66I9S");
    EXPECT_EQ(contents(String::Number(LONG_MIN, 2)), "-1" + std::string(sizeof(long) * 8 - 1, '0'));
    EXPECT_EQ(contents(String::Number(ULONG_MAX, 2)), std::string(sizeof(long) * 8, '1'));
}
#endif

// ---- Floating point, in the "C" locale

struct FloatCase {
    const char* name;
    double number;
    unsigned precision;
    char format;
    const char* text;
};

const unsigned NONE = 0xFFFFFFFF;

// clang-format off
const FloatCase FLOAT_CASES[] = {
    // name                  number     precision    format text
    {"NoPrecision",          1.5,       NONE,        'f',   "1.500000"},
    {"Precision0",           1.5,       0,           'f',   "2"},
    {"Precision1",           0.25,      1,           'f',   "0.2"},
    {"Precision2",           1.5,       2,           'f',   "1.50"},
    {"Precision10",          1.5,       10,          'f',   "1.5000000000"},
    {"Precision12",          1.5,       12,          'e',   "1.500000000000e+00"},
    {"UpperE",               1234.5,    3,           'E',   "1.234E+03"},
    {"General",              1234.5,    NONE,        'g',   "1234.5"},
    {"UpperGeneral",         1e-10,     NONE,        'G',   "1E-10"},
    {"UpperF",               1.5,       1,           'F',   "1.5"},
    {"UnknownFormat",        1.5,       2,           'x',   "1.50"},
    {"ZeroByteAsFormat",     1.5,       2,           '\0',  "1.50"},
    {"Negative",             -0.5,      3,           'f',   "-0.500"},
    {"NegativeZero",         -0.0,      0,           'f',   "-0"},
    {"InfinityLower",        HUGE_VAL,  2,           'f',   "inf"},
    {"InfinityUpper",        HUGE_VAL,  2,           'F',   "INF"},
    {"MinusInfinity",        -HUGE_VAL, NONE,        'g',   "-inf"},
};
// clang-format on

class NumberOfDouble : public testing::TestWithParam<FloatCase> { };

TEST_P(NumberOfDouble, IsWhatPrintfWrites)
{
    const FloatCase& row = GetParam();
    EXPECT_EQ(contents(String::Number(row.number, row.precision, row.format)), row.text);
}

INSTANTIATE_TEST_SUITE_P(Cases, NumberOfDouble, testing::ValuesIn(FLOAT_CASES), RowName());

TEST(NumberOfDouble, PrecisionIsCappedAt99)
{
    const std::string ninetyNine = "1.5" + std::string(98, '0');
    for (const unsigned precision : {99u, 100u, 150u, 0x7FFFFFFFu, 0xFFFFFFFEu}) {
        EXPECT_EQ(contents(String::Number(1.5, precision, 'e')), ninetyNine + "e+00") << precision;
        EXPECT_EQ(contents(String::Number(1.5f, precision, 'f')), ninetyNine) << precision;
    }
    EXPECT_EQ(contents(String::Number(1.5, 98, 'f')), "1.5" + std::string(97, '0'));
}

TEST(NumberOfDouble, LongestNumberIsWrittenInFull)
{
    const String text = String::Number(-std::numeric_limits<double>::max(), 99, 'f');
    EXPECT_EQ(text.Length(), 1u + 309 + 1 + 99);
    EXPECT_TRUE(
        text.BeginsWith("-179769313486231570814527423731704356798070567525844996598917476803157260780028538760"));
    EXPECT_TRUE(text.EndsWith(String(("858368." + std::string(99, '0')).c_str())));
}

TEST(NumberOfFloat, IsThatOfTheDoubleOfTheSameValue)
{
    EXPECT_EQ(contents(String::Number(0.1f, 20, 'f')), "0.10000000149011611938");
}

}  // namespace
