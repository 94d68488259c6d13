// Code of the external, run so that whatever ends it but a return is noticed and said: it may end the process or the
// host's thread, throw, or abort; and Qt ends the process when the screen goes away. Where memory runs out outside it,
// and nothing may be thrown, the process ends with ExitStatus::NotDone and a line.

#ifndef HOST_CALLGUARD_H
#define HOST_CALLGUARD_H

#include "host/Messages.h"

#include <functional>

namespace Host {

/// What the external's code is run for, as it is told.
enum class Running { Load, Call, CallOnScreen, Release };

/// Runs `code`. When it does not return, the process ends with ExitStatus::NotReturned and one line on standard error;
/// but what the host itself throws, a Problem, goes on to the caller. One at a time.
///
/// Nothing inside the process can notice a system call that ends it, made without the C library, nor another program
/// that takes its place. A signal such as that of a crash ends it as it would without this.
void guarded(Running what, const std::function<void()>& code);

/// To be called when everything is done: the process ends with `status`, and so it does, or with NotReturned and a
/// line, whatever code of the external's comes to run while it ends, its destructors for one.
int guardedEnd(ExitStatus status);

}  // namespace Host

#endif
