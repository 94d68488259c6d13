// Handlers, events, and the modal loop, in which the test's acts happen.

#include "tests/double/Call.h"
#include "tests/double/Windows.h"

#include <algorithm>
#include <cstring>

using namespace ToolboxDouble;

namespace {

struct EventObject : Object {
    UInt32 eventClass = 0;
    UInt32 eventKind = 0;
    HICommand command = {};
};

struct ProcedurePointer : Object {
    EventHandlerProcPtr procedure = nullptr;
};

// What NewEventHandlerUPP hands out: it calls the procedure that it was made for last.
OSStatus callProcedure(EventHandlerCallRef next, EventRef event, void* userData);

const void* procedureReference()
{
    return reinterpret_cast<const void*>(callProcedure);
}

OSStatus callProcedure(EventHandlerCallRef next, EventRef event, void* userData)
{
    return find<ProcedurePointer>(procedureReference())->procedure(next, event, userData);
}

std::string describeTypes(UInt32 count, const EventTypeSpec* types)
{
    std::string text;
    for (UInt32 i = 0; i < count; ++i)
        text += (i == 0 ? "" : ", ") + describe(Code{types[i].eventClass}) + ' ' + std::to_string(types[i].eventKind);
    return '{' + text + '}';
}

OSStatus callHandler(const Handler& handler, EventRef event, void* userData)
{
    const AtWork theirs(AtWork::Caller);
    return handler.procedure(nullptr, event, userData);
}

void sendEvent(const Act& act, const Handler& handler)
{
    EventObject& event = add(std::make_unique<EventObject>(), numbered("event"));
    event.borrowed = true;
    event.eventClass = act.eventClass;
    event.eventKind = act.eventKind;
    event.command.attributes = kHICommandFromControl;
    event.command.commandID = act.command;

    const bool hasUserData = act.kind != Act::Kind::SendWithoutUserData;
    Call call("handler", Code{act.eventClass}, act.eventKind, Code{act.command}, Given{hasUserData});
    call.returns(callHandler(handler, referenceTo<EventRef>(event), hasUserData ? handler.userData : nullptr));
}

void perform(const Act& act, Window& window)
{
    if (act.kind == Act::Kind::Choose) {
        window.control->value = act.item;
    } else if (act.kind == Act::Kind::Quit) {
        window.quits = true;
    } else {
        for (const Handler* const handler : window.handlers)
            sendEvent(act, *handler);
    }
}

}  // namespace

EventTargetRef GetWindowEventTarget(WindowRef reference)
{
    Call call("GetWindowEventTarget", reference);
    if (call.fails())
        return call.returns<EventTargetRef>(nullptr);
    return call.returns(referenceTo<EventTargetRef>(*the<Window>(reference).target));
}

EventHandlerUPP NewEventHandlerUPP(EventHandlerProcPtr procedure)
{
    Call call("NewEventHandlerUPP", Given{procedure != nullptr});
    if (call.fails()) {
        call.returns(nullptr);
        return nullptr;
    }
    ProcedurePointer& made = add(std::make_unique<ProcedurePointer>(), numbered("upp"), procedureReference());
    made.procedure = procedure;
    call.returns(made.reference);
    return callProcedure;
}

void DisposeEventHandlerUPP(EventHandlerUPP upp)
{
    Call call("DisposeEventHandlerUPP", reinterpret_cast<const void*>(upp));
    dispose<ProcedurePointer>(call, reinterpret_cast<const void*>(upp));
}

OSStatus InstallEventHandler(EventTargetRef target, EventHandlerUPP handler, UInt32 count, const EventTypeSpec* types,
    void* userData, EventHandlerRef* installed)
{
    Call call(
        "InstallEventHandler", target, reinterpret_cast<const void*>(handler), count,
        [&] { return describeTypes(count, types); }, Given{userData != nullptr}, Given{installed != nullptr});
    if (call.fails() || handler == nullptr)
        return call.returnsStatus(paramErr);
    for (const auto& object : state().objects) {
        Window* const window = dynamic_cast<Window*>(object.get());
        if (window == nullptr || window->target->reference != target)
            continue;
        Handler& added = add(std::make_unique<Handler>(), numbered("handler"));
        added.procedure = handler;
        added.userData = userData;
        window->handlers.push_back(&added);
        return call.returnsStatus(noErr);
    }
    return call.returnsStatus(paramErr);
}

UInt32 GetEventClass(EventRef event)
{
    Call call("GetEventClass", event);
    const UInt32 eventClass = find<EventObject>(event)->eventClass;
    call.returns(Code{eventClass});
    return eventClass;
}

UInt32 GetEventKind(EventRef event)
{
    Call call("GetEventKind", event);
    return call.returns(find<EventObject>(event)->eventKind);
}

OSStatus GetEventParameter(EventRef event, EventParamName name, EventParamType type, EventParamType* actualType,
    UInt32 size, UInt32* actualSize, void* data)
{
    Call call("GetEventParameter", event, Code{name}, Code{type}, Given{actualType != nullptr}, size,
        Given{actualSize != nullptr});
    // A call that is to fail fills the buffer too: what is in it then is nobody's business.
    const bool isThere = name == kEventParamDirectObject && type == typeHICommand;
    if (isThere) {
        const HICommand& command = find<EventObject>(event)->command;
        std::memcpy(data, &command, std::min<std::size_t>(size, sizeof command));
    }
    return call.returnsStatus(isThere ? OSStatus(noErr) : OSStatus(eventParameterNotFoundErr));
}

OSStatus RunAppModalLoopForWindow(WindowRef reference)
{
    Call call("RunAppModalLoopForWindow", reference);
    if (call.fails())
        return call.returnsStatus(noErr);
    Window& window = the<Window>(reference);
    state().itemShown = window.control->value;
    for (const Act& act : state().acts) {
        perform(act, window);
        if (window.quits)
            return call.returnsStatus(noErr);
    }
    return call.returnsStatus(eventInternalErr);
}

OSStatus QuitAppModalLoopForWindow(WindowRef reference)
{
    Call call("QuitAppModalLoopForWindow", reference);
    if (!call.fails())
        the<Window>(reference).quits = true;
    return call.returnsStatus(noErr);
}
