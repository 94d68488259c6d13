#include "Velbase/common/common_cast.h"

#include <gtest/gtest.h>

namespace {

TEST(UnsignedByte, ReadsEveryByteFrom0To255)
{
    for (int byte = 0; byte < 256; ++byte)
        EXPECT_EQ(unsigned_byte(static_cast<char>(byte)), byte);
}

TEST(SignedByte, ReadsTheLow8BitsFromMinus128To127)
{
    for (int byte = 0; byte < 256; ++byte) {
        const int expected = byte < 128 ? byte : byte - 256;
        EXPECT_EQ(signed_byte(static_cast<std::uint32_t>(byte)), expected);
        EXPECT_EQ(signed_byte(0xABCDEF00u + static_cast<std::uint32_t>(byte)), expected);
    }
}

TEST(SignedWord, ReadsThe32BitsAsTwosComplement)
{
    EXPECT_EQ(signed_word(0), 0);
    EXPECT_EQ(signed_word(1), 1);
    EXPECT_EQ(signed_word(0x7FFFFFFF), 2147483647);
    EXPECT_EQ(signed_word(0x80000000), -2147483647 - 1);
    EXPECT_EQ(signed_word(0x80000001), -2147483647);
    EXPECT_EQ(signed_word(0xFFFFFFFF), -1);
}

}  // namespace
