// What a person, or a list of answers, does in a window, as the events that the window's handlers get. Displays speak
// to windows through these alone.
//
// Handlers run inside each of them and may dispose of the window, so a display looks at modalLoopEnded() before it
// touches the window or a control again. Nothing is sent to a window that is not being run (ModalLoop.h).

#ifndef TOOLBOX_CORE_DIALOGS_COMMANDS_H
#define TOOLBOX_CORE_DIALOGS_COMMANDS_H

#include "toolbox/core/dialogs/Window.h"

namespace Toolbox {

/// Presses `control`: sends its command, if it has one, through the window's handlers. One that is not usable() does
/// nothing.
void pressControl(Control& control);

/// Chooses item `item` of `popUp`, from 1: sends the item's command, or 0; unless a handler takes that, sets the value
/// and sends the pop-up's own command, if it has one. Does nothing where `popUp` is not usable() or does not offer the
/// item.
void chooseMenuItem(Control& popUp, SInt32 item);

/// Sends `command` to the window's handlers as coming from the window itself: how closing it counts as cancelling.
void sendWindowCommand(Window& window, MenuCommand command);

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
