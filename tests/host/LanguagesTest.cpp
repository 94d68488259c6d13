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

struct LocaleCase {
    const char* name;
    const char* locale;
    const char* list;  // LANGUAGE
    const char* language;
};

class UserLanguage : public testing::TestWithParam<LocaleCase> { };

TEST_P(UserLanguage, IsTheFirstOfTheSix)
{
    setenv("LC_ALL", GetParam().locale, 1);
    setenv("LANGUAGE", GetParam().list, 1);
    EXPECT_EQ(userLanguage().name, GetParam().language);
}

const LocaleCase LOCALES[] = {
    {"Whole", "de_DE.UTF-8", "", "German"},
    {"LanguageAlone", "ja", "", "Japanese"},
    {"LanguageAndModifier", "es@modern", "", "Spanish"},
    {"UpperCase", "FR_FR", "", "French"},
    {"OtherLanguage", "nl_NL.UTF-8", "", "English"},
    {"LongerLanguage", "deu_DE.UTF-8", "", "English"},
    {"C", "C", "it", "English"},
    {"NoLanguagePart", "_DE", "", "English"},
    {"ListFirst", "ja_JP", "de", "German"},
    {"OthersInTheListArePassedOver", "ja_JP", "nl:it_CH", "Italian"},
    {"LocaleAfterTheList", "ja_JP", "nl", "Japanese"},
};
INSTANTIATE_TEST_SUITE_P(Locales, UserLanguage, testing::ValuesIn(LOCALES), rowName);

TEST(DescribeLanguage, GivesNameAndCode)
{
    EXPECT_EQ(describeLanguage(2), "German (2)");
    EXPECT_EQ(describeLanguage(0), "English (0)");
    EXPECT_EQ(describeLanguage(4), "unknown (4)");
    EXPECT_EQ(describeLanguage(0xFFFFFFFF), "unknown (4294967295)");
}

}  // namespace
