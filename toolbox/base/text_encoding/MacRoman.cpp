#include "toolbox/base/text_encoding/MacRoman.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstring>
#include <limits>

namespace Toolbox {

namespace {

// The code points of the bytes 0x80 to 0xFF, as in Apple's mapping since Mac OS 8.5, which put the euro sign at 0xDB.
// clang-format off
constexpr std::array<UniChar, 128> UPPER_HALF = {
    0x00C4, 0x00C5, 0x00C7, 0x00C9, 0x00D1, 0x00D6, 0x00DC, 0x00E1, 0x00E0, 0x00E2, 0x00E4, 0x00E3, 0x00E5, 0x00E7, 0x00E9, 0x00E8,
    0x00EA, 0x00EB, 0x00ED, 0x00EC, 0x00EE, 0x00EF, 0x00F1, 0x00F3, 0x00F2, 0x00F4, 0x00F6, 0x00F5, 0x00FA, 0x00F9, 0x00FB, 0x00FC,
    0x2020, 0x00B0, 0x00A2, 0x00A3, 0x00A7, 0x2022, 0x00B6, 0x00DF, 0x00AE, 0x00A9, 0x2122, 0x00B4, 0x00A8, 0x2260, 0x00C6, 0x00D8,
    0x221E, 0x00B1, 0x2264, 0x2265, 0x00A5, 0x00B5, 0x2202, 0x2211, 0x220F, 0x03C0, 0x222B, 0x00AA, 0x00BA, 0x03A9, 0x00E6, 0x00F8,
    0x00BF, 0x00A1, 0x00AC, 0x221A, 0x0192, 0x2248, 0x2206, 0x00AB, 0x00BB, 0x2026, 0x00A0, 0x00C0, 0x00C3, 0x00D5, 0x0152, 0x0153,
    0x2013, 0x2014, 0x201C, 0x201D, 0x2018, 0x2019, 0x00F7, 0x25CA, 0x00FF, 0x0178, 0x2044, 0x20AC, 0x2039, 0x203A, 0xFB01, 0xFB02,
    0x2021, 0x00B7, 0x201A, 0x201E, 0x2030, 0x00C2, 0x00CA, 0x00C1, 0x00CB, 0x00C8, 0x00CD, 0x00CE, 0x00CF, 0x00CC, 0x00D3, 0x00D4,
    0xF8FF, 0x00D2, 0x00DA, 0x00DB, 0x00D9, 0x0131, 0x02C6, 0x02DC, 0x00AF, 0x02D8, 0x02D9, 0x02DA, 0x00B8, 0x02DD, 0x02DB, 0x02C7,
};
// clang-format on

constexpr std::array<UniChar, 256> makeUnicodes()
{
    std::array<UniChar, 256> unicodes = {};
    for (std::size_t byte = 0; byte < 256; ++byte)
        unicodes[byte] = byte < 128 ? static_cast<UniChar>(byte) : UPPER_HALF[byte - 128];
    return unicodes;
}

constexpr std::array<UniChar, 256> UNICODES = makeUnicodes();

// The way back. A unit that holds 0 has no character, but for unit 0 itself.
constexpr std::array<UInt8, 65536> makeBytes()
{
    std::array<UInt8, 65536> bytes = {};
    for (std::size_t byte = 0; byte < 256; ++byte)
        bytes[UNICODES[byte]] = static_cast<UInt8>(byte);
    return bytes;
}

constexpr std::array<UInt8, 65536> BYTES = makeBytes();

// ASCII is most of any text and needs no table: blocks of this many characters take a third of the time.
constexpr std::size_t BLOCK = 16;

// Converts the BLOCK elements from `source` on, if they are all ASCII. By way of local copies: the compiler then knows
// that source and result do not overlap, and makes a few vector instructions of the loop; and words are tested in half
// the time of elements.
template <typename From, typename To> bool convertAsciiBlock(const From* source, To* result)
{
    std::array<From, BLOCK> from;
    std::memcpy(from.data(), source, sizeof from);
    std::array<std::uint64_t, sizeof from / sizeof(std::uint64_t)> words;
    std::memcpy(words.data(), source, sizeof words);
    std::uint64_t seen = 0;
    for (const std::uint64_t word : words)
        seen |= word;
    constexpr std::uint64_t largest = std::numeric_limits<From>::max();
    constexpr std::uint64_t beyondAscii = ~std::uint64_t(0) / largest * (largest - 0x7F);
    if ((seen & beyondAscii) != 0)
        return false;
    for (std::size_t i = 0; i < BLOCK; ++i)
        result[i] = static_cast<To>(from[i]);
    return true;
}

}  // namespace

void macRomanToUnicode(const UInt8* text, std::size_t count, UniChar* unicode)
{
    std::size_t i = 0;
    for (; count - i >= BLOCK; i += BLOCK) {
        if (convertAsciiBlock(text + i, unicode + i))
            continue;
        // A fixed number of times, which saves a tenth.
        for (std::size_t j = i; j < i + BLOCK; ++j)
            unicode[j] = UNICODES[text[j]];
    }
    for (; i < count; ++i)
        unicode[i] = UNICODES[text[i]];
}

std::size_t unicodeToMacRoman(const UniChar* unicode, std::size_t count, UInt8* text)
{
    std::size_t i = 0;
    while (i < count) {
        if (count - i >= BLOCK && convertAsciiBlock(unicode + i, text + i)) {
            i += BLOCK;
            continue;
        }
        for (const std::size_t end = std::min(count, i + BLOCK); i < end; ++i) {
            const UInt8 byte = BYTES[unicode[i]];
            if (byte == 0 && unicode[i] != 0)
                return i;
            text[i] = byte;
        }
    }
    return i;
}

}  // namespace Toolbox
