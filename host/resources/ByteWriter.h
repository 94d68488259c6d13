// Puts big-endian numbers and bytes one after the other, as the classic file formats want them.

#ifndef HOST_RESOURCES_BYTEWRITER_H
#define HOST_RESOURCES_BYTEWRITER_H

#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

namespace Resources {

using Bytes = std::vector<std::uint8_t>;

/// Every call adds to the end, and returns the writer so that calls can be chained.
class ByteWriter {
public:
    ByteWriter& put8(unsigned number) { return put(number, 1); }
    ByteWriter& put16(unsigned number) { return put(number, 2); }
    ByteWriter& put24(unsigned number) { return put(number, 3); }
    ByteWriter& put32(unsigned number) { return put(number, 4); }

    ByteWriter& putZeros(std::size_t count)
    {
        m_bytes.insert(m_bytes.end(), count, 0);
        return *this;
    }

    ByteWriter& putBytes(const Bytes& bytes)
    {
        m_bytes.insert(m_bytes.end(), bytes.begin(), bytes.end());
        return *this;
    }

    ByteWriter& putText(std::string_view text)
    {
        m_bytes.insert(m_bytes.end(), text.begin(), text.end());
        return *this;
    }

    const Bytes& bytes() const { return m_bytes; }

private:
    // The low `width` bytes of `number`, the highest first.
    ByteWriter& put(unsigned number, int width)
    {
        for (int shift = 8 * (width - 1); shift >= 0; shift -= 8)
            m_bytes.push_back(static_cast<std::uint8_t>(number >> shift));
        return *this;
    }

    Bytes m_bytes;
};

}  // namespace Resources

#endif
