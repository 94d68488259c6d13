// Which of several choices a person means, as the terminal display understands it: on a command line as there.

#ifndef TOOLBOX_NAMEDCHOICES_H
#define TOOLBOX_NAMEDCHOICES_H

#include <cstddef>
#include <string>
#include <vector>

namespace Toolbox {

/// "Deutsch (German)" with the word "de". The word, in small letters, means it where no name is that word.
struct NamedChoice {
    std::string name;
    std::string word;
};

/// The indexes of all of `choices` that `typed` may mean, none if it is empty: a name or a part of it, as "German", or
/// the word, else what begins so, else the same of the language that a locale begins with, as "de_DE.UTF-8". Neither
/// case nor accents count. Texts are UTF-8.
std::vector<std::size_t> ChoicesMeant(const std::vector<NamedChoice>& choices, const std::string& typed);

}  // namespace Toolbox

#endif
