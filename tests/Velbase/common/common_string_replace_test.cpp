// Replacing by example. tests/Velbase/property tries it on every short text, with whose buffer the result has.

#include "Velbase/common/common_string.h"
#include "string_contents.h"

#include <gtest/gtest.h>

namespace {

using namespace std::literals;

TEST(StringReplace, PutsTheReplacementForEachOccurrence)
{
    EXPECT_EQ(contents(String("abcb").Replace("b", "XX")), "aXXcXX");
    EXPECT_EQ(contents(String("aaa").Replace("aa", "b")), "ba") << "without overlap";
    EXPECT_EQ(contents(String("aabb").Replace("ab", "")), "ab") << "what is joined is not scanned again";
    EXPECT_EQ(contents(String("aabaabaaab").Replace("aaab", "x")), "aabaabx");
    EXPECT_EQ(contents(String("abc").Replace("B", "y")), "abc");
    const String replacement("xy");
    EXPECT_TRUE(shareBuffer(String("abc").Replace("abc", replacement), replacement));
    EXPECT_EQ(contents(String("aaa").Replace("a", "")), NULL_STRING);
    EXPECT_EQ(contents(String("aaa").Replace("a", String())), NULL_STRING);
    EXPECT_EQ(contents(String("abc").Replace("", "x")), "abc");
    EXPECT_EQ(contents(String().Replace("x", "y")), NULL_STRING);
    EXPECT_EQ(contents(String("").Replace("x", "y")), "");
}

TEST(StringReplace, ComparesPiecesOfThePatternsLengthAsCStrings)
{
    EXPECT_EQ(contents(stringOf("xa\0by"sv).Replace(stringOf("a\0c"sv), "R")), "xRy");
    EXPECT_EQ(contents(String("xaby").Replace(stringOf("a\0c"sv), "R")), "xaby");
    EXPECT_EQ(contents(String("xxab").Replace(stringOf("ab\0c"sv), "R")), "xxab") << "no room for the piece";
    // A pattern that is longer than the text by more than one is tried at every position, as a C string.
    EXPECT_EQ(contents(String("ba").Replace(stringOf("a\0\0\0\0"sv), "R")), "bR");
    EXPECT_EQ(contents(String("a").Replace(stringOf("a\0"sv), "R")), "a") << "longer by one";
    EXPECT_EQ(contents(String("a").Replace("abcdefgh", "R")), "a");
}

TEST(StringReplaceChar, TurnsEachOccurrenceUpToTheFirstZeroByte)
{
    EXPECT_EQ(contents(String("banana").ReplaceChar('a', 'o')), "bonono");
    EXPECT_EQ(contents(stringOf("ba\0na"sv).ReplaceChar('a', 'o')), "bo");
    EXPECT_EQ(contents(String().ReplaceChar('a', 'o')), "");
}

}  // namespace
