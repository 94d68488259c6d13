// The UTF-16 members with the toolbox's Text Encoding Converter.

#include "Velbase/common/common_string.h"
#include "string_contents.h"

#include <gtest/gtest.h>

#include <tuple>

namespace {

using namespace std::literals;

// UTF-16 in the library's own unit type.
std::vector<unsigned short> unitsOf(std::u16string_view text)
{
    std::vector<unsigned short> units(text.begin(), text.end());
    units.push_back(0);
    return units;
}

// What Unicode() gave, up to its terminator; none for a null array.
std::optional<std::u16string> textOf(const shared_array<unsigned short>& units)
{
    if (units.get() == nullptr)
        return std::nullopt;
    std::u16string text;
    for (std::size_t i = 0; units[i] != 0; ++i)
        text += static_cast<char16_t>(units[i]);
    return text;
}

// clang-format off
const std::tuple<const char*, std::string_view, std::u16string_view> UNICODE_CASES[] = {
    // name            bytes                  units
    {"Empty",          "",                    u""},
    {"OneCharacter",   "a",                   u"a"},
    {"Ascii",          "abc 123 ~",           u"abc 123 ~"},
    {"Controls",       "\x01\t\n\x7F",        u"\u0001\t\n\u007F"},
    {"Letters",        "\x8E\x9F\xA7",        u"\u00E9\u00FC\u00DF"},
    {"BeyondLatin1",   "\xCF\xF6\xDB\xAA",    u"\u0153\u02C6\u20AC\u2122"},
    {"Apple",          "\xF0",                u"\uF8FF"},
};
// clang-format on

TEST(StringUnicode, TextIsMacOSRoman)
{
    for (const auto& [name, bytes, units] : UNICODE_CASES) {
        SCOPED_TRACE(name);
        const String text(unitsOf(units).data());
        EXPECT_EQ(contents(text), bytes);
        EXPECT_TRUE(textOf(stringOf(bytes).Unicode()) == units);
    }
}

TEST(StringToUnicode, ArrayIsSharedByItsCopiesAndOutlivesTheString)
{
    shared_array<unsigned short> copy;
    {
        const shared_array<unsigned short> units = String("ab").Unicode();
        copy = units;
        EXPECT_EQ(units.get(), copy.get());
        EXPECT_EQ(units.use_count(), 2);
    }
    EXPECT_EQ(copy.use_count(), 1);
    EXPECT_TRUE(textOf(copy) == u"ab"sv);
}

}  // namespace
