#include "toolbox/core/bundles/LanguageFolders.h"

#include <gtest/gtest.h>

#include <tuple>

namespace {

using Toolbox::languageFolders;

// clang-format off
const std::tuple<const char*, QStringList, QStringList> FOLDERS_CASES[] = {
    {"None",                 {},                     {}},
    {"Empty",                {""},                   {}},
    {"Code",                 {"cy"},                 {"cy.lproj"}},
    {"CodeWithALongName",    {"de"},                 {"de.lproj", "German.lproj"}},
    {"LongName",             {"German"},             {"German.lproj", "de.lproj"}},
    {"Region",               {"de-AT"},              {"de-AT.lproj", "de_AT.lproj", "de.lproj", "German.lproj"}},
    {"RegionWithUnderscore", {"pt_BR"},              {"pt_BR.lproj", "pt.lproj", "Portuguese.lproj"}},
    {"Script",               {"zh-Hans-CN"},         {"zh-Hans-CN.lproj", "zh_Hans_CN.lproj", "zh.lproj"}},
    {"SeveralInOrder",       {"fr", "cy"},           {"fr.lproj", "French.lproj", "cy.lproj"}},
    {"EachOnce",             {"de", "German", "de"}, {"de.lproj", "German.lproj"}},
    {"Unknown",              {"Klingon"},            {"Klingon.lproj"}},
};
// clang-format on

TEST(LanguageFolders, BearEachNameOfTheLanguages)
{
    for (const auto& [name, languages, folders] : FOLDERS_CASES)
        EXPECT_EQ(languageFolders(languages), folders) << name;
    const QStringList codes = {"ar", "de", "en", "es", "fr", "it", "ja", "nl", "ru", "uk"};
    const QStringList names = {
        "Arabic", "German", "English", "Spanish", "French", "Italian", "Japanese", "Dutch", "Russian", "Ukrainian"};
    for (qsizetype index = 0; index < codes.size(); ++index)
        EXPECT_EQ(languageFolders({codes[index]}), QStringList({codes[index] + ".lproj", names[index] + ".lproj"}));
}

}  // namespace
