// Text buffers of exactly the size that their text needs, made with one allocation for the characters. Private to
// String.

#ifndef VELBASE_COMMON_STRING_BUFFER_H
#define VELBASE_COMMON_STRING_BUFFER_H

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <initializer_list>
#include <memory>
#include <string>
#include <string_view>

/// The bytes of `text` up to its zero byte, but at most `maxLength` of them. Nothing behind the zero byte is read.
inline std::string_view upToZero(const char* text, std::size_t maxLength)
{
    const void* const zero = std::memchr(text, '\0', maxLength);
    return std::string_view(
        text, zero == nullptr ? maxLength : static_cast<std::size_t>(static_cast<const char*>(zero) - text));
}

/// An empty buffer with room for `length` characters. Throws std::bad_alloc, also for a length beyond 32 bits.
std::unique_ptr<std::string> newBuffer(std::uint64_t length);

/// A buffer with the characters of `text`. Throws std::bad_alloc, also for a text longer than 32 bits can say.
std::unique_ptr<std::string> newBuffer(std::string_view text);

/// A buffer with the `pieces` one behind the other. Throws as above.
std::unique_ptr<std::string> newBuffer(std::initializer_list<std::string_view> pieces);

#endif
