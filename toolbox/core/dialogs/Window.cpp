#include "toolbox/core/dialogs/Window.h"

#include "toolbox/base/TracedCall.h"

#include <algorithm>

namespace Toolbox {

namespace {

void appendWithChildren(Control& control, std::vector<Control*>& all)
{
    all.push_back(&control);
    for (const auto& child : control.children)
        appendWithChildren(*child, all);
}

}  // namespace

std::vector<Control*> Window::controls() const
{
    std::vector<Control*> all;
    if (root != nullptr)
        appendWithChildren(*root, all);
    return all;
}

Control* Window::firstControl(const std::function<bool(const Control&)>& fits) const
{
    const std::vector<Control*> all = controls();
    const auto found = std::find_if(all.begin(), all.end(), [&fits](const Control* each) { return fits(*each); });
    return found == all.end() ? nullptr : *found;
}

Control* Window::findControl(const ControlID& id) const
{
    return firstControl(
        [&id](const Control& each) { return each.id.signature == id.signature && each.id.id == id.id; });
}

Control* Window::buttonOfRole(ButtonRole role) const
{
    return firstControl([role](const Control& each) { return each.kind == ControlKind::Button && each.role == role; });
}

namespace {

void setVisible(WindowRef ref, bool visible)
{
    Window* const window = Window::find(ref);
    if (window != nullptr)
        window->visible = visible;
}

}  // namespace

}  // namespace Toolbox

using Toolbox::TracedCall;

void ShowWindow(WindowRef window)
{
    const TracedCall call("ShowWindow", window);
    Toolbox::setVisible(window, true);
}

void HideWindow(WindowRef window)
{
    const TracedCall call("HideWindow", window);
    Toolbox::setVisible(window, false);
}

void DisposeWindow(WindowRef window)
{
    const TracedCall call("DisposeWindow", window);
    // A window is its reference's: whoever holds that disposes of it. What is left at exit ends with the process, and
    // no handler hears of it.
    delete Toolbox::Window::find(window);
}
