#include "toolbox/base/Referenced.h"

#include "toolbox/base/NeverDestroyed.h"

#include <unordered_map>

namespace Toolbox {

namespace {

// References are larger than FIRST and STEP apart, so that no count and no index is taken for one.
constexpr std::uintptr_t FIRST = 0x10000;
constexpr std::uintptr_t STEP = 16;

std::uintptr_t lastReference = FIRST;

// Never destroyed: objects that live until the process ends still take themselves out.
std::unordered_map<std::uintptr_t, AnyReferenced*>& objects()
{
    return neverDestroyed<struct Objects, std::unordered_map<std::uintptr_t, AnyReferenced*>>();
}

std::string numbered(const char* kind, std::uintptr_t reference)
{
    return kind + ("#" + std::to_string((reference - FIRST) / STEP));
}

}  // namespace

AnyReferenced::AnyReferenced(const char* kind)
    : m_reference(lastReference + STEP)
{
    countAs(kind);
    objects().emplace(m_reference, this);
    lastReference = m_reference;
}

AnyReferenced::~AnyReferenced()
{
    objects().erase(m_reference);
}

AnyReferenced* AnyReferenced::find(std::uintptr_t reference)
{
    const auto found = objects().find(reference);
    return found == objects().end() ? nullptr : found->second;
}

std::string AnyReferenced::traceName() const
{
    return numbered(m_kind, m_reference);
}

void AnyReferenced::countAs(const char* kind)
{
    m_kind = kind;
    m_alive.emplace(kind);
}

std::optional<std::string> traceNameOf(std::uintptr_t reference)
{
    if (const AnyReferenced* const object = AnyReferenced::find(reference))
        return object->traceName();
    const bool wasGivenOut = reference > FIRST && reference <= lastReference && reference % STEP == 0;
    return wasGivenOut ? std::optional(numbered("dead", reference)) : std::nullopt;
}

}  // namespace Toolbox
