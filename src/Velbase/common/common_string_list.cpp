// Splitting a text into a list and joining a list into a text.

#include "Velbase/common/common_string.h"
#include "Velbase/common/common_string_buffer.h"

void String::Split(char separator, std::vector<String>& fields) const
{
    std::vector<unsigned> positions;
    for (checked_uint p = Find(separator); p.valid(); p = Find(separator, p.value() + 1))
        positions.push_back(p.value());

    // A list of its own until it is complete: `fields` may hold this string, and keeps what it has if memory runs out.
    std::vector<String> result;
    result.reserve(positions.size() + 1);
    if (positions.empty()) {
        result.push_back(*this);
    } else {
        result.push_back(Left(positions.front()));
        for (std::size_t i = 1; i < positions.size(); ++i)
            result.push_back(Mid(positions[i - 1] + 1, positions[i] - positions[i - 1] - 1));
        result.push_back(Mid(positions.back() + 1));
    }
    fields.swap(result);
}

namespace {

// Calls `visit` with each of `parts`, and with `separator` between each two.
template <typename Visit> void forEachPiece(const String& separator, const std::vector<String>& parts, Visit visit)
{
    for (std::size_t i = 0; i < parts.size(); ++i) {
        if (i > 0)
            visit(separator);
        visit(parts[i]);
    }
}

}  // namespace

String String::Join(const String& separator, const std::vector<String>& parts)
{
    std::uint64_t length = 0;
    const String* last = nullptr;
    forEachPiece(separator, parts, [&](const String& piece) {
        length += piece.Length();
        if (!piece.IsEmpty())
            last = &piece;
    });

    // The result is what operator+= makes of the pieces, beginning with a null string: it stays null without any text,
    // and shares the only one that it is given.
    if (last == nullptr)
        return String();
    if (last->Length() == length)
        return *last;
    auto buffer = newBuffer(length);
    forEachPiece(separator, parts, [&](const String& piece) { buffer->append(piece.view()); });
    return String(std::move(buffer));
}
