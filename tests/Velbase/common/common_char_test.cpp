#include "Velbase/common/common_char.h"

#include <gtest/gtest.h>

#include <type_traits>

namespace {

// The categories again, as runs of equal bytes: a second way to write down the table.
struct CategoryRun {
    int first;
    int last;
    int category;
};

// clang-format off
const CategoryRun CATEGORY_RUNS[] = {
    {0x00, 0x1F, 10}, {0x20, 0x20, 7},  {0x21, 0x23, 26}, {0x24, 0x24, 28}, {0x25, 0x27, 26}, {0x28, 0x28, 22},
    {0x29, 0x29, 23}, {0x2A, 0x2A, 26}, {0x2B, 0x2B, 27}, {0x2C, 0x2C, 26}, {0x2D, 0x2D, 21}, {0x2E, 0x2F, 26},
    {0x30, 0x39, 4},  {0x3A, 0x3B, 26}, {0x3C, 0x3E, 27}, {0x3F, 0x40, 26}, {0x41, 0x5A, 15}, {0x5B, 0x5B, 22},
    {0x5C, 0x5C, 26}, {0x5D, 0x5D, 23}, {0x5E, 0x5E, 29}, {0x5F, 0x5F, 20}, {0x60, 0x60, 29}, {0x61, 0x7A, 16},
    {0x7B, 0x7B, 22}, {0x7C, 0x7C, 27}, {0x7D, 0x7D, 23}, {0x7E, 0x7E, 27}, {0x7F, 0x9F, 10}, {0xA0, 0xA0, 7},
    {0xA1, 0xA1, 26}, {0xA2, 0xA5, 28}, {0xA6, 0xA7, 30}, {0xA8, 0xA8, 29}, {0xA9, 0xA9, 30}, {0xAA, 0xAA, 16},
    {0xAB, 0xAB, 24}, {0xAC, 0xAC, 27}, {0xAD, 0xAD, 21}, {0xAE, 0xAE, 30}, {0xAF, 0xAF, 29}, {0xB0, 0xB0, 30},
    {0xB1, 0xB1, 27}, {0xB2, 0xB3, 6},  {0xB4, 0xB4, 29}, {0xB5, 0xB5, 16}, {0xB6, 0xB6, 30}, {0xB7, 0xB7, 26},
    {0xB8, 0xB8, 29}, {0xB9, 0xB9, 6},  {0xBA, 0xBA, 16}, {0xBB, 0xBB, 25}, {0xBC, 0xBE, 6},  {0xBF, 0xBF, 26},
    {0xC0, 0xD6, 15}, {0xD7, 0xD7, 27}, {0xD8, 0xDE, 15}, {0xDF, 0xF6, 16}, {0xF7, 0xF7, 27}, {0xF8, 0xFF, 16},
};
// clang-format on

int expectedCategory(int byte)
{
    for (const CategoryRun& run : CATEGORY_RUNS) {
        if (byte >= run.first && byte <= run.last)
            return run.category;
    }
    return -1;
}

// Calls `check` with every byte as int and as Char.
template <typename Check> void forEveryByte(Check check)
{
    for (int byte = 0; byte < 256; ++byte) {
        SCOPED_TRACE(byte);
        check(byte, Char(static_cast<char>(byte)));
    }
}

bool isBetween(int number, int first, int last)
{
    return number >= first && number <= last;
}

static_assert(sizeof(CHAR_CATEGORIES) == 256, "one byte for each byte");
static_assert(std::is_convertible<char, Char>::value && std::is_convertible<Char, char>::value,
    "a Char stands wherever a char does");

TEST(CharCategories, EveryByteHasItsCategory)
{
    forEveryByte([](int byte, const Char& c) {
        EXPECT_EQ(CHAR_CATEGORIES[byte], expectedCategory(byte));
        EXPECT_EQ(static_cast<int>(c.GetCategory()), expectedCategory(byte));
        EXPECT_NE(c.GetCategory(), Char::NO_CATEGORY);
    });
}

TEST(CharCategories, NumbersAreThoseOfTheUnicodeGeneralCategories)
{
    const int numbers[] = {Char::NO_CATEGORY, Char::MARK_NONSPACING, Char::MARK_SPACINGCOMBINING, Char::MARK_ENCLOSING,
        Char::NUMBER_DECIMALDIGIT, Char::NUMBER_LETTER, Char::NUMBER_OTHER, Char::SEPARATOR_SPACE, Char::SEPARATOR_LINE,
        Char::SEPARATOR_PARAGRAPH, Char::OTHER_CONTROL, Char::OTHER_FORMAT, Char::OTHER_SURROGATE,
        Char::OTHER_PRIVATEUSE, Char::OTHER_NOTASSIGNED, Char::LETTER_UPPERCASE, Char::LETTER_LOWERCASE,
        Char::LETTER_TITLECASE, Char::LETTER_MODIFIER, Char::LETTER_OTHER, Char::PUNCTUATION_CONNECTOR,
        Char::PUNCTUATION_DASH, Char::PUNCTUATION_OPEN, Char::PUNCTUATION_CLOSE, Char::PUNCTUATION_INITIALQUOTE,
        Char::PUNCTUATION_FINALQUOTE, Char::PUNCTUATION_OTHER, Char::SYMBOL_MATH, Char::SYMBOL_CURRENCY,
        Char::SYMBOL_MODIFIER, Char::SYMBOL_OTHER};
    int expected = 0;
    for (const int number : numbers)
        EXPECT_EQ(number, expected++);
    EXPECT_EQ(expected, 31);
}

TEST(Char, HoldsItsByte)
{
    EXPECT_EQ(static_cast<char>(Char()), '\0');
    forEveryByte([](int byte, const Char& c) { EXPECT_EQ(static_cast<char>(c), static_cast<char>(byte)); });
}

struct Class {
    const char* name;
    bool (Char::*has)() const;
    bool (*expected)(int byte, int kind);  // its category
};

// clang-format off
const Class CLASSES[] = {
    {"IsNull",         &Char::IsNull,         [](int byte, int) { return byte == 0; }},
    {"IsSpace",        &Char::IsSpace,
                       [](int byte, int) { return isBetween(byte, 9, 13) || byte == 0x20 || byte == 0xA0; }},
    {"IsDigit",        &Char::IsDigit,        [](int byte, int) { return isBetween(byte, '0', '9'); }},
    {"IsPrintable",    &Char::IsPrintable,    [](int, int kind) { return !isBetween(kind, 10, 14); }},
    {"IsPunctuation",  &Char::IsPunctuation,  [](int, int kind) { return isBetween(kind, 20, 26); }},
    {"IsLetter",       &Char::IsLetter,       [](int, int kind) { return isBetween(kind, 15, 19); }},
    {"IsNumber",       &Char::IsNumber,       [](int, int kind) { return isBetween(kind, 4, 6); }},
    {"IsAlphaNumeric", &Char::IsAlphaNumeric,
                       [](int, int kind) { return isBetween(kind, 4, 6) || isBetween(kind, 15, 19); }},
    {"IsSymbol",       &Char::IsSymbol,       [](int, int kind) { return isBetween(kind, 27, 30); }},
};
// clang-format on

TEST(Char, ClassesAreThoseOfTheByteOrItsCategory)
{
    forEveryByte([](int byte, const Char& c) {
        for (const Class& each : CLASSES)
            EXPECT_EQ((c.*each.has)(), each.expected(byte, expectedCategory(byte))) << each.name;
    });
}

TEST(Char, GetDigitValueAndCaseAreThoseOfAscii)
{
    forEveryByte([](int byte, const Char& c) {
        const bool digit = isBetween(byte, '0', '9');
        EXPECT_EQ(c.GetDigitValue().valid(), digit);
        EXPECT_EQ(c.GetDigitValue().value(), digit ? static_cast<unsigned>(byte - '0') : 0u);
        const int lower = isBetween(byte, 'A', 'Z') ? byte + 0x20 : byte;
        const int upper = isBetween(byte, 'a', 'z') ? byte - 0x20 : byte;
        EXPECT_EQ(static_cast<char>(c.ToLower()), static_cast<char>(lower));
        EXPECT_EQ(static_cast<char>(c.ToUpper()), static_cast<char>(upper));
    });
}

}  // namespace
