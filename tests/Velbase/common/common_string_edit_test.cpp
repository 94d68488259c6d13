#include "Velbase/common/common_string.h"
#include "string_contents.h"
#include "tests/support/RowName.h"

#include <gtest/gtest.h>

namespace {

using namespace std::literals;

// ---- Left and Right

struct EndCase {
    const char* name;
    Bytes text;
    unsigned count;
    Bytes left;
    Bytes right;
};

// clang-format off
const EndCase END_CASES[] = {
    // name               text         count        left         right
    {"Fewer",             "abc",       2,           "ab",        "bc"},
    {"AllOfIt",           "abc",       3,           "abc",       "abc"},
    {"More",              "abc",       5,           "abc",       "abc"},
    {"LargestNumber",     "abc",       0xFFFFFFFF,  "abc",       "abc"},
    {"NothingIsEmpty",    "abc",       0,           "",          ""},
    {"EmptyIsEmpty",      "",          2,           "",          ""},
    {"NullIsNull",        NULL_STRING, 2,           NULL_STRING, NULL_STRING},
    {"KeepsZeroBytes",    "a\0b\0"sv,  3,           "a\0b"sv,    "\0b\0"sv},
};
// clang-format on

class StringEnd : public testing::TestWithParam<EndCase> { };

TEST_P(StringEnd, LeftAndRightCutIt)
{
    const String text = stringOf(GetParam().text);
    const String left = text.Left(GetParam().count);
    const String right = text.Right(GetParam().count);
    EXPECT_EQ(contents(left), GetParam().left);
    EXPECT_EQ(contents(right), GetParam().right);
    EXPECT_FALSE(shareBuffer(left, text));
    EXPECT_FALSE(shareBuffer(right, text));
    EXPECT_EQ(contents(text), GetParam().text);
}

INSTANTIATE_TEST_SUITE_P(Cases, StringEnd, testing::ValuesIn(END_CASES), RowName());

// ---- Mid

struct MidCase {
    const char* name;
    Bytes text;
    unsigned start;
    checked_uint count;
    Bytes piece;
};

// clang-format off
const MidCase MID_CASES[] = {
    // name                 text         start        count        piece
    {"RestOfTheText",       "abc",       1,           {},          "bc"},
    {"OneCharacter",        "abc",       1,           1u,          "b"},
    {"CountPastTheEnd",     "abc",       1,           3u,          "bc"},
    {"LargestCount",        "abc",       2,           0xFFFFFFFFu, "c"},
    {"CountZeroIsEmpty",    "abc",       1,           0u,          ""},
    {"StartAtEndIsNull",    "abc",       3,           {},          NULL_STRING},
    {"StartPastEndIsNull",  "abc",       7,           {},          NULL_STRING},
    {"LargestStartIsNull",  "abc",       0xFFFFFFFF,  {},          NULL_STRING},
    {"EmptyTextIsNull",     "",          0,           {},          NULL_STRING},
    {"NullTextIsNull",      NULL_STRING, 0,           {},          NULL_STRING},
    {"KeepsZeroBytes",      "ab\0c"sv,   1,           3u,          "b\0c"sv},
};
// clang-format on

class StringMid : public testing::TestWithParam<MidCase> { };

TEST_P(StringMid, CutsThePiece)
{
    const String text = stringOf(GetParam().text);
    const String piece = text.Mid(GetParam().start, GetParam().count);
    EXPECT_EQ(contents(piece), GetParam().piece);
    EXPECT_FALSE(shareBuffer(piece, text));
    EXPECT_EQ(contents(text), GetParam().text);
}

INSTANTIATE_TEST_SUITE_P(Cases, StringMid, testing::ValuesIn(MID_CASES), RowName());

// ---- operator+=

// Whose buffer the result has.
enum class Buffer { New, Own, Argument };

Buffer bufferOf(const String& result, const String& before, const String& argument)
{
    if (shareBuffer(result, before))
        return Buffer::Own;
    return shareBuffer(result, argument) ? Buffer::Argument : Buffer::New;
}

struct AppendCase {
    const char* name;
    Bytes text;
    Bytes tail;
    Bytes result;
    Buffer buffer;
};

// clang-format off
const AppendCase APPEND_CASES[] = {
    // name              text         tail         result       buffer
    {"TextToText",       "ab",        "cd",        "abcd",      Buffer::New},
    {"EmptyToText",      "abc",       "",          "abc",       Buffer::Own},
    {"NullToText",       "abc",       NULL_STRING, "abc",       Buffer::Own},
    {"TextToEmpty",      "",          "x",         "x",         Buffer::Argument},
    {"TextToNull",       NULL_STRING, "x",         "x",         Buffer::Argument},
    {"NullToEmpty",      "",          NULL_STRING, "",          Buffer::Own},
    {"EmptyToNull",      NULL_STRING, "",          NULL_STRING, Buffer::New},
    {"KeepsZeroBytes",   "a\0"sv,     "\0b"sv,     "a\0\0b"sv,  Buffer::New},
};
// clang-format on

class StringAppend : public testing::TestWithParam<AppendCase> { };

TEST_P(StringAppend, PutsTheTailBehindTheText)
{
    String text = stringOf(GetParam().text);
    const String before(text);
    const String tail = stringOf(GetParam().tail);
    EXPECT_EQ(&(text += tail), &text);
    EXPECT_EQ(contents(text), GetParam().result);
    EXPECT_EQ(bufferOf(text, before, tail), GetParam().buffer);
    EXPECT_EQ(contents(before), GetParam().text);
    EXPECT_EQ(contents(tail), GetParam().tail);
}

INSTANTIATE_TEST_SUITE_P(Cases, StringAppend, testing::ValuesIn(APPEND_CASES), RowName());

TEST(StringAppend, MakesANewBufferEvenForAStringThatHasOneAlone)
{
    String text("a text too long for any small buffer");
    const char* const characters = text.Latin1();
    const String tail("x");
    text += tail;
    EXPECT_NE(text.Latin1(), characters);
}

TEST(StringAppend, TakesACStringOfItsOwnText)
{
    String text("abc");
    text += text.Latin1() + 1;
    EXPECT_EQ(contents(text), "abcbc");
}

// ---- Insert

struct InsertCase {
    const char* name;
    Bytes text;
    unsigned position;
    Bytes inserted;
    Bytes result;
    Buffer buffer;
};

// clang-format off
const InsertCase INSERT_CASES[] = {
    // name                text         position     inserted     result       buffer
    {"AtTheStart",         "abc",       0,           "XY",        "XYabc",     Buffer::New},
    {"Inside",             "abc",       1,           "XY",        "aXYbc",     Buffer::New},
    {"AtTheEnd",           "abc",       3,           "XY",        "abcXY",     Buffer::New},
    {"PastTheEnd",         "abc",       9,           "XY",        "abcXY",     Buffer::New},
    {"LargestPosition",    "abc",       0xFFFFFFFF,  "XY",        "abcXY",     Buffer::New},
    {"EmptyInside",        "abc",       1,           "",          "abc",       Buffer::New},
    {"NullAtTheEnd",       "abc",       3,           NULL_STRING, "abc",       Buffer::New},
    {"TextIntoNull",       NULL_STRING, 0,           "x",         "x",         Buffer::Argument},
    {"TextIntoEmpty",      "",          0,           "x",         "x",         Buffer::Argument},
    {"NullIntoEmpty",      "",          0,           NULL_STRING, "",          Buffer::New},
    {"EmptyIntoNull",      NULL_STRING, 0,           "",          NULL_STRING, Buffer::New},
    {"KeepsZeroBytes",     "a\0b"sv,    2,           "\0x"sv,     "a\0\0xb"sv, Buffer::New},
};
// clang-format on

class StringInsert : public testing::TestWithParam<InsertCase> { };

TEST_P(StringInsert, PutsTheTextBeforeThePosition)
{
    String text = stringOf(GetParam().text);
    const String before(text);
    const String inserted = stringOf(GetParam().inserted);
    EXPECT_EQ(&text.Insert(GetParam().position, inserted), &text);
    EXPECT_EQ(contents(text), GetParam().result);
    EXPECT_EQ(bufferOf(text, before, inserted), GetParam().buffer);
    EXPECT_EQ(contents(before), GetParam().text);
    EXPECT_EQ(contents(inserted), GetParam().inserted);
}

INSTANTIATE_TEST_SUITE_P(Cases, StringInsert, testing::ValuesIn(INSERT_CASES), RowName());

// ---- Remove

struct RemoveCase {
    const char* name;
    Bytes text;
    unsigned start;
    checked_uint count;
    Bytes result;
    Buffer buffer;
};

// clang-format off
const RemoveCase REMOVE_CASES[] = {
    // name                  text         start        count        result       buffer
    {"Inside",               "abcd",      1,           1u,          "acd",       Buffer::New},
    {"UpToTheEnd",           "abcd",      1,           3u,          "a",         Buffer::New},
    {"PastTheEnd",           "abcd",      2,           10u,         "ab",        Buffer::New},
    {"TheRest",              "abcd",      1,           {},          "a",         Buffer::New},
    {"AllIsEmpty",           "abcd",      0,           {},          "",          Buffer::New},
    {"AllByCountIsEmpty",    "abcd",      0,           4u,          "",          Buffer::New},
    {"StartAtTheEnd",        "abcd",      4,           1u,          "abcd",      Buffer::Own},
    {"StartPastTheEnd",      "abcd",      9,           1u,          "abcd",      Buffer::Own},
    {"CountZero",            "abcd",      1,           0u,          "abcd",      Buffer::Own},
    {"LargestCountFrom0",    "abcd",      0,           0xFFFFFFFFu, "",          Buffer::New},
    {"EndWrapsTo0",          "abcd",      1,           0xFFFFFFFFu, "aabcd",     Buffer::New},
    {"EndWrapsToTheStart",   "abcd",      3,           0xFFFFFFFEu, "abcbcd",    Buffer::New},
    {"EmptyNoCount",         "",          0,           {},          "",          Buffer::Own},
    {"NullNoCount",          NULL_STRING, 0,           {},          NULL_STRING, Buffer::New},
    {"KeepsZeroBytes",       "a\0bc\0"sv, 2,           1u,          "a\0c\0"sv,  Buffer::New},
};
// clang-format on

class StringRemove : public testing::TestWithParam<RemoveCase> { };

TEST_P(StringRemove, TakesTheRunOut)
{
    String text = stringOf(GetParam().text);
    const String before(text);
    EXPECT_EQ(&text.Remove(GetParam().start, GetParam().count), &text);
    EXPECT_EQ(contents(text), GetParam().result);
    EXPECT_EQ(bufferOf(text, before, String()), GetParam().buffer);
    EXPECT_EQ(contents(before), GetParam().text);
}

INSTANTIATE_TEST_SUITE_P(Cases, StringRemove, testing::ValuesIn(REMOVE_CASES), RowName());

}  // namespace
