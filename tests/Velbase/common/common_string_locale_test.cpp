// Numbers in locales with another decimal point. The locales are made for the test, so that it needs none to be
// installed.

#include <clocale>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>

#include <gtest/gtest.h>

#include "Velbase/common/common_string.h"
#include "string_contents.h"

namespace {

bool isBigEndian()
{
    const unsigned short one = 1;
    return *reinterpret_cast<const unsigned char*>(&one) == 0;
}

class StringInLocale : public testing::Test {
protected:
    // Makes a locale in which `point` separates the fraction, and makes it the current one. False if it cannot.
    // `point` is written as in a locale definition, and encoded by `charmap`.
    bool enter(const std::string& name, const std::string& point, const std::string& charmap = "ANSI_X3.4-1968")
    {
        const std::filesystem::path folder = std::filesystem::path(testing::TempDir()) / ("velbase_locale_" + name);
        std::filesystem::create_directories(folder);
        std::ofstream(folder / "definition")
            << "LC_NUMERIC\ndecimal_point \"" << point << "\"\nthousands_sep \"'\"\ngrouping 3\nEND LC_NUMERIC\n";
        const std::string order = isBigEndian() ? "--big-endian" : "--little-endian";
        // Forced (-c), because the definition leaves everything else out; so it does not say success either.
        const std::string command = "localedef -c --no-archive " + order + " -f " + charmap + " -i '"
            + (folder / "definition").string() + "' '" + (folder / name).string() + "' >/dev/null 2>&1";
        std::system(command.c_str());
        setenv("LOCPATH", folder.c_str(), 1);
        const bool isEntered = std::setlocale(LC_NUMERIC, name.c_str()) != nullptr;
        unsetenv("LOCPATH");
        std::filesystem::remove_all(folder);
        return isEntered;
    }

    void TearDown() override { std::setlocale(LC_NUMERIC, "C"); }
};

const char* const CANNOT = "localedef cannot make a locale here";

std::optional<double> toDouble(const char* text)
{
    bool ok = false;
    const double number = String(text).ToDouble(&ok);
    return ok ? std::optional<double>(number) : std::nullopt;
}

TEST_F(StringInLocale, CommaIsWrittenAndBothAreRead)
{
    if (!enter("comma", ","))
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
}

TEST_F(StringInLocale, ThirdPointIsReadForBoth)
{
    if (!enter("semicolon", ";"))
        GTEST_SKIP() << CANNOT;
    EXPECT_EQ(contents(String::Number(1.5, 2)), "1;50");
    EXPECT_EQ(toDouble("1;5"), 1.5);
    EXPECT_EQ(toDouble("1,5"), 1.5);
    EXPECT_EQ(toDouble("1.5"), 1.5);
    EXPECT_EQ(toDouble("1.2,5"), std::nullopt);
}

TEST_F(StringInLocale, OfAPointOfTwoBytesOnlyTheFirstIsPut)
{
    if (!enter("arabic", "<U066B>", "UTF-8"))
        GTEST_SKIP() << CANNOT;
    EXPECT_EQ(contents(String::Number(1.5, 1)),
        "1\xD9\xAB"
        "5");
    EXPECT_EQ(toDouble("1\xD9\xAB"
                       "5"),
        1.5);
    EXPECT_EQ(toDouble("15"), 15.0);
    EXPECT_EQ(toDouble("1.\xAB"
                       "5"),
        1.5);
    EXPECT_EQ(toDouble("1,\xAB"
                       "5"),
        1.5);
    EXPECT_EQ(toDouble("1.5"), std::nullopt);
    EXPECT_EQ(toDouble("1,5"), std::nullopt);
}

TEST_F(StringInLocale, NumbersAreReadBackAsTheyAreWritten)
{
    if (!enter("readback", ","))
        GTEST_SKIP() << CANNOT;
    for (const double number : {0.0, 0.1, -2.5, 1e-300, 1.7976931348623157e308}) {
        bool ok = false;
        EXPECT_EQ(String::Number(number, 17, 'e').ToDouble(&ok), number);
        EXPECT_TRUE(ok);
    }
}

TEST_F(StringInLocale, IntegersAreNotGrouped)
{
    if (!enter("grouped", ","))
        GTEST_SKIP() << CANNOT;
    EXPECT_EQ(contents(String::Number(1234567)), "1234567");
    EXPECT_EQ(contents(String::Number(1234567ull)), "1234567");
    EXPECT_EQ(String("1'234").ToInt(), 0);
}

}  // namespace
