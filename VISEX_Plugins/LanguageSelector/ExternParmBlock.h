// The record that the installer passes to its externals: 614 bytes, big-endian on every machine.
//
// The external reads the message and the current language, and writes the result flags or the chosen language. All
// other bytes are the installer's and are neither read nor written.

#ifndef VISEX_PLUGINS_LANGUAGESELECTOR_EXTERNPARMBLOCK_H
#define VISEX_PLUGINS_LANGUAGESELECTOR_EXTERNPARMBLOCK_H

#include <Carbon/Carbon.h>

#include <cstddef>
#include <cstdint>

/// A number stored with its most significant byte first, at any address, on every processor. It reads and is assigned
/// to like the number itself; on PowerPC that is the plain load and store.
/// `T` has at most four bytes. Trivial, so that a record of such fields can lie in whatever memory a host passes.
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

/// Languages are Mac OS language codes; HostContract.h has those of the menu.
/// The current one is a 32-bit number and the chosen one a 16-bit number, at places of their own: the installer gives
/// and takes them so.
struct ExternParmBlock {
    BigEndian<SInt16> message;  // what the installer asks for: MESSAGE_SELECT_LANGUAGE
    UInt8 installerBytes2[6];
    BigEndian<UInt32> resultFlags;  // RESULT_FLAG_UNKNOWN_MESSAGE; the other bits are the installer's
    UInt8 installerBytes12[570];
    BigEndian<UInt16> chosenLanguage;
    UInt8 installerBytes584[26];
    BigEndian<UInt32> currentLanguage;
};

static_assert(offsetof(ExternParmBlock, message) == 0, "16 bits at 0");
static_assert(offsetof(ExternParmBlock, resultFlags) == 8, "32 bits at 8");
static_assert(offsetof(ExternParmBlock, chosenLanguage) == 582, "16 bits at 582");
static_assert(offsetof(ExternParmBlock, currentLanguage) == 610, "32 bits at 610");
static_assert(sizeof(ExternParmBlock) == 614, "the last field ends the record");
static_assert(alignof(ExternParmBlock) == 1, "the record may lie anywhere");

#endif
