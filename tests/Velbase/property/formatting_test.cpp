// Text from numbers against the model, and back again.

#include "tried_numbers.h"

namespace {

void checkIntegers(std::uint64_t bits, unsigned base)
{
    forEachInteger(bits, base, reference::formatSigned, [=](auto n, const std::string& digits) {
        ASSERT_TRUE(agrees(String::Number(n, base), reference::newText(digits)))
            << "Number(" << n << ", " << base << ") of " << 8 * sizeof n << " bits";
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

}  // namespace
