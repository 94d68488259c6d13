#include "Velbase/common/common_string.h"
#include "string_contents.h"

#include <gtest/gtest.h>

#include <type_traits>
#include <utility>

namespace {

static_assert(sizeof(String) == 2 * sizeof(void*), "a string is its owner of the text");
static_assert(!std::is_convertible<String, const char*>::value, "a string is no pointer");
static_assert(std::is_nothrow_copy_constructible<String>::value, "a copy only counts");
static_assert(std::is_nothrow_copy_assignable<String>::value, "an assignment only counts");
static_assert(std::is_convertible<const char*, String>::value, "a text stands wherever a string does");

TEST(StringSharing, MovingFromAStringCopiesIt)
{
    String text("abc");
    const String copy(static_cast<String&&>(text));
    EXPECT_TRUE(shareBuffer(copy, text));
    String assigned;
    assigned = static_cast<String&&>(text);
    EXPECT_TRUE(shareBuffer(assigned, text));
}

// ---- Characters

static_assert(std::is_same<decltype(std::declval<const String&>()[0]), Char>::value, "a constant string gives values");
static_assert(std::is_same<decltype(std::declval<String&>()[0]), CharRef>::value, "another gives references");

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

TEST(CharRef, AssignmentFromItselfChangesNothingAndACopyStandsForTheSamePlace)
{
    String text("abc");
    CharRef ref = text[1];
    const CharRef& self = ref;
    ref = self;
    EXPECT_EQ(contents(text), "abc");
    CharRef copy(ref);
    copy = 'x';
    EXPECT_EQ(ref.ToChar(), 'x');
    EXPECT_EQ(contents(text), "axc");
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
