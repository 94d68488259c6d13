// An alert as questions on a terminal.

#ifndef TOOLBOX_CORE_TERMINAL_TERMINALALERT_H
#define TOOLBOX_CORE_TERMINAL_TERMINALALERT_H

#include "toolbox/core/dialogs/Alert.h"
#include "toolbox/core/terminal/Terminal.h"

namespace Toolbox {

/// Shows `alert` on `terminal` and asks until one of its buttons is meant; returns that button's number. At the end of
/// input, the cancel button's, else the default button's, else the first one's that can be pressed.
SInt16 askAlert(Terminal& terminal, const Alert& alert);

}  // namespace Toolbox

#endif
