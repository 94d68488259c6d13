#include "Velbase/common/common_checked_types.h"

#include <gtest/gtest.h>

#include <cstring>

namespace {

TEST(CheckedUint, DefaultIsNotGivenAndReadsAsZero)
{
    const checked_uint none;
    EXPECT_FALSE(none.valid());
    EXPECT_EQ(none.value(), 0u);
}

TEST(CheckedUint, NumberIsGivenWithItsValue)
{
    for (const unsigned number : {0u, 1u, 0x7FFFFFFFu, 0x80000000u, 0xFFFFFFFFu}) {
        const checked_uint given = number;
        EXPECT_TRUE(given.valid());
        EXPECT_EQ(given.value(), number);
    }
}

TEST(CheckedUint, IsTwoWordsTheValueAndTheFlag)
{
    const checked_uint none;
    const checked_uint given = 0xFFFFFFFFu;
    std::uint32_t words[2];
    std::memcpy(words, &none, sizeof words);
    EXPECT_EQ(words[0], 0u);
    EXPECT_EQ(words[1], 0u);
    std::memcpy(words, &given, sizeof words);
    EXPECT_EQ(words[0], 0xFFFFFFFFu);
    EXPECT_NE(words[1], 0u);
}

}  // namespace
