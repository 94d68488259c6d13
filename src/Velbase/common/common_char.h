// One 8-bit character and what can be asked of it.
//
// The answers come from one fixed table, CHAR_CATEGORIES, that reads the byte as an ISO 8859-1 code point. They depend
// on no locale, nor on whether plain char is signed.

#ifndef VELBASE_COMMON_CHAR_H
#define VELBASE_COMMON_CHAR_H

#include "Velbase/common/common_cast.h"
#include "Velbase/common/common_checked_types.h"

/// The category of each byte, a Char::Category. Its source is the Unicode general category of the first 256 code
/// points.
extern const unsigned char CHAR_CATEGORIES[256];

/// One byte of a text. There is no wider code unit and no decoding.
class Char {
public:
    /// The Unicode general categories, each with its abbreviation there.
    enum Category {
        NO_CATEGORY = 0,                ///< of no byte
        MARK_NONSPACING = 1,            ///< Mn
        MARK_SPACINGCOMBINING = 2,      ///< Mc
        MARK_ENCLOSING = 3,             ///< Me
        NUMBER_DECIMALDIGIT = 4,        ///< Nd
        NUMBER_LETTER = 5,              ///< Nl
        NUMBER_OTHER = 6,               ///< No
        SEPARATOR_SPACE = 7,            ///< Zs
        SEPARATOR_LINE = 8,             ///< Zl
        SEPARATOR_PARAGRAPH = 9,        ///< Zp
        OTHER_CONTROL = 10,             ///< Cc
        OTHER_FORMAT = 11,              ///< Cf
        OTHER_SURROGATE = 12,           ///< Cs
        OTHER_PRIVATEUSE = 13,          ///< Co
        OTHER_NOTASSIGNED = 14,         ///< Cn
        LETTER_UPPERCASE = 15,          ///< Lu
        LETTER_LOWERCASE = 16,          ///< Ll
        LETTER_TITLECASE = 17,          ///< Lt
        LETTER_MODIFIER = 18,           ///< Lm
        LETTER_OTHER = 19,              ///< Lo
        PUNCTUATION_CONNECTOR = 20,     ///< Pc
        PUNCTUATION_DASH = 21,          ///< Pd
        PUNCTUATION_OPEN = 22,          ///< Ps
        PUNCTUATION_CLOSE = 23,         ///< Pe
        PUNCTUATION_INITIALQUOTE = 24,  ///< Pi
        PUNCTUATION_FINALQUOTE = 25,    ///< Pf
        PUNCTUATION_OTHER = 26,         ///< Po
        SYMBOL_MATH = 27,               ///< Sm
        SYMBOL_CURRENCY = 28,           ///< Sc
        SYMBOL_MODIFIER = 29,           ///< Sk
        SYMBOL_OTHER = 30               ///< So
    };

    /// The zero byte.
    Char()
        : m_char(0)
    {
    }

    /// The byte `c`. Implicit, as is the way back: a Char stands wherever a char does.
    Char(char c)
        : m_char(c)
    {
    }

    /// The same byte. Only a character that has a name is assigned to: `text.At(0) = 'x'` would change nothing.
    Char(const Char& other) = default;
    Char& operator=(const Char& other) & = default;

    /// The byte.
    operator char() const { return m_char; }

    /// The byte's entry in CHAR_CATEGORIES; never NO_CATEGORY.
    Category GetCategory() const { return static_cast<Category>(CHAR_CATEGORIES[unsigned_byte(m_char)]); }

    /// Whether it is the zero byte.
    bool IsNull() const { return m_char == 0; }

    /// White space: exactly the bytes 0x09 to 0x0D, 0x20 and 0xA0.
    bool IsSpace() const
    {
        return (m_char >= 0x09 && m_char <= 0x0D) || isCategory(SEPARATOR_SPACE, SEPARATOR_PARAGRAPH);
    }

    /// '0' to '9' only; superscripts and fractions are numbers, not digits.
    bool IsDigit() const { return GetCategory() == NUMBER_DECIMALDIGIT; }

    /// The value of '0' to '9'; invalid for every other byte.
    checked_uint GetDigitValue() const
    {
        const unsigned char value = static_cast<unsigned char>(unsigned_byte(m_char) - '0');
        return value <= 9 ? checked_uint(value) : checked_uint();
    }

    /// 'a' to 'z' for 'A' to 'Z'; every other byte as it is, the letters beyond ASCII too.
    Char ToLower() const { return m_char >= 'A' && m_char <= 'Z' ? static_cast<char>(m_char + ('a' - 'A')) : m_char; }

    /// 'A' to 'Z' for 'a' to 'z'; every other byte as it is, the letters beyond ASCII too.
    Char ToUpper() const { return m_char >= 'a' && m_char <= 'z' ? static_cast<char>(m_char - ('a' - 'A')) : m_char; }

    /// Everything but controls, formats, surrogates, private and unassigned code points.
    bool IsPrintable() const { return !isCategory(OTHER_CONTROL, OTHER_NOTASSIGNED); }

    /// The classes of the same names: all their categories.
    bool IsPunctuation() const { return isCategory(PUNCTUATION_CONNECTOR, PUNCTUATION_OTHER); }
    bool IsLetter() const { return isCategory(LETTER_UPPERCASE, LETTER_OTHER); }
    bool IsNumber() const { return isCategory(NUMBER_DECIMALDIGIT, NUMBER_OTHER); }
    bool IsSymbol() const { return isCategory(SYMBOL_MATH, SYMBOL_OTHER); }

    /// A letter or a number.
    bool IsAlphaNumeric() const { return IsLetter() || IsNumber(); }

private:
    bool isCategory(Category first, Category last) const { return GetCategory() >= first && GetCategory() <= last; }

    char m_char;
};

static_assert(sizeof(Char) == 1, "a text is read in place as a sequence of Char");

#endif
