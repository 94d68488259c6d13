// Filling templates against the model.

#include "drivers.h"
#include "tried_numbers.h"

using namespace std::string_view_literals;

namespace {

void checkArg(const Twin& text, const Twin& argument)
{
    ASSERT_TRUE(agrees(text.string.Arg(argument.string), reference::arg(text.text, argument.text), {text, argument}))
        << call(text, "Arg", argument);
    const char* const pointer = argument.string.IsNull() ? nullptr : argument.string.Latin1();
    ASSERT_TRUE(
        agrees(text.string.Arg(pointer), reference::arg(text.text, reference::fromCString(pointer)), {text, argument}))
        << call(text, "Arg", pointer) << " of a C string";
}

void checkArgOfCharacter(const Twin& text)
{
    for (const char c : "a%1\xE9\0"sv) {
        const reference::Text expected = reference::arg(text.text, reference::newText(std::string(1, c)));
        ASSERT_TRUE(agrees(text.string.Arg(c), expected, {text})) << call(text, "Arg", c);
        ASSERT_TRUE(agrees(text.string.Arg(Char(c)), expected, {text})) << call(text, "Arg", c) << " of a Char";
    }
    for (const bool b : {false, true}) {
        const reference::Text expected = reference::arg(text.text, reference::newText(b ? "true" : "false"));
        ASSERT_TRUE(agrees(text.string.Arg(b), expected, {text})) << call(text, "Arg", b);
    }
}

const TextOperation TEXT_OPERATIONS[] = {
    {"ArgOfCharacter", "%1\0"sv, checkArgOfCharacter},
};

const PairOperation PAIR_OPERATIONS[] = {
    {"Arg", "%10"sv, checkArg},
    {"ArgBesideOtherBytes", "%9\0"sv, checkArg},
};

INSTANTIATE_TEST_SUITE_P(Arguments, TextProperty, testing::ValuesIn(TEXT_OPERATIONS), RowName());
INSTANTIATE_TEST_SUITE_P(Arguments, PairProperty, testing::ValuesIn(PAIR_OPERATIONS), RowName());

void checkIntegers(const Twin& text, std::uint64_t bits, unsigned base)
{
    forEachInteger(bits, base, reference::argument, [&](auto n, const std::string& digits) {
        ASSERT_TRUE(agrees(text.string.Arg(n, base), reference::arg(text.text, reference::newText(digits)), {text}))
            << call(text, "Arg", n, base) << " of " << 8 * sizeof n << " bits";
    });
}

void checkFloatingPoint(const Twin& text, double value, unsigned precision, char format)
{
    forEachFloat(value, precision, format, [&](auto n, const std::string& digits) {
        const reference::Text expected = reference::arg(text.text, reference::newText(digits));
        ASSERT_TRUE(agrees(text.string.Arg(n, precision, format), expected, {text}))
            << call(text, "Arg", n, precision, format) << " of " << 8 * sizeof n << " bits";
    });
}

TEST(ArgumentProperty, AgreesOnIntegersAtTheEdgesInEveryBase)
{
    const Twin text = twinOf("<%1>");
    for (const std::uint64_t n : edgeNumbers()) {
        for (unsigned base = 0; base <= 40 && !HasFailure(); ++base)
            checkIntegers(text, n, base);
    }
}

TEST(ArgumentProperty, AgreesOnRandomTemplatesAndNumbers)
{
    Random random(21);
    for (int round = 0; round < 3000 && !HasFailure(); ++round) {
        const Twin text = random.text();
        checkIntegers(text, random.number(), randomBase(random));
        checkFloatingPoint(text, randomDouble(random), randomPrecision(random), random.of("fFeEgGx%\0"sv));
    }
}

}  // namespace
