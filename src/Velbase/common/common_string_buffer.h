// What the members of String share that write into new buffers. Private to String.

#ifndef VELBASE_COMMON_STRING_BUFFER_H
#define VELBASE_COMMON_STRING_BUFFER_H

#include <cstddef>
#include <cstring>
#include <string_view>

namespace velbase_private {

/// The first bytes of `text`, up to its first zero byte.
inline std::string_view upToZero(std::string_view text)
{
    const void* const zero = std::memchr(text.data(), '\0', text.size());
    return zero == nullptr ? text
                           : text.substr(0, static_cast<std::size_t>(static_cast<const char*>(zero) - text.data()));
}

/// Writes `piece` to `to`. The place behind it.
// Most pieces are a word or a separator: two copies of fixed size, which overlap, halve the time of joining, where
// memcpy would be called for each.
inline char* write(char* to, std::string_view piece)
{
    const char* const from = piece.data();
    const std::size_t length = piece.size();
    if (length >= 8 && length <= 16) {
        std::memcpy(to, from, 8);
        std::memcpy(to + length - 8, from + length - 8, 8);
    } else if (length >= 4 && length < 8) {
        std::memcpy(to, from, 4);
        std::memcpy(to + length - 4, from + length - 4, 4);
    } else if (length == 1) {
        *to = *from;
    } else {
        std::memcpy(to, from, length);
    }
    return to + length;
}

}  // namespace velbase_private

#endif
