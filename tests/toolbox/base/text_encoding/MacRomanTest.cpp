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

// Text is converted in blocks of 16, ASCII apart: each unit has to come out the same in every place of one and of
// several blocks, whole or not.
constexpr std::size_t LENGTHS[] = {1, 2, 15, 16, 17, 31, 32, 33, 40};

TEST(MacRoman, ConvertsEveryByteAlikeInEveryPlace)
{
    for (unsigned byte = 0; byte < 256; ++byte) {
        for (const std::size_t length : LENGTHS) {
            for (std::size_t place = 0; place < length; ++place) {
                std::vector<UInt8> text(length, 'a');
                text[place] = static_cast<UInt8>(byte);
                std::vector<UniChar> unicode(length);
                macRomanToUnicode(text.data(), length, unicode.data());
                std::vector<UniChar> expected(length, 'a');
                expected[place] = unicodeOf(byte);
                ASSERT_EQ(unicode, expected) << byte << " in place " << place << " of " << length;
            }
        }
    }
}

TEST(MacRoman, ConvertsEveryUnitAlikeInEveryPlace)
{
    std::vector<unsigned> units;
    for (unsigned byte = 0; byte < 256; ++byte)
        units.push_back(unicodeOf(byte));
    for (unsigned unit : {0x0080u, 0x0100u, 0x0400u, 0x2126u, 0x4100u, 0x8061u, 0xD83Du, 0xFF61u, 0xFFFFu})
        units.push_back(unit);
    for (const unsigned unit : units) {
        for (const std::size_t length : LENGTHS) {
            for (std::size_t place = 0; place < length; ++place) {
                std::vector<UniChar> unicode(length, 'a');
                unicode[place] = static_cast<UniChar>(unit);
                std::vector<UInt8> text(length, '.');
                const int byte = byteOf(unit);
                std::vector<UInt8> expected(length, 'a');
                if (byte >= 0)
                    expected[place] = static_cast<UInt8>(byte);
                const std::size_t done = unicodeToMacRoman(unicode.data(), length, text.data());
                ASSERT_EQ(done, byte >= 0 ? length : place) << unit << " in place " << place << " of " << length;
                ASSERT_TRUE(std::equal(text.begin(), text.begin() + std::ptrdiff_t(done), expected.begin()));
            }
        }
    }
}

TEST(MacRoman, ConvertsZeroUnitsAmongOthers)
{
    for (std::size_t place = 0; place < 150; ++place) {
        std::vector<UniChar> unicode(150, unicodeOf(0x8E));
        unicode[place] = 0;
        std::vector<UInt8> text(150, '.');
        std::vector<UInt8> expected(150, 0x8E);
        expected[place] = 0;
        ASSERT_EQ(unicodeToMacRoman(unicode.data(), unicode.size(), text.data()), unicode.size());
        ASSERT_EQ(text, expected) << "a zero in place " << place;
    }
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

TEST(MacRoman, StopsAtTheFirstOfSeveralUnitsThatItLacks)
{
    for (std::size_t first = 0; first < 150; ++first) {
        std::vector<UniChar> unicode(150, 'a');
        std::fill(unicode.begin() + std::ptrdiff_t(first), unicode.end(), UniChar(0x4E00));
        std::vector<UInt8> text(150, '.');
        ASSERT_EQ(unicodeToMacRoman(unicode.data(), unicode.size(), text.data()), first);
        ASSERT_EQ(text[first], '.') << "nothing is written behind what was converted";
    }
}

TEST(MacRoman, ConvertsNothingFromNowhere)
{
    macRomanToUnicode(nullptr, 0, nullptr);
    EXPECT_EQ(unicodeToMacRoman(nullptr, 0, nullptr), 0u);
}

}  // namespace
