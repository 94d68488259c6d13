#include <Toolbox/OneLine.h>

#include <algorithm>
#include <climits>
#include <cstdio>
#include <iterator>
#include <optional>

namespace Toolbox {

namespace {

struct Character {
    std::optional<char32_t> code;  // nothing for a byte that is not part of UTF-8
    std::size_t length;            // in bytes
};

// The first character of `text`, which is not empty.
Character firstOf(std::string_view text)
{
    const auto byte = [text](std::size_t index) { return static_cast<unsigned char>(text[index]); };
    if (byte(0) < 0x80)
        return {byte(0), 1};
    const std::size_t length = byte(0) >= 0xF0 ? 4 : byte(0) >= 0xE0 ? 3 : 2;
    if (byte(0) < 0xC2 || byte(0) > 0xF4 || text.size() < length)
        return {std::nullopt, 1};
    char32_t code = byte(0) & (0xFFu >> (length + 1));
    for (std::size_t index = 1; index < length; ++index) {
        if ((byte(index) & 0xC0) != 0x80)
            return {std::nullopt, 1};
        code = code << 6 | (byte(index) & 0x3Fu);
    }
    constexpr char32_t SMALLEST[] = {0, 0, 0x80, 0x800, 0x10000};
    const bool isCharacter = code >= SMALLEST[length] && code <= 0x10FFFF && (code < 0xD800 || code > 0xDFFF);
    return isCharacter ? Character{code, length} : Character{std::nullopt, 1};
}

// Characters that are not seen but do something to the terminal or to the text around them.
constexpr struct {
    char32_t first;
    char32_t last;
} UNSEEN[] = {
    {0x0, 0x1F},       // controls
    {0x7F, 0x9F},      // more of them
    {0x61C, 0x61C},    // a mark of right-to-left text
    {0x200E, 0x200F},  // and its other two
    {0x2028, 0x202E},  // ends of lines and paragraphs; overrides of the direction
    {0x2066, 0x2069},  // isolates, likewise
};

// How much of either end of a text is shown if it is a long one. No path is so long.
constexpr std::size_t LONGEST_END = PATH_MAX;

// The last place up to `place` where no character of UTF-8 is cut, or `place` itself among other bytes.
std::size_t uncut(std::string_view text, std::size_t place)
{
    for (std::size_t start = place - 3; start < place; ++start)
        if (const Character first = firstOf(text.substr(start)); start + first.length > place)
            return start;
    return place;
}

bool isUnseen(char32_t code)
{
    return std::any_of(std::begin(UNSEEN), std::end(UNSEEN),
        [code](const auto& range) { return code >= range.first && code <= range.last; });
}

std::string hexadecimal(const char* format, unsigned number)
{
    char text[sizeof "\\uFFFF"];
    std::snprintf(text, sizeof text, format, number);
    return text;
}

std::string escaped(char32_t code)
{
    switch (code) {
    case '\t':
        return "\\t";
    case '\n':
        return "\\n";
    case '\r':
        return "\\r";
    default:
        return hexadecimal(code < 0x80 ? "\\x%02x" : "\\u%04x", static_cast<unsigned>(code));
    }
}

}  // namespace

std::string withEscapes(std::string_view text)
{
    std::string line;
    while (!text.empty()) {
        const Character first = firstOf(text);
        if (!first.code)
            line += hexadecimal("\\x%02x", static_cast<unsigned char>(text.front()));
        else
            line += isUnseen(*first.code) ? escaped(*first.code) : std::string(text.substr(0, first.length));
        text.remove_prefix(first.length);
    }
    return line;
}

std::string oneLine(std::string_view text)
{
    if (text.size() <= 2 * LONGEST_END)
        return withEscapes(text);
    const std::size_t begin = uncut(text, LONGEST_END);
    const std::size_t end = uncut(text, text.size() - LONGEST_END);
    return withEscapes(text.substr(0, begin)) + " \u2026 (" + std::to_string(end - begin) + " bytes left out) \u2026 "
        + withEscapes(text.substr(end));
}

bool isUtf8(std::string_view text)
{
    while (!text.empty()) {
        const Character first = firstOf(text);
        if (!first.code)
            return false;
        text.remove_prefix(first.length);
    }
    return true;
}

}  // namespace Toolbox
