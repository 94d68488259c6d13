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
    return kind == DisplayKind::Window ? "the call did not return: the screen went away"
                                       : "the call did not return: the external ended the process";
}

}  // namespace

CallGuard::CallGuard(DisplayKind kind)
{
    static const int registered = std::atexit(endTheCall);
    unreturned = registered == 0 ? describe(kind) : nullptr;
}

CallGuard::~CallGuard()
{
    unreturned = nullptr;
}

}  // namespace Host
