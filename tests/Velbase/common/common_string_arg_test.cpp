#include "Velbase/common/common_string.h"
#include "string_contents.h"
#include "tests/support/RowName.h"

#include <gtest/gtest.h>

#include <climits>

namespace {

using namespace std::literals;

// Whose buffer the result has.
enum class Buffer { New, Template, Argument };

struct ArgCase {
    const char* name;
    Bytes text;
    Bytes argument;
    Bytes result;
    Buffer buffer;
};

// clang-format off
const ArgCase ARG_CASES[] = {
    // name                     text             argument     result           buffer
    {"Inside",                  "a %1 b",        "x",         "a x b",         Buffer::New},
    {"AtTheStart",              "%1 b",          "x",         "x b",           Buffer::New},
    {"AtTheEnd",                "a %1",          "x",         "a x",           Buffer::New},
    {"Alone",                   "%1",            "x",         "x",             Buffer::Argument},
    {"LowestNumber",            "%2 %1",         "a",         "%2 a",          Buffer::New},
    {"LeftmostOfEqualNumbers",  "%1 %1",         "x",         "x %1",          Buffer::New},
    {"ZeroIsTheLowest",         "%1 %0",         "x",         "%1 x",          Buffer::New},
    {"OnlyTheZero",             "%0 and %1",     "x",         "x and %1",      Buffer::New},
    {"Nine",                    "a%9b",          "x",         "axb",           Buffer::New},
    {"OneDigitOnly",            "%12",           "x",         "x2",            Buffer::New},
    {"NoPlaceholderAppends",    "value",         "x",         "valuex",        Buffer::New},
    {"PercentAtTheEnd",         "100%",          "x",         "100%x",         Buffer::New},
    {"PercentBeforeALetter",    "100% of",       "x",         "100% ofx",      Buffer::New},
    {"PercentBeforeSlash",      "%/",            "x",         "%/x",           Buffer::New},
    {"PercentBeforeColon",      "%:",            "x",         "%:x",           Buffer::New},
    {"PercentBeforeAHighByte",  "%\xB2",         "x",         "%\xB2x",        Buffer::New},
    {"NoEscape",                "%%1",           "x",         "%x",            Buffer::New},
    {"ArgumentIsNotScanned",    "%1 %2",         "%0",        "%0 %2",         Buffer::New},
    {"EmptyTemplate",           "",              "x",         "x",             Buffer::Argument},
    {"NullTemplate",            NULL_STRING,     "x",         "x",             Buffer::Argument},
    {"EmptyTemplateEmpty",      "",              "",          "",              Buffer::Template},
    {"NullTemplateNull",        NULL_STRING,     NULL_STRING, NULL_STRING,     Buffer::New},
    {"EmptyForPlaceholder",     "a%1b",          "",          "ab",            Buffer::New},
    {"EmptyForAllIsEmpty",      "%1",            "",          "",              Buffer::New},
    {"EmptyAppendedIsShared",   "value",         "",          "value",         Buffer::Template},
    {"NullAppendedIsShared",    "value",         NULL_STRING, "value",         Buffer::Template},
    {"BehindAZeroByte",         "a\0%1"sv,       "x",         "a\0x"sv,        Buffer::New},
    {"ZeroByteInTheArgument",   "%1%2",          "\0x"sv,     "\0x%2"sv,       Buffer::New},
};
// clang-format on

class StringArg : public testing::TestWithParam<ArgCase> { };

TEST_P(StringArg, FillsOnePlaceholder)
{
    const String text = stringOf(GetParam().text);
    const String argument = stringOf(GetParam().argument);
    const String result = text.Arg(argument);
    EXPECT_EQ(contents(result), GetParam().result);
    EXPECT_EQ(shareBuffer(result, text), GetParam().buffer == Buffer::Template);
    EXPECT_EQ(shareBuffer(result, argument), GetParam().buffer == Buffer::Argument);
    EXPECT_EQ(contents(text), GetParam().text);
}

INSTANTIATE_TEST_SUITE_P(Cases, StringArg, testing::ValuesIn(ARG_CASES), RowName());

TEST(StringArg, ChainedCallsFillOneAfterTheOther)
{
    EXPECT_EQ(contents(String("%1 of %2").Arg(3).Arg("5")), "3 of 5");
    EXPECT_EQ(contents(String("%2 %1").Arg("a").Arg("b")), "b a");
    EXPECT_EQ(contents(String("%1").Arg("%1").Arg("x")), "x");
}

const String TEMPLATE("<%1>");

TEST(StringArgTypes, CStringIsItsText)
{
    EXPECT_EQ(contents(TEMPLATE.Arg("x")), "<x>");
    EXPECT_EQ(contents(TEMPLATE.Arg("")), "<>");
    EXPECT_EQ(contents(TEMPLATE.Arg(static_cast<const char*>(nullptr))), "<>");
}

TEST(StringArgTypes, CharacterIsItselfEvenTheZeroByte)
{
    EXPECT_EQ(contents(TEMPLATE.Arg('x')), "<x>");
    EXPECT_EQ(contents(TEMPLATE.Arg(Char('x'))), "<x>");
    EXPECT_EQ(contents(TEMPLATE.Arg(String("xyz")[1])), "<y>");
    EXPECT_EQ(contents(TEMPLATE.Arg('\xE9')), "<\xE9>");
    EXPECT_EQ(contents(TEMPLATE.Arg('\0')), "<\0>"sv);
    EXPECT_EQ(contents(TEMPLATE.Arg(Char())), "<\0>"sv);
    EXPECT_EQ(contents(String().Arg('\0')), "\0"sv);
}

TEST(StringArgTypes, BoolIsAWord)
{
    EXPECT_EQ(contents(TEMPLATE.Arg(true)), "<true>");
    EXPECT_EQ(contents(TEMPLATE.Arg(false)), "<false>");
}

TEST(StringArgTypes, IntAndLongAreSignedButInBase16)
{
    EXPECT_EQ(contents(TEMPLATE.Arg(-255)), "<-255>");
    EXPECT_EQ(contents(TEMPLATE.Arg(-255, 8)), "<-377>");
    EXPECT_EQ(contents(TEMPLATE.Arg(INT_MIN)), "<-2147483648>");
    EXPECT_EQ(contents(TEMPLATE.Arg(-1, 16)), "<FFFFFFFF>");
    EXPECT_EQ(contents(TEMPLATE.Arg(INT_MIN, 16)), "<80000000>");
    EXPECT_EQ(contents(TEMPLATE.Arg(-1l, 16)), "<FFFFFFFF>");
    EXPECT_EQ(contents(TEMPLATE.Arg(static_cast<long>(INT_MIN), 16)), "<80000000>");
    EXPECT_EQ(contents(TEMPLATE.Arg(static_cast<long>(INT_MAX), 16)), "<7FFFFFFF>");
}

#if LONG_MAX > INT_MAX
TEST(StringArgTypes, LongBeyond32BitsKeepsAllItsBits)
{
    const long wide = static_cast<long>(0x100000000LL);
    EXPECT_EQ(contents(TEMPLATE.Arg(wide, 16)), "<100000000>");
    EXPECT_EQ(contents(TEMPLATE.Arg(wide / 2, 16)), "<80000000>");
    EXPECT_EQ(contents(TEMPLATE.Arg(-wide, 16)), "<FFFFFFFF00000000>");
    EXPECT_EQ(contents(TEMPLATE.Arg(-wide / 2 - 1, 16)), "<FFFFFFFF7FFFFFFF>");
    EXPECT_EQ(contents(TEMPLATE.Arg(-wide, 10)), "<-4294967296>");
}
#endif

TEST(StringArgTypes, ShortsAreWidenedAndSignedInEveryBase)
{
    const short minusOne = -1;
    const unsigned short largest = 65535;
    EXPECT_EQ(contents(TEMPLATE.Arg(minusOne, 16)), "<-1>");
    EXPECT_EQ(contents(TEMPLATE.Arg(static_cast<short>(-32768), 16)), "<-8000>");
    EXPECT_EQ(contents(TEMPLATE.Arg(largest, 16)), "<FFFF>");
    EXPECT_EQ(contents(TEMPLATE.Arg(largest, 2)), "<1111111111111111>");
}

TEST(StringArgTypes, UnsignedNumbersAreTheirDigits)
{
    EXPECT_EQ(contents(TEMPLATE.Arg(255u, 16)), "<FF>");
    EXPECT_EQ(contents(TEMPLATE.Arg(255u, 1)), "<255>");
    EXPECT_EQ(contents(TEMPLATE.Arg(255ul, 16)), "<FF>");
}

TEST(StringArgTypes, Numbers64BitsWideKnowBase16AndDecimal)
{
    EXPECT_EQ(contents(TEMPLATE.Arg(-5ll)), "<-5>");
    EXPECT_EQ(contents(TEMPLATE.Arg(-5ll, 8)), "<-5>");
    EXPECT_EQ(contents(TEMPLATE.Arg(-1ll, 16)), "<FFFFFFFFFFFFFFFF>");
    EXPECT_EQ(contents(TEMPLATE.Arg(255ull, 2)), "<255>");
    EXPECT_EQ(contents(TEMPLATE.Arg(255ull, 16)), "<FF>");
    EXPECT_EQ(contents(TEMPLATE.Arg(ULLONG_MAX)), "<18446744073709551615>");
}

TEST(StringArgTypes, FloatingPointIsWhatNumberGives)
{
    EXPECT_EQ(contents(TEMPLATE.Arg(1.5, 2)), "<1.50>");
    EXPECT_EQ(contents(TEMPLATE.Arg(1.5, 0xFFFFFFFF, 'g')), "<1.5>");
    EXPECT_EQ(contents(TEMPLATE.Arg(1.5, 2, 'E')), "<1.50E+00>");
    EXPECT_EQ(contents(TEMPLATE.Arg(1.5, 2, 'x')), "<1.50>");
    EXPECT_EQ(contents(TEMPLATE.Arg(1.5, 200)), "<1.5" + std::string(98, '0') + ">");
    EXPECT_EQ(contents(TEMPLATE.Arg(0.1f, 10, 'e')), "<1.0000000149e-01>");
}

}  // namespace
