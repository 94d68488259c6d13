// How a window is confirmed and how it is cancelled, whichever display it is on.

#ifndef TOOLBOX_CORE_DIALOGS_WINDOWBUTTONS_H
#define TOOLBOX_CORE_DIALOGS_WINDOWBUTTONS_H

#include "toolbox/core/dialogs/Window.h"

namespace Toolbox {

/// What Return presses: the default button, else the first control with the command kHICommandOK. Null if there is
/// none, or none that is usable.
Control* confirmingControl(const Window& window);

/// What Escape presses: the usable cancel button. Null if there is none.
Control* cancellingControl(const Window& window);

/// Cancels `window`: presses the cancel button, or sends kHICommandCancel where none is usable. The window may be gone
/// afterwards.
void cancelWindow(Window& window);

}  // namespace Toolbox

#endif
