#include "Velbase/common/common_string.h"

#include <type_traits>

#include <gtest/gtest.h>

namespace {

static_assert(!std::is_convertible<String, const char*>::value, "a string is no pointer");

std::string bytesOf(const String& text)
{
    return std::string(text.Latin1(), text.Length());
}

TEST(StringState, NullPointerGivesANullString)
{
    const String text(static_cast<const char*>(nullptr));
    EXPECT_TRUE(text.IsNull());
    EXPECT_TRUE(text.IsEmpty());
    EXPECT_EQ(text.Length(), 0u);
    EXPECT_STREQ(text.Latin1(), "");
}

TEST(StringState, DefaultAndNullptrGiveANullString)
{
    EXPECT_TRUE(String().IsNull());
    EXPECT_TRUE(String(nullptr).IsNull());
}

TEST(StringState, EmptyTextGivesAnEmptyString)
{
    const String text("");
    EXPECT_FALSE(text.IsNull());
    EXPECT_TRUE(text.IsEmpty());
    EXPECT_EQ(text.Length(), 0u);
    EXPECT_STREQ(text.Latin1(), "");
}

TEST(StringState, TextHasItsCharactersUpToTheZeroByte)
{
    const String text("abc\0def");
    EXPECT_FALSE(text.IsNull());
    EXPECT_FALSE(text.IsEmpty());
    EXPECT_EQ(bytesOf(text), "abc");
}

TEST(StringState, TextIsCopiedOutOfTheArgument)
{
    char source[] = "abc";
    const String text(source);
    source[0] = 'x';
    EXPECT_STREQ(text.Latin1(), "abc");
}

TEST(StringSharing, CopySharesTheBuffer)
{
    const String text("abc");
    const String copy(text);
    EXPECT_EQ(copy.Latin1(), text.Latin1());
}

TEST(StringSharing, AssignmentSharesTheBufferAndLeavesTheOldOneToOthers)
{
    const String text("abc");
    String other("old");
    const String keeper(other);
    other = text;
    EXPECT_EQ(other.Latin1(), text.Latin1());
    EXPECT_STREQ(keeper.Latin1(), "old");
}

TEST(StringSharing, AssigningToItselfOrToACopyChangesNothing)
{
    String text("abc");
    String copy(text);
    const char* const characters = text.Latin1();
    String& self = text;
    text = self;
    text = copy;
    EXPECT_EQ(text.Latin1(), characters);
    EXPECT_EQ(copy.Latin1(), characters);
    EXPECT_STREQ(characters, "abc");
}

TEST(StringSharing, CopyOfANullStringIsNull)
{
    const String text;
    String copy("abc");
    copy = text;
    EXPECT_TRUE(String(text).IsNull());
    EXPECT_TRUE(copy.IsNull());
}

TEST(StringSharing, TextOutlivesTheStringItWasCopiedFrom)
{
    String copy;
    {
        const String text("a text too long for any small buffer");
        copy = text;
    }
    EXPECT_STREQ(copy.Latin1(), "a text too long for any small buffer");
}

struct TruncateCase {
    const char* name;
    const char* text;
    unsigned length;
    const char* kept;  // nullptr: a null string
};

// clang-format off
const TruncateCase TRUNCATE_CASES[] = {
    // name              text     length       kept
    {"Shorter",          "abcd",  2,           "ab"},
    {"OneLess",          "abcd",  3,           "abc"},
    {"SameLength",       "abcd",  4,           "abcd"},
    {"OneMore",          "abcd",  5,           "abcd"},
    {"Longer",           "abcd",  9,           "abcd"},
    {"LargestNumber",    "abcd",  0xFFFFFFFF,  "abcd"},
    {"ToNothingIsEmpty", "abcd",  0,           ""},
    {"EmptyStaysEmpty",  "",      0,           ""},
    {"NullStaysNull",    nullptr, 0,           nullptr},
    {"NullStaysNullAt2", nullptr, 2,           nullptr},
};
// clang-format on

class StringTruncate : public testing::TestWithParam<TruncateCase> { };

TEST_P(StringTruncate, KeepsTheFirstCharacters)
{
    String text(GetParam().text);
    const String copy(text);
    text.Truncate(GetParam().length);
    EXPECT_EQ(text.IsNull(), GetParam().kept == nullptr);
    EXPECT_EQ(bytesOf(text), GetParam().kept == nullptr ? "" : GetParam().kept);
    EXPECT_EQ(bytesOf(copy), GetParam().text == nullptr ? "" : GetParam().text);
}

INSTANTIATE_TEST_SUITE_P(
    Cases, StringTruncate, testing::ValuesIn(TRUNCATE_CASES), [](const auto& row) { return row.param.name; });

}  // namespace
