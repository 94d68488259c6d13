// Replacing texts and characters.

#include "Velbase/common/common_string.h"
#include "Velbase/common/common_string_buffer.h"

#include <algorithm>
#include <cstring>
#include <vector>

namespace {

// Where `pattern`, which is not empty, occurs in `text`, from left to right without overlap. Each piece of the text
// that is as long as the pattern is compared with it as a C string. So a zero byte in the pattern ends it, but then the
// piece must end there as well.
std::vector<std::uint64_t> findOccurrences(const String& text, const String& pattern)
{
    const char* const characters = text.Latin1();
    const std::size_t compared = std::strlen(pattern.Latin1());
    const bool comparedWhole = compared == pattern.Length();
    // Wraps for a pattern longer than the text by more than one: then every position is tried.
    const std::uint64_t tried = std::min(text.Length(), text.Length() - pattern.Length() + 1);

    std::vector<std::uint64_t> positions;
    std::uint64_t i = 0;
    while (i < tried) {
        const char* const hit = std::strstr(characters + i, pattern.Latin1());
        if (hit == nullptr) {
            i += std::strlen(characters + i) + 1;
            continue;
        }
        i = static_cast<std::uint64_t>(hit - characters);
        if (i >= tried)
            break;
        if (comparedWhole || characters[i + compared] == '\0') {
            positions.push_back(i);
            i += pattern.Length();
        } else {
            ++i;
        }
    }
    return positions;
}

// Calls `visit` with the pieces of the result in order: what is kept of `text`, and `replacement` for each of the
// `positions` of a pattern of length `replaced`.
template <typename Visit>
void forEachPiece(std::string_view text, const std::vector<std::uint64_t>& positions, std::uint64_t replaced,
    std::string_view replacement, Visit visit)
{
    // Narrowed to std::size_t because they lie inside the text; position + replaced may not fit a size_t of 32 bits.
    std::size_t end = 0;
    for (const std::uint64_t position : positions) {
        visit(text.substr(end, static_cast<std::size_t>(position) - end));
        visit(replacement);
        end = static_cast<std::size_t>(std::min<std::uint64_t>(position + replaced, text.size()));
    }
    visit(text.substr(end));
}

}  // namespace

String String::Replace(const String& pattern, const String& replacement) const
{
    if (IsNull())
        return String();
    if (IsEmpty())
        return String("");
    if (pattern.IsEmpty())
        return *this;

    const std::vector<std::uint64_t> positions = findOccurrences(*this, pattern);
    const auto eachPiece = [&](auto visit) {
        forEachPiece(view(), positions, pattern.Length(), replacement.view(), visit);
    };
    std::uint64_t length = 0;
    eachPiece([&](std::string_view piece) { length += piece.size(); });

    // The result is what operator+= makes of the pieces, beginning with a null string: it stays null without any text,
    // and shares the only one that it is given.
    if (length == 0)
        return String();
    if (positions.size() == 1 && length == replacement.Length())
        return replacement;
    auto buffer = Buffer::make(length);
    char* end = buffer->characters();
    eachPiece([&end](std::string_view piece) { end = velbase_private::write(end, piece); });
    return String(std::move(buffer));
}

String String::ReplaceChar(const Char& from, const Char& to) const
{
    const std::string_view text = Latin1();
    auto buffer = Buffer::make(text.size());
    const char wanted = from;
    const char given = to;
    std::transform(text.begin(), text.end(), buffer->characters(), [=](char c) { return c == wanted ? given : c; });
    return String(std::move(buffer));
}
