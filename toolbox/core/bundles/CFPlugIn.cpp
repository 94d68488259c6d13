#include "toolbox/base/CurrentReport.h"
#include "toolbox/base/TracedCall.h"
#include "toolbox/core/bundles/PlugInRegister.h"
#include "toolbox/core/core_foundation/ArrayObject.h"
#include "toolbox/core/core_foundation/StringObject.h"

#include <CoreFoundation/CFPlugIn.h>
#include <Toolbox/Code.h>

namespace Toolbox {

namespace {

CFArrayRef findFactories(const UUIDObject* type, const Bundle* plugIn)
{
    if (type == nullptr || plugIn == nullptr)
        return nullptr;
    const std::vector<Factory> factories = factoriesForType(type->bytes());
    if (factories.empty())
        return nullptr;
    std::vector<CFTypeRef> ids;
    for (const Factory& factory : factories) {
        if (factory.bundle == plugIn)
            ids.push_back(UUIDObject::create(factory.id)->ref());
    }
    return referenceTo<CFArrayRef>(*new ArrayObject(ids));
}

CFPlugInFactoryFunction findFunction(const UUIDObject* factory, const UUIDObject* type)
{
    if (factory == nullptr || type == nullptr)
        return nullptr;
    const Factory* const found = findFactory(factory->bytes(), type->bytes());
    if (found == nullptr)
        return nullptr;
    // The name is a property list's, which may name data as well.
    void* const function = found->bundle->findFunction(found->function);
    if (function == nullptr || !IsCode(function)) {
        remark("the bundle " + found->bundle->traceName() + " has no function " + quoted(found->function));
        return nullptr;
    }
    return reinterpret_cast<CFPlugInFactoryFunction>(function);
}

}  // namespace

}  // namespace Toolbox

using namespace Toolbox;

CFPlugInRef CFPlugInCreate(CFAllocatorRef allocator, CFURLRef url)
{
    TracedCall call("CFPlugInCreate", allocator, url);
    return call.gives(CFBundleCreate(allocator, url));
}

CFArrayRef CFPlugInFindFactoriesForPlugInTypeInPlugIn(CFUUIDRef type, CFPlugInRef plugIn)
{
    TracedCall call("CFPlugInFindFactoriesForPlugInTypeInPlugIn", type, plugIn);
    return call.gives(findFactories(findObject<UUIDObject>(type), findObject<Bundle>(plugIn)));
}

void* CFPlugInInstanceCreate(CFAllocatorRef allocator, CFUUIDRef factory, CFUUIDRef type)
{
    TracedCall call("CFPlugInInstanceCreate", allocator, factory, type);
    const CFPlugInFactoryFunction function =
        findFunction(findObject<UUIDObject>(factory), findObject<UUIDObject>(type));
    if (function == nullptr)
        return call.gives<void*>(nullptr);
    const ForeignCode factoryFunction;
    return call.gives(function(allocator, type));
}

void CFPlugInRemoveInstanceForFactory(CFUUIDRef factory)
{
    // Instances are counted up by a function that is not provided, so there are none to count down.
    const TracedCall call("CFPlugInRemoveInstanceForFactory", factory);
}
