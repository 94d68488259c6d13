#include "host/CallGuard.h"

#include "tests/support/RowName.h"

#include <gtest/gtest.h>

#include <poll.h>
#include <pthread.h>
#include <sys/resource.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <cstdlib>
#include <exception>
#include <functional>
#include <initializer_list>
#include <new>
#include <stdexcept>
#include <string>

namespace {

using namespace Host;

constexpr int NOT_RETURNED = 5;
static_assert(static_cast<int>(ExitStatus::NotReturned) == NOT_RETURNED, "as it is documented");

template <typename Thrown> void fail()
{
    throw Thrown();
}

struct EndCase {
    const char* name;
    Running what;
    void (*code)();
    const char* line;
};

// Ends the process as main does.
[[noreturn]] void endWatched(const std::function<ExitStatus()>& program)
{
    std::exit(static_cast<int>(watched(program)));
}

[[noreturn]] void endWatched(Running what, const std::function<void()>& code)
{
    endWatched([&] {
        guarded(what, code);
        return ExitStatus::NothingChosen;
    });
}

// Asks the watching process to end, and waits for that.
[[noreturn]] void askAndWait(std::initializer_list<int> requests)
{
    for (const int request : requests)
        kill(getppid(), request);
    for (;;)
        pause();
}

class CallGuardDeath : public testing::TestWithParam<EndCase> { };

TEST_P(CallGuardDeath, SaysHowItEnded)
{
    EXPECT_EXIT(endWatched(GetParam().what, GetParam().code), testing::ExitedWithCode(NOT_RETURNED),
        std::string("^visex-host: ") + GetParam().line + "\n$");
}

const char* const ENDED_IN_ITS_CALL = "the call did not return: the external ended the process";

const char* const ENDED_AFTERWARDS = "the external ended the process after its call";

const EndCase END_CASES[] = {
    {"WhileItWasLoaded", Running::Load, [] { std::exit(0); }, "the external ended the process while it was loaded"},
    {"InItsCall", Running::Call, [] { std::exit(0); }, ENDED_IN_ITS_CALL},
    {"OnAScreen", Running::CallOnScreen, [] { std::exit(0); },
        "the call did not return: the screen went away, or the external ended the process"},
    {"WhileItWasReleased", Running::Release, [] { std::exit(0); },
        "the external ended the process while it was released"},
    {"ByQuickExit", Running::Call, [] { std::quick_exit(0); }, ENDED_IN_ITS_CALL},
    {"ByUnderscoreExit", Running::Call, [] { _exit(0); }, ENDED_IN_ITS_CALL},
    {"ByAnExitInAnExitFunction", Running::Call, [] { std::exit(std::atexit([] { std::exit(0); })); },
        ENDED_IN_ITS_CALL},
    {"ByASystemCall", Running::Call, [] { syscall(SYS_exit_group, 1); }, ENDED_IN_ITS_CALL},
    {"ByAnotherProgram", Running::Call, [] { execl("/bin/false", "false", nullptr); }, ENDED_IN_ITS_CALL},
    {"ByACrash", Running::Call, [] { std::signal(SIGSEGV, SIG_DFL), std::raise(SIGSEGV); },
        "the call did not return: the external was ended by a signal, \"Segmentation fault\""},
    {"ByARequestThatNobodyMade", Running::Load, [] { std::raise(SIGTERM); },
        "the external was ended by a signal, \"Terminated\" while it was loaded"},
    {"ByAbort", Running::Call, [] { std::abort(); },
        "the call did not return: the external called abort, or threw where nothing may be thrown"},
    {"ByTerminate", Running::Release, [] { std::terminate(); },
        "the external called abort, or threw where nothing may be thrown while it was released"},
    {"ByAnException", Running::Call, [] { throw std::runtime_error("why\n"); },
        "the call did not return: the external threw an exception, \"why\\\\n\""},
    {"ByAnExceptionWhileLoading", Running::Load, [] { throw std::logic_error("why"); },
        "the external threw an exception, \"why\" while it was loaded"},
    {"ForWantOfMemory", Running::Call, [] { throw std::bad_alloc(); },
        "the call did not return: the external ran out of memory"},
    {"ForWantOfMemoryWhereNothingMayBeThrown", Running::Load, []() noexcept { fail<std::bad_alloc>(); },
        "the external ran out of memory while it was loaded"},
    {"BySomethingThrownWhereNothingMayBe", Running::Call, []() noexcept { fail<int>(); },
        "the call did not return: the external called abort, or threw where nothing may be thrown"},
    {"WithEveryFileClosed", Running::Call, [] { closefrom(0), complain("a word"), throw std::logic_error("why"); },
        "a word\nvisex-host: the call did not return: the external threw an exception, \"why\""},
    {"WithMoreSaidThanIsKept", Running::Call,
        [] {
            closefrom(0);
            for (int lines = 0; lines < 2000; ++lines)
                complain("a word");
            _exit(0);
        },
        "a word\n.*the external ended the process"},
    {"BySomethingThrown", Running::Call, [] { throw 7; },
        "the call did not return: the external ended the host's thread, or threw something other than a "
        "std::exception"},
    {"ByTheEndOfTheThread", Running::Release, [] { pthread_exit(nullptr); },
        "the external ended the host's thread, or threw something other than a std::exception while it was released"},
    {"AfterItsCall", Running::Call, [] { std::atexit([] { std::exit(0); }); }, ENDED_AFTERWARDS},
    {"AfterItsCallByUnderscoreExit", Running::Call, [] { std::atexit([] { _exit(0); }); }, ENDED_AFTERWARDS},
    {"AfterItsCallByAbort", Running::Call, [] { std::atexit([] { std::abort(); }); },
        "the external called abort, or threw where nothing may be thrown after its call"},
};
INSTANTIATE_TEST_SUITE_P(Ends, CallGuardDeath, testing::ValuesIn(END_CASES), RowName());

TEST(CallGuard, LetsTheHostsOwnProblemsPassAndIsOverThen)
{
    const auto pass = [] {
        try {
            guarded(Running::Load, [] { throw Problem(ExitStatus::ExternalNotLoaded, "none"); });
        } catch (const Problem&) {
            std::exit(0);
        }
        return ExitStatus::Chosen;
    };
    EXPECT_EXIT(endWatched(pass), testing::ExitedWithCode(2), "^visex-host: the host ended the process\n$");
}

TEST(CallGuard, SaysHowTheHostEnded)
{
    EXPECT_EXIT(endWatched([]() noexcept { return fail<std::bad_alloc>(), ExitStatus::Chosen; }),
        testing::ExitedWithCode(2), "^visex-host: the host ran out of memory\n$");
    const auto callAndAbort = []() -> ExitStatus {
        guarded(Running::Call, [] {});
        std::abort();
    };
    EXPECT_EXIT(endWatched(callAndAbort), testing::ExitedWithCode(2),
        "^visex-host: the host called abort, or threw where nothing may be thrown\n$");
}

TEST(CallGuard, IsNothingToAProcessThatIsStartedInTheCall)
{
    const auto start = [] {
        if (fork() == 0)
            _exit(0);
    };
    EXPECT_EXIT(endWatched(Running::Call, start), testing::ExitedWithCode(1), "^$");
    const auto goOnInACopy = [] {
        const pid_t copy = fork();
        if (copy != 0)
            _exit(waitpid(copy, nullptr, 0) == copy ? 1 : 0);
    };
    EXPECT_EXIT(endWatched(Running::Load, goOnInACopy), testing::ExitedWithCode(NOT_RETURNED),
        "^visex-host: the external ended the process while it was loaded\n$");
}

TEST(CallGuard, LearnsOfTheEndThoughChildrenWereIgnored)
{
    EXPECT_EXIT((std::signal(SIGCHLD, SIG_IGN), endWatched(Running::Call, [] {})), testing::ExitedWithCode(1), "^$");
}

TEST(CallGuard, EndsWithTheSignalThatAsksItTo)
{
    for (const int request : {SIGHUP, SIGINT, SIGQUIT, SIGTERM}) {
        const auto ask = [request] { askAndWait({request}); };
        EXPECT_EXIT(
            (std::signal(request, SIG_DFL), endWatched(Running::Call, ask)), testing::KilledBySignal(request), "^$");
    }
}

TEST(CallGuard, EndsWithTheFirstOfTwoThatAskItTo)
{
    const auto askTwice = [] {
        sigset_t two;
        sigemptyset(&two);
        sigaddset(&two, SIGHUP);
        sigaddset(&two, SIGTERM);
        sigprocmask(SIG_BLOCK, &two, nullptr);
        kill(getppid(), SIGHUP);
        kill(getppid(), SIGTERM);
        // In either order: of two that have come, the watching process handles the last first.
        for (sigset_t waiting = {}; sigismember(&waiting, SIGHUP) != 1 || sigismember(&waiting, SIGTERM) != 1;)
            sigpending(&waiting);
        sigdelset(&two, SIGTERM);
        sigprocmask(SIG_UNBLOCK, &two, nullptr);
    };
    EXPECT_EXIT(
        (std::signal(SIGHUP, SIG_DFL), endWatched(Running::Call, askTwice)), testing::KilledBySignal(SIGHUP), "^$");
}

TEST(CallGuard, PassesNothingOnThatIsToBeIgnored)
{
    const auto ask = [] {
        std::signal(SIGHUP, SIG_DFL);
        askAndWait({SIGHUP, SIGTERM});
    };
    EXPECT_EXIT((std::signal(SIGHUP, SIG_IGN), endWatched(Running::Call, ask)), testing::KilledBySignal(SIGTERM), "^$");
}

TEST(CallGuard, LeavesNothingRunningWhenItIsKilled)
{
    int ends[2];
    ASSERT_EQ(pipe(ends), 0);
    const auto ask = [] { askAndWait({SIGKILL}); };
    EXPECT_EXIT(
        (std::signal(SIGTERM, SIG_IGN), endWatched(Running::Call, ask)), testing::KilledBySignal(SIGKILL), "^$");
    close(ends[1]);
    pollfd closing{ends[0], POLLIN, 0};
    EXPECT_EQ(poll(&closing, 1, 60000), 1) << "somebody has it open yet";
    close(ends[0]);
}

TEST(CallGuard, SaysThatNoProcessCanBeStarted)
{
    const auto end = [] {
        const rlimit none{0, 0};
        setrlimit(RLIMIT_NPROC, &none);
        if (geteuid() == 0 && setuid(65534) != 0)  // the superuser has no limit
            return;
        _exit(static_cast<int>(watched([] { return ExitStatus::Chosen; })));
    };
    EXPECT_EXIT(end(), testing::ExitedWithCode(2),
        "^visex-host: cannot start a child process: Resource temporarily unavailable\n$");
}

TEST(CallGuard, LeavesTheStatusAsItIsUnlessCodeAfterTheCallChangesIt)
{
    for (void (*const last)() : {+[] {}, +[] { _exit(1); }})
        EXPECT_EXIT(endWatched(Running::Call, [last] { std::atexit(last); }), testing::ExitedWithCode(1), "^$");
}

}  // namespace
