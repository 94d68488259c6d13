// Objects that callers know by an opaque reference: windows, controls, nibs, Core Foundation objects.
//
// A reference is a number that is given out once and never again, not an address. So a dead or foreign reference finds
// nothing, and no call can crash on one. Handles and pointers of the Memory Manager are real memory and not of this
// kind.

#ifndef TOOLBOX_BASE_REFERENCED_H
#define TOOLBOX_BASE_REFERENCED_H

#include "toolbox/base/LiveCount.h"

#include <cstdint>
#include <optional>
#include <string>

namespace Toolbox {

/// What all objects with a reference have in common. They are known by their references for as long as they live.
class AnyReferenced {
public:
    AnyReferenced(const AnyReferenced&) = delete;
    AnyReferenced& operator=(const AnyReferenced&) = delete;

    /// The live object of `reference`, or null for a null, dead or foreign reference.
    static AnyReferenced* find(std::uintptr_t reference);

    /// What the trace calls the object: its kind and a number that no other has, as in "window#3".
    virtual std::string traceName() const;

protected:
    explicit AnyReferenced(const char* kind);
    virtual ~AnyReferenced();

    /// Counts this object under another kind from now on: one whose objects never end and so are not leaks.
    void countAs(const char* kind);

    const std::uintptr_t m_reference;

private:
    const char* m_kind;
    std::optional<LiveCount> m_alive;
};

/// What the trace calls what `reference` refers to, or "dead" and its number when that has ended; nothing if the number
/// was never given out as a reference.
std::optional<std::string> traceNameOf(std::uintptr_t reference);

/// What an `Object` derives from to be known by a `Ref` for as long as it lives. Its maker owns it; this only finds
/// it by its reference, and counts it as alive under Object::KIND.
template <typename Object, typename Ref> class Referenced : public AnyReferenced {
public:
    /// The live object of `ref`, or null for a null, dead or foreign reference, and for one of another type.
    static Object* find(Ref ref)
    {
        return dynamic_cast<Object*>(AnyReferenced::find(reinterpret_cast<std::uintptr_t>(ref)));
    }

    /// The reference that callers know this object by.
    Ref ref() const { return reinterpret_cast<Ref>(m_reference); }

protected:
    Referenced()
        : AnyReferenced(Object::KIND)
    {
    }
};

}  // namespace Toolbox

#endif
