// To UTF-16 and back, against a table of 256 units that ICU fills: the Text Encoding Converter with a buffer of any
// size, and the text library's members on top of it. The first byte is the buffer's size; the rest is converted, as
// bytes one way and as units the other.

#include "Velbase/common/common_string.h"
#include "fuzz/must_hold.h"
#include "tests/toolbox/base/text_encoding/ICUMacRoman.h"

#include <Carbon/Carbon.h>

#include <algorithm>
#include <cstring>
#include <memory>
#include <string>
#include <vector>

namespace {

typedef std::basic_string<UniChar> Units;

// Which unit a byte is, and which byte a unit is, in tables; no byte for a unit that has none.
struct Tables {
    Tables()
        : bytes(0x10000)
    {
        IcuMacRoman icu;
        for (unsigned byte = 0; byte < 256; ++byte) {
            units[byte] = icu.unicodeOf(static_cast<char>(byte)).value();
            bytes[units[byte]] = static_cast<char>(byte);
        }
    }

    UniChar units[256];
    std::vector<std::optional<char>> bytes;
};

const Tables& tables()
{
    static const Tables all;
    return all;
}

// ---- The model

Units unitsOf(const std::string& text)
{
    Units units;
    for (const char byte : text)
        units += tables().units[static_cast<unsigned char>(byte)];
    return units;
}

// The bytes of `units`, up to the first that has none.
std::string bytesOf(const Units& units)
{
    std::string text;
    for (const UniChar unit : units) {
        if (!tables().bytes[unit])
            break;
        text += *tables().bytes[unit];
    }
    return text;
}

// How a conversion ends that had to stop after `done` elements since the buffer was full.
OSStatus fullAfter(std::size_t done)
{
    return done == 0 ? kTECBufferBelowMinimumSizeErr : kTECOutputBufferFullStatus;
}

// ---- The Text Encoding Converter

TextEncoding macRoman()
{
    return CreateTextEncoding(kTextEncodingMacRoman, kTextEncodingDefaultVariant, kTextEncodingDefaultFormat);
}

void checkToUnicode(const std::string& text, ByteCount bufferSize)
{
    TextToUnicodeInfo converter = nullptr;
    mustHold(CreateTextToUnicodeInfoByEncoding(macRoman(), &converter) == noErr, "there is a converter to UTF-16");
    const auto buffer = std::make_unique<UniChar[]>(bufferSize / 2);
    ByteCount read = 0;
    ByteCount written = 0;
    const OSStatus status = ConvertFromTextToUnicode(converter, static_cast<ByteCount>(text.size()), text.data(), 0, 0,
        nullptr, nullptr, nullptr, bufferSize, &read, &written, buffer.get());

    const Units expected = unitsOf(text).substr(0, bufferSize / 2);
    const bool isWhole = expected.size() == text.size();
    mustHold(status == (isWhole ? OSStatus(noErr) : fullAfter(expected.size())), "the status to UTF-16");
    mustHold(read == expected.size() && written == 2 * expected.size(), "the lengths to UTF-16");
    mustHold(std::equal(expected.begin(), expected.end(), buffer.get()), "the units");
}

OSStatus statusOf(const Units& units, std::size_t bufferSize, std::size_t done, bool endsWithinUnit)
{
    if (done < units.size())
        return done == bufferSize ? fullAfter(done) : OSStatus(kTECUnmappableElementErr);
    return endsWithinUnit ? OSStatus(kTECPartialCharErr) : OSStatus(noErr);
}

void checkFromUnicode(const Units& units, ByteCount length, ByteCount bufferSize)
{
    UnicodeToTextInfo converter = nullptr;
    mustHold(CreateUnicodeToTextInfoByEncoding(macRoman(), &converter) == noErr, "there is a converter from UTF-16");
    const auto buffer = std::make_unique<char[]>(bufferSize);
    ByteCount read = 0;
    ByteCount written = 0;
    const OSStatus status = ConvertFromUnicodeToText(
        converter, length, units.data(), 0, 0, nullptr, nullptr, nullptr, bufferSize, &read, &written, buffer.get());

    const std::string expected = bytesOf(units).substr(0, bufferSize);
    mustHold(status == statusOf(units, bufferSize, expected.size(), length % 2 != 0), "the status from UTF-16");
    mustHold(read == 2 * expected.size() && written == expected.size(), "the lengths from UTF-16");
    mustHold(std::equal(expected.begin(), expected.end(), buffer.get()), "the bytes");
}

// ---- The text library

void checkUnicode(const std::string& text)
{
    const shared_array<unsigned short> array = String(text.c_str()).Unicode();
    const Units expected = unitsOf(text.c_str());
    mustHold(std::equal(expected.begin(), expected.end(), array.get()), "the units of a string");
    mustHold(array[expected.size()] == 0, "a zero after the units of a string");
}

void checkString(const Units& units)
{
    const Units expected = units.c_str();
    const std::string bytes = bytesOf(expected);
    const String string(units.c_str());
    mustHold(
        string.IsNull() == (bytes.size() < expected.size()), "a string of units that all have a byte, and no other");
    mustHold(string.IsNull() || bytes == string.Latin1(), "the bytes of a string");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const ByteCount bufferSize = size == 0 ? 0 : data[0];
    const std::string text(reinterpret_cast<const char*>(data) + std::min<std::size_t>(size, 1), size - (size != 0));
    Units units(text.size() / 2, 0);
    std::memcpy(units.data(), text.data(), 2 * units.size());

    checkToUnicode(text, bufferSize);
    checkFromUnicode(units, static_cast<ByteCount>(text.size()), bufferSize);
    checkUnicode(text);
    checkString(units);
    return 0;
}
