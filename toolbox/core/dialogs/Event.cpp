#include "toolbox/core/dialogs/Event.h"

#include "toolbox/base/TracedCall.h"
#include "toolbox/core/dialogs/Window.h"

#include <algorithm>
#include <cstring>
#include <utility>

namespace Toolbox {

Event::Event(UInt32 itsClass, UInt32 itsKind, std::vector<EventParameter> itsParameters)
    : eventClass(itsClass)
    , eventKind(itsKind)
    , parameters(std::move(itsParameters))
{
}

const EventParameter* Event::findParameter(EventParamName name) const
{
    const auto found = std::find_if(
        parameters.begin(), parameters.end(), [name](const EventParameter& each) { return each.name == name; });
    return found == parameters.end() ? nullptr : &*found;
}

std::string Event::traceName() const
{
    HICommand command;
    const EventParameter* const parameter = findParameter(kEventParamDirectObject);
    if (parameter == nullptr || parameter->type != typeHICommand || parameter->bytes.size() != sizeof command)
        return Referenced::traceName();
    std::memcpy(&command, parameter->bytes.data(), sizeof command);
    return Referenced::traceName() + ' ' + describeNumber(command.commandID);
}

namespace {

OSStatus readParameter(EventRef ref, EventParamName name, EventParamType type, EventParamType* actualType, UInt32 size,
    UInt32* actualSize, void* data)
{
    const Event* const event = Event::find(ref);
    if (event == nullptr || (data == nullptr && size != 0))
        return paramErr;
    const EventParameter* const parameter = event->findParameter(name);
    if (parameter == nullptr || parameter->type != type)
        return eventParameterNotFoundErr;

    const UInt32 fullSize = static_cast<UInt32>(parameter->bytes.size());
    if (actualType != nullptr)
        *actualType = parameter->type;
    if (actualSize != nullptr)
        *actualSize = fullSize;
    if (size != 0)
        std::memcpy(data, parameter->bytes.data(), std::min(size, fullSize));
    return noErr;
}

}  // namespace

EventHandler::EventHandler(EventHandlerProcPtr itsProcedure, void* itsUserData, std::vector<EventTypeSpec> itsTypes)
    : procedure(itsProcedure)
    , userData(itsUserData)
    , types(std::move(itsTypes))
{
}

bool EventHandler::takes(UInt32 eventClass, UInt32 eventKind) const
{
    return std::any_of(types.begin(), types.end(), [eventClass, eventKind](const EventTypeSpec& type) {
        return type.eventClass == eventClass && type.eventKind == eventKind;
    });
}

OSStatus sendEvent(const Event& event, const EventTarget& target)
{
    std::vector<EventHandlerRef> takers;
    for (auto each = target.handlers.rbegin(); each != target.handlers.rend(); ++each)
        if ((*each)->takes(event.eventClass, event.eventKind))
            takers.push_back((*each)->ref());

    for (const EventHandlerRef taker : takers) {
        const EventHandler* const handler = EventHandler::find(taker);
        if (handler == nullptr)
            continue;
        const ForeignCode foreign;
        // No function that takes the reference of a call is provided, so there is none to hand over.
        const OSStatus answer = handler->procedure(nullptr, event.ref(), handler->userData);
        if (answer != eventNotHandledErr)
            return answer;
    }
    return eventNotHandledErr;
}

namespace {

bool isInstalled(const EventTarget& target, EventHandlerProcPtr procedure, const std::vector<EventTypeSpec>& types)
{
    return std::any_of(target.handlers.begin(), target.handlers.end(), [&](const auto& handler) {
        return handler->procedure == procedure && std::any_of(types.begin(), types.end(), [&](const auto& type) {
            return handler->takes(type.eventClass, type.eventKind);
        });
    });
}

OSStatus install(EventTargetRef ref, EventHandlerProcPtr procedure, UInt32 count, const EventTypeSpec* list,
    void* userData, EventHandlerRef* installed)
{
    if (installed != nullptr)
        *installed = nullptr;
    EventTarget* const target = EventTarget::find(ref);
    if (target == nullptr || procedure == nullptr || list == nullptr)
        return paramErr;
    const std::vector<EventTypeSpec> types(list, list + count);
    if (isInstalled(*target, procedure, types))
        return eventHandlerAlreadyInstalledErr;

    target->handlers.push_back(std::make_unique<EventHandler>(procedure, userData, types));
    if (installed != nullptr)
        *installed = target->handlers.back()->ref();
    return noErr;
}

}  // namespace

}  // namespace Toolbox

using namespace Toolbox;

UInt32 GetEventClass(EventRef event)
{
    TracedCall call("GetEventClass", event);
    const auto* const found = Event::find(event);
    return call.gives(found == nullptr ? 0 : found->eventClass);
}

UInt32 GetEventKind(EventRef event)
{
    TracedCall call("GetEventKind", event);
    const auto* const found = Event::find(event);
    return call.gives(found == nullptr ? 0 : found->eventKind);
}

OSStatus GetEventParameter(EventRef event, EventParamName name, EventParamType type, EventParamType* actualType,
    UInt32 size, UInt32* actualSize, void* data)
{
    TracedCall call("GetEventParameter", event, name, type, actualType, size, actualSize, data);
    return call.gives(readParameter(event, name, type, actualType, size, actualSize, data));
}

EventTargetRef GetWindowEventTarget(WindowRef window)
{
    TracedCall call("GetWindowEventTarget", window);
    const auto* const found = Window::find(window);
    return call.gives(found == nullptr ? nullptr : found->target.ref());
}

EventHandlerUPP NewEventHandlerUPP(EventHandlerProcPtr procedure)
{
    TracedCall call("NewEventHandlerUPP", procedure);
    return call.gives(procedure);
}

void DisposeEventHandlerUPP(EventHandlerUPP upp)
{
    const TracedCall call("DisposeEventHandlerUPP", upp);
}

OSStatus InstallEventHandler(EventTargetRef target, EventHandlerUPP handler, UInt32 count, const EventTypeSpec* types,
    void* userData, EventHandlerRef* installed)
{
    TracedCall call("InstallEventHandler", target, handler, count, types, userData, installed);
    return call.gives(install(target, handler, count, types, userData, installed));
}
