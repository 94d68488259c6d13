// The Text Encoding Converter's functions: what they accept, and how far they got.

#include "toolbox/base/TracedCall.h"
#include "toolbox/base/text_encoding/MacRoman.h"

#include <Carbon/UnicodeConverter.h>

#include <algorithm>

// The two converters have no state, so one of each serves every caller on every thread; a reference is its address.
struct OpaqueTextToUnicodeInfo { };
struct OpaqueUnicodeToTextInfo { };

namespace Toolbox {

namespace {

constexpr ByteCount UNIT = sizeof(UniChar);

OpaqueTextToUnicodeInfo textToUnicode;
OpaqueUnicodeToTextInfo unicodeToText;

template <typename Converter> OSStatus giveConverter(TextEncoding encoding, Converter& only, Converter** converter)
{
    if (converter == nullptr)
        return paramErr;
    const bool supported =
        encoding == CreateTextEncoding(kTextEncodingMacRoman, kTextEncodingDefaultVariant, kTextEncodingDefaultFormat);
    *converter = supported ? &only : nullptr;
    if (!supported)
        return kTextUnsupportedEncodingErr;
    return noErr;
}

// What both directions are given, and where they report to.
struct Conversion {
    ByteCount sourceLength;
    const void* source;
    OptionBits flags;
    bool wantsOffsets;
    ByteCount bufferSize;
    const void* buffer;
    ByteCount* sourceRead;
    ByteCount* resultLength;
};

// Sets both reports to nothing done, then judges the arguments.
template <typename Converter>
OSStatus checkArguments(const Conversion& given, const Converter* converter, const Converter& only)
{
    for (ByteCount* const report : {given.sourceRead, given.resultLength}) {
        if (report != nullptr)
            *report = 0;
    }
    if (converter == nullptr || given.sourceRead == nullptr || given.resultLength == nullptr)
        return paramErr;
    if (converter != &only)
        return kTECCorruptConverterErr;
    if (given.flags != 0 || given.wantsOffsets)
        return paramErr;
    const bool lacksBuffer = given.buffer == nullptr && given.bufferSize != 0;
    if (given.sourceLength != 0 && (given.source == nullptr || lacksBuffer))
        return paramErr;
    return noErr;
}

// How a conversion of `wanted` elements ended, of which `capacity` fit into the buffer and `done` were converted.
OSStatus outcome(ByteCount wanted, ByteCount capacity, ByteCount done)
{
    if (done < std::min(wanted, capacity))
        return kTECUnmappableElementErr;
    if (done == wanted)
        return noErr;
    return done == 0 ? kTECBufferBelowMinimumSizeErr : kTECOutputBufferFullStatus;
}

}  // namespace

}  // namespace Toolbox

using namespace Toolbox;

TextEncoding CreateTextEncoding(TextEncodingBase base, TextEncodingVariant variant, TextEncodingFormat format)
{
    TracedCall call("CreateTextEncoding", base, variant, format);
    return call.gives(static_cast<TextEncoding>((base & 0xFFFF) | (variant & 0x3FF) << 16 | (format & 0xF) << 26));
}

OSStatus CreateTextToUnicodeInfoByEncoding(TextEncoding encoding, TextToUnicodeInfo* converter)
{
    TracedCall call("CreateTextToUnicodeInfoByEncoding", encoding, converter);
    return call.gives(giveConverter(encoding, textToUnicode, converter));
}

OSStatus CreateUnicodeToTextInfoByEncoding(TextEncoding encoding, UnicodeToTextInfo* converter)
{
    TracedCall call("CreateUnicodeToTextInfoByEncoding", encoding, converter);
    return call.gives(giveConverter(encoding, unicodeToText, converter));
}

OSStatus ConvertFromTextToUnicode(TextToUnicodeInfo converter, ByteCount sourceLength, ConstLogicalAddress source,
    OptionBits flags, ItemCount offsetCount, const ByteOffset offsets[], ItemCount* offsetsUsed,
    ByteOffset resultOffsets[], ByteCount bufferSize, ByteCount* sourceRead, ByteCount* unicodeLength,
    UniChar unicode[])
{
    TracedCall call("ConvertFromTextToUnicode", converter, sourceLength, source, flags, offsetCount, offsets,
        offsetsUsed, resultOffsets, bufferSize, sourceRead, unicodeLength, unicode);
    const bool wantsOffsets =
        offsetCount != 0 || offsets != nullptr || offsetsUsed != nullptr || resultOffsets != nullptr;
    const OSStatus refusal =
        checkArguments({sourceLength, source, flags, wantsOffsets, bufferSize, unicode, sourceRead, unicodeLength},
            converter, textToUnicode);
    if (refusal != noErr)
        return call.gives(refusal);

    const ByteCount capacity = bufferSize / UNIT;
    const ByteCount done = std::min(sourceLength, capacity);
    macRomanToUnicode(static_cast<const UInt8*>(source), done, unicode);
    *sourceRead = done;
    *unicodeLength = done * UNIT;
    return call.gives(outcome(sourceLength, capacity, done));
}

OSStatus ConvertFromUnicodeToText(UnicodeToTextInfo converter, ByteCount unicodeLength, const UniChar unicode[],
    OptionBits flags, ItemCount offsetCount, const ByteOffset offsets[], ItemCount* offsetsUsed,
    ByteOffset resultOffsets[], ByteCount bufferSize, ByteCount* sourceRead, ByteCount* textLength, LogicalAddress text)
{
    TracedCall call("ConvertFromUnicodeToText", converter, unicodeLength, unicode, flags, offsetCount, offsets,
        offsetsUsed, resultOffsets, bufferSize, sourceRead, textLength, text);
    const bool wantsOffsets =
        offsetCount != 0 || offsets != nullptr || offsetsUsed != nullptr || resultOffsets != nullptr;
    const OSStatus refusal =
        checkArguments({unicodeLength, unicode, flags, wantsOffsets, bufferSize, text, sourceRead, textLength},
            converter, unicodeToText);
    if (refusal != noErr)
        return call.gives(refusal);

    const ByteCount units = unicodeLength / UNIT;
    const auto done =
        static_cast<ByteCount>(unicodeToMacRoman(unicode, std::min(units, bufferSize), static_cast<UInt8*>(text)));
    *sourceRead = done * UNIT;
    *textLength = done;
    const OSStatus result = outcome(units, bufferSize, done);
    const bool endsWithinUnit = unicodeLength % UNIT != 0;
    if (result == noErr && endsWithinUnit)
        return call.gives(OSStatus(kTECPartialCharErr));
    return call.gives(result);
}
