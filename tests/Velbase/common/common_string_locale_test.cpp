// In locales with another decimal point, and with other letters in another order. The locales are made for the test, so
// that it needs none to be installed.
//
// With VELBASE_ROUNDS=1000000 in the environment a million floating-point numbers are tried in each locale.

#include "Velbase/common/common_string.h"
#include "string_contents.h"
#include "tests/support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <cctype>
#include <cfenv>
#include <clocale>
#include <cmath>
#include <cstdlib>
#include <cstring>
#include <fstream>
#include <limits>
#include <random>
#include <string>

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

TEST_F(StringInLocale, ThirdPointIsReadForBoth)
{
    if (!enterPoint(";"))
        GTEST_SKIP() << CANNOT;
    EXPECT_EQ(contents(String::Number(1.5, 2)), "1;50");
    EXPECT_EQ(toDouble("1;5"), 1.5);
    EXPECT_EQ(toDouble("1,5"), 1.5);
    EXPECT_EQ(toDouble("1.5"), 1.5);
    EXPECT_EQ(toDouble("1.2,5"), std::nullopt);
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

std::uint64_t bitsOf(double value)
{
    std::uint64_t bits = 0;
    std::memcpy(&bits, &value, sizeof bits);
    return bits;
}

class RandomNumbers {
public:
    // Every bit pattern: normal numbers of every size, denormals, infinities, no numbers; and the special ones often.
    double value()
    {
        const double specials[] = {0.0, -0.0, 0.5, 2.5, -1e22, 1e23, std::numeric_limits<double>::max(),
            std::numeric_limits<double>::denorm_min(), std::numeric_limits<double>::min(), HUGE_VAL, -HUGE_VAL,
            std::numeric_limits<double>::quiet_NaN()};
        std::uint64_t bits = m_engine();
        switch (below(8)) {
        case 0:
            return specials[below(sizeof specials / sizeof specials[0])];
        case 1:
            return static_cast<double>(below(2000001)) / 1000 - 1000;
        case 2:
            bits &= 0x800FFFFFFFFFFFFF;  // denormals
            break;
        default:
            break;
        }
        double value = 0;
        std::memcpy(&value, &bits, sizeof value);
        return value;
    }

    // Digits, points, signs and exponents in an order that is often right.
    std::string text(char point)
    {
        std::string text = below(3) == 0 ? "-" : below(9) == 0 ? "+" : "";
        text += digits(20);
        if (below(3) != 0)
            (text += point) += digits(below(9) == 0 ? 800 : 25);
        if (below(3) == 0)
            text += (below(2) == 0 ? "e" : "E") + std::to_string(static_cast<int>(below(700)) - 350);
        const char* const others[] = {
            "inf", "-nan", "0x1p-3", "1e", "e5", "1e+", ".", "-", "1_0", "0x", "1..5", "nan(1)"};
        if (below(30) == 0)
            text = others[below(sizeof others / sizeof others[0])];
        return text;
    }

    unsigned below(unsigned limit) { return static_cast<unsigned>(m_engine() % limit); }

private:
    std::string digits(unsigned most)
    {
        std::string digits(below(most), '0');
        for (char& digit : digits)
            digit = static_cast<char>('0' + below(10));
        return digits;
    }

    std::mt19937_64 m_engine{1};
};

void expectTheResultsOfTheCLibrary(char point)
{
    const char* const wanted = std::getenv("VELBASE_ROUNDS");
    const long rounds = wanted == nullptr ? 5000 : std::atol(wanted);
    RandomNumbers random;
    for (long round = 0; round < rounds && !testing::Test::HasFailure(); ++round) {
        const double value = random.value();
        const unsigned precision = random.below(100);
        const char conversion[] = {'%', '.', '*', "fFeEgG"[random.below(6)], '\0'};
        char expected[512];
        std::snprintf(expected, sizeof expected, conversion, static_cast<int>(precision), value);
        const String written = String::Number(value, precision, conversion[3]);
        ASSERT_STREQ(written.Latin1(), expected) << conversion << " of bits " << bitsOf(value);

        for (const std::string& text : {random.text(point), std::string(expected)}) {
            char* end = nullptr;
            const double number = std::strtod(text.c_str(), &end);
            const bool isNumber = !text.empty() && *end == '\0';
            bool ok = false;
            const double read = String(text.c_str()).ToDouble(&ok);
            ASSERT_EQ(ok, isNumber) << text;
            ASSERT_EQ(bitsOf(read), bitsOf(isNumber ? number : 0.0)) << text;
        }
    }
}

TEST_F(StringInLocale, DoublesAreThoseOfTheCLibraryWithAnyPoint)
{
    expectTheResultsOfTheCLibrary('.');
    for (const char point : {',', ';'}) {
        if (!enterPoint(std::string(1, point)))
            GTEST_SKIP() << CANNOT;
        expectTheResultsOfTheCLibrary(point);
    }
}

TEST_F(StringInLocale, DoublesAreRoundedAsTheCLibraryRounds)
{
    for (const int direction : {FE_UPWARD, FE_DOWNWARD, FE_TOWARDZERO}) {
        ASSERT_EQ(std::fesetround(direction), 0);
        expectTheResultsOfTheCLibrary('.');
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
    ASSERT_TRUE(std::toupper('A') == 'a' && std::isspace('x') != 0 && std::strcoll("b", "a") < 0);
    EXPECT_EQ(answers(), expected);
}

}  // namespace
