// The basic types of the Mac's C interfaces, by the platform's names and widths.
//
// This is the one place that tells a 32-bit machine from a 64-bit one. On the Mac's 32-bit target UInt32 is an
// unsigned long and Carbon's structures are packed to two bytes. Where long has eight bytes, UInt32 is an unsigned int,
// and structures keep their natural alignment, since a pointer that straddles words is undefined behaviour there.

#ifndef CARBON_MACTYPES_H
#define CARBON_MACTYPES_H

#include <stddef.h>

#if defined(__LP64__)
typedef unsigned int UInt32;
typedef int SInt32;
typedef long CFIndex;
#define CARBON_STRUCTURES_BEGIN
#define CARBON_STRUCTURES_END
#else
typedef unsigned long UInt32;
typedef long SInt32;
typedef SInt32 CFIndex;
#define CARBON_STRUCTURES_BEGIN _Pragma("pack(push, 2)")
#define CARBON_STRUCTURES_END _Pragma("pack(pop)")
#endif

#if defined(__cplusplus)
#define CARBON_FUNCTIONS_BEGIN extern "C" {
#define CARBON_FUNCTIONS_END }
#else
#define CARBON_FUNCTIONS_BEGIN
#define CARBON_FUNCTIONS_END
#endif

typedef unsigned char UInt8;
typedef signed char SInt8;
typedef unsigned short UInt16;
typedef signed short SInt16;

typedef unsigned char Boolean;  // 0 or 1; never bool, whose width differs between the machines

typedef SInt16 OSErr;
typedef SInt32 OSStatus;
typedef UInt32 FourCharCode;  // four characters, the first in the top byte
typedef FourCharCode OSType;
typedef FourCharCode ResType;
typedef UInt32 OptionBits;
typedef UInt32 ItemCount;
typedef UInt32 ByteCount;
typedef UInt32 ByteOffset;
typedef UInt32 UniCharCount;
typedef UInt16 UniChar;  // a UTF-16 unit in machine order

typedef long Size;
typedef char* Ptr;
typedef Ptr* Handle;  // to a master pointer, which the Memory Manager owns
typedef void* LogicalAddress;
typedef const void* ConstLogicalAddress;

typedef const unsigned char* ConstStringPtr;  // byte 0 is the length
typedef const unsigned char* ConstStr255Param;

CARBON_STRUCTURES_BEGIN
typedef struct Rect {
    SInt16 top;
    SInt16 left;
    SInt16 bottom;
    SInt16 right;
} Rect;
CARBON_STRUCTURES_END

enum {
    noErr = 0,
    paramErr = -50,
};

#endif
