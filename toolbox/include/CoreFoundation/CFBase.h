// Core Foundation's base: references, their counts and equality.
//
// Ownership stands in the verb. What a function with Create or Copy in its name returns is the caller's, to be given to
// CFRelease once; what one with Get returns is borrowed.

#ifndef COREFOUNDATION_CFBASE_H
#define COREFOUNDATION_CFBASE_H

#include <Carbon/MacTypes.h>

CARBON_FUNCTIONS_BEGIN

typedef const void* CFTypeRef;
typedef const struct __CFAllocator* CFAllocatorRef;
typedef const struct __CFString* CFStringRef;

/// The allocators that a Create function may be given. There is one way to allocate here, so each means the same.
extern const CFAllocatorRef kCFAllocatorDefault;  // null
extern const CFAllocatorRef kCFAllocatorSystemDefault;

/// One owner of `object` less; the last one's release ends it. Constant objects never end.
/// The platform ends the process for null; here null and wrong references are left as they are.
void CFRelease(CFTypeRef object);

/// Whether two objects are the same, or are strings of one text, URLs of one path or arrays of equal elements. False
/// for null and wrong references.
Boolean CFEqual(CFTypeRef first, CFTypeRef second);
CARBON_FUNCTIONS_END

#endif
