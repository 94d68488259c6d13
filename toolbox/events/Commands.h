// What a person, or a list of answers, does in a window, as the events that the window's handlers get. Displays speak
// to windows through these alone.

#ifndef TOOLBOX_EVENTS_COMMANDS_H
#define TOOLBOX_EVENTS_COMMANDS_H

#include "toolbox/windows/Window.h"

namespace Toolbox {

/// Presses `control`: sends its command, if it has one, through the window's handlers. A disabled one does nothing.
/// The window may be gone afterwards.
void pressControl(Control& control);

/// Chooses item `item` of `popUp`, from 1: sends the item's command, or 0, and sets the value unless a handler took
/// the command. Nothing for a separator, a disabled item or one that is not there.
void chooseMenuItem(Control& popUp, SInt32 item);

/// Sends `command` to the window's handlers as coming from the window itself: how closing it counts as cancelling.
void sendWindowCommand(Window& window, MenuCommand command);

}  // namespace Toolbox

#endif
