#include "host/CallGuard.h"

#include "tests/support/RowName.h"

#include <gtest/gtest.h>

#include <pthread.h>
#include <unistd.h>

#include <csignal>
#include <cstdlib>
#include <exception>
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

class CallGuardDeath : public testing::TestWithParam<EndCase> { };

TEST_P(CallGuardDeath, SaysHowItEnded)
{
    EXPECT_EXIT(guarded(GetParam().what, GetParam().code), testing::ExitedWithCode(NOT_RETURNED),
        std::string("^visex-host: ") + GetParam().line + "\n$");
}

const char* const ENDED_IN_ITS_CALL = "the call did not return: the external ended the process";

const EndCase END_CASES[] = {
    {"WhileItWasLoaded", Running::Load, [] { std::exit(0); }, "the external ended the process while it was loaded"},
    {"InItsCall", Running::Call, [] { std::exit(0); }, ENDED_IN_ITS_CALL},
    {"OnAScreen", Running::CallOnScreen, [] { std::exit(0); },
        "the call did not return: the screen went away, or the external ended the process"},
    {"WhileItWasReleased", Running::Release, [] { std::exit(0); },
        "the external ended the process while it was released"},
    {"ByQuickExit", Running::Call, [] { std::quick_exit(0); }, ENDED_IN_ITS_CALL},
    {"ByUnderscoreExit", Running::Call, [] { _exit(0); }, ENDED_IN_ITS_CALL},
    {"ByUnderscoreCapitalExit", Running::Call, [] { std::_Exit(0); }, ENDED_IN_ITS_CALL},
    {"ByAnExitInAnExitFunction", Running::Call, [] { std::exit(std::atexit([] { std::exit(0); })); },
        ENDED_IN_ITS_CALL},
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
    {"BySomethingThrown", Running::Call, [] { throw 7; },
        "the call did not return: the external ended the host's thread, or threw something other than a "
        "std::exception"},
    {"ByTheEndOfTheThread", Running::Release, [] { pthread_exit(nullptr); },
        "the external ended the host's thread, or threw something other than a std::exception while it was released"},
};
INSTANTIATE_TEST_SUITE_P(Ends, CallGuardDeath, testing::ValuesIn(END_CASES), RowName());

TEST(CallGuard, LetsTheHostsOwnProblemsPass)
{
    const auto pass = [] {
        try {
            guarded(Running::Load, [] { throw Problem(ExitStatus::ExternalNotLoaded, "none"); });
        } catch (const Problem&) {
            std::exit(7);
        }
    };
    EXPECT_EXIT(pass(), testing::ExitedWithCode(7), "^$") << "and is over then";
}

TEST(CallGuard, IsOverWhenTheCallHasReturned)
{
    // In the process that then ends: another's end is none of the guard's business.
    const auto callAndThen = [](void (*end)()) {
        guarded(Running::Call, [] {});
        end();
    };
    EXPECT_EXIT(callAndThen([] { std::exit(7); }), testing::ExitedWithCode(7), "^$");
    EXPECT_EXIT(callAndThen([] { std::abort(); }), testing::KilledBySignal(SIGABRT), "^$");
    EXPECT_EXIT(callAndThen([] { guarded(Running::Call, [] { std::exit(0); }); }),
        testing::ExitedWithCode(NOT_RETURNED), "the external ended the process")
        << "it can come again";
}

TEST(CallGuard, SaysThatMemoryRanOutOutsideItToo)
{
    const auto runOut = []() noexcept { fail<std::bad_alloc>(); };
    const auto callAndRunOut = [&] {
        guarded(Running::Call, [] {});
        runOut();
    };
    const char* const line = "^visex-host: there is not enough memory\n$";
    EXPECT_EXIT(runOut(), testing::ExitedWithCode(2), line);
    EXPECT_EXIT(callAndRunOut(), testing::ExitedWithCode(2), line);
}

struct LastCase {
    const char* name;
    void (*code)();  // runs while the process ends
    int status;
    const char* line;
};

class GuardedEndDeath : public testing::TestWithParam<LastCase> { };

TEST_P(GuardedEndDeath, HasItsStatusOrSaysWhyNot)
{
    const auto end = [] {
        guarded(Running::Call, [] { std::atexit(GetParam().code); });
        std::exit(guardedEnd(ExitStatus::NothingChosen));
    };
    EXPECT_EXIT(end(), testing::ExitedWithCode(GetParam().status), GetParam().line);
}

const char* const ENDED_AFTERWARDS = "^visex-host: the external ended the process after its call\n$";

const LastCase LAST_CASES[] = {
    {"Nothing", [] {}, 1, "^$"},
    {"Exit", [] { std::exit(0); }, NOT_RETURNED, ENDED_AFTERWARDS},
    {"QuickExit", [] { std::quick_exit(0); }, NOT_RETURNED, ENDED_AFTERWARDS},
    {"UnderscoreExit", [] { _exit(0); }, NOT_RETURNED, ENDED_AFTERWARDS},
    {"Abort", [] { std::abort(); }, NOT_RETURNED,
        "^visex-host: the external called abort, or threw where nothing may be thrown after its call\n$"},
};
INSTANTIATE_TEST_SUITE_P(Last, GuardedEndDeath, testing::ValuesIn(LAST_CASES), RowName());

}  // namespace
