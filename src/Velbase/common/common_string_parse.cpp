// Integers from text.

#include "Velbase/common/common_string.h"

#include <algorithm>
#include <cstdint>
#include <limits>

namespace {

// The value of '0' to '9' and of letters in either case, from 'a' for 10, by byte; NO for every other byte.
const unsigned char NO = 0xFF;

// clang-format off
const unsigned char DIGIT_VALUES[256] = {
    NO, NO, NO, NO, NO, NO, NO, NO, NO, NO, NO, NO, NO, NO, NO, NO,  // 0x00
    NO, NO, NO, NO, NO, NO, NO, NO, NO, NO, NO, NO, NO, NO, NO, NO,  // 0x10
    NO, NO, NO, NO, NO, NO, NO, NO, NO, NO, NO, NO, NO, NO, NO, NO,  // 0x20
     0,  1,  2,  3,  4,  5,  6,  7,  8,  9, NO, NO, NO, NO, NO, NO,  // 0x30
    NO, 10, 11, 12, 13, 14, 15, 16, 17, 18, 19, 20, 21, 22, 23, 24,  // 0x40
    25, 26, 27, 28, 29, 30, 31, 32, 33, 34, 35, NO, NO, NO, NO, NO,  // 0x50
    NO, 10, 11, 12, 13, 14, 15, 16, 17, 18, 19, 20, 21, 22, 23, 24,  // 0x60
    25, 26, 27, 28, 29, 30, 31, 32, 33, 34, 35, NO, NO, NO, NO, NO,  // 0x70
    NO, NO, NO, NO, NO, NO, NO, NO, NO, NO, NO, NO, NO, NO, NO, NO,  // 0x80
    NO, NO, NO, NO, NO, NO, NO, NO, NO, NO, NO, NO, NO, NO, NO, NO,  // 0x90
    NO, NO, NO, NO, NO, NO, NO, NO, NO, NO, NO, NO, NO, NO, NO, NO,  // 0xA0
    NO, NO, NO, NO, NO, NO, NO, NO, NO, NO, NO, NO, NO, NO, NO, NO,  // 0xB0
    NO, NO, NO, NO, NO, NO, NO, NO, NO, NO, NO, NO, NO, NO, NO, NO,  // 0xC0
    NO, NO, NO, NO, NO, NO, NO, NO, NO, NO, NO, NO, NO, NO, NO, NO,  // 0xD0
    NO, NO, NO, NO, NO, NO, NO, NO, NO, NO, NO, NO, NO, NO, NO, NO,  // 0xE0
    NO, NO, NO, NO, NO, NO, NO, NO, NO, NO, NO, NO, NO, NO, NO, NO,  // 0xF0
};
// clang-format on

// Whether `c` is a digit of `base`: '0' to '9', and from base 11 on letters in either case.
//
// Bases above 36 are not refused, on purpose. The letters' limits, for the bases up to 36 the codes of the first
// letters that are no digits, go on: they are 8-bit numbers read as signed, made from the low 8 bits of the base. So
// they lie behind 'z' and 'Z' and let other characters count as digits, and at last wrap to numbers below all letters.
bool checkCharInBase(const Char& c, unsigned base)
{
    if (base <= 10)
        return unsigned_byte(c) - unsigned('0') < base;
    if (base <= 36)
        return DIGIT_VALUES[unsigned_byte(c)] < base;
    if (c.IsDigit())
        return true;
    const int code = signed_byte(unsigned_byte(c));
    const int lowerLimit = signed_byte(base + ('a' - 10));
    const int upperLimit = signed_byte(base + ('A' - 10));
    if (code >= 'a')
        return code < lowerLimit || code < upperLimit;
    return code >= 'A' && code < upperLimit;
}

// The value of a character that checkCharInBase accepts. What it accepts beyond the letters counts on from 'A'.
unsigned digitValue(const Char& c, unsigned base)
{
    if (base <= 10)
        return unsigned_byte(c) - unsigned('0');

    const unsigned value = DIGIT_VALUES[unsigned_byte(c)];
    return value != NO ? value : unsigned_byte(c) - unsigned('A' - 10);
}

// Reads digits from `p`, up to the first that is no digit or until nothing remains, and moves both on. `ok` becomes
// false, and the result 0, when the number is too large for T; the digit that makes it so is not passed.
template <typename T> inline T scanUInt(const Char*& p, unsigned& remaining, unsigned base, bool& ok)
{
    // So many digits are never too large: not to look at the limit saves a third of the time of 20 digits.
    const unsigned safeDigits = base <= 10 ? std::numeric_limits<T>::digits10
        : base <= 16                       ? std::numeric_limits<T>::digits / 4
                                           : 0;
    const T limit = static_cast<T>(std::numeric_limits<T>::max() / base);
    const T last = static_cast<T>(std::numeric_limits<T>::max() % base);
    const Char* const end = p + remaining;
    const Char* next = p;
    T number = 0;
    ok = true;
    for (const Char* const safeEnd = p + std::min(remaining, safeDigits);
         next != safeEnd && checkCharInBase(*next, base); ++next)
        number = static_cast<T>(number * base + digitValue(*next, base));
    for (; next != end && checkCharInBase(*next, base); ++next) {
        const unsigned digit = digitValue(*next, base);
        if (number >= limit && (number > limit || digit > last)) {
            ok = false;
            number = 0;
            break;
        }
        number = static_cast<T>(number * base + digit);
    }
    p = next;
    remaining = static_cast<unsigned>(end - next);
    return number;
}

void skipSpace(const Char*& p, unsigned& remaining)
{
    while (remaining != 0 && p->IsSpace()) {
        --remaining;
        ++p;
    }
}

// Reads `s` as white space, a sign, digits and white space. No success, and neither result, if it is anything else or
// too large for T.
template <typename T>
inline bool scanNumber(unsigned base, const String& s, bool minusAllowed, bool& negative, T& magnitude)
{
    const Char* p = reinterpret_cast<const Char*>(s.Latin1());
    unsigned remaining = s.Length();
    skipSpace(p, remaining);

    // At the end of the text this is its terminating zero, which is neither.
    negative = minusAllowed && *p == '-';
    if (negative || *p == '+') {
        --remaining;
        ++p;
    }
    if (remaining == 0 || !checkCharInBase(*p, base))
        return false;

    bool fits = false;
    magnitude = scanUInt<T>(p, remaining, base, fits);
    skipSpace(p, remaining);
    return fits && remaining == 0;
}

template <typename T> T toUInt(bool* ok, unsigned base, const String& s)
{
    bool negative = false;
    T number = 0;
    const bool success = scanNumber<T>(base, s, false, negative, number);
    if (ok != nullptr)
        *ok = success;
    return success ? number : 0;
}

// Limits and result are 32-bit numbers for every type, on purpose, although they fit only int. For short they let
// -65535 through, of which the low 16 bits remain; for long long the power is 0, so that no negative number but -0
// passes, and of the others the low 32 bits count, as a signed number.
template <typename U, typename S> S toInt(bool* ok, unsigned base, const String& s)
{
    constexpr std::uint32_t power = static_cast<std::uint32_t>(std::uint64_t(1) << std::numeric_limits<S>::digits);
    bool negative = false;
    U magnitude = 0;
    const bool success =
        scanNumber<U>(base, s, true, negative, magnitude) && magnitude <= (negative ? 0 - power : power - 1);
    if (ok != nullptr)
        *ok = success;
    const std::uint32_t word = static_cast<std::uint32_t>(magnitude);
    return success ? static_cast<S>(signed_word(negative ? 0 - word : word)) : 0;
}

}  // namespace

short String::ToShort(bool* ok, unsigned base) const
{
    return toInt<unsigned short, short>(ok, base, *this);
}

unsigned short String::ToUShort(bool* ok, unsigned base) const
{
    return toUInt<unsigned short>(ok, base, *this);
}

int String::ToInt(bool* ok, unsigned base) const
{
    return toInt<unsigned, int>(ok, base, *this);
}

unsigned String::ToUInt(bool* ok, unsigned base) const
{
    return toUInt<unsigned>(ok, base, *this);
}

long long String::ToInt64(bool* ok, unsigned base) const
{
    return toInt<unsigned long long, long long>(ok, base, *this);
}

unsigned long long String::ToUInt64(bool* ok, unsigned base) const
{
    return toUInt<unsigned long long>(ok, base, *this);
}
