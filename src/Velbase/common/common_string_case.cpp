// Upper and lower case.

#include "Velbase/common/common_string.h"
#include "Velbase/common/common_string_buffer.h"

String String::ToUpper() const
{
    if (IsEmpty())
        return *this;
    auto buffer = newBuffer(upToZero(Latin1(), Length()));
    for (char& c : *buffer)
        c = Char(c).ToUpper();
    return String(std::move(buffer));
}

String String::ToLower() const
{
    if (IsNull())
        return String();
    auto buffer = newBuffer(upToZero(Latin1(), Length()));
    for (char& c : *buffer)
        c = Char(c).ToLower();
    return String(std::move(buffer));
}
