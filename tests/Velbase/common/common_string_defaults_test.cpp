// What a call means that leaves its last arguments out.

#include "tests/Velbase/common/string_contents.h"

#include <gtest/gtest.h>

namespace {

const String TEXT = "abcabcABCABC";
const String PLACE = "%1";

TEST(StringDefaults, AreExactSearchesFromTheBeginningAndFromTheEnd)
{
    EXPECT_EQ(TEXT.Find('a').value(), 0u);
    EXPECT_EQ(TEXT.Find('A').value(), 6u);
    EXPECT_EQ(TEXT.Find(Char('a')).value(), 0u);
    EXPECT_EQ(TEXT.Find(Char('A')).value(), 6u);
    EXPECT_EQ(TEXT.Find("ab").value(), 0u);
    EXPECT_EQ(TEXT.Find("AB").value(), 6u);
    EXPECT_EQ(TEXT.Find(String("ab")).value(), 0u);
    EXPECT_EQ(TEXT.Find(String("AB")).value(), 6u);
    EXPECT_EQ(TEXT.FindRev('C').value(), 11u);
    EXPECT_EQ(TEXT.FindRev('c').value(), 5u);
    EXPECT_EQ(TEXT.FindRev(Char('C')).value(), 11u);
    EXPECT_EQ(TEXT.FindRev(Char('c')).value(), 5u);
}

TEST(StringDefaults, AreExactComparisons)
{
    const String small = "abc";
    EXPECT_TRUE(small.Contains('a') && small.Contains(Char('a')) && small.Contains("a") && small.Contains(String("a")));
    EXPECT_FALSE(
        small.Contains('A') || small.Contains(Char('A')) || small.Contains("A") || small.Contains(String("A")));
    EXPECT_TRUE(small.BeginsWith("a") && small.EndsWith("c"));
    EXPECT_FALSE(small.BeginsWith("A") || small.EndsWith("C"));
}

TEST(StringDefaults, AreTheRestOfTheText)
{
    EXPECT_EQ(TEXT.Mid(2), "cabcABCABC");
    EXPECT_EQ(String(TEXT).Remove(2), "ab");
}

TEST(StringDefaults, AreDecimalNumbers)
{
    EXPECT_EQ(String("20").ToShort(), 20);
    EXPECT_EQ(String("20").ToUShort(), 20u);
    EXPECT_EQ(String("20").ToInt(), 20);
    EXPECT_EQ(String("20").ToUInt(), 20u);
    EXPECT_EQ(String("20").ToInt64(), 20ll);
    EXPECT_EQ(String("20").ToUInt64(), 20ull);
    EXPECT_EQ(String("2.5").ToDouble(), 2.5);
    EXPECT_EQ(String("2.5").ToFloat(), 2.5f);
}

TEST(StringDefaults, AreDecimalDigits)
{
    EXPECT_EQ(String::Number(20), "20");
    EXPECT_EQ(String::Number(20u), "20");
    EXPECT_EQ(String::Number(20l), "20");
    EXPECT_EQ(String::Number(20ul), "20");
    EXPECT_EQ(String::Number(20ll), "20");
    EXPECT_EQ(String::Number(20ull), "20");
    EXPECT_EQ(PLACE.Arg(20), "20");
    EXPECT_EQ(PLACE.Arg(20l), "20");
    EXPECT_EQ(PLACE.Arg(short{20}), "20");
    EXPECT_EQ(PLACE.Arg(static_cast<unsigned short>(20)), "20");
    EXPECT_EQ(PLACE.Arg(20u), "20");
    EXPECT_EQ(PLACE.Arg(20ul), "20");
    EXPECT_EQ(PLACE.Arg(20ll), "20");
    EXPECT_EQ(PLACE.Arg(20ull), "20");
}

TEST(StringDefaults, AreSixDigitsBehindThePoint)
{
    EXPECT_EQ(String::Number(2.5), "2.500000");
    EXPECT_EQ(String::Number(2.5f), "2.500000");
    EXPECT_EQ(PLACE.Arg(2.5), "2.500000");
    EXPECT_EQ(PLACE.Arg(2.5f), "2.500000");
}

}  // namespace
