// Modal loops: which windows are being run, and which of their loops have been told to end.

#ifndef TOOLBOX_CORE_DIALOGS_MODALLOOP_H
#define TOOLBOX_CORE_DIALOGS_MODALLOOP_H

#include <Carbon/MacWindows.h>

namespace Toolbox {

/// Whether `window` is not, or no longer, to be run: it has no loop, its loop was told to end, or the window is gone.
/// A display asks this each time that it has sent something to the window, and returns when it is true.
bool modalLoopEnded(WindowRef window);

/// Whether what is done in `window` reaches its handlers: its loop is the innermost and was not told to end. So a
/// window that was run sends nothing afterwards, when what its handlers look at may be gone.
bool takesCommands(WindowRef window);

}  // namespace Toolbox

#endif
