// The Text Encoding Converter's conversions between Mac OS Roman and UTF-16. All lengths are in bytes. Any number of
// threads may convert at once, with the same converter too.

#ifndef CARBON_UNICODECONVERTER_H
#define CARBON_UNICODECONVERTER_H

#include <Carbon/MacTypes.h>

CARBON_FUNCTIONS_BEGIN

typedef UInt32 TextEncoding;
typedef UInt32 TextEncodingBase;
typedef UInt32 TextEncodingVariant;
typedef UInt32 TextEncodingFormat;
typedef struct OpaqueTextToUnicodeInfo* TextToUnicodeInfo;
typedef struct OpaqueUnicodeToTextInfo* UnicodeToTextInfo;

enum {
    kTextEncodingMacRoman = 0,
    kTextEncodingDefaultVariant = 0,
    kTextEncodingDefaultFormat = 0,
};

enum {
    kTextUnsupportedEncodingErr = -8738,
    kTECPartialCharErr = -8753,             // the input ends within a unit
    kTECCorruptConverterErr = -8748,        // not a converter
    kTECUnmappableElementErr = -8754,       // the other encoding has no such character
    kTECBufferBelowMinimumSizeErr = -8750,  // not even the first element fits
    kTECOutputBufferFullStatus = -8785,     // what fitted is valid
};

/// The encoding of these three: the base in bits 0 to 15, the variant from bit 16, the format from bit 26.
TextEncoding CreateTextEncoding(TextEncodingBase base, TextEncodingVariant variant, TextEncodingFormat format);

/// A converter from `encoding` to UTF-16 in `*converter`. There is one for each encoding, handed out again at every
/// call, so that a caller who never disposes of it loses nothing.
/// Returns noErr; paramErr for a null `converter`; kTextUnsupportedEncodingErr, with `*converter` null, for any
/// encoding but Mac OS Roman.
OSStatus CreateTextToUnicodeInfoByEncoding(TextEncoding encoding, TextToUnicodeInfo* converter);

/// A converter from UTF-16 to `encoding`, on the same terms.
OSStatus CreateUnicodeToTextInfoByEncoding(TextEncoding encoding, UnicodeToTextInfo* converter);

/// Converts text to UTF-16 in machine order, two bytes for each one, without a terminator. `flags` must be 0, and no
/// offsets can be asked for: 0, null, null, null. `*sourceRead` and `*unicodeLength` tell what was done, also when the
/// buffer was too small. A `sourceLength` of 0 is noErr, 0 and 0 whatever the buffer and its size.
/// Returns noErr; kTECOutputBufferFullStatus when not all fitted, kTECBufferBelowMinimumSizeErr when nothing did;
/// kTECCorruptConverterErr for a wrong converter or one of the other way; paramErr for null where something is
/// needed and for what must be 0.
OSStatus ConvertFromTextToUnicode(TextToUnicodeInfo converter, ByteCount sourceLength, ConstLogicalAddress source,
    OptionBits flags, ItemCount offsetCount, const ByteOffset offsets[], ItemCount* offsetsUsed,
    ByteOffset resultOffsets[], ByteCount bufferSize, ByteCount* sourceRead, ByteCount* unicodeLength,
    UniChar unicode[]);

/// Converts UTF-16 to text, one byte for each unit, on the same terms and strictly: a character that the encoding
/// lacks, a surrogate included, stops it. `*sourceRead` and `*textLength` tell what was done before. Returns the above;
/// kTECUnmappableElementErr, unless the buffer was full first; kTECPartialCharErr when all but an odd last byte was
/// converted.
OSStatus ConvertFromUnicodeToText(UnicodeToTextInfo converter, ByteCount unicodeLength, const UniChar unicode[],
    OptionBits flags, ItemCount offsetCount, const ByteOffset offsets[], ItemCount* offsetsUsed,
    ByteOffset resultOffsets[], ByteCount bufferSize, ByteCount* sourceRead, ByteCount* textLength,
    LogicalAddress text);
CARBON_FUNCTIONS_END

#endif
