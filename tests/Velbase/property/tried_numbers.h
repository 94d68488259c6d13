// The numbers, bases and precisions that formatting and parsing are tried with.

#ifndef TESTS_VELBASE_PROPERTY_TRIED_NUMBERS_H
#define TESTS_VELBASE_PROPERTY_TRIED_NUMBERS_H

#include "drivers.h"

#include <cmath>
#include <cstdint>
#include <cstring>
#include <iterator>
#include <limits>
#include <optional>
#include <string>
#include <vector>

/// The bytes of `value`, which tell -0 from 0 and one that is no number from another.
template <typename T> std::string bitsOf(T value)
{
    return std::string(reinterpret_cast<const char*>(&value), sizeof value);
}

/// One conversion, with and without a flag for its success. The flag starts as the wrong answer.
template <typename T, typename Wide, typename... Base>
void checkConversion(const Twin& text, const char* name, T (String::*convert)(bool*, Base...) const,
    const std::optional<Wide>& expected, Base... base)
{
    const T expectedValue = static_cast<T>(expected.value_or(0));
    bool ok = !expected.has_value();
    const T value = (text.string.*convert)(&ok, base...);
    ASSERT_TRUE(ok == expected.has_value() && bitsOf(value) == bitsOf(expectedValue))
        << call(text, name, base...) << "\n  expected " << (expected ? "" : "failure, ") << expectedValue
        << "\n  came     " << (ok ? "" : "failure, ") << value;
    ASSERT_EQ(bitsOf((text.string.*convert)(nullptr, base...)), bitsOf(expectedValue))
        << call(text, name, base...) << " without a flag for its success";
}

/// Calls `check(n, digits)` for the low bits of `bits` as each type of integer, with the digits that the model gives
/// it: those of `narrow` for an int and a long.
template <typename Check>
void forEachInteger(std::uint64_t bits, unsigned base, std::string (*narrow)(std::int64_t, std::uint32_t), Check check)
{
    const auto forType = [&](auto zero, auto format) {
        const auto n = static_cast<decltype(zero)>(bits);
        check(n, format(n, base));
    };
    forType(short{}, reference::formatSigned);
    forType(static_cast<unsigned short>(0), reference::formatSigned);
    forType(0, narrow);
    forType(0l, narrow);
    forType(0u, reference::formatUnsigned);
    forType(0ul, reference::formatUnsigned);
    forType(0ll, reference::formatSigned64);
    forType(0ull, reference::formatUnsigned64);
}

/// Calls `check(value, digits)` for `value` as a double and as a float.
template <typename Check> void forEachFloat(double value, unsigned precision, char format, Check check)
{
    const reference::Position given = precision == 0xFFFFFFFF ? reference::Position() : precision;
    const auto narrow = static_cast<float>(value);
    check(value, reference::formatFloat(value, given, format));
    check(narrow, reference::formatFloat(narrow, given, format));
}

/// 0, the limits of every width, of both signs, and their neighbours.
inline std::vector<std::uint64_t> edgeNumbers()
{
    std::vector<std::uint64_t> numbers;
    for (const unsigned bits : {0u, 7u, 8u, 15u, 16u, 31u, 32u, 63u}) {
        const std::uint64_t power = UINT64_C(1) << bits;
        for (const std::uint64_t n : {power - 2, power - 1, power, power + 1, power + 2}) {
            numbers.push_back(n);
            numbers.push_back(0 - n);
        }
    }
    return numbers;
}

/// Mostly one from 0 to 40; otherwise one of those above, whose letters are judged by the low 8 bits alone.
inline unsigned randomBase(Random& random)
{
    const unsigned extremes[] = {65535, 65536, 70000, 0x80000000, 0xFFFFFFFE, 0xFFFFFFFF};
    switch (random.below(6)) {
    case 0:
        return 37 + random.below(60);
    case 1:
        return 250 + random.below(51);
    case 2:
        return random.oneOf(extremes);
    default:
        return random.below(41);
    }
}

/// Zeros, infinities, no number, and those at the ends of the range.
const double SPECIAL_DOUBLES[] = {0.0, -0.0, 0.5, 1.5, 2.5, -1.0, 1e100, HUGE_VAL, -HUGE_VAL,
    std::numeric_limits<double>::quiet_NaN(), std::numeric_limits<double>::max(), -std::numeric_limits<double>::max(),
    std::numeric_limits<double>::denorm_min()};

/// A double of any size; sometimes a special one.
inline double randomDouble(Random& random)
{
    if (random.once(5))
        return random.oneOf(SPECIAL_DOUBLES);
    const double mantissa = static_cast<double>(random.number()) * (random.once(2) ? 1 : -1);
    const int largestExponent = random.once(4) ? 900 : 40;
    return std::ldexp(mantissa, static_cast<int>(random.below(2 * 900)) % (2 * largestExponent) - largestExponent - 40);
}

/// Every bit pattern: normal numbers of every size, denormals, infinities, no numbers.
inline double randomBits(Random& random)
{
    const std::uint64_t bits = random.once(4) ? random.number() : random.number() << random.below(64);
    double value = 0;
    std::memcpy(&value, &bits, sizeof value);
    return value;
}

/// Around the largest, 99, and the value that stands for none.
const unsigned EDGE_PRECISIONS[] = {98, 99, 100, 101, 150, 4096, 0x80000000, 0xFFFFFFFE, 0xFFFFFFFF};

/// 0 to 12, or one of those.
inline unsigned randomPrecision(Random& random)
{
    return random.once(2) ? random.below(13) : random.oneOf(EDGE_PRECISIONS);
}

#endif
