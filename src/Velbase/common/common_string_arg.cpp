// Filling the placeholders of a template.

#include "Velbase/common/common_string.h"

namespace {

// What stands before and behind the placeholder that is filled next: all before it, and nothing behind, if there is
// none.
struct Surroundings {
    std::string_view head;
    std::string_view tail;
};

Surroundings findPlaceholder(std::string_view text)
{
    Surroundings found = {text, text.substr(text.size())};
    char lowest = '9' + 1;
    for (std::size_t i = text.find('%'); i != std::string_view::npos; i = text.find('%', i + 1)) {
        if (i + 1 < text.size() && Char(text[i + 1]).IsDigit() && text[i + 1] < lowest) {
            found = {text.substr(0, i), text.substr(i + 2)};
            lowest = text[i + 1];
        }
    }
    return found;
}

}  // namespace

String String::fill(std::string_view a) const
{
    const auto [head, tail] = findPlaceholder(view());
    return String(Buffer::make({head, a, tail}));
}

String String::Arg(const String& a) const
{
    const auto [head, tail] = findPlaceholder(view());
    if (!a.IsEmpty() && head.empty() && tail.empty())
        return a;
    if (a.IsEmpty() && head.size() == Length())
        return *this;
    return String(Buffer::make({head, a.view(), tail}));
}

String String::Arg(const char* a) const
{
    return Arg(String(a));
}

String String::Arg(char c) const
{
    return fill(std::string_view(&c, 1));
}

String String::Arg(const Char& c) const
{
    return Arg(static_cast<char>(c));
}

String String::Arg(bool b) const
{
    return fill(b ? "true" : "false");
}
