// Events, and what receives them: the handlers installed on a window, and the way of an event through them.

#ifndef TOOLBOX_CORE_DIALOGS_EVENT_H
#define TOOLBOX_CORE_DIALOGS_EVENT_H

#include "toolbox/base/Referenced.h"

#include <Carbon/CarbonEvents.h>

#include <memory>
#include <vector>

namespace Toolbox {

/// A named value that travels with an event.
struct EventParameter {
    EventParamName name;
    EventParamType type;
    std::vector<UInt8> bytes;
};

/// An event: its class, its kind and its parameters. It lives while it is being sent, so a handler that keeps the
/// reference finds nothing under it afterwards.
class Event : public Referenced<Event, EventRef> {
public:
    static constexpr const char* KIND = "event";

    Event(UInt32 itsClass, UInt32 itsKind, std::vector<EventParameter> itsParameters);

    /// The parameter `name`, or null.
    const EventParameter* findParameter(EventParamName name) const;

    /// With the command that it carries, if any, behind the number: "event#12 'ok  '".
    std::string traceName() const override;

    const UInt32 eventClass;
    const UInt32 eventKind;
    const std::vector<EventParameter> parameters;
};

/// A procedure that is called, with its user data, for some kinds of events.
class EventHandler : public Referenced<EventHandler, EventHandlerRef> {
public:
    static constexpr const char* KIND = "event handler";

    EventHandler(EventHandlerProcPtr itsProcedure, void* itsUserData, std::vector<EventTypeSpec> itsTypes);

    bool takes(UInt32 eventClass, UInt32 eventKind) const;

    const EventHandlerProcPtr procedure;
    void* const userData;
    const std::vector<EventTypeSpec> types;
};

/// The target of one window's events. It owns the handlers, the oldest first.
class EventTarget : public Referenced<EventTarget, EventTargetRef> {
public:
    static constexpr const char* KIND = "event target";

    EventTarget() = default;

    std::vector<std::unique_ptr<EventHandler>> handlers;
};

/// Gives `event` to the handlers of `target` that take it, the newest first, until one answers anything but
/// eventNotHandledErr; returns that answer. A handler may install others, which do not get this event, and may dispose
/// of the target, whose remaining handlers are then left out.
OSStatus sendEvent(const Event& event, const EventTarget& target);

}  // namespace Toolbox

#endif
