// Calls that do not return, because something in them ends the process: Qt does when the screen goes away.

#ifndef HOST_CALLGUARD_H
#define HOST_CALLGUARD_H

#include "host/Options.h"

namespace Host {

/// While one lives, whoever calls exit, quick_exit or _exit ends the process with ExitStatus::NotReturned and one line
/// on standard error. Nothing else is done any more. One at a time.
class CallGuard {
public:
    /// Around the loading of an external, in which its code runs.
    CallGuard();

    /// Around its call, with what the line says that an end means on the display `kind`.
    explicit CallGuard(DisplayKind kind);
    ~CallGuard();
    CallGuard(const CallGuard&) = delete;
    CallGuard& operator=(const CallGuard&) = delete;
};

}  // namespace Host

#endif
