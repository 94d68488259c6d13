// Integers as text.

#include "Velbase/common/common_string.h"

#include <charconv>
#include <cstddef>
#include <limits>

namespace {

// The text of an integer: in base 2 as many digits as bits, and a sign.
struct IntegerText {
    char characters[std::numeric_limits<unsigned long long>::digits + 1];
    std::size_t length;

    std::string_view view() const { return std::string_view(characters, length); }
};

template <typename Integer> IntegerText formatInBase(Integer n, unsigned base)
{
    if (base < 2 || base > 36)
        base = 10;
    IntegerText text;
    char* const end =
        std::to_chars(text.characters, text.characters + sizeof text.characters, n, static_cast<int>(base)).ptr;
    if (base > 10) {
        for (char* c = text.characters; c != end; ++c)
            *c = Char(*c).ToUpper();
    }
    text.length = static_cast<std::size_t>(end - text.characters);
    return text;
}

IntegerText formatInteger(int n, unsigned base)
{
    return formatInBase(n, base);
}

IntegerText formatInteger(unsigned n, unsigned base)
{
    return formatInBase(n, base);
}

IntegerText formatInteger(long n, unsigned base)
{
    return formatInBase(n, base);
}

IntegerText formatInteger(unsigned long n, unsigned base)
{
    return formatInBase(n, base);
}

// The 64-bit numbers know two bases only, on purpose.

IntegerText formatInteger(unsigned long long n, unsigned base)
{
    return formatInBase(n, base == 16 ? 16 : 10);
}

IntegerText formatInteger(long long n, unsigned base)
{
    return base == 16 ? formatInteger(static_cast<unsigned long long>(n), base) : formatInBase(n, 10);
}

}  // namespace

String String::Number(int n, unsigned base)
{
    return String(Buffer::make(formatInteger(n, base).view()));
}

String String::Number(unsigned n, unsigned base)
{
    return String(Buffer::make(formatInteger(n, base).view()));
}

String String::Number(long n, unsigned base)
{
    return String(Buffer::make(formatInteger(n, base).view()));
}

String String::Number(unsigned long n, unsigned base)
{
    return String(Buffer::make(formatInteger(n, base).view()));
}

String String::Number(long long n, unsigned base)
{
    return String(Buffer::make(formatInteger(n, base).view()));
}

String String::Number(unsigned long long n, unsigned base)
{
    return String(Buffer::make(formatInteger(n, base).view()));
}

String String::Arg(int v, unsigned base) const
{
    return base == 16 ? Arg(static_cast<unsigned>(v), base) : fill(formatInteger(v, base).view());
}

String String::Arg(long v, unsigned base) const
{
    if (base != 16)
        return fill(formatInteger(v, base).view());
    // A long is 32 bits on the target: what fits them has the same text everywhere.
    const int word = static_cast<int>(v);
    return word == v ? Arg(word, base) : Arg(static_cast<unsigned long>(v), base);
}

String String::Arg(short v, unsigned base) const
{
    return fill(formatInteger(static_cast<int>(v), base).view());
}

String String::Arg(unsigned short v, unsigned base) const
{
    return fill(formatInteger(static_cast<int>(v), base).view());
}

String String::Arg(unsigned v, unsigned base) const
{
    return fill(formatInteger(v, base).view());
}

String String::Arg(unsigned long v, unsigned base) const
{
    return fill(formatInteger(v, base).view());
}

String String::Arg(long long v, unsigned base) const
{
    return fill(formatInteger(v, base).view());
}

String String::Arg(unsigned long long v, unsigned base) const
{
    return fill(formatInteger(v, base).view());
}
