// Case and white space: one pass over the text into a new one.

#include "bench/compare.h"

#include <absl/strings/ascii.h>
#include <absl/strings/strip.h>

namespace bench {

namespace {

// A new text of what `map` makes of each character.
template <typename Map> Imposed imposed(std::string_view text, Map map)
{
    Imposed result(text.size());
    char* const to = result.characters();
    for (std::size_t i = 0; i < text.size(); ++i)
        to[i] = map(text[i]);
    return result;
}

void addCase(std::size_t n)
{
    const Text text(n);
    add("upper case", "library", n, [text] { return text.own.ToUpper(); });
    add("upper case", IMPOSED, n, [text] { return imposed(text.plain, raised); });
    add("upper case", "std", n, [text] { return mapped(text.plain, raised); });
    add("upper case", "Abseil", n, [text] { return absl::AsciiStrToUpper(text.plain); });
    add("upper case", "QByteArray", n, [text] { return text.bytes.toUpper(); });
    add("upper case", "QString", n, [text] { return text.wide.toUpper(); });
    add("upper case", "GLib", n, [text] { return GAllocated(g_ascii_strup(text.plain.c_str(), -1)).text[0]; });

    add("lower case", "library", n, [text] { return text.own.ToLower(); });
    add("lower case", IMPOSED, n, [text] { return imposed(text.plain, lowered); });
    add("lower case", "std", n, [text] { return mapped(text.plain, lowered); });
    add("lower case", "Abseil", n, [text] { return absl::AsciiStrToLower(text.plain); });
    add("lower case", "QByteArray", n, [text] { return text.bytes.toLower(); });
    add("lower case", "QString", n, [text] { return text.wide.toLower(); });
    add("lower case", "GLib", n, [text] { return GAllocated(g_ascii_strdown(text.plain.c_str(), -1)).text[0]; });
}

// Words with one to three characters of white space between them.
std::string loose(std::string text)
{
    const char* const gaps[] = {" ", "  ", "\t", " \n ", "\r\n"};
    std::string result;
    for (std::size_t i = 0, gap = 0; i < text.size(); ++i) {
        if (text[i] == ' ')
            result += gaps[gap++ % 5];
        else
            result += text[i];
    }
    result.resize(text.size());
    return result;
}

void addWhiteSpace(std::size_t n)
{
    const Text padded("  \t" + loose(Text(n - 6).plain) + "\n  ");
    add("strip white space", "library", n, [padded] { return padded.own.StripWhiteSpace(); });
    add("strip white space", IMPOSED, n, [padded] {
        const absl::string_view rest = absl::StripAsciiWhitespace(padded.plain);
        return Imposed({std::string_view(rest.data(), rest.size())});
    });
    add("strip white space", "Abseil", n, [padded] { return std::string(absl::StripAsciiWhitespace(padded.plain)); });
    add("strip white space", "QByteArray", n, [padded] { return padded.bytes.trimmed(); });
    add("strip white space", "GLib", n,
        [padded] { return GAllocated(g_strstrip(g_strdup(padded.plain.c_str()))).text[0]; });

    add("simplify white space", "library", n, [padded] { return padded.own.SimplifyWhiteSpace(); });
    add("simplify white space", "Abseil", n, [padded] {
        std::string result = padded.plain;
        absl::RemoveExtraAsciiWhitespace(&result);
        return result;
    });
    add("simplify white space", "QByteArray", n, [padded] { return padded.bytes.simplified(); });
    add("simplify white space", "QString", n, [padded] { return padded.wide.simplified(); });
}

}  // namespace

void addTransforms()
{
    for (const std::size_t n : {std::size_t{1000}, MIB}) {
        addCase(n);
        addWhiteSpace(n);
    }
}

}  // namespace bench
