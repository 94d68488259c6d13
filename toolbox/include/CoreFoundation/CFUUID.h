// Core Foundation's UUIDs. They are unique by their bytes: equal bytes are one object, however it was made.

#ifndef COREFOUNDATION_CFUUID_H
#define COREFOUNDATION_CFUUID_H

#include <CoreFoundation/CFBase.h>

CARBON_FUNCTIONS_BEGIN

typedef const struct __CFUUID* CFUUIDRef;

typedef struct CFUUIDBytes {
    UInt8 byte0;
    UInt8 byte1;
    UInt8 byte2;
    UInt8 byte3;
    UInt8 byte4;
    UInt8 byte5;
    UInt8 byte6;
    UInt8 byte7;
    UInt8 byte8;
    UInt8 byte9;
    UInt8 byte10;
    UInt8 byte11;
    UInt8 byte12;
    UInt8 byte13;
    UInt8 byte14;
    UInt8 byte15;
} CFUUIDBytes;

/// The UUID of these bytes, which never ends and is not released.
CFUUIDRef CFUUIDGetConstantUUIDWithBytes(CFAllocatorRef allocator, UInt8 byte0, UInt8 byte1, UInt8 byte2, UInt8 byte3,
    UInt8 byte4, UInt8 byte5, UInt8 byte6, UInt8 byte7, UInt8 byte8, UInt8 byte9, UInt8 byte10, UInt8 byte11,
    UInt8 byte12, UInt8 byte13, UInt8 byte14, UInt8 byte15);

/// The UUID of these bytes, the caller's.
CFUUIDRef CFUUIDCreateFromUUIDBytes(CFAllocatorRef allocator, CFUUIDBytes bytes);
CARBON_FUNCTIONS_END

#endif
