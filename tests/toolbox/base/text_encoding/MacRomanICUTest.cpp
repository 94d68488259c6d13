// The table of Mac OS Roman against ICU's own: every byte, and every unit of UTF-16.

#include "tests/toolbox/base/text_encoding/ICUMacRoman.h"
#include "toolbox/base/text_encoding/MacRoman.h"

#include <gtest/gtest.h>

namespace {

TEST(MacRomanAgainstIcu, HasTheSameCharacterForEveryByte)
{
    IcuMacRoman icu;
    for (unsigned byte = 0; byte < 256; ++byte) {
        const UInt8 text = static_cast<UInt8>(byte);
        UniChar unicode = 0;
        Toolbox::macRomanToUnicode(&text, 1, &unicode);
        EXPECT_EQ(icu.unicodeOf(static_cast<char>(byte)), std::optional(UChar(unicode))) << std::hex << byte;
    }
}

TEST(MacRomanAgainstIcu, HasTheSameByteForEveryUnit)
{
    IcuMacRoman icu;
    unsigned mapped = 0;
    for (unsigned unit = 0; unit <= 0xFFFF; ++unit) {
        const UniChar unicode = static_cast<UniChar>(unit);
        UInt8 text = 0;
        const bool isMapped = Toolbox::unicodeToMacRoman(&unicode, 1, &text) == 1;
        mapped += isMapped ? 1 : 0;
        const std::optional<char> ours = isMapped ? std::optional(static_cast<char>(text)) : std::nullopt;
        EXPECT_EQ(ours, icu.byteOf(static_cast<UChar>(unit))) << std::hex << unit;
    }
    EXPECT_EQ(mapped, 256u);
}

}  // namespace
