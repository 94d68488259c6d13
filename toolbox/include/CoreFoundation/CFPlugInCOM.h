// The interface that every plug-in instance begins with, in the manner of COM: the instance points to a record whose
// first word points to a table of functions. The result codes are the Mac's, not Microsoft's.

#ifndef COREFOUNDATION_CFPLUGINCOM_H
#define COREFOUNDATION_CFPLUGINCOM_H

#include <CoreFoundation/CFUUID.h>

CARBON_FUNCTIONS_BEGIN

typedef SInt32 HRESULT;
typedef UInt32 ULONG;
typedef void* LPVOID;
typedef CFUUIDBytes REFIID;  // by value

#define S_OK ((HRESULT)0)
#define E_NOINTERFACE ((HRESULT)0x80000004)
CARBON_FUNCTIONS_END

#endif
