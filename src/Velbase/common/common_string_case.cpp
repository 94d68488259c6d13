// Upper and lower case.

#include "Velbase/common/common_string.h"

#include <algorithm>

String String::ToUpper() const
{
    if (IsEmpty())
        return *this;
    const std::string_view text = Latin1();
    auto buffer = Buffer::make(text.size());
    std::transform(text.begin(), text.end(), buffer->characters(), [](char c) { return Char(c).ToUpper(); });
    return String(std::move(buffer));
}

String String::ToLower() const
{
    return IsNull() ? String() : String(lowered(Latin1()));
}

std::unique_ptr<String::Buffer> String::lowered(std::string_view text)
{
    auto buffer = Buffer::make(text.size());
    std::transform(text.begin(), text.end(), buffer->characters(), [](char c) { return Char(c).ToLower(); });
    return buffer;
}
