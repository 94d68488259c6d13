// An alert as questions on a terminal.

#ifndef TOOLBOX_DISPLAYS_TERMINALALERT_H
#define TOOLBOX_DISPLAYS_TERMINALALERT_H

#include "toolbox/alerts/Alert.h"
#include "toolbox/displays/Terminal.h"

namespace Toolbox {

/// Shows `alert` on `terminal` and asks until one of its buttons is meant; returns that button's number. At the end of
/// input, the cancel button's, else the default button's, else the first one's that can be pressed.
SInt16 askAlert(Terminal& terminal, const Alert& alert);

}  // namespace Toolbox

#endif
