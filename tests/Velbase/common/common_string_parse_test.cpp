// Numbers from text by example. tests/Velbase/property compares them with a model, around every limit in every base.

#include "Velbase/common/common_string.h"
#include "string_contents.h"

#include <gtest/gtest.h>

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
const IntegerCase INTEGER_CASES[] = {
    // name                    text                    base outcomes
    {"SpaceAround",            "  42\t",               10,  "42 42 42 42 42 42"},
    {"SpaceInside",            "4 2",                  10,  "- - - - - -"},
    {"LeadingZeros",           "0000000000000000000000000000042", 10, "42 42 42 42 42 42"},
    {"Plus",                   "+7",                   10,  "7 7 7 7 7 7"},
    {"SpaceAfterPlus",         "+ 5",                  10,  "- - - - - -"},
    {"Minus",                  "-7",                   10,  "-7 - -7 - - -"},
    {"MinusAlone",             "-",                    10,  "- - - - - -"},
    {"MinusZero",              "-0",                   10,  "0 - 0 - 0 -"},
    {"NullText",               NULL_STRING,            10,  "- - - - - -"},
    {"ZeroByteBehind",         "12\0"sv,               10,  "- - - - - -"},
    {"SuperscriptIsNoDigit",   "1\xB2",                10,  "- - - - - -"},
    {"LowerHexadecimal",       "ff",                   16,  "255 255 255 255 255 255"},
    {"UpperHexadecimal",       "FF",                   16,  "255 255 255 255 255 255"},
    {"MixedHexadecimal",       "fF",                   16,  "255 255 255 255 255 255"},
    {"NoPrefix0x",             "0x10",                 16,  "- - - - - -"},
    {"LetterBeyondTheBase",    "1g",                   16,  "- - - - - -"},
    {"DigitBeyondBase8",       "19",                   8,   "- - - - - -"},
    {"DigitBeyondBase9",       "9",                    9,   "- - - - - -"},
    {"Base36",                 "zz",                   36,  "1295 1295 1295 1295 1295 1295"},
    {"Base0HasNoDigit",        "0",                    0,   "- - - - - -"},
    {"Base1HasTheDigit0",      "0000",                 1,   "0 0 0 0 0 0"},
    {"Base1HasNoDigit1Behind", "01",                   1,   "- - - - - -"},
    // The limits of the widths. The signed ones' are 32-bit numbers.
    {"MaximumShort",           "32767",                10,  "32767 32767 32767 32767 32767 32767"},
    {"TwoTo15",                "32768",                10,  "- 32768 32768 32768 32768 32768"},
    {"MaximumUShort",          "65535",                10,  "- 65535 65535 65535 65535 65535"},
    {"TwoTo16",                "65536",                10,  "- - 65536 65536 65536 65536"},
    {"MinusFortyThousand",     "-40000",               10,  "25536 - -40000 - - -"},
    {"TwoTo31",                "2147483648",           10,  "- - - 2147483648 -2147483648 2147483648"},
    {"MinimumInt",             "-2147483648",          10,  "- - -2147483648 - - -"},
    {"MaximumUInt",            "4294967295",           10,  "- - - 4294967295 -1 4294967295"},
    {"TwoTo32",                "4294967296",           10,  "- - - - - 4294967296"},
    {"MaximumUInt64",          "18446744073709551615", 10,  "- - - - - 18446744073709551615"},
    {"TwoTo64",                "18446744073709551616", 10,  "- - - - - -"},
    // Bases beyond 36 are not refused: the limits of the letters move on, and wrap.
    {"Base37HasTheBrace",      "{",                    37,  "68 68 68 68 68 68"},
    {"Base41HasUpperLetters",  "A",                    41,  "10 10 10 10 10 10"},
    {"Base41HasNoLowerLetter", "a",                    41,  "- - - - - -"},
    {"Base256HasDigits",       "11",                   256, "257 257 257 257 257 257"},
    {"Base292IsLike36",        "z",                    292, "35 35 35 35 35 35"},
    {"LargestBase",            "10",                   4294967295, "- - - 4294967295 -1 4294967295"},
    // A digit that is larger than the base can take the last step over the limit, where it wraps.
    {"DigitBeyondTheBaseWraps", "1AV{",                37,  "22 22 65558 65558 65558 65558"},
};
// clang-format on

TEST(StringToInteger, GivesTheNumberOrFails)
{
    for (const auto& row : INTEGER_CASES) {
        SCOPED_TRACE(row.name);
        const String text = stringOf(row.text);
        EXPECT_EQ(outcomes(text, row.base), row.outcomes);
        EXPECT_EQ(contents(text), row.text);
    }
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

TEST(StringToDouble, GivesTheNumberWithEitherPoint)
{
    EXPECT_EQ(toDouble("3.25"), 3.25);
    EXPECT_EQ(toDouble("3,25"), 3.25);
    EXPECT_EQ(toDouble("1e3"), 1000.0);
    EXPECT_EQ(toDouble("0x1.8p1"), 3.0);
    EXPECT_EQ(toDouble("1e999"), std::numeric_limits<double>::infinity());
    EXPECT_EQ(toDouble("1e-999"), 0.0);
    for (const Bytes& bytes : {NULL_STRING, Bytes(""), Bytes(" 3.25"), Bytes("1.5 "), Bytes("1.5kg"), Bytes("1.000,5"),
             Bytes("abc"), Bytes("1,5\0,"sv)})
        EXPECT_EQ(toDouble(stringOf(bytes)), std::nullopt) << bytes.value_or("null");
    EXPECT_EQ(String("0.1").ToFloat(), 0.1f);
    bool ok = false;
    EXPECT_EQ(String("-1e39").ToFloat(&ok), -std::numeric_limits<float>::infinity());
    EXPECT_TRUE(ok);
}

}  // namespace
