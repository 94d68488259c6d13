#include "host/CallGuard.h"

#include "host/Problem.h"
#include "host/StandardStreams.h"

#include <unistd.h>

#include <cstdlib>

namespace Host {

namespace {

const char* unreturned = nullptr;  // what to say of the call that is being made

void endTheCall()
{
    if (unreturned == nullptr)
        return;
    complain(unreturned);
    _exit(static_cast<int>(ExitStatus::NotReturned));
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
