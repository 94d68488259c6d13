// The six languages that the dialog offers, and which of them somebody means or reads.

#ifndef HOST_LANGUAGES_H
#define HOST_LANGUAGES_H

#include "VISEX_Plugins/LanguageSelector/HostContract.h"

#include <array>
#include <charconv>
#include <cstdint>
#include <iterator>
#include <optional>
#include <string>
#include <string_view>

namespace Host {

struct Language {
    std::uint32_t code = 0;  // the Mac OS language code
    std::string_view name;   // in English
    std::string_view tag;    // ISO 639, as locales begin with
};

/// The tags of the pop-up's languages, in its order.
inline constexpr std::string_view MENU_TAGS[] = {"en", "ja", "de", "fr", "it", "es"};
static_assert(std::size(MENU_TAGS) == MENU_LANGUAGE_COUNT, "a language has a tag, and a tag its language");

constexpr std::array<Language, MENU_LANGUAGE_COUNT> languagesWithTags()
{
    std::array<Language, MENU_LANGUAGE_COUNT> languages{};
    for (std::size_t i = 0; i < languages.size(); ++i)
        languages[i] = {MENU_LANGUAGES[i].code, MENU_LANGUAGES[i].name, MENU_TAGS[i]};
    return languages;
}

/// The languages in the order of the dialog's pop-up: the first is its item 1.
inline constexpr auto LANGUAGES = languagesWithTags();

/// The language with this code, or null.
const Language* languageOfCode(std::uint32_t code);

/// The decimal number that is all of `text`, or nothing when there is anything else in it or when it does not fit: it
/// is never cut to fit. No blanks, no plus sign.
template <typename Integer> std::optional<Integer> parseNumber(std::string_view text)
{
    Integer number{};
    const char* const end = text.data() + text.size();
    const auto [rest, error] = std::from_chars(text.data(), end, number);
    if (error != std::errc() || rest != end)
        return std::nullopt;
    return number;
}

/// The language that `text` names in English, in any case, or by its code; null if it is neither.
const Language* parseLanguage(std::string_view text);

/// The item of the dialog's pop-up that stands for one of LANGUAGES, from 1.
std::uint32_t popUpItem(const Language& language);

/// The first of the user's languages that is one of the six; English if none is.
const Language& userLanguage();

/// The six languages with their codes, as they are told to somebody who has given another.
std::string listLanguages();

/// A code in words: "German (2)", "unknown (4)".
std::string describeLanguage(std::uint32_t code);

}  // namespace Host

#endif
