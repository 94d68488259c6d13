#include "util/CFString.h"

#include <cstddef>

namespace Util {

CFString::CFString(const unsigned short* chars, unsigned length, ReleaseBehavior behavior)
    : m_release(behavior == Release)
    , m_string(CFStringCreateWithCharacters(nullptr, chars, static_cast<CFIndex>(length)))
{
}

CFString::CFString(const char* text, ReleaseBehavior behavior)
    : m_release(behavior == Release)
    , m_string(CFStringCreateWithCString(nullptr, text, kCFStringEncodingMacRoman))
{
}

CFString::~CFString()
{
    static_assert(offsetof(CFString, m_release) == 0, "first word: whether to release the string");
    static_assert(offsetof(CFString, m_string) == sizeof(void*), "second word: the string");
    static_assert(sizeof(CFString) == 2 * sizeof(void*), "nothing else");

    if (m_release != 0 && m_string != nullptr)
        CFRelease(m_string);
    // So that no owner whose life has ended still names a string. Volatile, or the optimizer drops a store that nobody
    // may read any more.
    *const_cast<CFStringRef volatile*>(&m_string) = nullptr;
}

}  // namespace Util
