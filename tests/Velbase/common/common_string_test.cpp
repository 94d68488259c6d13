#include "Velbase/common/common_string.h"
#include "string_contents.h"
#include "tests/support/RowName.h"

#include <gtest/gtest.h>

#include <cstring>
#include <type_traits>

namespace {

using namespace std::literals;

static_assert(sizeof(String) == 2 * sizeof(void*), "a string is its owner of the text");
static_assert(!std::is_convertible<String, const char*>::value, "a string is no pointer");
static_assert(std::is_nothrow_copy_constructible<String>::value, "a copy only counts");
static_assert(std::is_nothrow_copy_assignable<String>::value, "an assignment only counts");
static_assert(std::is_convertible<const char*, String>::value, "a text stands wherever a string does");

// ---- States

TEST(StringState, NullPointerGivesANullString)
{
    const String text(static_cast<const char*>(nullptr));
    EXPECT_TRUE(text.IsNull());
    EXPECT_TRUE(text.IsEmpty());
    EXPECT_EQ(text.Length(), 0u);
    EXPECT_STREQ(text.Latin1(), "");
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
    EXPECT_EQ(contents(text), "abc");
}

TEST(StringState, TextIsCopiedOutOfTheArgument)
{
    char source[] = "abc";
    const String text(source);
    source[0] = 'x';
    EXPECT_EQ(contents(text), "abc");
}

TEST(StringState, LengthDecidesNotTheZeroBytes)
{
    const String text = stringOf("ab\0cd\0"sv);
    EXPECT_EQ(text.Length(), 6u);
    EXPECT_EQ(contents(text), "ab\0cd\0"sv);
    EXPECT_EQ(text.Latin1()[6], '\0');
}

struct MaxLengthCase {
    const char* name;
    const char* text;
    unsigned maxLength;
    Bytes taken;
};

// clang-format off
const MaxLengthCase MAX_LENGTH_CASES[] = {
    // name                  text         maxLength    taken
    {"NullPointerIsNull",    nullptr,     3,           NULL_STRING},
    {"EmptyTextIsEmpty",     "",          3,           ""},
    {"NothingIsEmpty",       "abc",       0,           ""},
    {"One",                  "abc",       1,           "a"},
    {"AllOfIt",              "abc",       3,           "abc"},
    {"More",                 "abc",       10,          "abc"},
    {"LargestNumber",        "abc",       0xFFFFFFFF,  "abc"},
    {"FirstThreeOfSix",      "abcdef",    3,           "abc"},
    {"EndsAtAZeroByte",      "ab\0cd",    4,           "ab"},
    {"NoConversion",         "\xC9\xE9",  2,           "\xC9\xE9"},
};
// clang-format on

class StringMaxLength : public testing::TestWithParam<MaxLengthCase> { };

TEST_P(StringMaxLength, TakesAtMostSoManyBytes)
{
    EXPECT_EQ(contents(String(GetParam().text, GetParam().maxLength)), GetParam().taken);
}

INSTANTIATE_TEST_SUITE_P(Cases, StringMaxLength, testing::ValuesIn(MAX_LENGTH_CASES), RowName());

TEST(StringMaxLength, ReadsNothingBehindTheMaximum)
{
    const char unterminated[] = {'a', 'b', 'c'};
    EXPECT_EQ(contents(String(unterminated, 3)), "abc");
}

// ---- Sharing

TEST(StringSharing, CopySharesTheBuffer)
{
    const String text("abc");
    const String copy(text);
    EXPECT_TRUE(shareBuffer(copy, text));
}

TEST(StringSharing, MovingFromAStringCopiesIt)
{
    String text("abc");
    const String copy(static_cast<String&&>(text));
    EXPECT_TRUE(shareBuffer(copy, text));
    String assigned;
    assigned = static_cast<String&&>(text);
    EXPECT_TRUE(shareBuffer(assigned, text));
}

// ---- Truncate

struct TruncateCase {
    const char* name;
    Bytes text;
    unsigned length;
    Bytes kept;
};

// clang-format off
const TruncateCase TRUNCATE_CASES[] = {
    // name               text         length       kept
    {"Shorter",           "abcd",      2,           "ab"},
    {"SameLength",        "abcd",      4,           "abcd"},
    {"Longer",            "abcd",      9,           "abcd"},
    {"LargestNumber",     "abcd",      0xFFFFFFFF,  "abcd"},
    {"ToNothingIsEmpty",  "abcd",      0,           ""},
    {"EmptyStaysEmpty",   "",          0,           ""},
    {"NullStaysNull",     NULL_STRING, 0,           NULL_STRING},
    {"KeepsZeroBytes",    "a\0bcd"sv,  3,           "a\0b"sv},
};
// clang-format on

class StringTruncate : public testing::TestWithParam<TruncateCase> { };

TEST_P(StringTruncate, KeepsTheFirstCharacters)
{
    String text = stringOf(GetParam().text);
    const String copy(text);
    text.Truncate(GetParam().length);
    EXPECT_EQ(contents(text), GetParam().kept);
    EXPECT_EQ(contents(copy), GetParam().text);
    EXPECT_EQ(shareBuffer(text, copy), GetParam().text && GetParam().kept == GetParam().text)
        << "a new buffer if and only if the text changes";
}

INSTANTIATE_TEST_SUITE_P(Cases, StringTruncate, testing::ValuesIn(TRUNCATE_CASES), RowName());

// ---- detachAndExtend

struct DetachCase {
    const char* name;
    Bytes text;
    unsigned index;
    Bytes extended;
};

// clang-format off
const DetachCase DETACH_CASES[] = {
    // name           text         index extended
    {"First",         "abc",       0,    "abc"},
    {"Inside",        "abc",       1,    "abc"},
    {"AtTheEnd",      "abc",       3,    "abc\0"sv},
    {"PastTheEnd",    "abc",       5,    "abc\0\0\0"sv},
    {"EmptyAt2",      "",          2,    "\0\0\0"sv},
    {"NullAt5",       NULL_STRING, 5,    "\0\0\0\0\0\0"sv},
    {"KeepsZeros",    "a\0c"sv,    4,    "a\0c\0\0"sv},
};
// clang-format on

class StringDetachAndExtend : public testing::TestWithParam<DetachCase> { };

TEST_P(StringDetachAndExtend, GivesABufferOfItsOwnThatReachesTheIndex)
{
    String text = stringOf(GetParam().text);
    const String copy(text);
    text.detachAndExtend(GetParam().index);
    EXPECT_EQ(contents(text), GetParam().extended);
    EXPECT_EQ(contents(copy), GetParam().text);
    EXPECT_FALSE(shareBuffer(text, copy));
}

INSTANTIATE_TEST_SUITE_P(Cases, StringDetachAndExtend, testing::ValuesIn(DETACH_CASES), RowName());

TEST(StringDetachAndExtend, MakesANewBufferEvenForAStringThatHasOneAlone)
{
    String text("a text too long for any small buffer");
    const char* const characters = text.Latin1();
    text.detachAndExtend(1);
    EXPECT_NE(text.Latin1(), characters);
    EXPECT_EQ(contents(text), "a text too long for any small buffer");
}

// ---- Characters

TEST(StringAt, GivesTheCharacterAndThePlainZeroPastTheEnd)
{
    const String text("a\xE9");
    EXPECT_EQ(static_cast<char>(text.At(0)), 'a');
    EXPECT_EQ(static_cast<char>(text.At(1)), '\xE9');
    EXPECT_EQ(static_cast<char>(text[1]), '\xE9');
    for (const unsigned index : {2u, 3u, 0x7FFFFFFFu, 0xFFFFFFFFu}) {
        EXPECT_TRUE(text.At(index).IsNull());
        EXPECT_TRUE(text[index].IsNull());
    }
    EXPECT_TRUE(String().At(0).IsNull());
    EXPECT_TRUE(String("").At(0).IsNull());
}

static_assert(std::is_same<decltype(std::declval<const String&>()[0]), Char>::value, "a constant string gives values");
static_assert(std::is_same<decltype(std::declval<String&>()[0]), CharRef>::value, "another gives references");

TEST(CharRef, ReadsTheCharacter)
{
    String text("a\xE9");
    EXPECT_EQ(text[0].ToChar(), 'a');
    const Char last = text[1];
    EXPECT_EQ(static_cast<char>(last), '\xE9');
    EXPECT_EQ(text[2].ToChar(), '\0');
    EXPECT_EQ(text[0xFFFFFFFF].ToChar(), '\0');
    EXPECT_EQ(contents(text), "a\xE9");
}

TEST(CharRef, AnswersEveryQueryForTheCharacter)
{
    String text(" ");
    for (int byte = 0; byte < 256; ++byte) {
        SCOPED_TRACE(byte);
        const Char c = static_cast<char>(byte);
        text[0] = c;
        const CharRef ref = text[0];
        EXPECT_EQ(ref.ToChar(), static_cast<char>(c));
        EXPECT_EQ(ref.GetCategory(), c.GetCategory());
        EXPECT_EQ(ref.IsNull(), c.IsNull());
        EXPECT_EQ(ref.IsSpace(), c.IsSpace());
        EXPECT_EQ(ref.IsDigit(), c.IsDigit());
        EXPECT_EQ(ref.GetDigitValue().valid(), c.GetDigitValue().valid());
        EXPECT_EQ(ref.GetDigitValue().value(), c.GetDigitValue().value());
        EXPECT_EQ(static_cast<char>(ref.ToLower()), static_cast<char>(c.ToLower()));
        EXPECT_EQ(static_cast<char>(ref.ToUpper()), static_cast<char>(c.ToUpper()));
        EXPECT_EQ(ref.IsPrintable(), c.IsPrintable());
        EXPECT_EQ(ref.IsPunctuation(), c.IsPunctuation());
        EXPECT_EQ(ref.IsLetter(), c.IsLetter());
        EXPECT_EQ(ref.IsNumber(), c.IsNumber());
        EXPECT_EQ(ref.IsAlphaNumeric(), c.IsAlphaNumeric());
        EXPECT_EQ(ref.IsSymbol(), c.IsSymbol());
    }
}

TEST(CharRef, WritesACharACharacterAndAnotherReference)
{
    String text("abc");
    text[0] = 'x';
    text[1] = Char('y');
    text[2] = text[0];
    EXPECT_EQ(contents(text), "xyx");
    const String other("z");
    text[0] = other[0];
    EXPECT_EQ(contents(text), "zyx");
    text[0] = text[1] = 'w';
    EXPECT_EQ(contents(text), "wwx");
}

TEST(CharRef, AssignmentFromItselfChangesNothing)
{
    String text("abc");
    CharRef ref = text[1];
    const CharRef& self = ref;
    ref = self;
    EXPECT_EQ(contents(text), "abc");
}

TEST(CharRef, CopyStandsForTheSamePlace)
{
    String text("abc");
    CharRef ref = text[1];
    CharRef copy(ref);
    copy = 'x';
    EXPECT_EQ(ref.ToChar(), 'x');
    EXPECT_EQ(contents(text), "axc");
}

TEST(CharRef, WritesInPlaceInABufferThatIsNotShared)
{
    String text("a text too long for any small buffer");
    const char* const characters = text.Latin1();
    text[0] = 'A';
    EXPECT_EQ(text.Latin1(), characters);
    EXPECT_EQ(characters[0], 'A');
}

TEST(CharRef, WritingAtOrPastTheEndExtendsTheTextWithZeroBytes)
{
    String text("abc");
    text[3] = 'd';
    EXPECT_EQ(contents(text), "abcd");
    text[6] = 'g';
    EXPECT_EQ(contents(text), "abcd\0\0g"sv);
    String null;
    null[1] = 'x';
    EXPECT_EQ(contents(null), "\0x"sv);
}

TEST(CharRef, FollowsTheStringThroughAssignment)
{
    String text("abc");
    const CharRef ref = text[1];
    text = "xyz";
    EXPECT_EQ(ref.ToChar(), 'y');
    text = String();
    EXPECT_EQ(ref.ToChar(), '\0');
}

}  // namespace
