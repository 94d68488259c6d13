// What the tests compare of a String: whether it is null, its bytes, and whose buffer it has.

#ifndef TESTS_VELBASE_COMMON_STRING_CONTENTS_H
#define TESTS_VELBASE_COMMON_STRING_CONTENTS_H

#include "Velbase/common/common_string.h"

#include <optional>
#include <string>
#include <string_view>

/// The bytes of `text`, or none for a null string.
inline std::optional<std::string> contents(const String& text)
{
    if (text.IsNull())
        return std::nullopt;
    return std::string(text.Latin1(), text.Length());
}

/// What a table of tests expects or starts from: bytes that may be zero, or a null string.
typedef std::optional<std::string_view> Bytes;
constexpr Bytes NULL_STRING = std::nullopt;

/// A string with these `bytes`, zero bytes included.
inline String stringOf(const Bytes& bytes)
{
    if (!bytes)
        return String();
    String text("");
    for (unsigned i = static_cast<unsigned>(bytes->size()); i-- > 0;)  // the last one makes room for all
        text[i] = (*bytes)[i];
    return text;
}

/// Whether both have the same buffer. Null strings have none.
inline bool shareBuffer(const String& a, const String& b)
{
    return !a.IsNull() && a.Latin1() == b.Latin1();
}

#endif
