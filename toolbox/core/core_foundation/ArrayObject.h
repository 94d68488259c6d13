// The object behind a CFArrayRef: references to Core Foundation objects, in order.

#ifndef TOOLBOX_CORE_CORE_FOUNDATION_ARRAYOBJECT_H
#define TOOLBOX_CORE_CORE_FOUNDATION_ARRAYOBJECT_H

#include "toolbox/core/core_foundation/CFObject.h"

#include <vector>

namespace Toolbox {

/// An array that never changes. It knows its elements by their references: one that was released once too often leaves
/// a dead reference in it, and nothing to crash on.
class ArrayObject : public CFObject {
public:
    /// The array of `elements`. It takes over the caller's ownership of each.
    explicit ArrayObject(std::vector<CFTypeRef> elements);

    ~ArrayObject() override;

    const std::vector<CFTypeRef>& elements() const { return m_elements; }

    /// Whether `other` is an array of equal elements in the same order.
    bool equals(const CFObject& other) const override;

private:
    const std::vector<CFTypeRef> m_elements;
};

}  // namespace Toolbox

#endif
