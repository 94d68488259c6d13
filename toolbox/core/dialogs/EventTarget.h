// What receives events: the handlers installed on a window, and the way of an event through them.

#ifndef TOOLBOX_CORE_DIALOGS_EVENTTARGET_H
#define TOOLBOX_CORE_DIALOGS_EVENTTARGET_H

#include "toolbox/base/Referenced.h"
#include "toolbox/core/dialogs/Event.h"

#include <Carbon/CarbonEvents.h>

#include <memory>
#include <vector>

namespace Toolbox {

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
