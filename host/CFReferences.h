// Releases a Core Foundation object at the end of its life.

#ifndef HOST_CFREFERENCES_H
#define HOST_CFREFERENCES_H

#include <CoreFoundation/CoreFoundation.h>

namespace Host {

/// Owns what a Create or Copy function returned, which may be null.
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

}  // namespace Host

#endif
