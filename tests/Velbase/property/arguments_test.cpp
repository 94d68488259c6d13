// Filling templates against the model.

#include "drivers.h"
#include "tried_numbers.h"

using namespace std::string_view_literals;

namespace {

// Arg on either side, of a text and of what the model makes a text of.
const auto arg = [](const String& text, const auto&... arguments) { return text.Arg(arguments...); };
template <typename Form> auto argModel(Form form)
{
    return [form](const reference::Text& text, const auto& argument, const auto&...) {
        return reference::arg(text, form(argument));
    };
}

void checkArg(const Twin& text, const Twin& argument)
{
    const char* const pointer = argument.string.IsNull() ? nullptr : argument.string.Latin1();
    expectSame("Arg", arg, reference::arg, text, argument);
    expectSame("Arg", arg, argModel([](const char* a) { return reference::fromCString(a); }), text, pointer);
}

void checkArgOfCharacter(const Twin& text)
{
    const auto model = argModel([](char c) { return reference::newText(std::string(1, c)); });
    for (const char c : "a%1\xE9\0"sv) {
        expectSame("Arg", arg, model, text, c);
        expectSame("Arg", arg, model, text, Char(c));
    }
    for (const bool b : {false, true})
        expectSame("Arg", arg, argModel([](bool a) { return reference::newText(a ? "true" : "false"); }), text, b);
}

const PairOperation ARGUMENT_PAIR_OPERATIONS[] = {
    {"Arg", "%10"sv, checkArg},
    {"ArgBesideOtherBytes", "%9\0"sv, checkArg},
};

INSTANTIATE_TEST_SUITE_P(Arguments, TextProperty,
    testing::Values(TextOperation{"ArgOfCharacter", "%1\0"sv, checkArgOfCharacter}), RowName());
INSTANTIATE_TEST_SUITE_P(Arguments, PairProperty, testing::ValuesIn(ARGUMENT_PAIR_OPERATIONS), RowName());

void checkIntegers(const Twin& text, std::uint64_t bits, unsigned base)
{
    forEachInteger(bits, base, reference::argument, [&](auto n, const std::string& digits) {
        expectSame("Arg", arg, argModel([&](auto) { return reference::newText(digits); }), text, n, base);
    });
}

void checkFloatingPoint(const Twin& text, double value, unsigned precision, char format)
{
    forEachFloat(value, precision, format, [&](auto n, const std::string& digits) {
        expectSame("Arg", arg, argModel([&](auto) { return reference::newText(digits); }), text, n, precision, format);
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
