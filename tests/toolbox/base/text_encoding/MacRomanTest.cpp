// How the table of Mac OS Roman is used. MacRomanICUTest.cpp compares what is in it.

#include "toolbox/base/text_encoding/MacRoman.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <vector>

namespace {

using Toolbox::macRomanToUnicode;
using Toolbox::unicodeToMacRoman;

UniChar unicodeOf(unsigned byte)
{
    const UInt8 text = static_cast<UInt8>(byte);
    UniChar unicode = 0;
    macRomanToUnicode(&text, 1, &unicode);
    return unicode;
}

// The byte of `unit`, or -1.
int byteOf(unsigned unit)
{
    const UniChar unicode = static_cast<UniChar>(unit);
    UInt8 text = 0;
    return unicodeToMacRoman(&unicode, 1, &text) == 1 ? int(text) : -1;
}

// Text is converted in blocks of 16, ASCII apart: each character has to come out as it does alone, in every place of
// one and of several blocks, whole or not, whatever lies before and behind it.
template <typename Character, typename Expect>
void inEveryPlace(Character one, Character before, Character behind, Expect expect)
{
    for (const std::size_t length : {1u, 2u, 15u, 16u, 17u, 31u, 32u, 33u, 40u}) {
        for (std::size_t place = 0; place < length; ++place) {
            std::vector<Character> text(length, before);
            std::fill(text.begin() + std::ptrdiff_t(place), text.end(), behind);
            text[place] = one;
            expect(text);
        }
    }
}

TEST(MacRoman, ConvertsEveryByteAsAloneInEveryPlace)
{
    const auto expect = [](const std::vector<UInt8>& text) {
        std::vector<UniChar> expected;
        for (const UInt8 byte : text)
            expected.push_back(unicodeOf(byte));
        std::vector<UniChar> unicode(text.size());
        macRomanToUnicode(text.data(), text.size(), unicode.data());
        ASSERT_EQ(unicode, expected);
    };
    for (unsigned byte = 0; byte < 256; ++byte)
        inEveryPlace<UInt8>(static_cast<UInt8>(byte), 'a', 'a', expect);
}

TEST(MacRoman, ConvertsEveryUnitAsAloneInEveryPlaceAndStopsAtTheFirstThatItLacks)
{
    const auto expect = [](const std::vector<UniChar>& unicode) {
        std::vector<UInt8> expected;
        for (auto unit = unicode.begin(); unit != unicode.end() && byteOf(*unit) >= 0; ++unit)
            expected.push_back(static_cast<UInt8>(byteOf(*unit)));
        std::vector<UInt8> text(unicode.size(), '.');
        ASSERT_EQ(unicodeToMacRoman(unicode.data(), unicode.size(), text.data()), expected.size());
        expected.resize(unicode.size(), '.');
        ASSERT_EQ(text, expected) << "nothing is written behind what was converted";
    };
    std::vector<UniChar> units = {0x0080, 0x0100, 0x0400, 0x2126, 0x4100, 0x8061, 0xD83D, 0xFF61, 0xFFFF};
    for (unsigned byte = 0; byte < 256; ++byte)
        units.push_back(unicodeOf(byte));
    for (const UniChar unit : units)
        inEveryPlace<UniChar>(unit, 'a', 'a', expect);
    inEveryPlace<UniChar>(0, 0xE9, 0xE9, expect);
    inEveryPlace<UniChar>(0x4E00, 'a', 0x4E00, expect);
}

TEST(MacRoman, ConvertsABlockOfOneCharacterAsItConvertsTheCharacter)
{
    for (unsigned byte = 0; byte < 256; ++byte) {
        std::vector<UniChar> unicode(64);
        macRomanToUnicode(std::vector<UInt8>(64, static_cast<UInt8>(byte)).data(), 64, unicode.data());
        EXPECT_EQ(unicode, std::vector<UniChar>(64, unicodeOf(byte))) << byte;
    }
    for (unsigned unit = 0; unit <= 0xFFFF; ++unit) {
        UInt8 text[64] = {};
        const std::size_t done = unicodeToMacRoman(std::vector<UniChar>(64, UniChar(unit)).data(), 64, text);
        ASSERT_EQ(done, byteOf(unit) >= 0 ? 64u : 0u) << std::hex << unit;
        ASSERT_EQ(std::count(text, text + done, byteOf(unit)), std::ptrdiff_t(done)) << std::hex << unit;
    }
}

TEST(MacRoman, ConvertsNothingFromNowhere)
{
    macRomanToUnicode(nullptr, 0, nullptr);
    EXPECT_EQ(unicodeToMacRoman(nullptr, 0, nullptr), 0u);
}

}  // namespace
