#include "toolbox/base/TracedCall.h"
#include "toolbox/core/core_foundation/CFObject.h"

using Toolbox::CFObject;
using Toolbox::TracedCall;

namespace {

class AllocatorObject : public CFObject { };

// A real object, unlike the default allocator, so that retaining and releasing it is no mistake.
CFAllocatorRef makeSystemAllocator()
{
    auto* const allocator = new AllocatorObject;
    allocator->makeConstant();
    return Toolbox::referenceTo<CFAllocatorRef>(*allocator);
}

}  // namespace

const CFAllocatorRef kCFAllocatorDefault = nullptr;
const CFAllocatorRef kCFAllocatorSystemDefault = makeSystemAllocator();

CFTypeRef CFRetain(CFTypeRef object)
{
    TracedCall call("CFRetain", object);
    if (CFObject* const found = CFObject::find(object))
        found->retain();
    return call.gives(object);
}

void CFRelease(CFTypeRef object)
{
    const TracedCall call("CFRelease", object);
    if (CFObject* const found = CFObject::find(object))
        found->release();
}

Boolean CFEqual(CFTypeRef first, CFTypeRef second)
{
    TracedCall call("CFEqual", first, second);
    const CFObject* const one = CFObject::find(first);
    const CFObject* const other = CFObject::find(second);
    if (one == nullptr || other == nullptr)
        return call.gives<Boolean>(false);
    return call.gives<Boolean>(one == other || one->equals(*other));
}
