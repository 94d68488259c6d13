// Nibs, windows and controls. There is one nib, whose one window has one control, the pop-up.

#include "tests/double/Windows.h"

#include "tests/double/Call.h"

using namespace ToolboxDouble;

namespace {

struct Nib : Object { };

const OSType POPUP_SIGNATURE = 'lsel';
const SInt32 POPUP_ID = 1;

Window& addWindow()
{
    Window& window = add(std::make_unique<Window>(), numbered("window"));
    window.control = &add(std::make_unique<Control>(), numbered("popup"));
    window.control->borrowed = true;
    window.target = &add(std::make_unique<EventTarget>(), numbered("target"));
    window.target->borrowed = true;
    return window;
}

}  // namespace

OSStatus CreateNibReference(CFStringRef name, IBNibRef* nib)
{
    Call call("CreateNibReference", name);
    return create<Nib>(call, "nib", nib);
}

OSStatus CreateWindowFromNib(IBNibRef nib, CFStringRef name, WindowRef* window)
{
    Call call("CreateWindowFromNib", nib, name);
    if (call.fails()) {
        *window = call.failure() == noErr ? nullptr : wrongReference<WindowRef>();
        return call.returnsStatus(noErr);
    }
    *window = referenceTo<WindowRef>(addWindow());
    return call.succeeds(*window);
}

void DisposeNibReference(IBNibRef nib)
{
    Call call("DisposeNibReference", nib);
    dispose<Nib>(call, nib);
}

void ShowWindow(WindowRef window)
{
    Call call("ShowWindow", window);
    the<Window>(window).shown = true;
}

void HideWindow(WindowRef window)
{
    Call call("HideWindow", window);
    the<Window>(window).shown = false;
}

void DisposeWindow(WindowRef reference)
{
    Call call("DisposeWindow", reference);
    Window& window = the<Window>(reference);
    window.end();
    window.control->end();
    window.target->end();
    for (Handler* const handler : window.handlers)
        handler->end();
}

OSStatus GetControlByID(WindowRef reference, const ControlID* id, ControlRef* control)
{
    Call call("GetControlByID", reference, Code{id->signature}, id->id);
    *control = wrongReference<ControlRef>();
    if (call.fails() || id->signature != POPUP_SIGNATURE || id->id != POPUP_ID)
        return call.returnsStatus(errUnknownControl);
    *control = referenceTo<ControlRef>(*the<Window>(reference).control);
    return call.succeeds(*control);
}

SInt32 GetControl32BitValue(ControlRef reference)
{
    Call call("GetControl32BitValue", reference);
    if (call.fails())
        return call.returns(static_cast<SInt32>(call.failure()));
    const Control* const control = find<Control>(reference);
    return call.returns(control != nullptr ? control->value : 0);
}

void SetControl32BitValue(ControlRef reference, SInt32 value)
{
    Call call("SetControl32BitValue", reference, value);
    Control* const control = find<Control>(reference);
    if (control != nullptr)
        control->value = value;
}
