#include "toolbox/core/core_foundation/UUIDObject.h"

#include <map>

namespace Toolbox {

namespace {

// Never destroyed: constants that live until the process ends stay in it.
std::map<UUIDBytes, UUIDObject*>& uniqueObjects()
{
    static auto* const byBytes = new std::map<UUIDBytes, UUIDObject*>;
    return *byBytes;
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
