// Templates by example. tests/Velbase/property fills every short one, with arguments of every type.

#include "Velbase/common/common_string.h"
#include "string_contents.h"

#include <gtest/gtest.h>

namespace {

using namespace std::literals;

TEST(StringArg, FillsTheLeftmostPlaceholderOfTheLowestNumber)
{
    EXPECT_EQ(contents(String("%2 %1").Arg("a")), "%2 a");
    EXPECT_EQ(contents(String("%2 %1").Arg("a").Arg("b")), "b a");
    EXPECT_EQ(contents(String("%1 %1").Arg("x")), "x %1");
    EXPECT_EQ(contents(String("%0 and %1").Arg("x")), "x and %1");
    EXPECT_EQ(contents(String("%12").Arg("x")), "x2");
    EXPECT_EQ(contents(String("%%1").Arg("x")), "%x");
    EXPECT_EQ(contents(String("%/%:").Arg("x")), "%/%:x");
    EXPECT_EQ(contents(String("%1 %2").Arg("%0")), "%0 %2") << "the argument is not scanned in the same call";
    EXPECT_EQ(contents(String("value").Arg("x")), "valuex");
    EXPECT_EQ(contents(String("100%").Arg("x")), "100%x");
}

TEST(StringArg, SharesTheOnlyTextThatThereIs)
{
    const String x("x");
    for (const String& text : {String("%1"), String(""), String()})
        EXPECT_TRUE(shareBuffer(text.Arg(x), x)) << text.Latin1();
    for (const String& nothing : {String(""), String()})
        EXPECT_TRUE(shareBuffer(x.Arg(nothing), x));
}

TEST(StringArg, TakesTheTextOfAnyType)
{
    const String text("<%1>");
    EXPECT_EQ(contents(text.Arg(-1, 16)), "<FFFFFFFF>");
    EXPECT_EQ(contents(text.Arg(-1l, 16)), "<FFFFFFFF>");
    EXPECT_EQ(contents(text.Arg(short{-1}, 16)), "<-1>");
    EXPECT_EQ(contents(text.Arg(255u, 16)), "<FF>");
    EXPECT_EQ(contents(text.Arg(255u, 1)), "<255>");
    EXPECT_EQ(contents(text.Arg(-5ll, 8)), "<-5>");
    EXPECT_EQ(contents(text.Arg(1.5, 2, 'E')), "<1.50E+00>");
    EXPECT_EQ(contents(text.Arg(true)), "<true>");
    EXPECT_EQ(contents(text.Arg('\0')), "<\0>"sv);
    EXPECT_EQ(contents(text.Arg(String("xyz")[1])), "<y>");
    EXPECT_EQ(contents(text.Arg(static_cast<const char*>(nullptr))), "<>");
}

}  // namespace
