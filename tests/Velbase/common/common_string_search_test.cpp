// Searches by example, and in texts that are too long for the short ones of tests/Velbase/property.

#include "Velbase/common/common_string.h"
#include "string_contents.h"

#include <gtest/gtest.h>

namespace {

using namespace std::literals;

// A position, or none; of what was not found the value is 0.
std::optional<unsigned> positionOf(const checked_uint& found)
{
    if (found.valid())
        return found.value();
    EXPECT_EQ(found.value(), 0u);
    return std::nullopt;
}

const std::optional<unsigned> NOT_FOUND;

// ---- Characters

TEST(StringFindChar, GivesTheFirstPositionAtOrAfterFrom)
{
    EXPECT_EQ(positionOf(String("abcabc").Find('b', 2)), 4u);
    EXPECT_EQ(positionOf(String("abcdx").Find('x', 4)), 4u);
    EXPECT_EQ(positionOf(String("abcdx").Find('x', 5)), NOT_FOUND);
    EXPECT_EQ(positionOf(String("abcdx").Find('x', 0xFFFFFFFF)), NOT_FOUND);
    EXPECT_EQ(positionOf(String().Find('x', 0)), NOT_FOUND);
    EXPECT_EQ(positionOf(String("banana").Find('A', 0, false)), 1u);
    EXPECT_EQ(positionOf(String("BANANA").Find('A', 0, false)), 1u);
    EXPECT_EQ(positionOf(String("\xC9").Find('\xE9', 0, false)), NOT_FOUND);
}

TEST(StringFindRev, GivesTheLastPositionAtOrBeforeFrom)
{
    EXPECT_EQ(positionOf(String("banana").FindRev('a', {}, true)), 5u);
    EXPECT_EQ(positionOf(String("banana").FindRev('a', 4)), 3u);
    EXPECT_EQ(positionOf(String("banana").FindRev('a', 6)), NOT_FOUND);
    EXPECT_EQ(positionOf(String("abc").FindRev('a', 0)), 0u);
    EXPECT_EQ(positionOf(String().FindRev('a')), NOT_FOUND);
}

// Long enough for the block-wise search with a rest at either end.
TEST(StringFindChar, FindsTheCharacterAtEveryPositionOfALongText)
{
    const unsigned length = 300;
    for (unsigned position = 0; position < length; ++position) {
        SCOPED_TRACE(position);
        std::string bytes(length, 'x');
        bytes[position] = 'A';
        const String text(bytes.c_str());
        EXPECT_EQ(positionOf(text.Find('A')), position);
        EXPECT_EQ(positionOf(text.Find('a')), NOT_FOUND);
        EXPECT_EQ(positionOf(text.Find('a', 0, false)), position);
        EXPECT_EQ(positionOf(text.Find('a', position, false)), position);
        EXPECT_EQ(positionOf(text.Find('a', position + 1, false)), NOT_FOUND);
        EXPECT_EQ(positionOf(text.FindRev('A')), position);
        EXPECT_EQ(positionOf(text.FindRev('a')), NOT_FOUND);
        EXPECT_EQ(positionOf(text.FindRev('a', {}, false)), position);
        EXPECT_EQ(positionOf(text.FindRev('A', position)), position);
        if (position > 0) {
            EXPECT_EQ(positionOf(text.FindRev('A', position - 1)), NOT_FOUND);
        }
    }
}

TEST(StringFindRev, FindsEachOfTwoInAVeryLongText)
{
    std::string bytes(9000, 'x');
    bytes[700] = 'A';
    const String one(bytes.c_str());
    EXPECT_EQ(positionOf(one.FindRev('A')), 700u);
    EXPECT_EQ(positionOf(one.FindRev('y')), NOT_FOUND);
    for (unsigned position = 701; position < 9000; position += 61) {
        bytes[position] = 'A';
        const String two(bytes.c_str());
        EXPECT_EQ(positionOf(two.FindRev('A')), position);
        EXPECT_EQ(positionOf(two.FindRev('a', {}, false)), position);
        EXPECT_EQ(positionOf(two.Find('A', 701)), position);
        EXPECT_EQ(positionOf(two.Find('a', 701, false)), position);
        EXPECT_EQ(positionOf(two.Find('A', position + 1)), NOT_FOUND);
        EXPECT_EQ(positionOf(two.FindRev('A', position - 1)), 700u);
        bytes[position] = 'x';
    }
}

TEST(StringFindChar, EveryByteMatchesItselfAndAsciiLettersTheirOtherCase)
{
    for (int wanted = 0; wanted < 256; ++wanted) {
        for (int byte = 0; byte < 256; ++byte) {
            const char c = static_cast<char>(wanted);
            const String text = stringOf(std::string_view(std::string(70, static_cast<char>(byte))));
            const bool isLetter = (wanted >= 'a' && wanted <= 'z') || (wanted >= 'A' && wanted <= 'Z');
            const bool matches = byte == wanted || (isLetter && (byte ^ wanted) == 0x20);
            EXPECT_EQ(text.Find(c).valid(), byte == wanted) << wanted << " in " << byte;
            EXPECT_EQ(text.FindRev(c).valid(), byte == wanted) << wanted << " in " << byte;
            EXPECT_EQ(text.Find(c, 0, false).valid(), matches) << wanted << " in " << byte;
            EXPECT_EQ(text.FindRev(c, {}, false).valid(), matches) << wanted << " in " << byte;
        }
    }
}

// ---- Texts

TEST(StringFindText, GivesTheFirstPositionAtOrAfterFrom)
{
    EXPECT_EQ(positionOf(String("abcabc").Find("bc", 2)), 4u);
    EXPECT_EQ(positionOf(String("aabaabaaab").Find("aaab")), 6u);
    EXPECT_EQ(positionOf(String("abcd").Find("cd", 3)), NOT_FOUND);
    EXPECT_EQ(positionOf(String("one Two").Find("TWO", 0, false)), 4u);
    const char* const null = nullptr;
    for (const String& needle : {String(""), String()}) {
        EXPECT_EQ(positionOf(String("abcd").Find(needle, 2)), 2u);
        EXPECT_EQ(positionOf(String("abcd").Find(needle, 4)), NOT_FOUND);
    }
    EXPECT_EQ(positionOf(String("abcd").Find(null, 2, false)), 2u) << "a null pointer, where case does not count";
    const String text = stringOf("ab\0cd"sv);
    EXPECT_EQ(positionOf(text.Find("cd")), NOT_FOUND);
    EXPECT_EQ(positionOf(text.Find("d", 3)), 4u);
    EXPECT_EQ(positionOf(text.Find("d", 3, false)), NOT_FOUND) << "the lowered text ends at the zero byte";
}

}  // namespace
