// The table of Mac OS Roman against ICU's own: every byte, and every unit of UTF-16.

#include "toolbox/text_encoding/MacRoman.h"

#include <memory>
#include <optional>

#include <gtest/gtest.h>
#include <unicode/ucnv.h>
#include <unicode/ucnv_err.h>

namespace {

struct CloseConverter {
    void operator()(UConverter* converter) const { ucnv_close(converter); }
};

class IcuMacRoman {
public:
    IcuMacRoman()
    {
        UErrorCode error = U_ZERO_ERROR;
        m_converter.reset(ucnv_open("macos-0_2-10.2", &error));
        if (U_FAILURE(error))
            throw std::runtime_error(u_errorName(error));
        // Without this, ICU also maps look-alikes.
        ucnv_setFallback(m_converter.get(), false);
        ucnv_setFromUCallBack(m_converter.get(), UCNV_FROM_U_CALLBACK_STOP, nullptr, nullptr, nullptr, &error);
        ucnv_setToUCallBack(m_converter.get(), UCNV_TO_U_CALLBACK_STOP, nullptr, nullptr, nullptr, &error);
        if (U_FAILURE(error))
            throw std::runtime_error(u_errorName(error));
    }

    std::optional<UChar> unicodeOf(char byte)
    {
        UErrorCode error = U_ZERO_ERROR;
        UChar unicode[2] = {};
        const int units = ucnv_toUChars(m_converter.get(), unicode, 2, &byte, 1, &error);
        return U_SUCCESS(error) && units == 1 ? std::optional(unicode[0]) : std::nullopt;
    }

    std::optional<char> byteOf(UChar unit)
    {
        UErrorCode error = U_ZERO_ERROR;
        char text[2] = {};
        const int bytes = ucnv_fromUChars(m_converter.get(), text, 2, &unit, 1, &error);
        return U_SUCCESS(error) && bytes == 1 ? std::optional(text[0]) : std::nullopt;
    }

private:
    std::unique_ptr<UConverter, CloseConverter> m_converter;
};

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
