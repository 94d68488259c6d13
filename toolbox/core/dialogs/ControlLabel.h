// What a control is called, for a person who cannot see what stands beside it.

#ifndef TOOLBOX_CORE_DIALOGS_CONTROLLABEL_H
#define TOOLBOX_CORE_DIALOGS_CONTROLLABEL_H

#include "toolbox/core/dialogs/Window.h"

namespace Toolbox {

/// The static text that stands before `control` in the window, as its label where it has no title of its own. Null if
/// there is none.
const Control* labelBefore(const Control& control);

/// The title of `control`, on one line and without a colon at its end; where it has none, the static text that stands
/// before it in the window. Empty if there is none either.
QString labelOf(const Control& control);

}  // namespace Toolbox

#endif
