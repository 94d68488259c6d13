// A number of a record whose layout is fixed in bytes: stored with its most significant byte first, at any address, on
// every processor. It reads and is assigned to like the number itself. On PowerPC that is the plain load and store.

#ifndef VISEX_PLUGINS_LANGUAGESELECTOR_BIGENDIAN_H
#define VISEX_PLUGINS_LANGUAGESELECTOR_BIGENDIAN_H

#include <cstddef>
#include <cstdint>

/// The integer type `T`, of at most four bytes, without alignment. Trivial, so that a record of such fields can lie in
/// whatever memory a host passes.
template <typename T> class BigEndian {
public:
    /// The number.
    operator T() const
    {
        std::uint32_t bits = 0;
        for (const unsigned char byte : m_bytes)
            bits = bits << 8 | byte;
        return static_cast<T>(bits);
    }

    /// Stores `number`.
    BigEndian& operator=(T number)
    {
        std::uint32_t bits = static_cast<std::uint32_t>(number);
        for (std::size_t i = sizeof(T); i > 0; --i) {
            m_bytes[i - 1] = static_cast<unsigned char>(bits & 0xFF);
            bits >>= 8;
        }
        return *this;
    }

private:
    static_assert(sizeof(T) <= sizeof(std::uint32_t), "the number is put together in 32 bits");

    unsigned char m_bytes[sizeof(T)];
};

#endif
