// Owner of a Core Foundation string, for the texts that alerts are given.

#ifndef UTIL_CFSTRING_H
#define UTIL_CFSTRING_H

#include <CoreFoundation/CoreFoundation.h>

#include <cstdint>

namespace Util {

/// Makes a Core Foundation string and, if it is asked to, releases it at the end of its own life.
class CFString {
public:
    /// Release: the string is released with its owner. Keep, and any other value: it is not, and whoever took it with
    /// Get() has it.
    enum ReleaseBehavior : int { Release, Keep };

    /// The `length` UTF-16 units at `chars`; with a `length` of 0 the pointer is not looked at.
    CFString(const unsigned short* chars, unsigned length, ReleaseBehavior behavior);

    /// The zero-terminated `text`, read as Mac OS Roman. `text` must not be null.
    CFString(const char* text, ReleaseBehavior behavior);

    ~CFString();

    CFString(const CFString&) = delete;
    CFString& operator=(const CFString&) = delete;

    /// The string, which stays the owner's; null if it could not be made.
    CFStringRef Get() const { return m_string; }

private:
    std::uint32_t m_release;  // a word, not a bool: a bool is 4 bytes on the target and 1 elsewhere
    CFStringRef m_string;
};

}  // namespace Util

#endif
