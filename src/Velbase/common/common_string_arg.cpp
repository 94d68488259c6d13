// Filling the placeholders of a template.

#include "Velbase/common/common_string.h"
#include "Velbase/common/common_string_buffer.h"
#include "Velbase/common/common_string_format.h"

namespace {

// Where in `text` the placeholder is that is filled next, or npos.
std::size_t findPlaceholder(std::string_view text)
{
    std::size_t found = std::string_view::npos;
    char lowest = '9' + 1;
    for (std::size_t i = text.find('%'); i != std::string_view::npos; i = text.find('%', i + 1)) {
        if (i + 1 < text.size() && Char(text[i + 1]).IsDigit() && text[i + 1] < lowest) {
            found = i;
            lowest = text[i + 1];
        }
    }
    return found;
}

}  // namespace

String String::Arg(const String& a) const
{
    const std::size_t placeholder = findPlaceholder(view());
    if (placeholder == std::string_view::npos) {
        String result(*this);
        result += a;
        return result;
    }
    const std::string_view head = view().substr(0, placeholder);
    const std::string_view tail = view().substr(placeholder + 2);
    if (head.empty() && tail.empty() && !a.IsEmpty())
        return a;
    return String(newBuffer({head, a.view(), tail}));
}

String String::Arg(const char* a) const
{
    return Arg(String(a));
}

String String::Arg(char c) const
{
    return Arg(String(newBuffer(std::string_view(&c, 1))));
}

String String::Arg(const Char& c) const
{
    return Arg(static_cast<char>(c));
}

String String::Arg(bool b) const
{
    return Arg(b ? "true" : "false");
}

String String::Arg(int v, unsigned base) const
{
    return base == 16 ? Arg(static_cast<unsigned>(v), base) : Arg(formatInteger(v, base));
}

String String::Arg(long v, unsigned base) const
{
    if (base != 16)
        return Arg(formatInteger(v, base));
    // A long is 32 bits on the target: what fits them has the same text everywhere.
    const int word = static_cast<int>(v);
    return word == v ? Arg(word, base) : Arg(static_cast<unsigned long>(v), base);
}

String String::Arg(short v, unsigned base) const
{
    return Arg(formatInteger(static_cast<int>(v), base));
}

String String::Arg(unsigned short v, unsigned base) const
{
    return Arg(formatInteger(static_cast<int>(v), base));
}

String String::Arg(unsigned v, unsigned base) const
{
    return Arg(formatInteger(v, base));
}

String String::Arg(unsigned long v, unsigned base) const
{
    return Arg(formatInteger(v, base));
}

String String::Arg(long long v, unsigned base) const
{
    return Arg(formatInteger(v, base));
}

String String::Arg(unsigned long long v, unsigned base) const
{
    return Arg(formatInteger(v, base));
}

String String::Arg(double v, unsigned precision, char format) const
{
    return Arg(Number(v, precision, format));
}

String String::Arg(float v, unsigned precision, char format) const
{
    return Arg(Number(v, precision, format));
}
