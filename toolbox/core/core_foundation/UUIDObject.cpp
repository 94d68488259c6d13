#include "toolbox/core/core_foundation/UUIDObject.h"

#include "toolbox/base/NeverDestroyed.h"
#include "toolbox/base/TracedCall.h"

#include <map>

namespace Toolbox {

namespace {

// Constants that live until the process ends stay in it.
std::map<UUIDBytes, UUIDObject*>& uniqueObjects()
{
    return neverDestroyed<struct UniqueObjects, std::map<UUIDBytes, UUIDObject*>>();
}

}  // namespace

UUIDObject::UUIDObject(const UUIDBytes& bytes)
    : m_bytes(bytes)
{
    uniqueObjects().emplace(m_bytes, this);
}

UUIDObject::~UUIDObject()
{
    uniqueObjects().erase(m_bytes);
}

UUIDObject* UUIDObject::create(const UUIDBytes& bytes)
{
    const auto found = uniqueObjects().find(bytes);
    if (found == uniqueObjects().end())
        return new UUIDObject(bytes);
    found->second->retain();
    return found->second;
}

}  // namespace Toolbox

using namespace Toolbox;

CFUUIDRef CFUUIDGetConstantUUIDWithBytes(CFAllocatorRef allocator, UInt8 byte0, UInt8 byte1, UInt8 byte2, UInt8 byte3,
    UInt8 byte4, UInt8 byte5, UInt8 byte6, UInt8 byte7, UInt8 byte8, UInt8 byte9, UInt8 byte10, UInt8 byte11,
    UInt8 byte12, UInt8 byte13, UInt8 byte14, UInt8 byte15)
{
    TracedCall call("CFUUIDGetConstantUUIDWithBytes", allocator, byte0, byte1, byte2, byte3, byte4, byte5, byte6, byte7,
        byte8, byte9, byte10, byte11, byte12, byte13, byte14, byte15);
    UUIDObject* const uuid = UUIDObject::create({byte0, byte1, byte2, byte3, byte4, byte5, byte6, byte7, byte8, byte9,
        byte10, byte11, byte12, byte13, byte14, byte15});
    uuid->makeConstant();
    return call.gives(referenceTo<CFUUIDRef>(*uuid));
}

CFUUIDRef CFUUIDCreateFromUUIDBytes(CFAllocatorRef allocator, CFUUIDBytes bytes)
{
    TracedCall call("CFUUIDCreateFromUUIDBytes", allocator, bytes);
    const UUIDObject* const uuid = UUIDObject::create({bytes.byte0, bytes.byte1, bytes.byte2, bytes.byte3, bytes.byte4,
        bytes.byte5, bytes.byte6, bytes.byte7, bytes.byte8, bytes.byte9, bytes.byte10, bytes.byte11, bytes.byte12,
        bytes.byte13, bytes.byte14, bytes.byte15});
    return call.gives(referenceTo<CFUUIDRef>(*uuid));
}
