// Splitting a text into a list and joining a list into a text.

#include "Velbase/common/common_string.h"
#include "Velbase/common/common_string_buffer.h"

void String::Split(char separator, std::vector<String>& fields) const
{
    // A list of its own until it is complete: `fields` may hold this string, and keeps what it has if memory runs out.
    std::vector<String> result;
    unsigned start = 0;
    for (checked_uint end = Find(separator); end.valid(); end = Find(separator, start)) {
        result.push_back(Mid(start, end.value() - start));
        start = end.value() + 1;
    }
    result.push_back(result.empty() ? *this : Mid(start));
    fields.swap(result);
}

String String::Join(const String& separator, const std::vector<String>& parts)
{
    std::uint64_t length = parts.empty() ? 0 : std::uint64_t(separator.Length()) * (parts.size() - 1);
    const String* last = &separator;
    for (const String& part : parts) {
        length += part.Length();
        if (!part.IsEmpty())
            last = &part;
    }

    // The result is what operator+= makes of the pieces, beginning with a null string: it stays null without any text,
    // and shares the only one that it is given.
    if (length == 0)
        return String();
    if (last->Length() == length)
        return *last;
    auto buffer = Buffer::make(length);
    char* end = buffer->characters();
    for (const String& part : parts) {
        if (&part != parts.data())
            end = velbase_private::write(end, separator.view());
        end = velbase_private::write(end, part.view());
    }
    return String(std::move(buffer));
}
