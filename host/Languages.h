// The languages that the dialog offers, and which of them somebody means or reads.

#ifndef HOST_LANGUAGES_H
#define HOST_LANGUAGES_H

#include "VISEX_Plugins/LanguageSelector/HostContract.h"

#include <array>
#include <cstdint>
#include <iterator>
#include <string>
#include <string_view>
#include <vector>

namespace Host {

struct Language {
    std::uint32_t code = 0;    // the Mac OS language code
    std::string_view name;     // in English
    std::string_view tag;      // ISO 639, as locales begin with
    std::string_view ownName;  // in the language itself
};

/// What HostContract.h lacks for each language, in its order.
struct LanguageNaming {
    std::string_view tag;
    std::string_view ownName;
};
inline constexpr LanguageNaming MENU_NAMINGS[] = {
    {"en", "English"},
    {"ja", "日本語"},
    {"de", "Deutsch"},
    {"fr", "Français"},
    {"it", "Italiano"},
    {"es", "Español"},
};
static_assert(std::size(MENU_NAMINGS) == MENU_LANGUAGE_COUNT, "each language has a tag and a name of its own");

constexpr std::array<Language, MENU_LANGUAGE_COUNT> languagesWithTags()
{
    std::array<Language, MENU_LANGUAGE_COUNT> languages{};
    for (std::size_t i = 0; i < languages.size(); ++i)
        languages[i] = {MENU_LANGUAGES[i].code, MENU_LANGUAGES[i].name, MENU_NAMINGS[i].tag, MENU_NAMINGS[i].ownName};
    return languages;
}

/// The languages in the order of the dialog's pop-up: the first is its item 1.
inline constexpr auto LANGUAGES = languagesWithTags();

/// Whether the Mac can have such a code: they have 16 bits, with a sign. The external takes any.
constexpr bool isLanguageCode(std::uint32_t code)
{
    return code <= 0x7FFF;
}

/// The language with this code, or null.
const Language* languageOfCode(std::uint32_t code);

/// All languages that `text` may mean: the one that describeLanguage() calls exactly so, else the one with that tag or
/// that name, in English or in the language itself, else those whose names begin so, else that of a locale, as "de-DE".
/// But for the first, neither case nor accents count.
std::vector<const Language*> languagesMeant(const std::string& text);

/// The item of the dialog's pop-up that stands for one of LANGUAGES, from 1.
std::uint32_t popUpItem(const Language& language);

/// The first of the user's languages that the dialog offers; English if none is.
const Language& offeredUserLanguage();

/// The languages with their codes, for a message to somebody who has given another.
std::string listLanguages();

/// A code in words: "German (2)", "unknown (4)".
std::string describeLanguage(std::uint32_t code);

}  // namespace Host

#endif
