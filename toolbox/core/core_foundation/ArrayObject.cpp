#include "toolbox/core/core_foundation/ArrayObject.h"

#include "toolbox/base/TracedCall.h"

#include <CoreFoundation/CFArray.h>

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

namespace {

CFIndex countOf(const ArrayObject* array)
{
    return array == nullptr ? 0 : static_cast<CFIndex>(array->elements().size());
}

}  // namespace

}  // namespace Toolbox

using namespace Toolbox;

CFIndex CFArrayGetCount(CFArrayRef array)
{
    TracedCall call("CFArrayGetCount", array);
    return call.gives(countOf(findObject<ArrayObject>(array)));
}

const void* CFArrayGetValueAtIndex(CFArrayRef array, CFIndex index)
{
    TracedCall call("CFArrayGetValueAtIndex", array, index);
    const auto* const found = findObject<ArrayObject>(array);
    if (index < 0 || index >= countOf(found))
        return call.gives<const void*>(nullptr);
    return call.gives(found->elements()[static_cast<std::size_t>(index)]);
}
