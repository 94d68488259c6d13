// Pieces of a text, and texts put together from pieces.

#include "Velbase/common/common_string.h"

#include <algorithm>

String String::Left(unsigned count) const
{
    if (IsNull())
        return String();
    return String(Buffer::make(view().substr(0, count)));
}

String String::Right(unsigned count) const
{
    if (IsNull())
        return String();
    return String(Buffer::make(view().substr(Length() - std::min(count, Length()))));
}

String String::Mid(unsigned start, const checked_uint& count) const
{
    // Null, not empty, at the end too: this is how Split tells a last field without text.
    if (start >= Length())
        return String();
    return String(Buffer::make(view().substr(start, count.valid() ? count.value() : std::string_view::npos)));
}

String& String::operator+=(const String& tail)
{
    if (tail.IsEmpty())
        return *this;
    if (IsEmpty())
        return *this = tail;
    m_text.reset(Buffer::make({view(), tail.view()}).release());
    return *this;
}

String& String::Insert(unsigned position, const String& text)
{
    if (IsEmpty() && !text.IsEmpty())
        return *this = text;
    if (IsNull())
        return *this;
    const std::string_view head = view().substr(0, position);
    const std::string_view tail = view().substr(head.size());
    m_text.reset(Buffer::make({head, text.view(), tail}).release());
    return *this;
}

String& String::Remove(unsigned start, const checked_uint& count)
{
    const unsigned length = Length();
    const unsigned removed = count.valid() ? count.value() : length;
    if (start >= length || removed == 0)
        return *this;
    // May wrap, on purpose: the text from `end` on then follows once more.
    const unsigned end = start + removed;
    m_text.reset(Buffer::make({view().substr(0, start), view().substr(std::min(end, length))}).release());
    return *this;
}
