// Pieces and edits by example. tests/Velbase/property tries them on every short text, with whose buffer the result has.

#include "Velbase/common/common_string.h"
#include "string_contents.h"

#include <gtest/gtest.h>

namespace {

TEST(StringLeft, GivesTheFirstBytesAndRightTheLast)
{
    EXPECT_EQ(contents(String("abc").Left(2)), "ab");
    EXPECT_EQ(contents(String("ab").Left(3)), "ab");
    EXPECT_EQ(contents(String("ab").Left(0)), "");
    EXPECT_EQ(contents(String().Left(2)), NULL_STRING);
    EXPECT_EQ(contents(String("abc").Right(2)), "bc");
    EXPECT_EQ(contents(String("abc").Right(5)), "abc");
    EXPECT_EQ(contents(String("abc").Right(0)), "");
    EXPECT_EQ(contents(String().Right(2)), NULL_STRING);
}

TEST(StringMid, GivesThePieceFromTheStartAndNullFromTheEndOn)
{
    EXPECT_EQ(contents(String("abc").Mid(1)), "bc");
    EXPECT_EQ(contents(String("abc").Mid(1, 1)), "b");
    EXPECT_EQ(contents(String("abc").Mid(1, 3)), "bc");
    EXPECT_EQ(contents(String("abc").Mid(1, 0)), "");
    EXPECT_EQ(contents(String("abc").Mid(3)), NULL_STRING);
    EXPECT_EQ(contents(String("abc").Mid(7)), NULL_STRING);
    EXPECT_EQ(contents(String("").Mid(0)), NULL_STRING);
    EXPECT_EQ(contents(String().Mid(0)), NULL_STRING);
}

TEST(StringAppend, PutsTheTailBehindTheTextAndLeavesCopiesAlone)
{
    String text("ab");
    const String copy(text);
    EXPECT_EQ(&(text += "cd"), &text);
    EXPECT_EQ(contents(text), "abcd");
    EXPECT_EQ(contents(copy), "ab");
}

TEST(StringAppend, KeepsItsBufferForNothingAndTakesTheTailsForATextOfNothing)
{
    String text("abc");
    const String before(text);
    text += "";
    text += String();
    EXPECT_TRUE(shareBuffer(text, before));
    for (String nothing : {String(), String("")}) {
        nothing += text;
        EXPECT_TRUE(shareBuffer(nothing, text));
    }
}

TEST(StringAppend, TakesACStringOfItsOwnText)
{
    String text("abc");
    text += text.Latin1() + 1;
    EXPECT_EQ(contents(text), "abcbc");
}

TEST(StringInsert, PutsTheTextBeforeThePositionOrAtTheEnd)
{
    EXPECT_EQ(contents(String("abc").Insert(1, "XY")), "aXYbc");
    EXPECT_EQ(contents(String("abc").Insert(9, "XY")), "abcXY");
    EXPECT_EQ(contents(String("abc").Insert(1, String())), "abc");
    EXPECT_EQ(contents(String().Insert(0, "x")), "x");
    EXPECT_EQ(contents(String().Insert(0, "")), NULL_STRING);
}

TEST(StringRemove, TakesTheRunOut)
{
    EXPECT_EQ(contents(String("abcd").Remove(1, 1)), "acd");
    EXPECT_EQ(contents(String("abcd").Remove(1)), "a");
    EXPECT_EQ(contents(String("abcd").Remove(0)), "");
    EXPECT_EQ(contents(String("abcd").Remove(2, 10)), "ab");
    EXPECT_EQ(contents(String("abcd").Remove(4, 1)), "abcd");
    EXPECT_EQ(contents(String("abcd").Remove(1, 0)), "abcd");
    EXPECT_EQ(contents(String().Remove(0)), NULL_STRING);
    EXPECT_EQ(contents(String("abcd").Remove(1, 0xFFFFFFFF)), "aabcd") << "the end has wrapped";
    EXPECT_EQ(contents(String("abcd").Remove(3, 0xFFFFFFFE)), "abcbcd");
}

}  // namespace
