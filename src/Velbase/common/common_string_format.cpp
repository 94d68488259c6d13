#include "Velbase/common/common_string_format.h"

#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <limits>
#include <type_traits>

namespace {

const char DIGITS[] = "0123456789ABCDEFGHIJKLMNOPQRSTUVWXYZ";

// 00 to 99: decimal digits are written two at a time, which halves the divisions.
const char DIGIT_PAIRS[] = "0001020304050607080910111213141516171819"
                           "2021222324252627282930313233343536373839"
                           "4041424344454647484950515253545556575859"
                           "6061626364656667686970717273747576777879"
                           "8081828384858687888990919293949596979899";

// Writes the two last digits of `n`.
char* writePair(char* first, std::uint32_t n)
{
    first -= 2;
    std::memcpy(first, DIGIT_PAIRS + 2 * (n % 100), 2);
    return first;
}

template <typename U> char* writeDecimal(char* first, U n)
{
    // Eight digits at a time, so that nearly all divisions are of 32 bits.
    const std::uint32_t ten8 = 100000000;
    for (; n >= ten8; n /= ten8) {
        std::uint32_t digits = static_cast<std::uint32_t>(n % ten8);
        for (int pairs = 4; pairs > 0; --pairs, digits /= 100)
            first = writePair(first, digits);
    }
    std::uint32_t rest = static_cast<std::uint32_t>(n);
    for (; rest >= 100; rest /= 100)
        first = writePair(first, rest);
    if (rest >= 10)
        return writePair(first, rest);
    *--first = DIGITS[rest];
    return first;
}

template <typename U> char* writeHexadecimal(char* first, U n)
{
    do {
        *--first = DIGITS[n % 16];
        n = static_cast<U>(n / 16);
    } while (n != 0);
    return first;
}

template <typename U> char* writeInBase(char* first, U n, unsigned base)
{
    do {
        *--first = DIGITS[n % base];
        n = static_cast<U>(n / base);
    } while (n != 0);
    return first;
}

// Writes the digits of `n`, at least one, so that the last is before `end`. The first one's place.
template <typename U> char* writeDigits(char* end, U n, unsigned base)
{
    if (base == 16)
        return writeHexadecimal(end, n);
    if (base == 10 || base < 2 || base > 36)
        return writeDecimal(end, n);
    return writeInBase(end, n, base);
}

template <typename U> String formatDigits(bool negative, U magnitude, unsigned base)
{
    // As many digits as bits, a sign and the terminating zero.
    char buffer[std::numeric_limits<U>::digits + 2];
    char* const end = buffer + sizeof buffer - 1;
    *end = '\0';
    char* first = writeDigits(end, magnitude, base);
    if (negative)
        *--first = '-';
    return String(first);
}

template <typename S> String formatSigned(S n, unsigned base)
{
    typedef std::make_unsigned_t<S> U;
    // Negated as unsigned: the smallest number has no counterpart in S.
    return formatDigits(n < 0, n < 0 ? U(0) - static_cast<U>(n) : static_cast<U>(n), base);
}

}  // namespace

String formatInteger(int n, unsigned base)
{
    return formatSigned(n, base);
}

String formatInteger(unsigned n, unsigned base)
{
    return formatDigits(false, n, base);
}

String formatInteger(long n, unsigned base)
{
    return formatSigned(n, base);
}

String formatInteger(unsigned long n, unsigned base)
{
    return formatDigits(false, n, base);
}

String formatInteger(long long n, unsigned base)
{
    return base == 16 ? formatInteger(static_cast<unsigned long long>(n), base) : formatSigned(n, 10);
}

String formatInteger(unsigned long long n, unsigned base)
{
    // The 64-bit numbers know these two bases only, on purpose.
    return formatDigits(false, n, base == 16 ? 16 : 10);
}

String formatFloat(double value, const checked_uint& precision, char format)
{
    const bool isKnown = format != '\0' && std::strchr("fFeEgG", format) != nullptr;
    char conversion[sizeof "%.99f"];
    char* end = conversion;
    *end++ = '%';
    if (precision.valid()) {
        const unsigned capped = std::min(precision.value(), 99u);
        *end++ = '.';
        if (capped >= 10)
            *end++ = DIGITS[capped / 10];
        *end++ = DIGITS[capped % 10];
    }
    *end++ = isKnown ? format : 'f';
    *end = '\0';

    // The largest double has 309 digits before the point.
    char text[1024];
    std::snprintf(text, sizeof text, conversion, value);
    return String(text);
}

String String::Number(int n, unsigned base)
{
    return formatInteger(n, base);
}

String String::Number(unsigned n, unsigned base)
{
    return formatInteger(n, base);
}

String String::Number(long n, unsigned base)
{
    return formatInteger(n, base);
}

String String::Number(unsigned long n, unsigned base)
{
    return formatInteger(n, base);
}

String String::Number(long long n, unsigned base)
{
    return formatInteger(n, base);
}

String String::Number(unsigned long long n, unsigned base)
{
    return formatInteger(n, base);
}

String String::Number(double value, unsigned precision, char format)
{
    const bool isGiven = precision != DEFAULT_PRECISION;
    return formatFloat(value, isGiven ? checked_uint(precision) : checked_uint(), format);
}

String String::Number(float value, unsigned precision, char format)
{
    return Number(static_cast<double>(value), precision, format);
}
