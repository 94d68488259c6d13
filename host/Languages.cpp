#include "host/Languages.h"

#include <Toolbox/Application.h>
#include <Toolbox/NamedChoices.h>

#include <strings.h>

#include <algorithm>

namespace Host {

const Language* languageOfCode(std::uint32_t code)
{
    const auto found =
        std::find_if(LANGUAGES.begin(), LANGUAGES.end(), [code](const Language& each) { return each.code == code; });
    return found == LANGUAGES.end() ? nullptr : &*found;
}

std::vector<const Language*> languagesMeant(const std::string& text)
{
    for (const Language& each : LANGUAGES)
        if (strcasecmp(text.c_str(), describeLanguage(each.code).c_str()) == 0)
            return {&each};
    std::vector<Toolbox::NamedChoice> choices;
    for (const Language& each : LANGUAGES)
        choices.push_back({std::string(each.ownName) + " (" + std::string(each.name) + ")", std::string(each.tag)});
    std::vector<const Language*> meant;
    for (const std::size_t index : Toolbox::ChoicesMeant(choices, text))
        meant.push_back(&LANGUAGES[index]);
    return meant;
}

std::uint32_t popUpItem(const Language& language)
{
    return static_cast<std::uint32_t>(&language - LANGUAGES.data()) + 1;
}

const Language& offeredUserLanguage()
{
    for (const std::string& each : Toolbox::UserLanguages()) {
        const std::vector<const Language*> meant = languagesMeant(each);
        if (meant.size() == 1)
            return *meant.front();
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
