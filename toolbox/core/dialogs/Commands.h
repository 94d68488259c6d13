// What a person, or a list of answers, does in a window, as the events that the window's handlers get. Displays speak
// to windows through these alone.
//
// Handlers run inside each of them and may dispose of the window, so a display looks at modalLoopEnded() before it
// touches the window or a control again. Nothing is sent to a window that is not being run (ModalLoop.h).

#ifndef TOOLBOX_CORE_DIALOGS_COMMANDS_H
#define TOOLBOX_CORE_DIALOGS_COMMANDS_H

#include "toolbox/core/dialogs/Window.h"

namespace Toolbox {

/// Presses `control`: a check box or radio button takes its next state, then the control's command, if it has one, is
/// sent through the window's handlers. One that is not usable() does nothing.
void pressControl(Control& control);

/// Chooses item `item` of `popUp`, from 1: sends the item's command, or 0, and sets the value unless a handler took
/// the command. Nothing for a separator, a disabled item or one that is not there, nor where `popUp` is not usable().
void chooseMenuItem(Control& popUp, SInt32 item);

/// Sends `command` to the window's handlers as coming from the window itself: how closing it counts as cancelling.
void sendWindowCommand(Window& window, MenuCommand command);

}  // namespace Toolbox

#endif
