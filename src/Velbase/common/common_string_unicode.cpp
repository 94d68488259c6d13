// To and from UTF-16, through the platform's Text Encoding Converter. No other source of the library needs the
// platform, so that a program which does not call these members links without it.

#include "Velbase/common/common_string.h"
#include "Velbase/common/common_string_buffer.h"

#include <Carbon/Carbon.h>

#include <cstring>

namespace {

// A text without an end in its first so many units is given up.
const unsigned TOO_LONG = 100000;

TextEncoding macRoman()
{
    return CreateTextEncoding(kTextEncodingMacRoman, kTextEncodingDefaultVariant, kTextEncodingDefaultFormat);
}

// How many units there are before the terminating zero, or TOO_LONG.
unsigned countUnits(const unsigned short* text)
{
    for (unsigned count = 0; count < TOO_LONG; count += 8) {
        for (unsigned i = 0; i < 8; ++i) {
            if (text[count + i] == 0)
                return count + i;
        }
    }
    return TOO_LONG;
}

}  // namespace

// The converters are made on every call and never disposed of, on purpose.

String::String(const unsigned short* text)
    : String()
{
    if (text == nullptr)
        return;
    if (text[0] == 0) {
        *this = String("");
        return;
    }
    UnicodeToTextInfo converter = nullptr;
    if (CreateUnicodeToTextInfoByEncoding(macRoman(), &converter) != noErr)
        return;
    const unsigned count = countUnits(text);
    if (count == TOO_LONG)
        return;

    auto buffer = Buffer::make(count);
    std::memset(buffer->characters(), 0, count);
    ByteCount read = 0;
    ByteCount written = 0;
    if (ConvertFromUnicodeToText(converter, count * 2, text, 0, 0, nullptr, nullptr, nullptr, count + 1, &read,
            &written, buffer->characters())
        != noErr)
        return;
    buffer->truncate(static_cast<std::uint32_t>(velbase_private::upToZero({buffer->characters(), count}).size()));
    m_text.reset(buffer.release());
}

shared_array<unsigned short> String::Unicode() const
{
    TextToUnicodeInfo converter = nullptr;
    if (CreateTextToUnicodeInfoByEncoding(macRoman(), &converter) != noErr)
        return shared_array<unsigned short>();
    const std::string_view source = Latin1();
    if (source.size() >= TOO_LONG)
        return shared_array<unsigned short>();

    const unsigned count = static_cast<unsigned>(source.size());
    const shared_array<unsigned short> units(new unsigned short[count + 1]);
    ByteCount read = 0;
    ByteCount written = 0;
    const OSStatus status = ConvertFromTextToUnicode(
        converter, count, source.data(), 0, 0, nullptr, nullptr, nullptr, count * 2, &read, &written, units.get());
    if (status != noErr || written / 2 > count)
        return shared_array<unsigned short>();
    units[written / 2] = 0;
    return units;
}
