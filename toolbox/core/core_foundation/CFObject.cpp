#include "toolbox/core/core_foundation/CFObject.h"

#include "toolbox/base/TracedCall.h"

namespace Toolbox {

void CFObject::retain()
{
    ++m_owners;
}

void CFObject::release()
{
    if (!m_isConstant && --m_owners == 0)
        delete this;
}

void CFObject::makeConstant()
{
    m_isConstant = true;
    countAs(CONSTANT_KIND);
}

bool CFObject::equals(const CFObject&) const
{
    return false;
}

namespace {

class AllocatorObject : public CFObject { };

// A real object, unlike the default allocator, so that retaining and releasing it is no mistake.
CFAllocatorRef makeSystemAllocator()
{
    auto* const allocator = new AllocatorObject;
    allocator->makeConstant();
    return referenceTo<CFAllocatorRef>(*allocator);
}

}  // namespace

}  // namespace Toolbox

using namespace Toolbox;

const CFAllocatorRef kCFAllocatorDefault = nullptr;
const CFAllocatorRef kCFAllocatorSystemDefault = makeSystemAllocator();

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
