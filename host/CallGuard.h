// Runs the external's code so that any end other than a normal return is noticed and reported: it may end the process
// or the host's thread, crash, throw, or abort; and Qt ends the process when the screen goes away. So all is done in a
// child process, which the process that was started only watches: it notices every end of the child, even one by a
// system call or after another program took the child's place.

#ifndef HOST_CALLGUARD_H
#define HOST_CALLGUARD_H

#include "host/Messages.h"

#include <functional>

namespace Host {

/// What runs: the host alone, or the external's code, and what for.
enum class Running { Host, Load, Call, CallOnScreen, Release, End };

/// Runs `program` in a child process, and returns in both: in the child what `program` returned, with which it has to
/// end; in the process that was started, what that one has to end with, when the child has ended. That is the same
/// unless the child ended otherwise. Then a line on standard error says how, and the status is NotReturned; or NotDone
/// where the host alone ran. A signal that asks this process to end is passed on, and ends both. To be called before
/// there are threads.
ExitStatus watched(const std::function<ExitStatus()>& program);

/// Runs `code` of the external's. What it throws ends the process with NotReturned and a line; but what the host itself
/// throws, a Problem, goes on to the caller. One at a time.
void guarded(Running what, const std::function<void()>& code);

}  // namespace Host

#endif
