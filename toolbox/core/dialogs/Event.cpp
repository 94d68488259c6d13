#include "toolbox/core/dialogs/Event.h"

#include "toolbox/base/TracedCall.h"

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

}  // namespace Toolbox

using Toolbox::TracedCall;

UInt32 GetEventClass(EventRef event)
{
    TracedCall call("GetEventClass", event);
    const auto* const found = Toolbox::Event::find(event);
    return call.gives(found == nullptr ? 0 : found->eventClass);
}

UInt32 GetEventKind(EventRef event)
{
    TracedCall call("GetEventKind", event);
    const auto* const found = Toolbox::Event::find(event);
    return call.gives(found == nullptr ? 0 : found->eventKind);
}

OSStatus GetEventParameter(EventRef event, EventParamName name, EventParamType type, EventParamType* actualType,
    UInt32 size, UInt32* actualSize, void* data)
{
    TracedCall call("GetEventParameter", event, name, type, actualType, size, actualSize, data);
    return call.gives(Toolbox::readParameter(event, name, type, actualType, size, actualSize, data));
}
