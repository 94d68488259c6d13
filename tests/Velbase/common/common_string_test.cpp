#include "Velbase/common/common_string.h"
#include "string_contents.h"

#include <gtest/gtest.h>

#include <tuple>
#include <type_traits>
#include <utility>

namespace {

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
    const auto answers = [](const auto& c) {
        return std::make_tuple(c.GetCategory(), c.IsNull(), c.IsSpace(), c.IsDigit(), c.GetDigitValue().valid(),
            c.GetDigitValue().value(), static_cast<char>(c.ToLower()), static_cast<char>(c.ToUpper()), c.IsPrintable(),
            c.IsPunctuation(), c.IsLetter(), c.IsNumber(), c.IsAlphaNumeric(), c.IsSymbol());
    };
    String text(" ");
    for (int byte = 0; byte < 256; ++byte) {
        const char c = static_cast<char>(byte);
        text[0] = c;
        EXPECT_EQ(text[0].ToChar(), c) << byte;
        EXPECT_EQ(answers(text[0]), answers(Char(c))) << byte;
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
