// The numbers, bases and precisions that formatting and parsing are tried with.

#ifndef TESTS_VELBASE_PROPERTY_TRIED_NUMBERS_H
#define TESTS_VELBASE_PROPERTY_TRIED_NUMBERS_H

#include "drivers.h"

#include <cstdint>
#include <vector>

/// Calls `check(n, digits)` for the low bits of `bits` as each type of integer, with the digits that the model gives
/// it: those of `narrow` for an int and a long.
template <typename Check>
void forEachInteger(std::uint64_t bits, unsigned base, std::string (*narrow)(std::int64_t, std::uint32_t), Check check)
{
    const auto s = static_cast<short>(bits);
    const auto us = static_cast<unsigned short>(bits);
    const auto i = static_cast<int>(bits);
    const auto u = static_cast<unsigned>(bits);
    const auto l = static_cast<long>(bits);
    const auto ul = static_cast<unsigned long>(bits);
    const auto ll = static_cast<long long>(bits);
    const auto ull = static_cast<unsigned long long>(bits);
    check(s, reference::formatSigned(s, base));
    check(us, reference::formatSigned(us, base));
    check(i, narrow(i, base));
    check(l, narrow(l, base));
    check(u, reference::formatUnsigned(u, base));
    check(ul, reference::formatUnsigned(ul, base));
    check(ll, reference::formatSigned64(ll, base));
    check(ull, reference::formatUnsigned64(ull, base));
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
std::vector<std::uint64_t> edgeNumbers();

/// Mostly one from 0 to 40; otherwise one of those above, whose letters are judged by the low 8 bits alone.
unsigned randomBase(Random& random);

/// A double of any size; sometimes a zero, an infinity, no number.
double randomDouble(Random& random);

/// 0 to 12, a value around the largest, 99, or the value that stands for none.
unsigned randomPrecision(Random& random);

#endif
