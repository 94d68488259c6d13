#include "Velbase/common/common_string.h"
#include "string_contents.h"
#include "tests/support/RowName.h"

#include <gtest/gtest.h>

namespace {

using namespace std::literals;

// Whose buffer the result has.
enum class Buffer { New, Own, Replacement };

struct ReplaceCase {
    const char* name;
    Bytes text;
    Bytes pattern;
    Bytes replacement;
    Bytes result;
    Buffer buffer;
};

// clang-format off
const ReplaceCase REPLACE_CASES[] = {
    // name                      text            pattern       replacement  result         buffer
    {"EachOccurrence",           "abcb",         "b",          "XX",        "aXXcXX",      Buffer::New},
    {"OccurrenceFirst",          "abc",          "a",          "XX",        "XXbc",        Buffer::New},
    {"OccurrenceLast",           "abc",          "bc",         "X",         "aX",          Buffer::New},
    {"SameLength",               "abcb",         "b",          "X",         "aXcX",        Buffer::New},
    {"WithoutOverlap",           "aaa",          "aa",         "b",         "ba",          Buffer::New},
    {"NextToEachOther",          "aaaa",         "aa",         "b",         "bb",          Buffer::New},
    {"ReplacementIsNotScanned",  "ab",           "b",          "bb",        "abb",         Buffer::New},
    {"JoinedTextIsNotScanned",   "aabb",         "ab",         "",          "ab",          Buffer::New},
    {"NearlyAnOccurrence",       "aabaabaaab",   "aaab",       "x",         "aabaabx",     Buffer::New},
    {"NoOccurrence",             "abc",          "x",          "y",         "abc",         Buffer::New},
    {"CaseCounts",               "abc",          "B",          "y",         "abc",         Buffer::New},
    {"AllIsOneOccurrence",       "abc",          "abc",        "xy",        "xy",          Buffer::Replacement},
    {"AllIsTwoOccurrences",      "aa",           "a",          "xy",        "xyxy",        Buffer::New},
    {"AsLongAsThePattern",       "abc",          "abd",        "xy",        "abc",         Buffer::New},
    {"PatternLongerByOne",       "abc",          "abcd",       "xy",        "abc",         Buffer::New},
    {"PatternLongerByTwo",       "abc",          "abcde",      "xy",        "abc",         Buffer::New},
    {"PatternMuchLonger",        "a",            "abcdefgh",   "xy",        "a",           Buffer::New},
    {"EmptyDeletes",             "abcb",         "b",          "",          "ac",          Buffer::New},
    {"NullDeletes",              "abcb",         "b",          NULL_STRING, "ac",          Buffer::New},
    {"NothingLeftIsNull",        "aaa",          "a",          "",          NULL_STRING,   Buffer::New},
    {"NothingLeftByNull",        "aaa",          "a",          NULL_STRING, NULL_STRING,   Buffer::New},
    {"NothingLeftOfOne",         "abc",          "abc",        "",          NULL_STRING,   Buffer::New},
    {"EmptyPattern",             "abc",          "",           "x",         "abc",         Buffer::Own},
    {"NullPattern",              "abc",          NULL_STRING,  "x",         "abc",         Buffer::Own},
    {"NullText",                 NULL_STRING,    "x",          "y",         NULL_STRING,   Buffer::New},
    {"NullTextEmptyPattern",     NULL_STRING,    "",           "y",         NULL_STRING,   Buffer::New},
    {"EmptyText",                "",             "x",          "y",         "",            Buffer::New},
    {"EmptyTextEmptyPattern",    "",             "",           "y",         "",            Buffer::New},
    {"HighBytes",                "a\xE9z",       "\xE9",       "\xC9",      "a\xC9z",      Buffer::New},
    // Pieces and pattern are compared as C strings, however long they are.
    {"TextBehindAZeroByte",      "ab\0ab"sv,     "b",          "x",         "ax\0ax"sv,    Buffer::New},
    {"ZeroByteIsNoPattern",      "a\0b"sv,       "ab",         "x",         "a\0b"sv,      Buffer::New},
    {"ReplacementWithAZeroByte", "abc",          "b",          "\0"sv,      "a\0c"sv,      Buffer::New},
    {"PatternEndsAtAZeroByte",   "xa\0by"sv,     "a\0c"sv,     "R",         "xRy",         Buffer::New},
    {"PieceEndsAtAZeroByte",     "xaby",         "a\0c"sv,     "R",         "xaby",        Buffer::New},
    {"NoRoomForThePiece",        "xxab",         "ab\0c"sv,    "R",         "xxab",        Buffer::New},
    {"PatternOfAZeroByte",       "a\0b\0"sv,     "\0"sv,       "R",         "aRbR",        Buffer::New},
    {"PatternOfOnlyTheEnd",      "ab\0\0c"sv,    "\0z"sv,      "R",         "abRc",        Buffer::New},
    {"LongPatternPastTheEnd",    "ba",           "a\0\0\0\0"sv, "R",        "bR",          Buffer::New},
    {"LongPatternForAll",        "a",            "a\0\0\0\0"sv, "R",        "R",           Buffer::Replacement},
    {"LongerByOneIsNotTried",    "a",            "a\0"sv,      "R",         "a",           Buffer::New},
    {"LongerOnceThePieceEnds",   "a\0aa"sv,      "a\0z"sv,     "R",         "Ra",          Buffer::New},
};
// clang-format on

class StringReplace : public testing::TestWithParam<ReplaceCase> { };

TEST_P(StringReplace, PutsTheReplacementForEachOccurrence)
{
    const String text = stringOf(GetParam().text);
    const String pattern = stringOf(GetParam().pattern);
    const String replacement = stringOf(GetParam().replacement);
    const String result = text.Replace(pattern, replacement);
    EXPECT_EQ(contents(result), GetParam().result);
    EXPECT_EQ(shareBuffer(result, text), GetParam().buffer == Buffer::Own);
    EXPECT_EQ(shareBuffer(result, replacement), GetParam().buffer == Buffer::Replacement);
    EXPECT_FALSE(shareBuffer(result, pattern));
    EXPECT_EQ(contents(text), GetParam().text);
}

INSTANTIATE_TEST_SUITE_P(Cases, StringReplace, testing::ValuesIn(REPLACE_CASES), RowName());

struct ReplaceCharCase {
    const char* name;
    Bytes text;
    char from;
    char to;
    Bytes result;
};

// clang-format off
const ReplaceCharCase REPLACE_CHAR_CASES[] = {
    // name                 text         from    to      result
    {"EachOccurrence",      "banana",    'a',    'o',    "bonono"},
    {"NoOccurrence",        "banana",    'x',    'o',    "banana"},
    {"BySameCharacter",     "banana",    'a',    'a',    "banana"},
    {"CaseCounts",          "banana",    'A',    'o',    "banana"},
    {"HighBytes",           "\xE9\xC9",  '\xE9', '\xFF', "\xFF\xC9"},
    {"NullIsEmpty",         NULL_STRING, 'a',    'o',    ""},
    {"EmptyIsEmpty",        "",          'a',    'o',    ""},
    {"EndsAtAZeroByte",     "ba\0na"sv,  'a',    'o',    "bo"},
    {"ZeroByteIsNotText",   "ba\0na"sv,  '\0',   'o',    "ba"},
    {"ByAZeroByte",         "banana",    'a',    '\0',   "b\0n\0n\0"sv},
};
// clang-format on

class StringReplaceChar : public testing::TestWithParam<ReplaceCharCase> { };

TEST_P(StringReplaceChar, TurnsEachOccurrence)
{
    const String text = stringOf(GetParam().text);
    const String result = text.ReplaceChar(GetParam().from, GetParam().to);
    EXPECT_EQ(contents(result), GetParam().result);
    EXPECT_FALSE(shareBuffer(result, text));
    EXPECT_EQ(contents(text), GetParam().text);
}

INSTANTIATE_TEST_SUITE_P(Cases, StringReplaceChar, testing::ValuesIn(REPLACE_CHAR_CASES), RowName());

}  // namespace
