// The library's explicit narrowings. Each names how many bits are kept and how they are read, so that no result depends
// on whether plain char is signed or on how wide the machine's words are.

#ifndef VELBASE_COMMON_CAST_H
#define VELBASE_COMMON_CAST_H

#include <cstdint>

/// The byte `c` read as unsigned: 0 to 255.
inline unsigned char unsigned_byte(char c)
{
    return static_cast<unsigned char>(c);
}

/// The low 8 bits of `word` read as signed: -128 to 127.
// Conversion to a narrower signed type keeps the low bits: so say GCC and clang for C++17, and C++20 for everyone.
inline signed char signed_byte(std::uint32_t word)
{
    return static_cast<signed char>(word);
}

/// The 32 bits of `word` read as signed: -2147483648 to 2147483647.
inline std::int32_t signed_word(std::uint32_t word)
{
    return static_cast<std::int32_t>(word);
}

#endif
