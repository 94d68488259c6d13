// The Text Encoding Converter. It converts ASCII; any other unit cannot be mapped, and any other byte is U+FFFD.

#include <Carbon/Carbon.h>

#include "tests/double/Call.h"
#include "tests/double/State.h"

using namespace ToolboxDouble;

namespace {

struct Converter : Object { };

template <typename Info> OSStatus createConverter(const char* function, TextEncoding encoding, Info* converter)
{
    Call call(function, encoding);
    if (call.fails()) {
        *converter = wrongReference<Info>();
        return call.returnsStatus(call.failure());
    }
    *converter = referenceTo<Info>(add(std::make_unique<Converter>(), numbered("converter")));
    call.returnsStatus(noErr);
    call.gives(*converter);
    return noErr;
}

// The end of a conversion that has read `read` bytes and written `written`.
OSStatus finish(
    Call& call, OSStatus status, ByteCount read, ByteCount written, ByteCount* outRead, ByteCount* outWritten)
{
    *outRead = read;
    *outWritten = state().reportsLength ? state().reportedLength : written;
    call.returnsStatus(status);
    call.gives(*outRead);
    call.gives(*outWritten);
    return status;
}

}  // namespace

TextEncoding CreateTextEncoding(TextEncodingBase base, TextEncodingVariant variant, TextEncodingFormat format)
{
    Call call("CreateTextEncoding", base, variant, format);
    return call.returns<TextEncoding>(base | variant << 16 | format << 26);
}

OSStatus CreateTextToUnicodeInfoByEncoding(TextEncoding encoding, TextToUnicodeInfo* converter)
{
    return createConverter("CreateTextToUnicodeInfoByEncoding", encoding, converter);
}

OSStatus CreateUnicodeToTextInfoByEncoding(TextEncoding encoding, UnicodeToTextInfo* converter)
{
    return createConverter("CreateUnicodeToTextInfoByEncoding", encoding, converter);
}

OSStatus ConvertFromTextToUnicode(TextToUnicodeInfo converter, ByteCount sourceLength, ConstLogicalAddress source,
    OptionBits flags, ItemCount offsetCount, const ByteOffset offsets[], ItemCount* offsetsUsed,
    ByteOffset resultOffsets[], ByteCount bufferSize, ByteCount* sourceRead, ByteCount* unicodeLength,
    UniChar unicode[])
{
    const unsigned char* const bytes = static_cast<const unsigned char*>(source);
    Call call("ConvertFromTextToUnicode", converter, sourceLength, quoted(std::string(bytes, bytes + sourceLength)),
        flags, offsetCount, given(offsets != nullptr), given(offsetsUsed != nullptr), given(resultOffsets != nullptr),
        bufferSize);
    if (call.fails())
        return call.returnsStatus(call.failure());
    ByteCount done = 0;
    for (; done < sourceLength && 2 * done + 2 <= bufferSize; ++done)
        unicode[done] = bytes[done] < 0x80 ? bytes[done] : 0xFFFD;
    OSStatus status = noErr;
    if (done < sourceLength)
        status = kTECOutputBufferFullStatus;
    return finish(call, status, done, 2 * done, sourceRead, unicodeLength);
}

OSStatus ConvertFromUnicodeToText(UnicodeToTextInfo converter, ByteCount unicodeLength, const UniChar unicode[],
    OptionBits flags, ItemCount offsetCount, const ByteOffset offsets[], ItemCount* offsetsUsed,
    ByteOffset resultOffsets[], ByteCount bufferSize, ByteCount* sourceRead, ByteCount* textLength, LogicalAddress text)
{
    const ByteCount count = unicodeLength / 2;
    Call call("ConvertFromUnicodeToText", converter, unicodeLength, quoted(unicode, count), flags, offsetCount,
        given(offsets != nullptr), given(offsetsUsed != nullptr), given(resultOffsets != nullptr), bufferSize);
    if (call.fails())
        return call.returnsStatus(call.failure());
    ByteCount done = 0;
    for (; done < count && done < bufferSize && unicode[done] < 0x80; ++done)
        static_cast<char*>(text)[done] = static_cast<char>(unicode[done]);
    OSStatus status = noErr;
    if (done < count)
        status = done < bufferSize ? kTECUnmappableElementErr : kTECOutputBufferFullStatus;
    return finish(call, status, 2 * done, done, sourceRead, textLength);
}
