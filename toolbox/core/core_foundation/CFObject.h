// What a Core Foundation reference refers to: an object that counts its owners and ends with the last of them.

#ifndef TOOLBOX_CORE_CORE_FOUNDATION_CFOBJECT_H
#define TOOLBOX_CORE_CORE_FOUNDATION_CFOBJECT_H

#include "toolbox/base/Referenced.h"

#include <CoreFoundation/CFBase.h>

namespace Toolbox {

/// The base of strings, UUIDs, URLs, arrays and bundles. Made with new, by one owner; the last release deletes it.
class CFObject : public Referenced<CFObject, CFTypeRef> {
public:
    static constexpr const char* KIND = "Core Foundation object";
    static constexpr const char* CONSTANT_KIND = "Core Foundation constant";

    ~CFObject() override = default;

    /// One more owner.
    void retain();

    /// One owner less. The object is gone when it was the last one.
    void release();

    /// Nobody ends this object any more, however often it is released. It is counted apart from then on.
    void makeConstant();

    /// Whether `other`, another object, holds the same. Objects of different types never do.
    virtual bool equals(const CFObject& other) const;

protected:
    CFObject() = default;

private:
    bool m_isConstant = false;
    CFIndex m_owners = 1;
};

/// The live object of type `Object` that `ref` refers to; null for a null, dead or foreign reference, and for an object
/// of another type.
template <typename Object> Object* findObject(CFTypeRef ref)
{
    return dynamic_cast<Object*>(CFObject::find(ref));
}

/// The reference of `object`, as the type that callers know such objects by.
template <typename Ref> Ref referenceTo(const CFObject& object)
{
    return static_cast<Ref>(const_cast<void*>(object.ref()));
}

}  // namespace Toolbox

#endif
