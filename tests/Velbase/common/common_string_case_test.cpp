#include "Velbase/common/common_string.h"
#include "string_contents.h"

#include <gtest/gtest.h>

namespace {

using namespace std::literals;

TEST(StringCase, IsThatOfTheAsciiLettersUpToTheFirstZeroByte)
{
    EXPECT_EQ(contents(String("Stra\337e").ToUpper()), "STRA\337E") << "sharp s stays as it is";
    EXPECT_EQ(contents(String("\xC9t\xE9").ToLower()), "\xC9t\xE9");
    EXPECT_EQ(contents(stringOf("ab\0cd"sv).ToUpper()), "AB");
    EXPECT_EQ(contents(String().ToLower()), NULL_STRING);
}

TEST(StringCase, EveryByteIsMappedAsItsCharIs)
{
    // In a text that is long enough for any vector instructions, and at every place of them.
    for (unsigned shift = 0; shift < 40; ++shift) {
        std::string bytes(shift, '.');
        std::string upper(bytes);
        std::string lower(bytes);
        for (int byte = 1; byte < 256; ++byte) {
            const Char c = static_cast<char>(byte);
            bytes += c;
            upper += c.ToUpper();
            lower += c.ToLower();
        }
        EXPECT_EQ(contents(String(bytes.c_str()).ToUpper()), upper);
        EXPECT_EQ(contents(String(bytes.c_str()).ToLower()), lower);
    }
}

}  // namespace
