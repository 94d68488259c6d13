#include "Velbase/common/common_string.h"
#include "string_contents.h"
#include "tests/support/RowName.h"

#include <gtest/gtest.h>

namespace {

using namespace std::literals;

// A position, or none; of what was not found the value is 0.
std::optional<unsigned> positionOf(const checked_uint& found)
{
    if (found.valid())
        return found.value();
    EXPECT_EQ(found.value(), 0u);
    return std::nullopt;
}

typedef std::optional<unsigned> Position;
constexpr Position NOT_FOUND = std::nullopt;

// ---- Characters

struct FindCharCase {
    const char* name;
    Bytes text;
    char c;
    unsigned from;
    Position found;
    Position foundInAnyCase;
};

// clang-format off
const FindCharCase FIND_CHAR_CASES[] = {
    // name                   text         c       from         found      in any case
    {"AfterFrom",             "abcabc",    'b',    2,           4u,        4u},
    {"FromTheLast",           "abcabd",    'd',    5,           5u,        5u},
    {"Absent",                "abcabc",    'x',    0,           NOT_FOUND, NOT_FOUND},
    {"OnlyBeforeFrom",        "abcabc",    'a',    4,           NOT_FOUND, NOT_FOUND},
    {"FromTheLargestNumber",  "abcdx",     'x',    0xFFFFFFFF,  NOT_FOUND, NOT_FOUND},
    {"NullString",            NULL_STRING, 'a',    0,           NOT_FOUND, NOT_FOUND},
    {"EmptyString",           "",          'a',    0,           NOT_FOUND, NOT_FOUND},
    {"UpperInLowerText",      "banana",    'A',    0,           NOT_FOUND, 1u},
    {"LowerInUpperText",      "BANANA",    'a',    2,           NOT_FOUND, 3u},
    {"OtherLettersKeepCase",  "\xC9",      '\xE9', 0,           NOT_FOUND, NOT_FOUND},
    {"DigitHasNoOtherCase",   "\x10" "0",  '0',    0,           1u,        1u},
    {"ZeroByte",              "ab\0c"sv,   '\0',   0,           2u,        2u},
    {"BehindAZeroByte",       "ab\0C"sv,   'c',    0,           NOT_FOUND, 3u},
    {"TerminatorIsNotText",   "ab",        '\0',   0,           NOT_FOUND, NOT_FOUND},
};
// clang-format on

class StringFindChar : public testing::TestWithParam<FindCharCase> { };

TEST_P(StringFindChar, GivesTheFirstPositionAtOrAfterFrom)
{
    const FindCharCase& row = GetParam();
    const String text = stringOf(row.text);
    EXPECT_EQ(positionOf(text.Find(row.c, row.from)), row.found);
    EXPECT_EQ(positionOf(text.Find(row.c, row.from, true)), row.found);
    EXPECT_EQ(positionOf(text.Find(row.c, row.from, false)), row.foundInAnyCase);
    EXPECT_EQ(positionOf(text.Find(Char(row.c), row.from)), row.found);
    EXPECT_EQ(positionOf(text.Find(Char(row.c), row.from, false)), row.foundInAnyCase);
    if (row.from == 0) {
        EXPECT_EQ(positionOf(text.Find(row.c)), row.found);
        EXPECT_EQ(text.Contains(row.c), row.found.has_value());
        EXPECT_EQ(text.Contains(row.c, false), row.foundInAnyCase.has_value());
        EXPECT_EQ(text.Contains(Char(row.c)), row.found.has_value());
        EXPECT_EQ(text.Contains(Char(row.c), false), row.foundInAnyCase.has_value());
    }
}

INSTANTIATE_TEST_SUITE_P(Cases, StringFindChar, testing::ValuesIn(FIND_CHAR_CASES), RowName());

struct FindRevCase {
    const char* name;
    Bytes text;
    char c;
    checked_uint from;
    Position found;
    Position foundInAnyCase;
};

// clang-format off
const FindRevCase FIND_REV_CASES[] = {
    // name                   text         c       from         found      in any case
    {"BeforeFrom",            "banana",    'a',    4u,          3u,        3u},
    {"FromTheLast",           "banana",    'a',    5u,          5u,        5u},
    {"FromTheLengthIsNot",    "banana",    'a',    6u,          NOT_FOUND, NOT_FOUND},
    {"FromTheLargestNumber",  "banana",    'a',    0xFFFFFFFFu, NOT_FOUND, NOT_FOUND},
    {"OtherThanTheFirst",     "abc",       'b',    0u,          NOT_FOUND, NOT_FOUND},
    {"OnlyAfterFrom",         "abc",       'c',    1u,          NOT_FOUND, NOT_FOUND},
    {"Absent",                "banana",    'x',    {},          NOT_FOUND, NOT_FOUND},
    {"NullString",            NULL_STRING, 'a',    {},          NOT_FOUND, NOT_FOUND},
    {"EmptyString",           "",          'a',    {},          NOT_FOUND, NOT_FOUND},
    {"UpperInLowerText",      "banana",    'A',    {},          NOT_FOUND, 5u},
    {"LowerInUpperText",      "BANANA",    'a',    4u,          NOT_FOUND, 3u},
    {"OtherLettersKeepCase",  "\xC9\xE9",  '\xC9', {},          0u,        0u},
    {"ZeroByte",              "a\0bc"sv,   '\0',   {},          1u,        1u},
    {"BeforeAZeroByte",       "A\0bc"sv,   'a',    {},          NOT_FOUND, 0u},
};
// clang-format on

class StringFindRev : public testing::TestWithParam<FindRevCase> { };

TEST_P(StringFindRev, GivesTheLastPositionAtOrBeforeFrom)
{
    const FindRevCase& row = GetParam();
    const String text = stringOf(row.text);
    EXPECT_EQ(positionOf(text.FindRev(row.c, row.from)), row.found);
    EXPECT_EQ(positionOf(text.FindRev(row.c, row.from, true)), row.found);
    EXPECT_EQ(positionOf(text.FindRev(row.c, row.from, false)), row.foundInAnyCase);
    EXPECT_EQ(positionOf(text.FindRev(Char(row.c), row.from)), row.found);
    EXPECT_EQ(positionOf(text.FindRev(Char(row.c), row.from, false)), row.foundInAnyCase);
    if (!row.from.valid()) {
        EXPECT_EQ(positionOf(text.FindRev(row.c)), row.found);
    }
}

INSTANTIATE_TEST_SUITE_P(Cases, StringFindRev, testing::ValuesIn(FIND_REV_CASES), RowName());

// Long enough for the block-wise search with a rest at either end.
TEST(StringFindChar, FindsTheCharacterAtEveryPositionOfALongText)
{
    const unsigned length = 300;
    for (unsigned position = 0; position < length; ++position) {
        SCOPED_TRACE(position);
        std::string bytes(length, 'x');
        bytes[position] = 'A';
        const String text(bytes.c_str());
        EXPECT_EQ(positionOf(text.Find('A')), position);
        EXPECT_EQ(positionOf(text.Find('a')), NOT_FOUND);
        EXPECT_EQ(positionOf(text.Find('a', 0, false)), position);
        EXPECT_EQ(positionOf(text.Find('a', position, false)), position);
        EXPECT_EQ(positionOf(text.Find('a', position + 1, false)), NOT_FOUND);
        EXPECT_EQ(positionOf(text.FindRev('A')), position);
        EXPECT_EQ(positionOf(text.FindRev('a')), NOT_FOUND);
        EXPECT_EQ(positionOf(text.FindRev('a', {}, false)), position);
        EXPECT_EQ(positionOf(text.FindRev('A', position)), position);
        if (position > 0) {
            EXPECT_EQ(positionOf(text.FindRev('A', position - 1)), NOT_FOUND);
        }
    }
}

TEST(StringFindRev, FindsEachOfTwoInAVeryLongText)
{
    std::string bytes(9000, 'x');
    bytes[700] = 'A';
    const String one(bytes.c_str());
    EXPECT_EQ(positionOf(one.FindRev('A')), 700u);
    EXPECT_EQ(positionOf(one.FindRev('y')), NOT_FOUND);
    for (unsigned position = 701; position < 9000; position += 61) {
        bytes[position] = 'A';
        const String two(bytes.c_str());
        EXPECT_EQ(positionOf(two.FindRev('A')), position);
        EXPECT_EQ(positionOf(two.FindRev('a', {}, false)), position);
        EXPECT_EQ(positionOf(two.Find('A', 701)), position);
        EXPECT_EQ(positionOf(two.Find('a', 701, false)), position);
        EXPECT_EQ(positionOf(two.Find('A', position + 1)), NOT_FOUND);
        EXPECT_EQ(positionOf(two.FindRev('A', position - 1)), 700u);
        bytes[position] = 'x';
    }
}

TEST(StringFindChar, EveryByteMatchesItselfAndAsciiLettersTheirOtherCase)
{
    for (int wanted = 0; wanted < 256; ++wanted) {
        for (int byte = 0; byte < 256; ++byte) {
            const char c = static_cast<char>(wanted);
            const String text = stringOf(std::string_view(std::string(70, static_cast<char>(byte))));
            const bool isLetter = (wanted >= 'a' && wanted <= 'z') || (wanted >= 'A' && wanted <= 'Z');
            const bool matches = byte == wanted || (isLetter && (byte ^ wanted) == 0x20);
            EXPECT_EQ(text.Find(c).valid(), byte == wanted) << wanted << " in " << byte;
            EXPECT_EQ(text.FindRev(c).valid(), byte == wanted) << wanted << " in " << byte;
            EXPECT_EQ(text.Find(c, 0, false).valid(), matches) << wanted << " in " << byte;
            EXPECT_EQ(text.FindRev(c, {}, false).valid(), matches) << wanted << " in " << byte;
        }
    }
}

// ---- Texts

struct FindTextCase {
    const char* name;
    Bytes text;
    const char* needle;
    unsigned from;
    Position found;
    Position foundInAnyCase;
};

// clang-format off
const FindTextCase FIND_TEXT_CASES[] = {
    // name                    text              needle   from         found      in any case
    {"AfterFrom",              "abcabc",         "bc",    2,           4u,        4u},
    {"LongerThanTheText",      "abc",            "abcd",  0,           NOT_FOUND, NOT_FOUND},
    {"FromTheLargestNumber",   "abcd",           "d",     0xFFFFFFFF,  NOT_FOUND, NOT_FOUND},
    {"EmptyNeedleFrom0",       "abcd",           "",      0,           0u,        0u},
    {"EmptyNeedleFrom2",       "abcd",           "",      2,           2u,        2u},
    {"EmptyNeedleFromTheEnd",  "abcd",           "",      4,           NOT_FOUND, NOT_FOUND},
    {"EmptyNeedleInEmpty",     "",               "",      0,           NOT_FOUND, NOT_FOUND},
    {"EmptyNeedleInNull",      NULL_STRING,      "",      0,           NOT_FOUND, NOT_FOUND},
    {"NullString",             NULL_STRING,      "a",     0,           NOT_FOUND, NOT_FOUND},
    {"EmptyString",            "",               "a",     0,           NOT_FOUND, NOT_FOUND},
    {"NeedleInOtherCase",      "one Two",        "TWO",   0,           NOT_FOUND, 4u},
    {"TextInOtherCase",        "ONE TWO",        "one",   0,           NOT_FOUND, 0u},
    {"OtherLettersKeepCase",   "x\xC9y",         "\xE9",  0,           NOT_FOUND, NOT_FOUND},
    {"EndsAtAZeroByte",        "ab\0cd"sv,       "cd",    0,           NOT_FOUND, NOT_FOUND},
    {"FromBehindAZeroByte",    "ab\0cd"sv,       "d",     3,           4u,        NOT_FOUND},
    {"EmptyFromAZeroByte",     "ab\0cd"sv,       "",      2,           2u,        2u},
    {"ZeroByteEndsTheNeedle",  "abcab",          "b\0x",  0,           1u,        1u},
    {"NearlyFound",            "aabaabaaab",     "aaab",  0,           6u,        6u},
};
// clang-format on

class StringFindText : public testing::TestWithParam<FindTextCase> { };

TEST_P(StringFindText, GivesTheFirstPositionAtOrAfterFrom)
{
    const FindTextCase& row = GetParam();
    const String text = stringOf(row.text);
    const String needle(row.needle);
    EXPECT_EQ(positionOf(text.Find(row.needle, row.from)), row.found);
    EXPECT_EQ(positionOf(text.Find(row.needle, row.from, true)), row.found);
    EXPECT_EQ(positionOf(text.Find(row.needle, row.from, false)), row.foundInAnyCase);
    EXPECT_EQ(positionOf(text.Find(needle, row.from)), row.found);
    EXPECT_EQ(positionOf(text.Find(needle, row.from, false)), row.foundInAnyCase);
    if (row.from == 0) {
        EXPECT_EQ(positionOf(text.Find(row.needle)), row.found);
        EXPECT_EQ(text.Contains(row.needle), row.found.has_value());
        EXPECT_EQ(text.Contains(row.needle, false), row.foundInAnyCase.has_value());
        EXPECT_EQ(text.Contains(needle), row.found.has_value());
        EXPECT_EQ(text.Contains(needle, false), row.foundInAnyCase.has_value());
    }
    EXPECT_EQ(contents(text), row.text);
}

INSTANTIATE_TEST_SUITE_P(Cases, StringFindText, testing::ValuesIn(FIND_TEXT_CASES), RowName());

TEST(StringFindText, NullPointerIsAnEmptyNeedleWithoutCase)
{
    const char* const null = nullptr;
    EXPECT_EQ(positionOf(String("abcd").Find(null, 2, false)), 2u);
    EXPECT_EQ(positionOf(String("abcd").Find(null, 4, false)), NOT_FOUND);
    EXPECT_EQ(positionOf(String().Find(null, 0, false)), NOT_FOUND);
}

TEST(StringFindText, NullStringIsAnEmptyNeedle)
{
    EXPECT_EQ(positionOf(String("abcd").Find(String(), 2)), 2u);
    EXPECT_EQ(positionOf(String("abcd").Find(String(), 2, false)), 2u);
    EXPECT_TRUE(String("abcd").Contains(String()));
    EXPECT_FALSE(String().Contains(String()));
}

}  // namespace
