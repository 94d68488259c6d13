// References of Core Foundation in C++: an owner that releases what a Create or Copy function returned, and URLs as
// paths.

#ifndef HOST_CFREFERENCES_H
#define HOST_CFREFERENCES_H

#include <CoreFoundation/CoreFoundation.h>

#include <climits>
#include <filesystem>
#include <string>

namespace Host {

/// Releases an object, which may be null, at the end of its own life.
template <typename Ref> class CFOwner {
public:
    explicit CFOwner(Ref object)
        : m_object(object)
    {
    }

    ~CFOwner()
    {
        if (m_object != nullptr)
            CFRelease(m_object);
    }

    CFOwner(const CFOwner&) = delete;
    CFOwner& operator=(const CFOwner&) = delete;

    /// The object, which stays the owner's.
    Ref get() const { return m_object; }

private:
    const Ref m_object;
};

/// The URL of `path`; null when there can be none. The caller's.
inline CFURLRef createURL(const std::filesystem::path& path)
{
    const std::string& text = path.native();
    return CFURLCreateFromFileSystemRepresentation(
        kCFAllocatorDefault, reinterpret_cast<const UInt8*>(text.data()), static_cast<CFIndex>(text.size()), true);
}

/// The path of `url`; empty for null.
inline std::filesystem::path pathOf(CFURLRef url)
{
    UInt8 path[PATH_MAX];
    if (!CFURLGetFileSystemRepresentation(url, true, path, sizeof path))
        return std::filesystem::path();
    return std::filesystem::path(reinterpret_cast<const char*>(path));
}

}  // namespace Host

#endif
