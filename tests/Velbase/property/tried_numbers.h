// The numbers, bases and precisions that formatting and parsing are tried with.

#ifndef TESTS_VELBASE_PROPERTY_TRIED_NUMBERS_H
#define TESTS_VELBASE_PROPERTY_TRIED_NUMBERS_H

#include <cstdint>
#include <vector>

#include "drivers.h"

/// 0, the limits of every width, of both signs, and their neighbours.
std::vector<std::uint64_t> edgeNumbers();

/// Mostly one from 0 to 40; otherwise one of those above, whose letters are judged by the low 8 bits alone.
unsigned randomBase(Random& random);

/// A double of any size; sometimes a zero, an infinity, no number.
double randomDouble(Random& random);

/// 0 to 12, a value around the largest, 99, or the value that stands for none.
unsigned randomPrecision(Random& random);

#endif
