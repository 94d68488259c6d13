// Core Foundation's strings.

#ifndef COREFOUNDATION_CFSTRING_H
#define COREFOUNDATION_CFSTRING_H

#include <CoreFoundation/CFBase.h>

CARBON_FUNCTIONS_BEGIN

typedef UInt32 CFStringEncoding;

enum {
    kCFStringEncodingMacRoman = 0,
    kCFStringEncodingASCII = 0x0600,
    kCFStringEncodingUTF8 = 0x08000100,
};

/// A string of the NUL-terminated `text`. Null for a null text, for another encoding than the three above and for text
/// that is not valid in it; every text is valid Mac OS Roman. A byte order mark counts as a character. The caller's.
CFStringRef CFStringCreateWithCString(CFAllocatorRef allocator, const char* text, CFStringEncoding encoding);

/// A string of `count` UTF-16 units, taken as they are; with a count of 0 the pointer is not looked at.
/// Null for a negative count, or for null `units` with a count. The caller's.
CFStringRef CFStringCreateWithCharacters(CFAllocatorRef allocator, const UniChar* units, CFIndex count);

/// The string's own bytes, a length byte in front, for as long as the string lives. Null unless the string is at most
/// 255 bytes long and was made from Mac OS Roman text or is all ASCII, the encoding asked for being Mac OS Roman (or
/// ASCII, for ASCII text); null for a wrong reference. The empty string's are a length byte of 0.
ConstStringPtr CFStringGetPascalStringPtr(CFStringRef string, CFStringEncoding encoding);

/// The constant string of an ASCII literal: one object for equal texts, never released. Null for null and for text that
/// is not ASCII. Called through CFSTR.
CFStringRef __CFStringMakeConstantString(const char* text);

#define CFSTR(literal) __CFStringMakeConstantString("" literal "")
CARBON_FUNCTIONS_END

#endif
