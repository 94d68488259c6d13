// Objects that callers know by an opaque reference: windows, controls, nibs, Core Foundation objects.
//
// A reference is a number that is given out once and never again, not an address. So a dead or foreign reference finds
// nothing, and no call can crash on one. Handles and pointers of the Memory Manager are real memory and not of this
// kind.

#ifndef TOOLBOX_COMMON_REFERENCED_H
#define TOOLBOX_COMMON_REFERENCED_H

#include "toolbox/common/LiveCount.h"

#include <cstdint>
#include <optional>
#include <unordered_map>

namespace Toolbox {

/// A number that no other object has or had, as the value of an opaque reference.
std::uintptr_t nextReference();

/// What an `Object` derives from to be known by a `Ref` for as long as it lives. Whoever makes it owns it; this keeps
/// only the way from the reference to the object, and counts it as alive under Object::KIND.
template <typename Object, typename Ref> class Referenced {
public:
    Referenced(const Referenced&) = delete;
    Referenced& operator=(const Referenced&) = delete;

    /// The live object of `ref`, or null for a null, dead or foreign reference.
    static Object* find(Ref ref)
    {
        const auto found = objects().find(ref);
        return found == objects().end() ? nullptr : static_cast<Object*>(found->second);
    }

    /// The reference that callers know this object by.
    Ref ref() const { return m_ref; }

protected:
    Referenced()
        : m_ref(reinterpret_cast<Ref>(nextReference()))
    {
        countAs(Object::KIND);
        objects().emplace(m_ref, this);
    }

    ~Referenced() { objects().erase(m_ref); }

    /// Counts this object as of another kind from now on: one that is not meant to end, and so is no leak.
    void countAs(const char* kind) { m_alive.emplace(kind); }

private:
    // By their bases, since an object enters before it is an Object.
    static std::unordered_map<Ref, Referenced*>& objects()
    {
        // Never destroyed: objects that live until the process ends still take themselves out.
        static auto* const all = new std::unordered_map<Ref, Referenced*>;
        return *all;
    }

    const Ref m_ref;
    std::optional<LiveCount> m_alive;
};

}  // namespace Toolbox

#endif
