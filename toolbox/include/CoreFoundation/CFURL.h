// Core Foundation's URLs, as far as they name files and folders.

#ifndef COREFOUNDATION_CFURL_H
#define COREFOUNDATION_CFURL_H

#include <Carbon/Files.h>
#include <CoreFoundation/CFBase.h>

CARBON_FUNCTIONS_BEGIN

typedef const struct __CFURL* CFURLRef;

/// The URL of the file or folder that `file` refers to. Null for a null or wrong reference. The caller's.
CFURLRef CFURLCreateFromFSRef(CFAllocatorRef allocator, const FSRef* file);

/// A reference to what is at `url` in `*file`. False when nothing is there, for a wrong URL and for null.
Boolean CFURLGetFSRef(CFURLRef url, FSRef* file);

/// The URL of the path in the `length` bytes at `path`, UTF-8. The disk is not looked at, so ".." stays; slashes at the
/// end are dropped, so `isFolder` makes no difference. A path that is not absolute is taken from the working directory
/// of this moment. Null for null, an empty path, or one that holds a zero byte. The caller's.
CFURLRef CFURLCreateFromFileSystemRepresentation(
    CFAllocatorRef allocator, const UInt8* path, CFIndex length, Boolean isFolder);

/// `url` with one more component, or with several, separated by slashes, and with none if `component` is empty; a slash
/// is added where one is needed. Null for wrong or null arguments and for a component that is no file name: one with a
/// zero or half a surrogate pair. The caller's.
CFURLRef CFURLCreateCopyAppendingPathComponent(
    CFAllocatorRef allocator, CFURLRef url, CFStringRef component, Boolean isFolder);

/// The path of `url` as UTF-8, NUL-terminated, in the `size` bytes at `path`; `resolve` is of no effect, since paths
/// are absolute here. False, with nothing written, when it does not fit, for a wrong URL and for null.
Boolean CFURLGetFileSystemRepresentation(CFURLRef url, Boolean resolve, UInt8* path, CFIndex size);
CARBON_FUNCTIONS_END

#endif
