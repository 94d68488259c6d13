#include "toolbox/base/TracedCall.h"
#include "toolbox/core/core_foundation/ArrayObject.h"

#include <CoreFoundation/CFArray.h>

using Toolbox::ArrayObject;
using Toolbox::findObject;
using Toolbox::TracedCall;

namespace {

CFIndex countOf(const ArrayObject* array)
{
    return array == nullptr ? 0 : static_cast<CFIndex>(array->elements().size());
}

}  // namespace

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
