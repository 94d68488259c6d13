// A window as the nib describes it and as a display shows it.

#ifndef TOOLBOX_CORE_DIALOGS_WINDOW_H
#define TOOLBOX_CORE_DIALOGS_WINDOW_H

#include "toolbox/core/dialogs/Control.h"
#include "toolbox/core/dialogs/Event.h"

#include <functional>
#include <memory>
#include <vector>

namespace Toolbox {

/// A window with its controls and the handlers installed on it.
class Window : public Referenced<Window, WindowRef> {
public:
    static constexpr const char* KIND = "window";

    /// All controls, each before those inside it, in the nib's order; the root comes first.
    std::vector<Control*> controls() const;

    /// The first of controls() that `fits`, or null.
    Control* firstControl(const std::function<bool(const Control&)>& fits) const;

    /// The control with this signature and number, or null.
    Control* findControl(const ControlID& id) const;

    /// The button that Return presses, or that Escape presses, usable or not; null if there is none.
    Control* buttonOfRole(ButtonRole role) const;

    QString title;
    Rect content{};  // where the content lies on the screen; its size is the window's
    bool visible = false;
    bool wasRun = false;  // in a modal loop, which is what brings a window before a person
    std::unique_ptr<Control> root;
    EventTarget target;
};

}  // namespace Toolbox

#endif
