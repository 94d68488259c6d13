// Modal loops: which windows are being run, and which of their loops have been told to end.

#ifndef TOOLBOX_WINDOWS_MODALLOOP_H
#define TOOLBOX_WINDOWS_MODALLOOP_H

#include <Carbon/MacWindows.h>

namespace Toolbox {

/// Whether the loop of `window` was told to end, or the window is gone. A display looks after everything that it has
/// sent to the window, and returns when this is so.
bool modalLoopEnded(WindowRef window);

}  // namespace Toolbox

#endif
