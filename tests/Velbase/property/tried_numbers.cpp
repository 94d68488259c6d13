#include "tried_numbers.h"

#include <cmath>
#include <iterator>
#include <limits>

std::vector<std::uint64_t> edgeNumbers()
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

unsigned randomBase(Random& random)
{
    const unsigned extremes[] = {65535, 65536, 70000, 0x80000000, 0xFFFFFFFE, 0xFFFFFFFF};
    switch (random.below(6)) {
    case 0:
        return 37 + random.below(60);
    case 1:
        return 250 + random.below(51);
    case 2:
        return extremes[random.below(static_cast<std::uint32_t>(std::size(extremes)))];
    default:
        return random.below(41);
    }
}

double randomDouble(Random& random)
{
    const double specials[] = {0.0, -0.0, 0.5, 1.5, 2.5, -1.0, 1e100, std::numeric_limits<double>::infinity(),
        -std::numeric_limits<double>::infinity(), std::numeric_limits<double>::quiet_NaN(),
        std::numeric_limits<double>::max(), std::numeric_limits<double>::denorm_min()};
    if (random.once(5))
        return specials[random.below(static_cast<std::uint32_t>(std::size(specials)))];
    const double mantissa = static_cast<double>(random.number()) * (random.once(2) ? 1 : -1);
    const int largestExponent = random.once(4) ? 900 : 40;
    return std::ldexp(mantissa, static_cast<int>(random.below(2 * 900)) % (2 * largestExponent) - largestExponent - 40);
}

unsigned randomPrecision(Random& random)
{
    const unsigned precisions[] = {98, 99, 100, 101, 150, 4096, 0x80000000, 0xFFFFFFFE, 0xFFFFFFFF, 0xFFFFFFFF};
    return random.once(2) ? random.below(13)
                          : precisions[random.below(static_cast<std::uint32_t>(std::size(precisions)))];
}
