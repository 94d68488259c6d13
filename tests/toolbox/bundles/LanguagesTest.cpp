#include "toolbox/bundles/Languages.h"

#include <gtest/gtest.h>

#include <cstdlib>

namespace {

using Toolbox::languageFolders;
using Toolbox::userLanguages;

struct FoldersCase {
    const char* name;
    QStringList languages;
    QStringList folders;
};

// clang-format off
const FoldersCase FOLDERS_CASES[] = {
    {"None",                 {},                     {}},
    {"Empty",                {""},                   {}},
    {"Code",                 {"ko"},                 {"ko.lproj"}},
    {"CodeWithALongName",    {"de"},                 {"de.lproj", "German.lproj"}},
    {"LongName",             {"German"},             {"German.lproj", "de.lproj"}},
    {"Region",               {"de-AT"},              {"de-AT.lproj", "de_AT.lproj", "de.lproj", "German.lproj"}},
    {"RegionWithUnderscore", {"pt_BR"},              {"pt_BR.lproj", "pt.lproj"}},
    {"Script",               {"zh-Hans-CN"},         {"zh-Hans-CN.lproj", "zh_Hans_CN.lproj", "zh.lproj"}},
    {"SeveralInOrder",       {"fr", "ko"},           {"fr.lproj", "French.lproj", "ko.lproj"}},
    {"EachOnce",             {"de", "German", "de"}, {"de.lproj", "German.lproj"}},
    {"Unknown",              {"Klingon"},            {"Klingon.lproj"}},
};
// clang-format on

class LanguageFolders : public testing::TestWithParam<FoldersCase> { };

TEST_P(LanguageFolders, BearEachNameOfTheLanguages)
{
    EXPECT_EQ(languageFolders(GetParam().languages), GetParam().folders);
}

INSTANTIATE_TEST_SUITE_P(
    Cases, LanguageFolders, testing::ValuesIn(FOLDERS_CASES), [](const auto& row) { return row.param.name; });

TEST(LanguageFolders, TheFirstLanguagesOfTheMacHaveLongNames)
{
    const QStringList codes = {"de", "en", "es", "fr", "it", "ja", "nl"};
    const QStringList names = {"German", "English", "Spanish", "French", "Italian", "Japanese", "Dutch"};
    for (qsizetype index = 0; index < codes.size(); ++index)
        EXPECT_EQ(languageFolders({codes[index]}), QStringList({codes[index] + ".lproj", names[index] + ".lproj"}));
}

// The first of the user's languages in a process with this environment; a process of its own, since the locale is read
// once. It ends with success if that is `language`, which is null for none.
[[noreturn]] void exitWithFirstLanguage(const char* locale, const char* languages, const char* language)
{
    setenv("LC_ALL", locale, 1);
    setenv("LANGUAGE", languages, 1);
    const QString first = userLanguages().value(0);
    std::exit(first == QString(language) ? EXIT_SUCCESS : EXIT_FAILURE);
}

class UserLanguagesDeathTest : public testing::Test {
protected:
    void SetUp() override { GTEST_FLAG_SET(death_test_style, "threadsafe"); }
};

TEST_F(UserLanguagesDeathTest, AreTheLocales)
{
    const testing::ExitedWithCode success(EXIT_SUCCESS);
    EXPECT_EXIT(exitWithFirstLanguage("de_AT.UTF-8", "", "de-AT"), success, "");
    EXPECT_EXIT(exitWithFirstLanguage("de_AT.UTF-8", "ko:fr", "ko"), success, "");
}

TEST_F(UserLanguagesDeathTest, AreNoneInTheLocaleOfNoLanguage)
{
    EXPECT_EXIT(exitWithFirstLanguage("C", "", nullptr), testing::ExitedWithCode(EXIT_SUCCESS), "");
}

}  // namespace
