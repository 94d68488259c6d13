#include "host/Languages.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <set>
#include <string>

namespace {

using namespace Host;

TEST(Languages, AreTheSixInTheOrderOfThePopUp)
{
    const std::uint32_t codesOfItems[] = {0, 11, 2, 1, 3, 6};
    ASSERT_EQ(LANGUAGES.size(), std::size(codesOfItems));
    for (std::size_t i = 0; i < LANGUAGES.size(); ++i) {
        EXPECT_EQ(LANGUAGES[i].code, codesOfItems[i]);
        EXPECT_EQ(popUpItem(LANGUAGES[i]), i + 1);
    }
}

TEST(Languages, HaveNoOtherCodes)
{
    std::set<std::uint32_t> known;
    for (std::uint32_t code = 0; code < 300; ++code) {
        if (languageOfCode(code) != nullptr)
            known.insert(code);
    }
    EXPECT_EQ(known, (std::set<std::uint32_t>{0, 1, 2, 3, 6, 11}));
    EXPECT_EQ(languageOfCode(0xFFFFFFFF), nullptr);
    EXPECT_EQ(languageOfCode(0x10002), nullptr) << "a code is not cut to 16 bits";
}

struct NameCase {
    const char* name;
    const char* text;
    const char* language;  // its English name; null: none
};

void expectLanguage(const Language* found, const char* name)
{
    if (name == nullptr) {
        EXPECT_EQ(found, nullptr);
    } else {
        ASSERT_NE(found, nullptr);
        EXPECT_EQ(found->name, name);
    }
}

const auto rowName = [](const auto& row) { return row.param.name; };

class ParseLanguage : public testing::TestWithParam<NameCase> { };

TEST_P(ParseLanguage, UnderstandsNamesAndCodes)
{
    expectLanguage(parseLanguage(GetParam().text), GetParam().language);
}

const NameCase TYPED[] = {
    {"Name", "German", "German"},
    {"LowerCase", "german", "German"},
    {"UpperCase", "JAPANESE", "Japanese"},
    {"Code", "2", "German"},
    {"CodeZero", "0", "English"},
    {"CodeOfTwoDigits", "11", "Japanese"},
    {"CodeWithLeadingZero", "06", "Spanish"},
    {"UnknownCode", "4", nullptr},
    {"CodeAboveAll", "12", nullptr},
    {"NegativeCode", "-1", nullptr},
    {"CodePast32Bits", "4294967298", nullptr},
    {"Empty", "", nullptr},
    {"BeginningOfAName", "Germ", nullptr},
    {"NameAndMore", "Germany", nullptr},
    {"BlankBefore", " German", nullptr},
    {"CodeAndMore", "2x", nullptr},
    {"OwnName", "Deutsch", nullptr},
    {"Locale", "de", nullptr},
};
INSTANTIATE_TEST_SUITE_P(Typed, ParseLanguage, testing::ValuesIn(TYPED), rowName);

class LanguageOfLocale : public testing::TestWithParam<NameCase> { };

TEST_P(LanguageOfLocale, GoesByTheLanguagePart)
{
    expectLanguage(languageOfLocale(GetParam().text), GetParam().language);
}

const NameCase LOCALES[] = {
    {"Whole", "de_DE.UTF-8", "German"},
    {"OtherCountry", "de_AT.UTF-8", "German"},
    {"WithModifier", "it_IT@euro", "Italian"},
    {"LanguageAlone", "ja", "Japanese"},
    {"LanguageAndEncoding", "fr.UTF-8", "French"},
    {"LanguageAndModifier", "es@modern", "Spanish"},
    {"English", "en_GB.UTF-8", "English"},
    {"OtherLanguage", "nl_NL.UTF-8", nullptr},
    {"LongerLanguage", "deu_DE.UTF-8", nullptr},
    {"C", "C", nullptr},
    {"CWithEncoding", "C.UTF-8", nullptr},
    {"Posix", "POSIX", nullptr},
    {"Empty", "", nullptr},
    {"NoLanguagePart", "_DE", nullptr},
};
INSTANTIATE_TEST_SUITE_P(Locales, LanguageOfLocale, testing::ValuesIn(LOCALES), rowName);

struct EnvironmentCase {
    const char* name;
    const char* all;  // null: not in the environment
    const char* messages;
    const char* lang;
    const char* locale;
};

class UserLocale : public testing::TestWithParam<EnvironmentCase> {
protected:
    static void set(const char* variable, const char* value)
    {
        if (value == nullptr)
            unsetenv(variable);
        else
            setenv(variable, value, 1);
    }
};

TEST_P(UserLocale, IsTheFirstThatSaysSomething)
{
    set("LC_ALL", GetParam().all);
    set("LC_MESSAGES", GetParam().messages);
    set("LANG", GetParam().lang);
    EXPECT_EQ(userLocale(), GetParam().locale);
}

const EnvironmentCase ENVIRONMENTS[] = {
    {"AllWins", "fr_FR", "de_DE", "it_IT", "fr_FR"},
    {"MessagesBeforeLang", nullptr, "de_DE", "it_IT", "de_DE"},
    {"LangLast", nullptr, nullptr, "it_IT", "it_IT"},
    {"EmptyIsPassedOver", "", "", "it_IT", "it_IT"},
    {"CIsNotPassedOver", "C", "de_DE", "it_IT", "C"},
    {"None", nullptr, nullptr, nullptr, ""},
};
INSTANTIATE_TEST_SUITE_P(Environments, UserLocale, testing::ValuesIn(ENVIRONMENTS), rowName);

TEST(DescribeLanguage, GivesNameAndCode)
{
    EXPECT_EQ(describeLanguage(2), "German (2)");
    EXPECT_EQ(describeLanguage(0), "English (0)");
    EXPECT_EQ(describeLanguage(4), "unknown (4)");
    EXPECT_EQ(describeLanguage(0xFFFFFFFF), "unknown (4294967295)");
}

}  // namespace
