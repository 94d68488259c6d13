// Mac OS Roman as ICU has it: a second opinion on the toolbox's own table.

#ifndef TESTS_TOOLBOX_BASE_TEXT_ENCODING_ICUMACROMAN_H
#define TESTS_TOOLBOX_BASE_TEXT_ENCODING_ICUMACROMAN_H

#include <unicode/ucnv.h>
#include <unicode/ucnv_err.h>

#include <memory>
#include <optional>
#include <stdexcept>

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

    /// The unit of UTF-16 that `byte` stands for, if there is one.
    std::optional<UChar> unicodeOf(char byte)
    {
        UErrorCode error = U_ZERO_ERROR;
        UChar unicode[2] = {};
        const int units = ucnv_toUChars(m_converter.get(), unicode, 2, &byte, 1, &error);
        return U_SUCCESS(error) && units == 1 ? std::optional(unicode[0]) : std::nullopt;
    }

    /// The byte that stands for `unit`, if there is one.
    std::optional<char> byteOf(UChar unit)
    {
        UErrorCode error = U_ZERO_ERROR;
        char text[2] = {};
        const int bytes = ucnv_fromUChars(m_converter.get(), text, 2, &unit, 1, &error);
        return U_SUCCESS(error) && bytes == 1 ? std::optional(text[0]) : std::nullopt;
    }

private:
    struct Close {
        void operator()(UConverter* converter) const { ucnv_close(converter); }
    };

    std::unique_ptr<UConverter, Close> m_converter;
};

#endif
