// What receives events: the handlers installed on a window, the newest first.

#ifndef TOOLBOX_EVENTS_EVENTTARGET_H
#define TOOLBOX_EVENTS_EVENTTARGET_H

#include "toolbox/common/Referenced.h"

#include <Carbon/CarbonEvents.h>

#include <memory>
#include <vector>

namespace Toolbox {

class EventHandler;

/// The target of one window's events. It owns the handlers.
class EventTarget : public Referenced<EventTarget, EventTargetRef> {
public:
    static constexpr const char* KIND = "event target";

    EventTarget();
    ~EventTarget();

    std::vector<std::unique_ptr<EventHandler>> handlers;
};

}  // namespace Toolbox

#endif
