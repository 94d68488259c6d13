// Floating-point numbers against the model, which has them from the C library, in locales with any decimal point; and
// letters in locales that have others in another order. The locales are made for the test, so that it needs none to be
// installed.
//
// With VELBASE_ROUNDS=1000000 in the environment a million random numbers are tried in each locale.

#include "tests/support/TemporaryFolder.h"
#include "tried_numbers.h"

#include <gtest/gtest.h>

#include <cctype>
#include <cfenv>
#include <clocale>
#include <cstdlib>
#include <cstring>
#include <fstream>
#include <string>

using namespace std::string_view_literals;

namespace {

bool isBigEndian()
{
    const unsigned short one = 1;
    return *reinterpret_cast<const unsigned char*>(&one) == 0;
}

// Makes a locale with one category of this definition, and makes that the current one. False if it cannot.
bool enterLocale(
    int category, const char* categoryName, const std::string& definition, const char* charmap = "ANSI_X3.4-1968")
{
    const TemporaryFolder folder;
    std::ofstream(folder / "definition") << categoryName << "\n" << definition << "END " << categoryName << "\n";
    const std::string order = isBigEndian() ? "--big-endian" : "--little-endian";
    // Forced (-c), because the definition leaves everything else out; so it does not say success either.
    const std::string command = "localedef -c --no-archive " + order + " -f " + charmap + " -i '"
        + (folder / "definition").string() + "' '" + (folder / "made").string() + "' >/dev/null 2>&1";
    std::system(command.c_str());
    std::setlocale(category, "C");  // or one of that name that is still current would be taken
    setenv("LOCPATH", folder.path().c_str(), 1);
    const bool isEntered = std::setlocale(category, "made") != nullptr;
    unsetenv("LOCPATH");
    return isEntered;
}

// A locale in which `point`, written as in a locale definition, separates the fraction.
bool enterPoint(const std::string& point, const char* charmap = "ANSI_X3.4-1968")
{
    return enterLocale(
        LC_NUMERIC, "LC_NUMERIC", "decimal_point \"" + point + "\"\nthousands_sep \"'\"\ngrouping 3\n", charmap);
}

class StringInLocale : public testing::Test {
protected:
    void TearDown() override
    {
        std::setlocale(LC_ALL, "C");
        std::fesetround(FE_TONEAREST);
    }
};

const char* const CANNOT = "localedef cannot make a locale here";

std::optional<double> toDouble(const char* text)
{
    bool ok = false;
    const double number = String(text).ToDouble(&ok);
    return ok ? std::optional<double>(number) : std::nullopt;
}

TEST_F(StringInLocale, CommaIsWrittenAndBothAreReadAndIntegersAreNotGrouped)
{
    if (!enterPoint(","))
        GTEST_SKIP() << CANNOT;
    EXPECT_EQ(contents(String::Number(1.5, 2)), "1,50");
    EXPECT_EQ(contents(String::Number(1234.5f, 1)), "1234,5");
    EXPECT_EQ(contents(String("%1").Arg(1.5, 1)), "1,5");

    EXPECT_EQ(toDouble("1,5"), 1.5);
    EXPECT_EQ(toDouble("1.5"), 1.5);
    EXPECT_EQ(toDouble("-1.5e2"), -150.0);
    EXPECT_EQ(toDouble("1.000,5"), std::nullopt);
    EXPECT_EQ(toDouble(" 1,5"), std::nullopt);
    EXPECT_EQ(toDouble("1.5 "), std::nullopt);
    EXPECT_EQ(String("1.5").ToFloat(), 1.5f);

    EXPECT_EQ(contents(String::Number(1234567)), "1234567");
    EXPECT_EQ(contents(String::Number(1234567ull)), "1234567");
    EXPECT_EQ(String("1'234").ToInt(), 0);
}

TEST_F(StringInLocale, OfAPointOfTwoBytesOnlyTheFirstIsPut)
{
    if (!enterPoint("<U066B>", "UTF-8"))
        GTEST_SKIP() << CANNOT;
    EXPECT_EQ(contents(String::Number(1.5, 1)), "1\331\2535");
    EXPECT_EQ(toDouble("1\331\2535"), 1.5);
    EXPECT_EQ(toDouble("15"), 15.0);
    EXPECT_EQ(toDouble("1.\2535"), 1.5);
    EXPECT_EQ(toDouble("1,\2535"), 1.5);
    EXPECT_EQ(toDouble("1.5"), std::nullopt);
    EXPECT_EQ(toDouble("1,5"), std::nullopt);
}

// ---- Floating-point numbers are what strtod and snprintf make of them, whatever way they take

void checkFloatingPoint(double value, unsigned precision, char format)
{
    forEachFloat(value, precision, format, [=](auto n, const std::string& digits) {
        ASSERT_TRUE(agrees(String::Number(n, precision, format), reference::newText(digits)))
            << "Number(" << n << ", " << precision << ", " << shown(format) << ") of " << 8 * sizeof n << " bits";
    });
}

void checkDouble(const Twin& text)
{
    const std::optional<double> expected = reference::parseDouble(text.text);
    checkConversion(text, "ToDouble", &String::ToDouble, expected);
    checkConversion(text, "ToFloat", &String::ToFloat, expected);
}

const TextOperation DOUBLE_OPERATIONS[] = {
    {"DoublesWithPoints", "1,."sv, checkDouble},
    {"DoublesWithSigns", "1-e"sv, checkDouble},
    {"DoublesWithWhiteSpace", "1 \xA0"sv, checkDouble},
    {"DoublesWithZeroBytes", "1.\0"sv, checkDouble},
};

INSTANTIATE_TEST_SUITE_P(Doubles, TextProperty, testing::ValuesIn(DOUBLE_OPERATIONS), RowName());

constexpr std::string_view FORMATS = "fFeEgGdx%.A\0"sv;
constexpr std::string_view DIGITS = "0123456789"sv;

// Digits, point, sign and exponent.
std::string randomDecimal(Random& random, char point)
{
    std::string text = random.bytes("+-"sv, 1) + random.bytes(DIGITS, 20);
    if (!random.once(3))
        (text += point) += random.bytes(DIGITS, random.once(9) ? 800 : 25);
    if (random.once(3))
        (text += random.of("eE"sv)) += std::to_string(static_cast<int>(random.below(700)) - 350);
    return text;
}

// Pieces of numbers in any order.
std::string randomPieces(Random& random)
{
    const std::string_view pieces[] = {"1", "25", "0", ".", ",", ";", "e", "E", "+", "-", "300", "inf", "nan", "NAN(1)",
        "INFINITY", "0x", "p", "f", " ", "\t", "\xA0", "kg", "_", "\0"sv};
    std::string text;
    for (std::uint32_t left = random.below(6); left > 0; --left)
        text += random.oneOf(pieces);
    return text;
}

// In the current locale, whose point is `point`.
void checkFloatingPointNumbers(char point)
{
    for (const double special : SPECIAL_DOUBLES) {
        for (const unsigned precision : EDGE_PRECISIONS) {
            for (const char format : FORMATS)
                checkFloatingPoint(special, precision, format);
        }
    }
    const char* const wanted = std::getenv("VELBASE_ROUNDS");
    const long rounds = wanted == nullptr ? 5000 : std::atol(wanted);
    Random random(32);
    for (long round = 0; round < rounds && !testing::Test::HasFailure(); ++round) {
        const double value = random.once(2) ? randomDouble(random) : randomBits(random);
        const unsigned precision = randomPrecision(random);
        const char format = random.of(FORMATS);
        checkFloatingPoint(value, precision, format);
        checkDouble(twinOf(reference::formatFloat(value, precision, format)));
        checkDouble(twinOf(randomDecimal(random, point)));
        checkDouble(twinOf(randomPieces(random)));
    }
}

TEST_F(StringInLocale, DoublesAreThoseOfTheCLibraryWithAnyPoint)
{
    checkFloatingPointNumbers('.');
    for (const char point : {',', ';'}) {
        if (!enterPoint(std::string(1, point)))
            GTEST_SKIP() << CANNOT;
        checkFloatingPointNumbers(point);
    }
}

TEST_F(StringInLocale, DoublesAreRoundedAsTheCLibraryRounds)
{
    for (const int direction : {FE_UPWARD, FE_DOWNWARD, FE_TOWARDZERO}) {
        ASSERT_EQ(std::fesetround(direction), 0);
        checkFloatingPointNumbers('.');
    }
}

// ---- Letters and their order

// What the operations say of every byte that could look at letters, digits, white space or order.
std::string answers()
{
    std::string answers;
    const auto add = [&answers](const String& text) { answers.append(text.Latin1(), text.Length()) += '|'; };
    for (int code = 1; code < 256; ++code) {
        const char byte = static_cast<char>(code);
        const char text[] = {byte, 'm', byte, '\0'};
        const Char c(byte);
        const String s(text);
        add(s.ToUpper());
        add(s.ToLower());
        add(s.StripWhiteSpace());
        add(s.SimplifyWhiteSpace());
        add(String::Number(c.GetCategory()));
        for (const bool answer : {c.IsSpace(), c.IsDigit(), c.IsLetter(), c.IsPrintable(), s < "m", s <= "B", s < "b",
                 s == "ama", s.Contains("AM", false), s.Contains('a', false), s.BeginsWith("A", false)})
            add(String("%1").Arg(answer));
        add(String::Number(s.Mid(2).ToInt(nullptr, 16)));
        add(String::Number(s.Mid(2).ToUInt(nullptr, 36), 36));
    }
    return answers;
}

TEST_F(StringInLocale, LettersOrderAndWhiteSpaceAreThoseOfEveryLocale)
{
    const std::string expected = answers();
    // The two cases of a and b are exchanged, x is white space, and b sorts before a.
    if (!enterLocale(LC_CTYPE, "LC_CTYPE",
            "upper <U0061>;<U0062>\nlower <U0041>;<U0042>\nspace <U0078>\n"
            "toupper (<U0041>,<U0061>);(<U0042>,<U0062>)\ntolower (<U0061>,<U0041>);(<U0062>,<U0042>)\n")
        || !enterLocale(LC_COLLATE, "LC_COLLATE", "order_start forward\n<U0062>\n<U0061>\norder_end\n"))
        GTEST_SKIP() << CANNOT;
    int (*volatile const upper)(int) = std::toupper;  // or the compiler would take 'A' for the answer
    ASSERT_TRUE(upper('A') == 'a' && std::isspace('x') != 0 && std::strcoll("b", "a") < 0);
    EXPECT_EQ(answers(), expected);
}

}  // namespace
