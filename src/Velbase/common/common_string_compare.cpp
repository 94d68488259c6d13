// The operators, and what a text begins and ends with.

#include "Velbase/common/common_string.h"

#include <cstring>

namespace {

// Below, at or above 0 as `lhs` sorts before, with or after `rhs`; null pointers are equal and sort first.
int StringCompare(const char* lhs, const char* rhs)
{
    if (lhs == rhs)
        return 0;
    if (lhs == nullptr || rhs == nullptr)
        return lhs == nullptr ? -1 : 1;
    return std::strcmp(lhs, rhs);
}

// Whether two pieces of `length` bytes are equal as C strings.
bool isEqualPiece(const char* a, const char* b, unsigned length)
{
    // Equal bytes are an equal text; others may differ only behind a zero byte. memcmp first saves a sixth of the time.
    return std::memcmp(a, b, length) == 0 || std::strncmp(a, b, length) == 0;
}

}  // namespace

bool operator==(const String& a, const String& b)
{
    return StringCompare(a.Latin1(), b.Latin1()) == 0;
}

bool operator==(const String& a, const char* b)
{
    return StringCompare(a.Latin1(), b) == 0;
}

bool operator<(const String& a, const String& b)
{
    return StringCompare(a.Latin1(), b.Latin1()) < 0;
}

bool operator<(const String& a, const char* b)
{
    return StringCompare(a.Latin1(), b) < 0;
}

bool operator<=(const String& a, const String& b)
{
    return StringCompare(a.Latin1(), b.Latin1()) <= 0;
}

bool operator<=(const String& a, const char* b)
{
    return StringCompare(a.Latin1(), b) <= 0;
}

// Without case the lowered copies are made: they are what defines which letters are alike.

bool String::BeginsWith(const String& other, bool caseSensitive) const
{
    const unsigned length = other.Length();
    if (Length() < length)
        return false;
    if (caseSensitive)
        return isEqualPiece(Latin1(), other.Latin1(), length);
    return std::strcmp(lowered(view().substr(0, length))->characters(), lowered(other.view())->characters()) == 0;
}

bool String::EndsWith(const String& other, bool caseSensitive) const
{
    const unsigned length = other.Length();
    if (Length() < length)
        return false;
    if (caseSensitive)
        return isEqualPiece(Latin1() + (Length() - length), other.Latin1(), length);
    return std::strcmp(lowered(view().substr(Length() - length))->characters(), lowered(other.view())->characters())
        == 0;
}
