// Text from numbers against the model, and back again.

#include "tried_numbers.h"

using namespace std::string_view_literals;

namespace {

template <typename T> void checkInteger(T n, unsigned base, const std::string& digits)
{
    ASSERT_TRUE(agrees(String::Number(n, base), reference::newText(digits)))
        << "Number(" << n << ", " << base << ") of " << 8 * sizeof n << " bits";
}

void checkIntegers(std::uint64_t bits, unsigned base)
{
    const int i = static_cast<int>(bits);
    const unsigned u = static_cast<unsigned>(bits);
    const long l = static_cast<long>(bits);
    const unsigned long ul = static_cast<unsigned long>(bits);
    const long long ll = static_cast<long long>(bits);
    const unsigned long long ull = bits;
    checkInteger(i, base, reference::formatSigned(i, base));
    checkInteger(l, base, reference::formatSigned(l, base));
    checkInteger(u, base, reference::formatUnsigned(u, base));
    checkInteger(ul, base, reference::formatUnsigned(ul, base));
    checkInteger(ll, base, reference::formatSigned64(ll, base));
    checkInteger(ull, base, reference::formatUnsigned64(ull, base));
}

void checkFloatingPoint(double value, unsigned precision, char format)
{
    const reference::Position given = precision == 0xFFFFFFFF ? reference::Position() : precision;
    ASSERT_TRUE(agrees(
        String::Number(value, precision, format), reference::newText(reference::formatFloat(value, given, format))))
        << "Number(" << value << ", " << precision << ", " << shown(format) << ")";
    const float narrow = static_cast<float>(value);
    ASSERT_TRUE(agrees(
        String::Number(narrow, precision, format), reference::newText(reference::formatFloat(narrow, given, format))))
        << "Number(" << narrow << "f, " << precision << ", " << shown(format) << ")";
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
