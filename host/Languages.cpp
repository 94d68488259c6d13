#include "host/Languages.h"

#include <Toolbox/Application.h>

#include <algorithm>

namespace Host {

namespace {

char toLower(char letter)
{
    return letter >= 'A' && letter <= 'Z' ? static_cast<char>(letter - 'A' + 'a') : letter;
}

bool sameInAnyCase(std::string_view one, std::string_view other)
{
    return std::equal(one.begin(), one.end(), other.begin(), other.end(),
        [](char left, char right) { return toLower(left) == toLower(right); });
}

template <typename Condition> const Language* firstLanguage(Condition fits)
{
    const auto found = std::find_if(LANGUAGES.begin(), LANGUAGES.end(), fits);
    return found == LANGUAGES.end() ? nullptr : &*found;
}

}  // namespace

const Language* languageOfCode(std::uint32_t code)
{
    return firstLanguage([code](const Language& each) { return each.code == code; });
}

const Language* parseLanguage(std::string_view text)
{
    if (const std::optional<std::uint32_t> code = parseNumber<std::uint32_t>(text))
        return languageOfCode(*code);
    return firstLanguage([text](const Language& each) { return sameInAnyCase(each.name, text); });
}

std::uint32_t popUpItem(const Language& language)
{
    return static_cast<std::uint32_t>(&language - LANGUAGES.data()) + 1;
}

const Language& userLanguage()
{
    for (const std::string& each : Toolbox::UserLanguages()) {
        const std::string tag = each.substr(0, each.find('-'));
        if (const Language* const found =
                firstLanguage([&](const Language& one) { return sameInAnyCase(one.tag, tag); }))
            return *found;
    }
    return LANGUAGES.front();
}

std::string listLanguages()
{
    std::string list;
    for (const Language& language : LANGUAGES)
        list += (list.empty() ? "" : ", ") + describeLanguage(language.code);
    return list;
}

std::string describeLanguage(std::uint32_t code)
{
    const Language* const language = languageOfCode(code);
    const std::string_view name = language == nullptr ? "unknown" : language->name;
    return std::string(name) + " (" + std::to_string(code) + ")";
}

}  // namespace Host
