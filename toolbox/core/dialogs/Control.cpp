#include "toolbox/core/dialogs/Control.h"

#include "toolbox/base/TracedCall.h"
#include "toolbox/core/dialogs/Window.h"

#include <algorithm>

namespace Toolbox {

void Control::setValue(SInt32 wanted)
{
    value = std::clamp(wanted, minimum, std::max(minimum, maximum));
}

bool Control::shown() const
{
    return !hidden && (container == nullptr || container->shown());
}

bool Control::usable() const
{
    return enabled && !hidden && (container == nullptr || container->usable());
}

bool Control::offers(SInt32 item) const
{
    if (item < 1 || static_cast<std::size_t>(item) > items.size())
        return false;
    const MenuItem& wanted = items[static_cast<std::size_t>(item) - 1];
    return wanted.enabled && !wanted.separator && !wanted.hidden;
}

QString labelOf(const Control& control)
{
    const Control* const labelled = control.title.isEmpty() ? control.label : &control;
    QString label = labelled == nullptr ? QString() : labelled->title.simplified();
    if (label.endsWith(QLatin1Char(':')))
        label.chop(1);
    return label.trimmed();
}

namespace {

OSStatus controlByID(WindowRef ref, const ControlID* id, ControlRef* result)
{
    if (result == nullptr)
        return paramErr;
    *result = nullptr;
    if (id == nullptr)
        return paramErr;
    const Window* const window = Window::find(ref);
    if (window == nullptr)
        return errInvalidWindowRef;
    const Control* const control = window->findControl(*id);
    if (control == nullptr)
        return errUnknownControl;
    *result = control->ref();
    return noErr;
}

// For the trace, as C writes it.
std::string describeID(const ControlID* id)
{
    return id == nullptr ? "null" : "{" + describeNumber(id->signature) + ", " + describeNumber(id->id) + "}";
}

}  // namespace

}  // namespace Toolbox

using namespace Toolbox;

OSStatus GetControlByID(WindowRef window, const ControlID* id, ControlRef* control)
{
    TracedCall call(
        "GetControlByID", window, [id] { return describeID(id); }, control);
    return call.gives(controlByID(window, id, control));
}

SInt32 GetControl32BitValue(ControlRef control)
{
    TracedCall call("GetControl32BitValue", control);
    const auto* const found = Control::find(control);
    return call.gives(found == nullptr ? 0 : found->value);
}

void SetControl32BitValue(ControlRef control, SInt32 value)
{
    const TracedCall call("SetControl32BitValue", control, value);
    auto* const found = Control::find(control);
    if (found != nullptr)
        found->setValue(value);
}
