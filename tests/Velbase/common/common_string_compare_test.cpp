// Comparisons by example. tests/Velbase/property compares every two short texts.

#include "Velbase/common/common_string.h"
#include "string_contents.h"

#include <gtest/gtest.h>

namespace {

TEST(StringOrder, IsThatOfUnsignedBytes)
{
    EXPECT_TRUE(String("z") < "\xE9");
    EXPECT_FALSE(String("\xE9") < "z");
    EXPECT_TRUE(String("\x7F") < "\x80");
    for (const String& nothing : {String(), String("")}) {
        EXPECT_TRUE(nothing == "" && nothing == String("") && nothing == String());
        EXPECT_TRUE(nothing < "a" && nothing < String("a") && nothing <= String("a"));
        EXPECT_FALSE(String("a") == nothing || String("a") < nothing || String("a") <= nothing);
    }
    const char* const null = nullptr;
    for (const String& text : {String(), String(""), String("a")})
        EXPECT_FALSE(text == null || text < null || text <= null);
}

TEST(StringEnds, BeginsWithAndEndsWithTellThem)
{
    EXPECT_TRUE(String("abc").BeginsWith("ab"));
    EXPECT_FALSE(String("abc").BeginsWith("AB"));
    EXPECT_TRUE(String("abc").BeginsWith("AB", false));
    EXPECT_TRUE(String("ABC").EndsWith("bc", false));
    EXPECT_FALSE(String("bcd").EndsWith("abcd"));
    EXPECT_FALSE(String("bcd").BeginsWith("bcda"));
    EXPECT_TRUE(String().BeginsWith("") && String().EndsWith(""));
}

}  // namespace
