#include "host/CallGuard.h"

#include "host/Messages.h"

#include <sys/syscall.h>
#include <unistd.h>

#include <cstdlib>

namespace Host {

namespace {

const char* unreturned = nullptr;  // what to say of the call that is being made
pid_t caller = 0;                  // the process that makes it; what it starts may end as it likes

[[noreturn]] void endProcess(int status)
{
    for (;;)
        syscall(SYS_exit_group, status);
}

void endTheCall()
{
    if (unreturned == nullptr || getpid() != caller)
        return;
    complain(unreturned);
    endProcess(static_cast<int>(ExitStatus::NotReturned));
}

const char* describe(DisplayKind kind)
{
    return kind == DisplayKind::Window
        ? "the call did not return: the screen went away, or the external ended the process"
        : "the call did not return: the external ended the process";
}

void guardWith(const char* line)
{
    static const bool registered = std::atexit(endTheCall) == 0 && std::at_quick_exit(endTheCall) == 0;
    unreturned = registered ? line : nullptr;
    caller = getpid();
}

}  // namespace

CallGuard::CallGuard()
{
    guardWith("the external ended the process while it was loaded");
}

CallGuard::CallGuard(DisplayKind kind)
{
    guardWith(describe(kind));
}

CallGuard::~CallGuard()
{
    unreturned = nullptr;
}

}  // namespace Host

// In place of the C library's, for everything that is loaded: these two call no handlers, and an external would leave
// any status through them, be it the one that stands for a chosen language.

extern "C" void _exit(int status)
{
    Host::endTheCall();
    Host::endProcess(status);
}

extern "C" void _Exit(int status) noexcept
{
    _exit(status);
}
