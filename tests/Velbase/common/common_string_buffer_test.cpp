#include "Velbase/common/common_string_buffer.h"
#include "string_contents.h"
#include "tests/support/Allocations.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <string>

namespace {

TEST(Write, CopiesAPieceOfAnyLengthAndNothingElse)
{
    const std::string text = "abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMN";
    for (std::size_t length = 0; length <= text.size(); ++length) {
        const std::string piece = text.substr(0, length);
        std::string to(length + 2, '-');
        EXPECT_EQ(velbase_private::write(&to[1], piece), &to[1] + length);
        EXPECT_EQ(to, "-" + piece + "-");
    }
}

// The longest text has 32 bits of length, and none is made on the way to one that is longer.
TEST(StringBuffer, LengthBeyond32BitsIsAFailedAllocation)
{
    const String text(std::string(0x10001, 'a').c_str());
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
