#include "toolbox/core/dialogs/Window.h"

#include "toolbox/base/CurrentReport.h"
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

// Displays show a window only while its modal loop runs. The Mac shows it without a loop as well, so a remark tells why
// it was not seen here.
void remarkIfNeverSeen(const Window& window)
{
    if (window.visible && !window.wasRun)
        remark("the window \"" + window.title.toStdString() + "\" was never seen: it was shown outside a modal loop");
}

void hide(WindowRef ref)
{
    Window* const window = Window::find(ref);
    if (window == nullptr)
        return;
    remarkIfNeverSeen(*window);
    window->visible = false;
}

void show(WindowRef ref)
{
    Window* const window = Window::find(ref);
    if (window != nullptr)
        window->visible = true;
}

}  // namespace

}  // namespace Toolbox

using namespace Toolbox;

void ShowWindow(WindowRef window)
{
    const TracedCall call("ShowWindow", window);
    show(window);
}

void HideWindow(WindowRef window)
{
    const TracedCall call("HideWindow", window);
    hide(window);
}

void DisposeWindow(WindowRef window)
{
    const TracedCall call("DisposeWindow", window);
    // The caller owns the window and disposes of it by its reference. Windows left at exit end with the process, and no
    // handler is told.
    hide(window);
    delete Window::find(window);
}
