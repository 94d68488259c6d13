// What each function does, by example and with the last arguments left out where they may be. tests/Velbase/property
// compares them all with a model: on every short text and around every limit, and in whose buffer the result is.

#include "Velbase/common/common_string.h"
#include "string_contents.h"

#include <gtest/gtest.h>

#include <limits>

namespace {

using namespace std::literals;

const char* const NO_POINTER = nullptr;

// ---- Making and comparing

TEST(StringExamples, ATextIsMadeOfAtMostSoManyBytesUpToTheZeroByte)
{
    EXPECT_EQ(contents(String("abc\0def")), "abc");
    EXPECT_EQ(contents(String("abcdef", 3)), "abc");
    const char unterminated[] = {'a', 'b', 'c'};
    EXPECT_EQ(contents(String(unterminated, 3)), "abc");
    EXPECT_EQ(contents(String("")), "");
    EXPECT_EQ(contents(String(NO_POINTER)), NULL_STRING);
    EXPECT_EQ(contents(String()), NULL_STRING);
}

TEST(StringExamples, TheOrderIsThatOfUnsignedBytes)
{
    EXPECT_TRUE(String("z") < "\xE9");
    EXPECT_TRUE(String("\x7F") < "\x80");
    EXPECT_TRUE(String() == "" && String() <= String("") && String("") < "a");
    for (const String& text : {String(), String(""), String("a")})
        EXPECT_FALSE(text == NO_POINTER || text < NO_POINTER || text <= NO_POINTER);
}

TEST(StringExamples, BeginsWithAndEndsWithTellCaseApartUnlessTheyAreNotTo)
{
    EXPECT_TRUE(String("abc").BeginsWith("ab") && String("abc").EndsWith("bc"));
    EXPECT_FALSE(String("abc").BeginsWith("AB") || String("abc").EndsWith("BC"));
    EXPECT_TRUE(String("abc").BeginsWith("AB", false) && String("abc").EndsWith("BC", false));
}

// ---- Searching

TEST(StringExamples, FindIsAnExactSearchFromTheBeginningAndFindRevFromTheEnd)
{
    const String text = "abcabcABCABC";
    EXPECT_EQ(text.Find('A').value(), 6u);
    EXPECT_EQ(text.Find(Char('A')).value(), 6u);
    EXPECT_EQ(text.Find("AB").value(), 6u);
    EXPECT_EQ(text.Find(String("AB")).value(), 6u);
    EXPECT_EQ(text.Find("bc", 2).value(), 4u);
    EXPECT_EQ(text.Find("CA", 0, false).value(), 2u);
    EXPECT_EQ(text.FindRev('c').value(), 5u);
    EXPECT_EQ(text.FindRev(Char('c')).value(), 5u);
    EXPECT_EQ(text.FindRev('c', 4).value(), 2u);
    EXPECT_FALSE(text.Find('x').valid() || text.Find("BCB").valid() || text.FindRev('x').valid());
    for (const checked_uint& found : {text.Find('a'), text.Find(Char('a')), text.Find("ab"), text.Find(String("ab"))})
        EXPECT_TRUE(found.valid() && found.value() == 0);
    for (const checked_uint& found : {text.FindRev('C'), text.FindRev(Char('C'))})
        EXPECT_EQ(found.value(), 11u);
}

TEST(StringExamples, ContainsIsExactToo)
{
    const String abc = "abc";
    EXPECT_TRUE(abc.Contains('a') && abc.Contains(Char('a')) && abc.Contains("a") && abc.Contains(String("a")));
    EXPECT_FALSE(abc.Contains('A') || abc.Contains(Char('A')) || abc.Contains("A") || abc.Contains(String("A")));
}

// ---- Pieces and edits

TEST(StringExamples, APieceIsAsLongAsTheTextHasIt)
{
    EXPECT_EQ(contents(String("abc").Left(2)), "ab");
    EXPECT_EQ(contents(String("abc").Left(9)), "abc");
    EXPECT_EQ(contents(String("abc").Right(2)), "bc");
    EXPECT_EQ(contents(String("abc").Mid(1)), "bc");
    EXPECT_EQ(contents(String("abc").Mid(1, 1)), "b");
    EXPECT_EQ(contents(String("abc").Mid(3)), NULL_STRING);
}

TEST(StringExamples, AnEditChangesTheStringAndNoCopyOfIt)
{
    String text("abcd");
    const String copy(text);
    EXPECT_EQ(&(text += "ef"), &text);
    EXPECT_EQ(&text.Insert(1, "XY"), &text);
    EXPECT_EQ(contents(text), "aXYbcdef");
    EXPECT_EQ(&text.Remove(4, 2), &text);
    EXPECT_EQ(contents(text), "aXYbef");
    text.Truncate(5);
    EXPECT_EQ(contents(text.Remove(3)), "aXY");
    text += text.Latin1() + 1;
    EXPECT_EQ(contents(text), "aXYXY");
    EXPECT_EQ(contents(copy), "abcd");
    EXPECT_EQ(contents(String("abcd").Remove(1, 0xFFFFFFFF)), "aabcd") << "the end has wrapped";
}

TEST(StringExamples, DetachAndExtendGivesABufferOfItsOwnThatReachesTheIndex)
{
    String text("abc");
    const String copy(text);
    text.detachAndExtend(4);
    EXPECT_EQ(contents(text), "abc\0\0"sv);
    EXPECT_EQ(contents(copy), "abc");
}

// ---- Changed copies

TEST(StringExamples, ReplacePutsTheReplacementForEachOccurrence)
{
    EXPECT_EQ(contents(String("abcb").Replace("b", "XX")), "aXXcXX");
    EXPECT_EQ(contents(String("aaa").Replace("aa", "b")), "ba") << "without overlap";
    EXPECT_EQ(contents(String("aabb").Replace("ab", "")), "ab") << "what is joined is not scanned again";
    EXPECT_EQ(contents(String("aaa").Replace("a", "")), NULL_STRING);
    // A pattern that is longer than the text by more than one is tried at every position, as a C string.
    EXPECT_EQ(contents(String("ba").Replace(stringOf("a\0\0\0\0"sv), "R")), "bR");
    EXPECT_EQ(contents(stringOf("ba\0na"sv).ReplaceChar('a', 'o')), "bo");
}

TEST(StringExamples, CaseIsThatOfTheAsciiLettersAndWhiteSpaceThatOfLatin1)
{
    EXPECT_EQ(contents(String("Stra\337e").ToUpper()), "STRA\337E") << "sharp s stays as it is";
    EXPECT_EQ(contents(String("\xC9T\xE9").ToLower()), "\xC9t\xE9");
    EXPECT_EQ(contents(String("\xA0 a b\t").StripWhiteSpace()), "a b");
    EXPECT_EQ(contents(String("  a \t\n\xA0 b  ").SimplifyWhiteSpace()), "a b");
}

// ---- Lists

TEST(StringExamples, SplitGivesTheTextsBetweenTheSeparatorsOfWhichTheLastMayBeNull)
{
    std::vector<String> fields = {"old"};
    String("a,,b,").Split(',', fields);
    EXPECT_EQ(fields, (std::vector<String>{"a", "", "b", String()}));
    EXPECT_TRUE(fields[3].IsNull());
}

TEST(StringExamples, JoinPutsThePartsTogether)
{
    EXPECT_EQ(contents(String::Join(", ", {"ab", "", "c"})), "ab, , c");
    EXPECT_EQ(contents(String::Join(",", {})), NULL_STRING);
}

// ---- Numbers

TEST(StringExamples, ANumberIsReadInDecimalOrInAnotherBase)
{
    EXPECT_EQ(String("20").ToShort(), 20);
    EXPECT_EQ(String("20").ToUShort(), 20u);
    EXPECT_EQ(String("20").ToInt(), 20);
    EXPECT_EQ(String("20").ToUInt(), 20u);
    EXPECT_EQ(String("20").ToInt64(), 20ll);
    EXPECT_EQ(String("20").ToUInt64(), 20ull);
    EXPECT_EQ(String("  -7\t").ToInt(), -7);
    EXPECT_EQ(String("fF").ToInt(nullptr, 16), 255);
    // The limits of the signed types are 32-bit numbers.
    EXPECT_EQ(String("-40000").ToShort(), 25536);
    EXPECT_EQ(String("4294967295").ToInt64(), -1);
    for (const char* const text : {"", "4 2", "+ 5", "-", "0x10", "2147483648", "1\xB2"}) {
        bool ok = true;
        EXPECT_EQ(String(text).ToInt(&ok), 0);
        EXPECT_FALSE(ok) << text;
    }
}

TEST(StringExamples, ADoubleIsReadWithEitherPointAndBeyondItsRange)
{
    EXPECT_EQ(String("3.25").ToDouble(), 3.25);
    EXPECT_EQ(String("3,25").ToDouble(), 3.25);
    EXPECT_EQ(String("0x1.8p1").ToDouble(), 3.0);
    EXPECT_EQ(String("2.5").ToFloat(), 2.5f);
    bool ok = false;
    EXPECT_EQ(String("1e999").ToDouble(&ok), std::numeric_limits<double>::infinity());
    EXPECT_TRUE(ok);
    EXPECT_EQ(String("-1e39").ToFloat(&ok), -std::numeric_limits<float>::infinity());
    EXPECT_TRUE(ok);
    for (const char* const text : {"", " 3.25", "1.5 ", "1.5kg", "1.000,5", "abc"}) {
        EXPECT_EQ(String(text).ToDouble(&ok), 0.0);
        EXPECT_FALSE(ok) << text;
    }
}

TEST(StringExamples, ANumberIsWrittenInDecimalOrInAnotherBase)
{
    for (const String& number : {String::Number(20), String::Number(20u), String::Number(20l), String::Number(20ul),
             String::Number(20ll), String::Number(20ull)})
        EXPECT_EQ(number, "20");
    EXPECT_EQ(String::Number(-255, 16), "-FF");
    EXPECT_EQ(String::Number(1295u, 36), "ZZ");
    EXPECT_EQ(String::Number(255u, 37), "255");
    EXPECT_EQ(String::Number(255ull, 2), "255") << "64 bits know base 16 and decimal";
    EXPECT_EQ(String::Number(2.5), "2.500000");
    EXPECT_EQ(String::Number(2.5f), "2.500000");
    EXPECT_EQ(String::Number(1234.5, 3, 'E'), "1.234E+03");
    EXPECT_EQ(String::Number(1.5, 2, 'x'), "1.50") << "an unknown format";
    EXPECT_EQ(String::Number(1.5, 150, 'f'), String(("1.5" + std::string(98, '0')).c_str())) << "at most 99";
}

// ---- Templates

TEST(StringExamples, ArgFillsTheLeftmostPlaceholderOfTheLowestNumber)
{
    EXPECT_EQ(contents(String("%2 %1").Arg("a").Arg("b")), "b a");
    EXPECT_EQ(contents(String("%1 %1").Arg("x")), "x %1");
    EXPECT_EQ(contents(String("%12").Arg("x")), "x2");
    EXPECT_EQ(contents(String("%1 %2").Arg("%0")), "%0 %2") << "the argument is not scanned in the same call";
    EXPECT_EQ(contents(String("100%").Arg("x")), "100%x");
}

TEST(StringExamples, ArgTakesTheTextOfAnyType)
{
    const String text("<%1>");
    for (const String& filled : {text.Arg(20), text.Arg(20l), text.Arg(short{20}), text.Arg(20u), text.Arg(20ul),
             text.Arg(static_cast<unsigned short>(20)), text.Arg(20ll), text.Arg(20ull)})
        EXPECT_EQ(filled, "<20>");
    EXPECT_EQ(text.Arg(2.5), "<2.500000>");
    EXPECT_EQ(text.Arg(2.5f), "<2.500000>");
    EXPECT_EQ(text.Arg(-1, 16), "<FFFFFFFF>");
    EXPECT_EQ(text.Arg(short{-1}, 16), "<-1>");
    EXPECT_EQ(text.Arg(true), "<true>");
    EXPECT_EQ(contents(text.Arg('\0')), "<\0>"sv);
    EXPECT_EQ(text.Arg(String("xyz")[1]), "<y>");
    EXPECT_EQ(text.Arg(NO_POINTER), "<>");
}

}  // namespace
