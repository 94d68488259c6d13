// Text from numbers against the model, and back again.

#include "tried_numbers.h"

using namespace std::string_view_literals;

namespace {

void checkIntegers(std::uint64_t bits, unsigned base)
{
    forEachInteger(bits, base, reference::formatSigned, [=](auto n, const std::string& digits) {
        ASSERT_TRUE(agrees(String::Number(n, base), reference::newText(digits)))
            << "Number(" << n << ", " << base << ") of " << 8 * sizeof n << " bits";
    });
}

void checkFloatingPoint(double value, unsigned precision, char format)
{
    forEachFloat(value, precision, format, [=](auto n, const std::string& digits) {
        ASSERT_TRUE(agrees(String::Number(n, precision, format), reference::newText(digits)))
            << "Number(" << n << ", " << precision << ", " << shown(format) << ") of " << 8 * sizeof n << " bits";
    });
}

TEST(FormattingProperty, AgreesAtTheEdgesInEveryBase)
{
    for (const std::uint64_t n : edgeNumbers()) {
        for (unsigned base = 0; base <= 40 && !HasFailure(); ++base)
            checkIntegers(n, base);
    }
}

TEST(FormattingProperty, AgreesOnRandomNumbersAndBases)
{
    Random random(31);
    for (int round = 0; round < 20000 && !HasFailure(); ++round)
        checkIntegers(random.number(), randomBase(random));
}

TEST(FormattingProperty, AgreesOnFloatingPoint)
{
    Random random(32);
    for (int round = 0; round < 5000 && !HasFailure(); ++round)
        checkFloatingPoint(randomDouble(random), randomPrecision(random), random.of("fFeEgGdx%.A\0"sv));
}

}  // namespace
