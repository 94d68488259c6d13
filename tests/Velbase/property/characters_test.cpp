// Every byte: its category and what follows from it, through Char and through a reference into a string.

#include <gtest/gtest.h>

#include "Velbase/common/common_string.h"
#include "reference.h"

namespace {

// The categories in runs of bytes: the general categories of the first 256 code points as an early edition of Unicode
// had them. Later ones changed A7, AA, AD, B6 and BA.
struct CategoryRun {
    int first;
    int last;
    Char::Category category;
};

// clang-format off
const CategoryRun RUNS[] = {
    {0x00, 0x1F, Char::OTHER_CONTROL},
    {0x20, 0x20, Char::SEPARATOR_SPACE},
    {0x21, 0x23, Char::PUNCTUATION_OTHER},
    {0x24, 0x24, Char::SYMBOL_CURRENCY},
    {0x25, 0x27, Char::PUNCTUATION_OTHER},
    {0x28, 0x28, Char::PUNCTUATION_OPEN},
    {0x29, 0x29, Char::PUNCTUATION_CLOSE},
    {0x2A, 0x2A, Char::PUNCTUATION_OTHER},
    {0x2B, 0x2B, Char::SYMBOL_MATH},
    {0x2C, 0x2C, Char::PUNCTUATION_OTHER},
    {0x2D, 0x2D, Char::PUNCTUATION_DASH},
    {0x2E, 0x2F, Char::PUNCTUATION_OTHER},
    {0x30, 0x39, Char::NUMBER_DECIMALDIGIT},
    {0x3A, 0x3B, Char::PUNCTUATION_OTHER},
    {0x3C, 0x3E, Char::SYMBOL_MATH},
    {0x3F, 0x40, Char::PUNCTUATION_OTHER},
    {0x41, 0x5A, Char::LETTER_UPPERCASE},
    {0x5B, 0x5B, Char::PUNCTUATION_OPEN},
    {0x5C, 0x5C, Char::PUNCTUATION_OTHER},
    {0x5D, 0x5D, Char::PUNCTUATION_CLOSE},
    {0x5E, 0x5E, Char::SYMBOL_MODIFIER},
    {0x5F, 0x5F, Char::PUNCTUATION_CONNECTOR},
    {0x60, 0x60, Char::SYMBOL_MODIFIER},
    {0x61, 0x7A, Char::LETTER_LOWERCASE},
    {0x7B, 0x7B, Char::PUNCTUATION_OPEN},
    {0x7C, 0x7C, Char::SYMBOL_MATH},
    {0x7D, 0x7D, Char::PUNCTUATION_CLOSE},
    {0x7E, 0x7E, Char::SYMBOL_MATH},
    {0x7F, 0x9F, Char::OTHER_CONTROL},
    {0xA0, 0xA0, Char::SEPARATOR_SPACE},
    {0xA1, 0xA1, Char::PUNCTUATION_OTHER},
    {0xA2, 0xA5, Char::SYMBOL_CURRENCY},
    {0xA6, 0xA7, Char::SYMBOL_OTHER},
    {0xA8, 0xA8, Char::SYMBOL_MODIFIER},
    {0xA9, 0xA9, Char::SYMBOL_OTHER},
    {0xAA, 0xAA, Char::LETTER_LOWERCASE},
    {0xAB, 0xAB, Char::PUNCTUATION_INITIALQUOTE},
    {0xAC, 0xAC, Char::SYMBOL_MATH},
    {0xAD, 0xAD, Char::PUNCTUATION_DASH},
    {0xAE, 0xAE, Char::SYMBOL_OTHER},
    {0xAF, 0xAF, Char::SYMBOL_MODIFIER},
    {0xB0, 0xB0, Char::SYMBOL_OTHER},
    {0xB1, 0xB1, Char::SYMBOL_MATH},
    {0xB2, 0xB3, Char::NUMBER_OTHER},
    {0xB4, 0xB4, Char::SYMBOL_MODIFIER},
    {0xB5, 0xB5, Char::LETTER_LOWERCASE},
    {0xB6, 0xB6, Char::SYMBOL_OTHER},
    {0xB7, 0xB7, Char::PUNCTUATION_OTHER},
    {0xB8, 0xB8, Char::SYMBOL_MODIFIER},
    {0xB9, 0xB9, Char::NUMBER_OTHER},
    {0xBA, 0xBA, Char::LETTER_LOWERCASE},
    {0xBB, 0xBB, Char::PUNCTUATION_FINALQUOTE},
    {0xBC, 0xBE, Char::NUMBER_OTHER},
    {0xBF, 0xBF, Char::PUNCTUATION_OTHER},
    {0xC0, 0xD6, Char::LETTER_UPPERCASE},
    {0xD7, 0xD7, Char::SYMBOL_MATH},
    {0xD8, 0xDE, Char::LETTER_UPPERCASE},
    {0xDF, 0xF6, Char::LETTER_LOWERCASE},
    {0xF7, 0xF7, Char::SYMBOL_MATH},
    {0xF8, 0xFF, Char::LETTER_LOWERCASE},
};
// clang-format on

// What every character class says of `c`, whether a Char or a reference.
template <typename Character> void checkCharacter(const Character& c, char byte, int category)
{
    const auto within = [&](int first, int last) { return category >= first && category <= last; };
    ASSERT_EQ(c.GetCategory(), category);
    ASSERT_EQ(c.IsNull(), byte == '\0');
    ASSERT_EQ(c.IsSpace(), reference::isSpace(byte));
    ASSERT_EQ(c.IsDigit(), reference::isDigit(byte));
    ASSERT_EQ(c.GetDigitValue().valid(), reference::isDigit(byte));
    ASSERT_EQ(c.GetDigitValue().value(), reference::isDigit(byte) ? static_cast<unsigned>(byte - '0') : 0u);
    ASSERT_EQ(char(c.ToLower()), reference::toLower(byte));
    ASSERT_EQ(char(c.ToUpper()), reference::toUpper(byte));
    ASSERT_EQ(c.IsLetter(), within(15, 19));
    ASSERT_EQ(c.IsNumber(), within(4, 6));
    ASSERT_EQ(c.IsAlphaNumeric(), within(15, 19) || within(4, 6));
    ASSERT_EQ(c.IsPunctuation(), within(20, 26));
    ASSERT_EQ(c.IsSymbol(), within(27, 30));
    ASSERT_EQ(c.IsPrintable(), !within(10, 14));
}

TEST(CharacterProperty, AgreesOnEveryByte)
{
    String string("x");
    int next = 0;
    for (const CategoryRun& run : RUNS) {
        ASSERT_EQ(run.first, next) << "the runs must leave nothing out";
        next = run.last + 1;
        for (int code = run.first; code <= run.last; ++code) {
            SCOPED_TRACE("byte " + std::to_string(code));
            const char byte = static_cast<char>(code);
            string[0] = byte;
            checkCharacter(Char(byte), byte, run.category);
            checkCharacter(string[0], byte, run.category);
            ASSERT_FALSE(HasFailure());
        }
    }
    ASSERT_EQ(next, 256);
}

}  // namespace
