#include "Velbase/common/common_string_buffer.h"
#include "string_contents.h"
#include "tests/support/Allocations.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <string>

namespace {

using namespace std::literals;

// `length` characters that are not all alike, so that one out of place shows.
std::string textOf(std::size_t length, char first = 'a')
{
    std::string text;
    for (std::size_t i = 0; i < length; ++i)
        text += static_cast<char>(first + static_cast<char>(i % 23));
    return text;
}

TEST(UpToZero, EndsAtTheZeroByte)
{
    EXPECT_EQ(velbase_private::upToZero("abc"), "abc");
    EXPECT_EQ(velbase_private::upToZero(""), "");
    EXPECT_EQ(velbase_private::upToZero("a\0c"sv), "a");
    EXPECT_EQ(velbase_private::upToZero("\0c"sv), "");
}

TEST(Write, CopiesAPieceOfAnyLengthAndNothingElse)
{
    for (std::size_t length = 0; length <= 40; ++length) {
        std::string to(length + 2, '-');
        const std::string piece = textOf(length);
        EXPECT_EQ(velbase_private::write(&to[1], piece), &to[1] + length);
        EXPECT_EQ(to, "-" + piece + "-");
    }
}

// The longest text has 32 bits of length, and none is made on the way to one that is longer.
TEST(StringBuffer, LengthBeyond32BitsIsAFailedAllocation)
{
    const String text(textOf(0x10001).c_str());
    const std::vector<String> parts(0xFFFF, text);  // 0xFFFF * 0x10001 is 0xFFFFFFFF
    EXPECT_THROW((void)String::Join("x", parts), std::bad_alloc);
    EXPECT_THROW((void)String::Join(text, std::vector<String>(0x10001)), std::bad_alloc);
    String pattern(std::string(0x10001, 'x').c_str());
    EXPECT_THROW((void)pattern.Replace("x", text), std::bad_alloc);

    String grown("abc");
    const std::size_t allocated =
        allocations::countIn([&] { EXPECT_THROW(grown.detachAndExtend(0xFFFFFFFF), std::bad_alloc); });
    EXPECT_EQ(allocated, 0u);
    EXPECT_EQ(contents(grown), "abc");
    // The longest is asked for, where the memory can have it.
    if (sizeof(std::size_t) > sizeof(std::uint32_t)) {
        EXPECT_TRUE(allocations::refusing(0, [&] { grown.detachAndExtend(0xFFFFFFFE); }));
    }
}

}  // namespace
