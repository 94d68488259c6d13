// Numbers from text against the model: whether the text is a number, and which.

#include "tried_numbers.h"

#include <cstring>

using namespace std::string_view_literals;

namespace {

// Everything that some base takes for a digit, and the neighbours.
constexpr std::string_view DIGIT_LIKE = "0123456789/:@ABFGYZ[\\]^_`abfgyz{|}~\x7F\x80\xE9"sv;
constexpr std::string_view WHITE_SPACE = " \t\r\n\v\f\xA0"sv;
constexpr std::string_view JUNK = "+-. x0\0\x85\x1F"sv;

template <typename T> std::string bitsOf(T value)
{
    return std::string(reinterpret_cast<const char*>(&value), sizeof value);
}

// One conversion, with and without a flag for its success. The flag starts as the wrong answer.
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

void checkIntegers(const Twin& text, unsigned base)
{
    checkConversion(text, "ToShort", &String::ToShort, reference::parseSigned(text.text, base, 16), base);
    checkConversion(text, "ToUShort", &String::ToUShort, reference::parseUnsigned(text.text, base, 16), base);
    checkConversion(text, "ToInt", &String::ToInt, reference::parseSigned(text.text, base, 32), base);
    checkConversion(text, "ToUInt", &String::ToUInt, reference::parseUnsigned(text.text, base, 32), base);
    checkConversion(text, "ToInt64", &String::ToInt64, reference::parseSigned(text.text, base, 64), base);
    checkConversion(text, "ToUInt64", &String::ToUInt64, reference::parseUnsigned(text.text, base, 64), base);
}

void checkDouble(const Twin& text)
{
    const std::optional<double> expected = reference::parseDouble(text.text);
    checkConversion(text, "ToDouble", &String::ToDouble, expected);
    checkConversion(text, "ToFloat", &String::ToFloat, expected);
}

void checkInEveryBase(const Twin& text)
{
    for (const unsigned base : {0u, 1u, 2u, 8u, 10u, 11u, 16u, 36u, 37u, 42u, 300u, 70000u, 0xFFFFFFFFu})
        checkIntegers(text, base);
}

const TextOperation PARSING_OPERATIONS[] = {
    {"IntegersWithSigns", "-+1"sv, checkInEveryBase},
    {"IntegersWithWhiteSpace", "1\xA0z"sv, checkInEveryBase},
    {"IntegersWithZeroBytes", "1 \0"sv, checkInEveryBase},
    {"DoublesWithPoints", "1,."sv, checkDouble},
    {"DoublesWithSigns", "1-e"sv, checkDouble},
    {"DoublesWithWhiteSpace", "1 \xA0"sv, checkDouble},
    {"DoublesWithZeroBytes", "1.\0"sv, checkDouble},
};

INSTANTIATE_TEST_SUITE_P(Parsing, TextProperty, testing::ValuesIn(PARSING_OPERATIONS), RowName());

TEST(ParsingProperty, AgreesOnEveryByteInEveryBase)
{
    for (int code = 0; code < 256; ++code) {
        const Twin text = twinOf(std::string(1, static_cast<char>(code)));
        for (unsigned base = 0; base <= 300 && !HasFailure(); ++base) {
            checkConversion(text, "ToUInt", &String::ToUInt, reference::parseUnsigned(text.text, base, 32), base);
            checkConversion(text, "ToInt64", &String::ToInt64, reference::parseSigned(text.text, base, 64), base);
        }
    }
}

TEST(ParsingProperty, AgreesAroundEveryLimitInEveryBase)
{
    for (const std::uint64_t n : edgeNumbers()) {
        for (unsigned base = 2; base <= 36 && !HasFailure(); ++base) {
            const std::string digits = reference::formatUnsigned(n, base);
            for (const char* const before : {"", "-", "+0"}) {
                checkIntegers(twinOf(before + digits), base);
                checkIntegers(twinOf(before + digits + "0"), base);
            }
        }
    }
}

TEST(ParsingProperty, AgreesOnRandomNumbersWithSpaceAndSigns)
{
    Random random(41);
    for (int round = 0; round < 10000 && !HasFailure(); ++round) {
        const unsigned base = randomBase(random);
        std::string bytes = random.bytes(WHITE_SPACE, random.below(3)) + random.bytes("+-"sv, 1);
        bytes += random.bytes("0"sv, random.below(4)) + reference::formatUnsigned(random.number(), base);
        bytes += random.bytes(WHITE_SPACE, random.below(3));
        if (random.once(4))
            bytes[random.below(static_cast<std::uint32_t>(bytes.size()))] = random.of(JUNK);
        checkIntegers(twinOf(bytes), base);
    }
}

TEST(ParsingProperty, AgreesOnRandomDigitsOfAnyBase)
{
    Random random(42);
    for (int round = 0; round < 20000 && !HasFailure(); ++round)
        checkIntegers(twinOf(random.bytes(DIGIT_LIKE, random.once(4) ? 12 : 3)), randomBase(random));
}

// In these bases some digits are larger than the base, so that the last step can pass the type's limit unseen.
TEST(ParsingProperty, AgreesOnDigitsLargerThanTheBase)
{
    Random random(43);
    for (int round = 0; round < 20000 && !HasFailure(); ++round) {
        const unsigned base = 37 + random.below(4);
        std::string bytes = reference::formatUnsigned(random.number(), 36);
        bytes += random.of("{|}~"sv);
        checkIntegers(twinOf(bytes), base);
    }
}

TEST(ParsingProperty, AgreesOnRandomFloatingPoint)
{
    const std::string_view pieces[] = {"1", "25", "0", ".", ",", "e", "E", "+", "-", "300", "inf", "nan", "NAN(1)",
        "INFINITY", "0x", "p", "f", " ", "\t", "\xA0", "kg", "\0"sv};
    Random random(45);
    for (int round = 0; round < 20000 && !HasFailure(); ++round) {
        std::string bytes;
        for (std::uint32_t left = random.below(6); left > 0; --left)
            bytes += pieces[random.below(static_cast<std::uint32_t>(std::size(pieces)))];
        checkDouble(twinOf(bytes));
    }
}

}  // namespace
