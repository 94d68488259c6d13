// The double's windows, as far as nibs, controls and events share them.

#ifndef TESTS_DOUBLE_WINDOWS_H
#define TESTS_DOUBLE_WINDOWS_H

#include "tests/double/State.h"

namespace ToolboxDouble {

/// The one control that every window has.
struct Control : Object {
    SInt32 value = 1;
};

struct EventTarget : Object { };

/// A handler and what it was installed with.
struct Handler : Object {
    EventHandlerUPP procedure = nullptr;
    void* userData = nullptr;
};

struct Window : Object {
    std::string condition() const override { return shown ? " shown" : " hidden"; }

    Control* control = nullptr;
    EventTarget* target = nullptr;
    std::vector<Handler*> handlers;
    bool shown = false;
    bool quits = false;  // its modal loop is to end
};

}  // namespace ToolboxDouble

#endif
