// Core Foundation's arrays, as the plug-in services hand them out.

#ifndef COREFOUNDATION_CFARRAY_H
#define COREFOUNDATION_CFARRAY_H

#include <CoreFoundation/CFBase.h>

CARBON_FUNCTIONS_BEGIN

typedef const struct __CFArray* CFArrayRef;

/// The number of elements; 0 for a wrong reference.
CFIndex CFArrayGetCount(CFArrayRef array);

/// The element at `index`, from 0. It stays the array's. Null out of range and for a wrong reference.
const void* CFArrayGetValueAtIndex(CFArrayRef array, CFIndex index);
CARBON_FUNCTIONS_END

#endif
