#include "host/Languages.h"

#include "tests/support/RowName.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <set>
#include <string>
#include <string_view>
#include <vector>

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
    std::vector<std::string_view> languages;  // in English
};

class LanguagesMeant : public testing::TestWithParam<NameCase> { };

TEST_P(LanguagesMeant, AreThoseOfTheSurestReading)
{
    std::vector<std::string_view> names;
    for (const Language* const each : languagesMeant(GetParam().text))
        names.push_back(each->name);
    EXPECT_EQ(names, GetParam().languages);
}

const NameCase TYPED[] = {
    {"Name", "German", {"German"}},
    {"AnyCase", "jaPANESE", {"Japanese"}},
    {"OwnName", "Deutsch", {"German"}},
    {"OwnNameWithoutAccents", "francais", {"French"}},
    {"OwnNameInOtherLetters", "日本語", {"Japanese"}},
    {"Tag", "de", {"German"}},
    {"TagGoesBeforeBeginnings", "es", {"Spanish"}},
    {"Beginning", "germ", {"German"}},
    {"BeginningOfAnOwnName", "Ital", {"Italian"}},
    {"BeginningOfTwo", "e", {"English", "Spanish"}},
    {"Blanks", " German ", {"German"}},
    {"NameAndMore", "Germany", {}},
    {"Other", "klingon", {}},
    {"Empty", "", {}},
    {"NotUtf8", "\xFF", {}},
};
INSTANTIATE_TEST_SUITE_P(Typed, LanguagesMeant, testing::ValuesIn(TYPED), RowName());

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
    {"LanguageOfThreeLetters", "deu_DE.UTF-8", "", "German"},
    {"C", "C", "it", "English"},
    {"NoLanguagePart", "_DE", "", "English"},
    {"ListFirst", "ja_JP", "de", "German"},
    {"OthersInTheListArePassedOver", "ja_JP", "nl:it_CH", "Italian"},
    {"LocaleAfterTheList", "ja_JP", "nl", "Japanese"},
};
INSTANTIATE_TEST_SUITE_P(Locales, UserLanguage, testing::ValuesIn(LOCALES), RowName());

TEST(DescribeLanguage, GivesNameAndCode)
{
    EXPECT_EQ(describeLanguage(2), "German (2)");
    EXPECT_EQ(describeLanguage(0), "English (0)");
    EXPECT_EQ(describeLanguage(4), "unknown (4)");
    EXPECT_EQ(describeLanguage(0xFFFFFFFF), "unknown (4294967295)");
}

}  // namespace
