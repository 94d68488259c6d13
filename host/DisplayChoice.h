// Which of the toolbox's displays shows the dialog.

#ifndef HOST_DISPLAYCHOICE_H
#define HOST_DISPLAYCHOICE_H

#include "host/Options.h"

namespace Host {

/// Has the toolbox show everything on the display that `options` ask for. If they ask for none, that is the unattended
/// one when they bring answers, else a window where there is a screen, else the terminal where there is one, else the
/// unattended one. Returns which it is. Throws Problem when the one that they ask for cannot be had.
DisplayKind chooseDisplay(const Options& options);

}  // namespace Host

#endif
