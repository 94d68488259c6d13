#include "host/Languages.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <set>
#include <string_view>
#include <tuple>
#include <utility>
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
    std::set<std::uint32_t> known;
    for (std::uint32_t code = 0; code < 300; ++code) {
        if (languageOfCode(code) != nullptr)
            known.insert(code);
    }
    EXPECT_EQ(known, (std::set<std::uint32_t>{0, 1, 2, 3, 6, 11}));
    EXPECT_EQ(languageOfCode(0xFFFFFFFF), nullptr);
    EXPECT_EQ(languageOfCode(0x10002), nullptr) << "a code is not cut to 16 bits";
    EXPECT_EQ(describeLanguage(2), "German (2)");
    EXPECT_EQ(describeLanguage(0), "English (0)");
    EXPECT_EQ(describeLanguage(4), "unknown (4)");
    EXPECT_EQ(describeLanguage(0xFFFFFFFF), "unknown (4294967295)");
}

// languages: in English
const std::pair<const char*, std::vector<std::string_view>> TYPED[] = {
    {"German", {"German"}},
    {"jaPANESE", {"Japanese"}},
    {"Deutsch", {"German"}},
    {"francais", {"French"}},
    {"日本語", {"Japanese"}},
    {"de", {"German"}},
    {"es", {"Spanish"}},  // a tag goes before beginnings
    {"de-DE", {"German"}},
    {"es_MX.UTF-8@euro", {"Spanish"}},
    {"es.UTF-8", {"Spanish"}},
    {"es@euro", {"Spanish"}},
    {"-de", {}},
    {"germ", {"German"}},
    {"German (2)", {"German"}},
    {"german (2)", {"German"}},
    {"German (3)", {}},
    {"Ital", {"Italian"}},
    {"e", {"English", "Spanish"}},
    {" German ", {"German"}},
    {"Germany", {}},
    {"klingon", {}},
    {"", {}},
    {"\xFF", {}},
};

TEST(LanguagesMeant, AreThoseOfTheSurestReading)
{
    for (const auto& [text, languages] : TYPED) {
        std::vector<std::string_view> names;
        for (const Language* const each : languagesMeant(text))
            names.push_back(each->name);
        EXPECT_EQ(names, languages) << text;
    }
}

// list: LANGUAGE
const std::tuple<const char*, const char*, const char*, const char*> LOCALES[] = {
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
    {"NoBeginningOfTwo", "ja_JP", "e:it", "Italian"},
    {"LocaleAfterTheList", "ja_JP", "nl", "Japanese"},
};

TEST(UserLanguage, IsTheFirstOfTheSix)
{
    for (const auto& [name, locale, list, language] : LOCALES) {
        setenv("LC_ALL", locale, 1);
        setenv("LANGUAGE", list, 1);
        EXPECT_EQ(offeredUserLanguage().name, language) << name;
    }
}

}  // namespace
