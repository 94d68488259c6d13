#include "host/CallGuard.h"

#include "host/Messages.h"

#include <gtest/gtest.h>

#include <unistd.h>

#include <cstdlib>

namespace {

using namespace Host;

constexpr int NOT_RETURNED = 5;
static_assert(static_cast<int>(ExitStatus::NotReturned) == NOT_RETURNED, "as it is documented");

// Ends the process from inside a call, as Qt does.
void endInACall(DisplayKind kind)
{
    const CallGuard guard(kind);
    std::exit(0);
}

TEST(CallGuardDeath, WhileLoadingIsPutDownToTheExternal)
{
    const auto endWhileLoading = [] {
        const CallGuard guard;
        std::exit(0);
    };
    EXPECT_EXIT(endWhileLoading(), testing::ExitedWithCode(NOT_RETURNED),
        "^visex-host: the external ended the process while it was loaded\n$");
}

TEST(CallGuardDeath, OnAScreenIsPutDownToTheScreen)
{
    EXPECT_EXIT(endInACall(DisplayKind::Window), testing::ExitedWithCode(NOT_RETURNED),
        "^visex-host: the call did not return: the screen went away, or the external ended the process\n$");
}

TEST(CallGuardDeath, ElsewhereIsPutDownToTheExternal)
{
    for (const DisplayKind kind : {DisplayKind::Terminal, DisplayKind::Unattended}) {
        EXPECT_EXIT(endInACall(kind), testing::ExitedWithCode(NOT_RETURNED),
            "^visex-host: the call did not return: the external ended the process\n$");
    }
}

TEST(CallGuardDeath, NoticesEveryWayToEnd)
{
    using End = void (*)(int);
    for (const End end : {End(std::exit), End(std::quick_exit), End(_exit), End(std::_Exit)}) {
        const auto endIt = [end] {
            const CallGuard guard(DisplayKind::Unattended);
            end(0);
        };
        EXPECT_EXIT(endIt(), testing::ExitedWithCode(NOT_RETURNED),
            "^visex-host: the call did not return: the external ended the process\n$");
    }
}

TEST(CallGuardDeath, IsOverWhenTheCallHasReturned)
{
    const auto endAfterACall = [] {
        {
            const CallGuard guard(DisplayKind::Window);
        }
        std::exit(7);
    };
    EXPECT_EXIT(endAfterACall(), testing::ExitedWithCode(7), "^$");
}

TEST(CallGuardDeath, CanComeAgainAfterwards)
{
    const auto endInASecondCall = [] {
        {
            const CallGuard guard(DisplayKind::Window);
        }
        endInACall(DisplayKind::Unattended);
    };
    EXPECT_EXIT(endInASecondCall(), testing::ExitedWithCode(NOT_RETURNED), "the external ended the process");
}

}  // namespace
