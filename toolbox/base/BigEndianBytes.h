// Bytes that come from a file. Its numbers are big-endian and lie at any address, so they are put together bytewise.

#ifndef TOOLBOX_BASE_BIGENDIANBYTES_H
#define TOOLBOX_BASE_BIGENDIANBYTES_H

#include <Carbon/MacTypes.h>

#include <cassert>
#include <cstddef>
#include <cstdint>

namespace Toolbox {

/// A view of bytes that somebody else keeps. Positions count from 0. A number or a part may be asked for only where
/// holds() is true of all of it.
class BigEndianBytes {
public:
    BigEndianBytes(const void* data, std::size_t length)
        : m_data(static_cast<const UInt8*>(data))
        , m_length(length)
    {
    }

    std::size_t length() const { return m_length; }
    const UInt8* data() const { return m_data; }

    /// Whether the `count` bytes from `position` on are all there. No value of the two makes it overflow.
    bool holds(std::size_t position, std::size_t count) const
    {
        return position <= m_length && count <= m_length - position;
    }

    /// The `count` bytes from `position` on.
    BigEndianBytes part(std::size_t position, std::size_t count) const
    {
        assert(holds(position, count));
        return BigEndianBytes(m_data + position, count);
    }

    /// Unsigned numbers of one to four bytes.
    std::uint32_t number8(std::size_t position) const { return number(position, 1); }
    std::uint32_t number16(std::size_t position) const { return number(position, 2); }
    std::uint32_t number24(std::size_t position) const { return number(position, 3); }
    std::uint32_t number32(std::size_t position) const { return number(position, 4); }

    /// A number of two bytes in two's complement.
    SInt16 signed16(std::size_t position) const { return static_cast<SInt16>(number16(position)); }

private:
    std::uint32_t number(std::size_t position, std::size_t bytes) const
    {
        assert(holds(position, bytes));
        std::uint32_t value = 0;
        for (std::size_t i = 0; i < bytes; ++i)
            value = value << 8 | m_data[position + i];
        return value;
    }

    const UInt8* m_data;
    std::size_t m_length;
};

}  // namespace Toolbox

#endif
