// All that the double knows: the objects that it has handed out, and what the tests have told it. One value, so that
// Reset forgets everything.

#ifndef TESTS_DOUBLE_STATE_H
#define TESTS_DOUBLE_STATE_H

#include "tests/double/ToolboxDouble.h"

#include <Carbon/Carbon.h>

#include <cstring>
#include <functional>
#include <map>
#include <memory>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

namespace ToolboxDouble {

/// Something that a reference refers to. It stays in the state when it has been disposed of.
struct Object {
    virtual ~Object() = default;

    /// Whether somebody still has to release it or dispose of it.
    virtual bool isLeft() const { return alive && !borrowed; }

    /// What LeftBehind adds to its name.
    virtual std::string condition() const { return std::string(); }

    /// Disposes of it. What it holds in memory is overwritten, so that whoever reads it too late reads something else.
    virtual void end() { alive = false; }

    /// Moves in memory what may move there, at each call.
    virtual void move() { }

    std::string name;                 // as the log shows it
    const void* reference = nullptr;  // what callers hold of it
    bool alive = true;
    bool borrowed = false;  // constant, or another object's
};

/// A Core Foundation object. CFRelease ends it with its last reference.
struct CFObject : Object {
    int references = 1;
};

struct FailingCall {
    std::string function;
    long result;
    int occurrence;
};

struct ResourceData {
    ResType type;
    SInt16 id;
    std::vector<UInt8> data;
};

struct State {
    std::vector<std::string> log;
    std::size_t depth = 0;  // of calls inside calls
    bool atWork = false;
    std::map<std::string, int> callCounts;
    std::vector<FailingCall> failingCalls;

    std::vector<std::unique_ptr<Object>> objects;
    std::map<std::string, int> objectCounts;

    std::vector<ResourceData> resources;
    const void* newBlockWord = nullptr;
    std::function<void()> whenAlerted;

    std::vector<Act> acts;
    SInt16 pressedButton = 1;
    SInt32 itemShown = 0;
};

State& state();

/// Overwrites memory that has been disposed of.
template <typename Memory> void poison(Memory& memory)
{
    std::memset(memory.data(), 0xDB, memory.size() * sizeof *memory.data());
}

/// Says, for as long as it lives, who is at work: the double, or somebody whom it calls.
class AtWork {
public:
    enum Who { Double, Caller };

    explicit AtWork(Who who)
        : m_before(state().atWork)
    {
        state().atWork = who == Double;
    }

    ~AtWork() { state().atWork = m_before; }
    AtWork(const AtWork&) = delete;
    AtWork& operator=(const AtWork&) = delete;

private:
    const bool m_before;
};

/// Takes over `object` under `name`; a reference to it is `reference`, or else its address.
template <typename T> T& add(std::unique_ptr<T> object, const std::string& name, const void* reference = nullptr)
{
    T& added = *object;
    added.name = name;
    added.reference = reference != nullptr ? reference : &added;
    state().objects.push_back(std::move(object));
    return added;
}

/// `kind` and the next number for it: window1.
std::string numbered(const std::string& kind);

/// The object that `reference` refers to; null if there is none or it is no T. Of several, the one made last.
template <typename T> T* find(const void* reference)
{
    const auto& objects = state().objects;
    for (auto object = objects.rbegin(); object != objects.rend(); ++object) {
        if ((*object)->reference == reference)
            return dynamic_cast<T*>(object->get());
    }
    return nullptr;
}

/// The same, which must be there: whoever passes something else fails its test.
template <typename T> T& the(const void* reference)
{
    T* const found = find<T>(reference);
    return found != nullptr ? *found : throw std::invalid_argument("a reference to nothing of this kind");
}

/// What a reference that refers to nothing looks like: left in out-parameters after a failure.
template <typename Reference> Reference wrongReference()
{
    static char nothing;
    return reinterpret_cast<Reference>(&nothing);
}

/// The address of `object` as a reference.
template <typename Reference> Reference referenceTo(Object& object)
{
    return reinterpret_cast<Reference>(&object);
}

}  // namespace ToolboxDouble

#endif
