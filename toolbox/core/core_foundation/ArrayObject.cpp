#include "toolbox/core/core_foundation/ArrayObject.h"

#include <algorithm>
#include <utility>

namespace Toolbox {

ArrayObject::ArrayObject(std::vector<CFTypeRef> elements)
    : m_elements(std::move(elements))
{
}

ArrayObject::~ArrayObject()
{
    for (const CFTypeRef element : m_elements)
        CFRelease(element);
}

bool ArrayObject::equals(const CFObject& other) const
{
    const auto* const array = dynamic_cast<const ArrayObject*>(&other);
    return array != nullptr
        && std::equal(
            m_elements.begin(), m_elements.end(), array->m_elements.begin(), array->m_elements.end(), CFEqual);
}

}  // namespace Toolbox
