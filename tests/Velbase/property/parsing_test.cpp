// Numbers from text against the model: whether the text is a number, and which.

#include "tried_numbers.h"

using namespace std::string_view_literals;

namespace {

// Everything that some base takes for a digit, and the neighbours.
constexpr std::string_view DIGIT_LIKE = "0123456789/:@ABFGYZ[\\]^_`abfgyz{|}~\x7F\x80\xE9"sv;
constexpr std::string_view WHITE_SPACE = " \t\r\n\v\f\xA0"sv;
constexpr std::string_view JUNK = "+-. x0\0\x85\x1F"sv;

void checkIntegers(const Twin& text, unsigned base)
{
    checkConversion(text, "ToShort", &String::ToShort, reference::parseSigned(text.text, base, 16), base);
    checkConversion(text, "ToUShort", &String::ToUShort, reference::parseUnsigned(text.text, base, 16), base);
    checkConversion(text, "ToInt", &String::ToInt, reference::parseSigned(text.text, base, 32), base);
    checkConversion(text, "ToUInt", &String::ToUInt, reference::parseUnsigned(text.text, base, 32), base);
    checkConversion(text, "ToInt64", &String::ToInt64, reference::parseSigned(text.text, base, 64), base);
    checkConversion(text, "ToUInt64", &String::ToUInt64, reference::parseUnsigned(text.text, base, 64), base);
}

void checkInEveryBase(const Twin& text)
{
    for (const unsigned base : {0u, 1u, 2u, 8u, 10u, 11u, 16u, 36u, 37u, 42u, 300u, 70000u, 0xFFFFFFFFu})
        checkIntegers(text, base);
}

const TextOperation PARSING_OPERATIONS[] = {
    {"IntegersWithSigns", "-+1"sv, checkInEveryBase},
    {"IntegersWithZeros", "-01"sv, checkInEveryBase},
    {"IntegersWithWhiteSpace", "1\xA0z"sv, checkInEveryBase},
    {"IntegersWithZeroBytes", "1 \0"sv, checkInEveryBase},
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
                std::string next = before + digits;
                ++next.back();
                checkIntegers(twinOf(next), base);
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
    for (unsigned base = 37; base <= 40; ++base) {
        for (const unsigned bits : {16u, 32u, 64u}) {
            for (std::uint64_t below = 0; below < 3; ++below) {
                std::string digits;
                for (std::uint64_t n = reference::largest(bits) / base - below; n != 0; n /= base)
                    digits.insert(digits.begin(), static_cast<char>((n % base < 10 ? '0' : 'A' - 10) + n % base));
                for (const char last : "09Z[{|}~"sv)
                    checkIntegers(twinOf(digits + last), base);
            }
        }
    }
}

}  // namespace
