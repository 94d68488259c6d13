// Text buffers of exactly the size that their text needs, made with one allocation for the characters. Private to
// String.

#ifndef VELBASE_COMMON_STRING_BUFFER_H
#define VELBASE_COMMON_STRING_BUFFER_H

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <initializer_list>
#include <limits>
#include <memory>
#include <new>
#include <string>
#include <string_view>

/// The bytes of `text` up to its zero byte, but at most `maxLength` of them. Nothing behind the zero byte is read.
inline std::string_view upToZero(const char* text, std::size_t maxLength)
{
    const void* const zero = std::memchr(text, '\0', maxLength);
    const char* const end = zero == nullptr ? text + maxLength : static_cast<const char*>(zero);
    return std::string_view(text, static_cast<std::size_t>(end - text));
}

/// `length` as a size, or std::bad_alloc for a length that String cannot tell or std::string not hold: it counts as a
/// failure to allocate, for which std::string would throw another exception.
inline std::size_t checkedLength(std::uint64_t length)
{
    const std::uint64_t longest =
        std::min<std::uint64_t>(std::numeric_limits<std::uint32_t>::max(), std::string().max_size());
    if (length > longest)
        throw std::bad_alloc();
    return static_cast<std::size_t>(length);
}

/// A buffer with the characters of `text`. Throws std::bad_alloc, also for a length beyond 32 bits.
inline std::unique_ptr<std::string> newBuffer(std::string_view text)
{
    return std::make_unique<std::string>(text.data(), checkedLength(text.size()));
}

/// A buffer with the `pieces` one behind the other. Throws as above.
std::unique_ptr<std::string> newBuffer(std::initializer_list<std::string_view> pieces);

/// A buffer of `length` zero bytes. Throws as above.
std::unique_ptr<std::string> newZeroBuffer(std::uint64_t length);

/// Puts a buffer together from pieces whose length is known in advance.
// Short pieces are collected first, since std::string takes longer to append than they take to copy; a short text is
// not given to std::string before it is complete.
class BufferWriter {
public:
    /// For a text of `length` bytes. Throws std::bad_alloc, also for a length beyond 32 bits.
    explicit BufferWriter(std::uint64_t length);

    /// Appends `piece`; all pieces together must not be longer than was said.
    void write(std::string_view piece)
    {
        if (piece.size() <= sizeof m_collected - m_used)
            collect(piece);
        else
            flushAndWrite(piece);
    }

    /// The buffer, once, when everything has been written. Throws std::bad_alloc.
    std::unique_ptr<std::string> finish();

private:
    void collect(std::string_view piece);
    void flushAndWrite(std::string_view piece);

    std::unique_ptr<std::string> m_buffer;  // none if all of the text will fit into m_collected
    std::size_t m_used;                     // how much there is in m_collected
    char m_collected[256];
};

inline void BufferWriter::collect(std::string_view piece)
{
    char* const to = m_collected + m_used;
    const char* const from = piece.data();
    const std::size_t length = piece.size();
    m_used += length;
    // Most pieces are a word or a separator: two copies of fixed size, which overlap, are faster than a call of memcpy.
    if (length >= 8 && length <= 16) {
        std::memcpy(to, from, 8);
        std::memcpy(to + length - 8, from + length - 8, 8);
    } else if (length >= 4 && length < 8) {
        std::memcpy(to, from, 4);
        std::memcpy(to + length - 4, from + length - 4, 4);
    } else if (length == 1) {
        *to = *from;
    } else if (length > 0) {
        std::memcpy(to, from, length);
    }
}

#endif
