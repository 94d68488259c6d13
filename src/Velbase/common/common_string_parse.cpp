// Numbers from text.

#include <clocale>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <limits>

#include "Velbase/common/common_string.h"

namespace {

// Whether `c` is a digit of `base`: '0' to '9', and from base 11 on letters in either case, 'a' for 10.
//
// The letters' limits are 8-bit numbers read as signed, made from the low 8 bits of the base. For bases up to 36 they
// are the code of the first letter that is no digit. Larger bases are not refused, on purpose: the limits then lie
// behind 'z' and 'Z', so that other characters count as digits too, and at last wrap to numbers below all letters.
bool checkCharInBase(const Char& c, unsigned base)
{
    if (base <= 10)
        return c.IsDigit() && c.GetDigitValue().value() < base;
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
unsigned digitValue(const Char& c)
{
    if (c.IsDigit())
        return c.GetDigitValue().value();
    const unsigned code = unsigned_byte(c);
    return code >= 'a' && code <= 'z' ? code - ('a' - 10) : code - ('A' - 10);
}

// Reads digits from `p`, until one is none or nothing remains, and moves both on. `ok` becomes false, and the result 0,
// when the number is too large for T; the digit that makes it so is not passed.
template <typename T> T scanUInt(const Char*& p, unsigned& remaining, unsigned base, bool& ok)
{
    const T limit = static_cast<T>(std::numeric_limits<T>::max() / base);
    const T last = static_cast<T>(std::numeric_limits<T>::max() % base);
    T number = 0;
    while (remaining != 0 && checkCharInBase(*p, base)) {
        const unsigned digit = digitValue(*p);
        if (number > limit || (number == limit && digit > last)) {
            ok = false;
            return 0;
        }
        number = static_cast<T>(number * base + digit);
        --remaining;
        ++p;
    }
    ok = true;
    return number;
}

void skipSpace(const Char*& p, unsigned& remaining)
{
    while (remaining != 0 && p->IsSpace()) {
        --remaining;
        ++p;
    }
}

// Reads `s` as white space, a sign, digits and white space. False if it is anything else or too large for T.
// `negative` is whether there is a "-", and null if there must be none.
template <typename T> bool scanNumber(const String& s, unsigned base, T& magnitude, bool* negative)
{
    const Char* p = reinterpret_cast<const Char*>(s.Latin1());
    unsigned remaining = s.Length();
    skipSpace(p, remaining);

    // At the end of the text this is its terminating zero, which is neither.
    const char sign = *p;
    if (sign == '+' || (sign == '-' && negative != nullptr)) {
        --remaining;
        ++p;
    }
    if (negative != nullptr)
        *negative = sign == '-';
    if (remaining == 0 || !checkCharInBase(*p, base))
        return false;

    bool fits = false;
    magnitude = scanUInt<T>(p, remaining, base, fits);
    skipSpace(p, remaining);
    return fits && remaining == 0;
}

template <typename T> T toUInt(bool* ok, unsigned base, const String& s)
{
    T magnitude = 0;
    const bool success = scanNumber<T>(s, base, magnitude, nullptr);
    if (ok != nullptr)
        *ok = success;
    return success ? magnitude : 0;
}

// 2 to the power `exponent`, in 32 bits.
constexpr std::uint32_t powerOfTwo(unsigned exponent)
{
    return exponent < 32 ? std::uint32_t(1) << exponent : 0;
}

// Limits and result are 32-bit numbers for every type, on purpose, although they fit only int. For short they let
// -65535 through, of which the low 16 bits remain; for long long the power is 0, so that no negative number but -0
// passes, and of the others the low 32 bits count, as a signed number.
template <typename U, typename S> S toInt(bool* ok, unsigned base, const String& s)
{
    constexpr std::uint32_t power = powerOfTwo(std::numeric_limits<S>::digits);
    U magnitude = 0;
    bool negative = false;
    const bool success =
        scanNumber<U>(s, base, magnitude, &negative) && magnitude <= (negative ? 0 - power : power - 1);
    if (ok != nullptr)
        *ok = success;
    if (!success)
        return 0;
    const std::uint32_t word = static_cast<std::uint32_t>(magnitude);
    return static_cast<S>(signed_word(negative ? 0 - word : word));
}

// What separates the fraction in the current locale.
char decimalPoint()
{
    const std::lconv* const conventions = std::localeconv();
    return conventions == nullptr || conventions->decimal_point == nullptr ? '.' : conventions->decimal_point[0];
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

double String::ToDouble(bool* ok) const
{
    if (ok != nullptr)
        *ok = false;
    // The whole text must be the number: white space around it, which would be left out below, makes it fail, on
    // purpose.
    if (IsEmpty() || At(0).IsSpace() || At(Length() - 1).IsSpace())
        return 0.0;

    const char point = decimalPoint();
    String number = *this;
    for (const char separator : {'.', ','}) {
        if (separator != point && number.Contains(separator))
            number = number.ReplaceChar(separator, point);
    }
    const char* const start = number.Latin1();
    char* end = nullptr;
    const double value = std::strtod(start, &end);
    if (end == nullptr || static_cast<std::size_t>(end - start) != Length())
        return 0.0;
    if (ok != nullptr)
        *ok = true;
    return value;
}

float String::ToFloat(bool* ok) const
{
    return static_cast<float>(ToDouble(ok));
}
