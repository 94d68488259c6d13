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

// `text`.Arg(n, base) for an integer whose own text is `digits`.
template <typename T> void checkInteger(const Twin& text, T n, unsigned base, const std::string& digits)
{
    ASSERT_TRUE(agrees(text.string.Arg(n, base), reference::arg(text.text, reference::newText(digits)), {text}))
        << call(text, "Arg", n, base) << " of " << 8 * sizeof n << " bits";
}

void checkIntegers(const Twin& text, std::uint64_t bits, unsigned base)
{
    const short s = static_cast<short>(bits);
    const unsigned short us = static_cast<unsigned short>(bits);
    const int i = static_cast<int>(bits);
    const unsigned u = static_cast<unsigned>(bits);
    const long l = static_cast<long>(bits);
    const unsigned long ul = static_cast<unsigned long>(bits);
    const long long ll = static_cast<long long>(bits);
    const unsigned long long ull = bits;
    checkInteger(text, s, base, reference::formatSigned(s, base));
    checkInteger(text, us, base, reference::formatSigned(us, base));
    checkInteger(text, i, base, reference::argument(i, base));
    checkInteger(text, l, base, reference::argument(l, base));
    checkInteger(text, u, base, reference::formatUnsigned(u, base));
    checkInteger(text, ul, base, reference::formatUnsigned(ul, base));
    checkInteger(text, ll, base, reference::formatSigned64(ll, base));
    checkInteger(text, ull, base, reference::formatUnsigned64(ull, base));
}

void checkFloatingPoint(const Twin& text, double value, unsigned precision, char format)
{
    const reference::Position given = precision == 0xFFFFFFFF ? reference::Position() : precision;
    ASSERT_TRUE(agrees(text.string.Arg(value, precision, format),
        reference::arg(text.text, reference::newText(reference::formatFloat(value, given, format))), {text}))
        << call(text, "Arg", value, precision, format);
    const float narrow = static_cast<float>(value);
    ASSERT_TRUE(agrees(text.string.Arg(narrow, precision, format),
        reference::arg(text.text, reference::newText(reference::formatFloat(narrow, given, format))), {text}))
        << call(text, "Arg", narrow, precision, format) << " of a float";
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
