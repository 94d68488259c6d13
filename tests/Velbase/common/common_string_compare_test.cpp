#include "Velbase/common/common_string.h"
#include "string_contents.h"
#include "tests/support/RowName.h"

#include <gtest/gtest.h>

namespace {

using namespace std::literals;

struct OrderCase {
    const char* name;
    Bytes a;
    Bytes b;
    int order;  // below, at or above 0 as a sorts before, with or after b
};

// clang-format off
const OrderCase ORDER_CASES[] = {
    // name                  a            b            order
    {"EqualTexts",           "abc",       "abc",       0},
    {"FirstByteDiffers",     "abc",       "bbc",       -1},
    {"LastByteDiffers",      "abd",       "abc",       1},
    {"PrefixSortsFirst",     "ab",        "abc",       -1},
    {"NullEqualsNull",       NULL_STRING, NULL_STRING, 0},
    {"NullEqualsEmpty",      NULL_STRING, "",          0},
    {"NullBeforeText",       NULL_STRING, "a",         -1},
    {"BytesAreUnsigned",     "\xE9",      "z",         1},
    {"BytesFrom7FTo80",      "\x7F",      "\x80",      -1},
    {"CaseCounts",           "a",         "A",         1},
    {"EndsAtAZeroByte",      "ab\0x"sv,   "ab\0y"sv,   0},
    {"ZeroByteIsTheEnd",     "ab\0x"sv,   "ab",        0},
    {"ZeroByteBeforeText",   "ab\0x"sv,   "abc",       -1},
};
// clang-format on

class StringOrder : public testing::TestWithParam<OrderCase> { };

TEST_P(StringOrder, OperatorsAgreeWithIt)
{
    const String a = stringOf(GetParam().a);
    const String b = stringOf(GetParam().b);
    EXPECT_EQ(a == b, GetParam().order == 0);
    EXPECT_EQ(a < b, GetParam().order < 0);
    EXPECT_EQ(a <= b, GetParam().order <= 0);
    EXPECT_EQ(b == a, GetParam().order == 0);
    EXPECT_EQ(b<a, GetParam().order> 0);
    EXPECT_EQ(b <= a, GetParam().order >= 0);
}

TEST_P(StringOrder, OperatorsOnACStringAgreeWithIt)
{
    const String a = stringOf(GetParam().a);
    const String b = stringOf(GetParam().b);
    EXPECT_EQ(a == b.Latin1(), GetParam().order == 0);
    EXPECT_EQ(a < b.Latin1(), GetParam().order < 0);
    EXPECT_EQ(a <= b.Latin1(), GetParam().order <= 0);
}

INSTANTIATE_TEST_SUITE_P(Cases, StringOrder, testing::ValuesIn(ORDER_CASES), RowName());

TEST(StringOrder, NullPointerIsNeitherEqualNorAfterAnything)
{
    const char* const null = nullptr;
    for (const String& text : {String(), String(""), String("a")}) {
        EXPECT_FALSE(text == null);
        EXPECT_FALSE(text < null);
        EXPECT_FALSE(text <= null);
    }
}

struct EndsCase {
    const char* name;
    Bytes text;
    Bytes other;
    bool begins;
    bool beginsInAnyCase;
    bool ends;
    bool endsInAnyCase;
};

// clang-format off
const EndsCase ENDS_CASES[] = {
    // name                    text         other        begins any case  ends   any case
    {"AllOfIt",                "abc",       "abc",       true,  true,     true,  true},
    {"Prefix",                 "abc",       "ab",        true,  true,     false, false},
    {"Suffix",                 "abc",       "bc",        false, false,    true,  true},
    {"PrefixInOtherCase",      "abc",       "AB",        false, true,     false, false},
    {"SuffixInOtherCase",      "ABC",       "bc",        false, false,    false, true},
    {"BothEnds",               "aba",       "a",         true,  true,     true,  true},
    {"LongerThanTheText",      "bcd",       "abcd",      false, false,    false, false},
    {"EmptyMatches",           "abc",       "",          true,  true,     true,  true},
    {"NullMatches",            "abc",       NULL_STRING, true,  true,     true,  true},
    {"NullInEmpty",            "",          NULL_STRING, true,  true,     true,  true},
    {"EmptyInNull",            NULL_STRING, "",          true,  true,     true,  true},
    {"TextInNull",             NULL_STRING, "a",         false, false,    false, false},
    {"OtherLettersKeepCase",   "\xC9",      "\xE9",      false, false,    false, false},
    {"ComparedToAZeroByte",    "a\0x"sv,    "a\0y"sv,    true,  true,     true,  true},
    {"ZeroByteInTheOther",     "abc",       "a\0c"sv,    false, false,    false, false},
    {"ZeroByteInTheText",      "a\0c"sv,    "abc",       false, false,    false, false},
    {"ZeroByteFirst",          "\0ab"sv,    "\0b"sv,     true,  true,     false, false},
};
// clang-format on

class StringEnds : public testing::TestWithParam<EndsCase> { };

TEST_P(StringEnds, BeginsWithAndEndsWithTellThem)
{
    const String text = stringOf(GetParam().text);
    const String other = stringOf(GetParam().other);
    EXPECT_EQ(text.BeginsWith(other), GetParam().begins);
    EXPECT_EQ(text.BeginsWith(other, true), GetParam().begins);
    EXPECT_EQ(text.BeginsWith(other, false), GetParam().beginsInAnyCase);
    EXPECT_EQ(text.EndsWith(other), GetParam().ends);
    EXPECT_EQ(text.EndsWith(other, true), GetParam().ends);
    EXPECT_EQ(text.EndsWith(other, false), GetParam().endsInAnyCase);
    EXPECT_EQ(contents(text), GetParam().text);
    EXPECT_EQ(contents(other), GetParam().other);
}

INSTANTIATE_TEST_SUITE_P(Cases, StringEnds, testing::ValuesIn(ENDS_CASES), RowName());

}  // namespace
