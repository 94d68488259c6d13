#include <Toolbox/Application.h>

#include <gtest/gtest.h>

#include <cstdlib>
#include <tuple>

namespace {

// clang-format off
// null: not in the environment
const std::tuple<const char*, const char*, const char*, const char*, const char*, std::vector<std::string>>
    ENVIRONMENTS[] = {
    {"AllWins",                 "fr_FR",             "de_DE",   "it_IT",       nullptr,         {"fr-FR"}},
    {"MessagesBeforeLang",      nullptr,             "de_DE",   "it_IT",       nullptr,         {"de-DE"}},
    {"LangLast",                nullptr,             nullptr,   "it_IT.UTF-8", nullptr,         {"it-IT"}},
    {"EmptyIsPassedOver",       "",                  "",        "it",          "",              {"it"}},
    {"NoEncodingOrModifier",    "de_AT.UTF-8@euro",  nullptr,   nullptr,       nullptr,         {"de-AT"}},
    {"NoModifier",              "de_AT@euro",        nullptr,   nullptr,       nullptr,         {"de-AT"}},
    {"ListBeforeTheLocale",     nullptr,             nullptr,   "ja_JP.UTF-8", "de",            {"de", "ja-JP"}},
    {"ListInItsOrder",          "ja_JP",             nullptr,   nullptr,       "ko:de_AT::fr",  {"ko", "de-AT", "fr", "ja-JP"}},
    {"NoListInTheLocaleC",      "C",                 "de_DE",   "it_IT",       "de",            {}},
    {"ListInCWithAnEncoding",   nullptr,             nullptr,   "C.UTF-8",     "de",            {"de"}},
    {"CIsNoLanguage",           nullptr,             nullptr,   "C.UTF-8",     nullptr,         {}},
    {"NoListInPosix",           "POSIX",             nullptr,   nullptr,       "de",            {}},
    {"NoListWithoutALocale",    nullptr,             nullptr,   nullptr,       "de",            {}},
};
// clang-format on

void set(const char* variable, const char* value)
{
    if (value == nullptr)
        unsetenv(variable);
    else
        setenv(variable, value, 1);
}

TEST(UserLanguages, AreTheListsUnlessTheLocaleIsC)
{
    for (const auto& [name, all, messages, lang, list, languages] : ENVIRONMENTS) {
        set("LC_ALL", all);
        set("LC_MESSAGES", messages);
        set("LANG", lang);
        set("LANGUAGE", list);
        EXPECT_EQ(Toolbox::UserLanguages(), languages) << name;
    }
}

}  // namespace
