// What a display is to the toolbox: something that lets a person, or a list of answers, work in a window or answer an
// alert. It knows commands, item numbers and buttons, and nothing of languages.

#ifndef TOOLBOX_CORE_DIALOGS_DISPLAY_H
#define TOOLBOX_CORE_DIALOGS_DISPLAY_H

#include "toolbox/core/dialogs/Alert.h"
#include "toolbox/core/dialogs/Window.h"

#include <memory>

namespace Toolbox {

class Display {
public:
    virtual ~Display() = default;

    /// Lets somebody work in `window`, whose modal loop has begun, until modalLoopEnded(); the window may be gone by
    /// then. Returns true then; false, with the reason in `*problem`, when it cannot go on: the terminal was closed, or
    /// nothing could ever end the window.
    virtual bool runWindow(Window& window, QString* problem) = 0;

    /// Lets somebody answer `alert`, which has a button that can be pressed, and returns the number of a button, even
    /// when nobody can answer any more.
    virtual SInt16 runAlert(const Alert& alert) = 0;
};

/// The display that was chosen, or the first. A caller that runs something on it keeps the pointer until that has
/// ended, since a handler may choose another display.
std::shared_ptr<Display> currentDisplay();

/// The display that is there until another is chosen: an unattended one without answers. It is defined where that one
/// is, in toolbox/core/displays.
std::unique_ptr<Display> makeFirstDisplay();

/// Shows everything on `display` from now on.
void setCurrentDisplay(std::unique_ptr<Display> display);

}  // namespace Toolbox

#endif
