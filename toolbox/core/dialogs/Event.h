// An event: its class, its kind and its parameters. It lives while it is being sent, so a handler that keeps the
// reference finds nothing under it afterwards.

#ifndef TOOLBOX_CORE_DIALOGS_EVENT_H
#define TOOLBOX_CORE_DIALOGS_EVENT_H

#include "toolbox/base/Referenced.h"

#include <Carbon/CarbonEvents.h>

#include <vector>

namespace Toolbox {

/// A named value that travels with an event.
struct EventParameter {
    EventParamName name;
    EventParamType type;
    std::vector<UInt8> bytes;
};

class Event : public Referenced<Event, EventRef> {
public:
    static constexpr const char* KIND = "event";

    Event(UInt32 itsClass, UInt32 itsKind, std::vector<EventParameter> itsParameters);

    /// The parameter `name`, or null.
    const EventParameter* findParameter(EventParamName name) const;

    const UInt32 eventClass;
    const UInt32 eventKind;
    const std::vector<EventParameter> parameters;
};

}  // namespace Toolbox

#endif
